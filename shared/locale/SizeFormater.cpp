// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/SizeFormater.h"

#include <array>

namespace Tavro::Shared {

namespace {

// each with the blank that separates it from the number
constexpr std::array s_units = {
    QStringView(u" B"), //
    QStringView(u" KB"), //
    QStringView(u" MB"), //
    QStringView(u" GB"), //
    QStringView(u" TB"), //
    QStringView(u" PB"), //
    QStringView(u" EB"), // 2^63 bytes are 8 of it
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
    const QStringView unitText = s_units.at(unit);
    text.append(unitText.data(), static_cast<int>(unitText.size()));
    return text;
}

} // namespace Tavro::Shared
