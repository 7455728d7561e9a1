#include "shared/locale/CVersionComparer.h"

#include <QStringRef>

#include <array>
#include <optional>

namespace Tavro::Shared {

namespace {

constexpr std::size_t s_partCount = 4;

using Parts = std::array<QStringRef, s_partCount>;

// nothing unless there are exactly four; they may be empty
std::optional<Parts> partsOf(const QString &version)
{
    Parts parts;
    int begin = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool last = i + 1 == parts.size();
        const int dot = version.indexOf(QLatin1Char('.'), begin);
        if ((dot < 0) != last) {
            return std::nullopt;
        }
        const int end = last ? version.size() : dot;
        parts[i] = QStringRef(&version, begin, end - begin);
        begin = end + 1;
    }
    return parts;
}

} // namespace

int CVersionComparer::compare(const QString &a, const QString &b, bool &ok)
{
    ok = false;
    const std::optional<Parts> partsOfA = partsOf(a);
    const std::optional<Parts> partsOfB = partsOf(b);
    if (!partsOfA || !partsOfB) {
        return 0;
    }
    for (std::size_t i = 0; i < s_partCount; ++i) {
        bool readA = false;
        bool readB = false;
        const int partOfA = (*partsOfA)[i].toInt(&readA);
        const int partOfB = (*partsOfB)[i].toInt(&readB);
        if (!readA || !readB) {
            return 0;
        }
        if (partOfA != partOfB) {
            ok = true;
            return partOfA > partOfB ? 1 : -1;
        }
    }
    ok = true;
    return 0;
}

} // namespace Tavro::Shared
