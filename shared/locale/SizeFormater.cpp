#include "shared/locale/SizeFormater.h"

#include <array>

namespace Tavro::Shared {

namespace {

constexpr std::array s_units = {
    QLatin1String("B"), //
    QLatin1String("KB"), //
    QLatin1String("MB"), //
    QLatin1String("GB"), //
    QLatin1String("TB"), //
    QLatin1String("PB"), //
    QLatin1String("EB"), // 2^63 bytes are 8 of it
};

} // namespace

QString SizeFormater::toString(long long bytes)
{
    auto number = static_cast<double>(bytes);
    std::size_t unit = 0;
    // the integer decides: the double of 2^60 - 1 is 2^60 already
    for (long long count = bytes; count > 1023; count >>= 10) {
        ++unit;
        number *= 1.0 / 1024; // exact
    }
    QString text = QString::number(number, 'f', 1);
    text += QLatin1Char(' ');
    text += s_units.at(unit);
    return text;
}

} // namespace Tavro::Shared
