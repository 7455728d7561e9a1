// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/DoubleFormater.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace Tavro::Shared {

namespace {

struct Picture
{
    QStringView text;
    int width; // minimum, padded with zeros
    int decimals;
};

constexpr std::array s_pictures = {
    Picture{u"0", 1, 0}, //
    Picture{u"00", 2, 0}, //
    Picture{u"0.00", 3, 2}, //
    Picture{u"00.00", 5, 2}, //
    Picture{u"00.000", 6, 3}, //
};

constexpr std::size_t s_maxWidth = 6;
constexpr std::size_t s_maxDecimals = 3;

// What printf("%0*.*f") writes in the "C" locale. printf itself follows setlocale(), which
// QCoreApplication calls; QString::number() and asprintf() round halves away from zero.
QString formatted(double value, const Picture &picture)
{
    // room for padding, sign, digits of the largest double, decimal point, decimals
    constexpr std::size_t size =
        s_maxWidth + 1 + std::numeric_limits<double>::max_exponent10 + 1 + 1 + s_maxDecimals;
    std::array<char, size> buffer;
    char *begin = buffer.data() + s_maxWidth;
    const char *const end = std::to_chars(begin, buffer.data() + buffer.size(), value,
                                          std::chars_format::fixed, picture.decimals)
                                .ptr;

    const bool finite = std::isfinite(value);
    const bool signBeforeZeros = finite && *begin == '-';
    if (signBeforeZeros) {
        ++begin;
    }
    const int width = signBeforeZeros ? picture.width - 1 : picture.width;
    while (end - begin < width) {
        *--begin = finite ? '0' : ' ';
    }
    if (signBeforeZeros) {
        *--begin = '-';
    }
    return QString::fromLatin1(begin, static_cast<int>(end - begin));
}

} // namespace

QString DoubleFormater::toString(const double &value, const QString &format)
{
    if (format.isEmpty()) {
        return TrimString(QString::number(value, 'f', 6));
    }
    const auto *const picture =
        std::find_if(s_pictures.begin(), s_pictures.end(),
                     [&format](const Picture &candidate) { return format == candidate.text; });
    if (picture == s_pictures.end()) {
        return QString::number(value, 'g', 6);
    }
    return formatted(value, *picture);
}

QString DoubleFormater::toString(const QString &text, const QString &format)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok ? toString(value, format) : text;
}

QString DoubleFormater::TrimString(QString text)
{
    if (!text.contains(QLatin1Char('.'))) {
        return text;
    }
    int size = text.size();
    while (text.at(size - 1) == QLatin1Char('0')) { // ends at the decimal point at the latest
        --size;
    }
    if (text.at(size - 1) == QLatin1Char('.')) {
        --size;
    }
    text.truncate(size);
    return text;
}

} // namespace Tavro::Shared
