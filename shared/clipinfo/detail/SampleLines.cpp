// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/clipinfo/detail/SampleLines.h"

#include <QLatin1String>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string_view>
#include <vector>

namespace Tavro::Shared::detail {

namespace {

constexpr int s_indexWidth = 5; // with the sign, if there is one
constexpr int s_decimals = 3;

// sign, digits of the largest double, decimal point, decimals
constexpr std::size_t s_numberSize =
    1 + std::numeric_limits<double>::max_exponent10 + 1 + 1 + s_decimals;
constexpr std::size_t s_intSize = 11; // with sign
constexpr std::size_t s_lineSize = sizeof "Val=;;;;\n" + 2 * s_intSize + 4 * s_numberSize;

// Each of these writes to memory that is large enough, and returns the end.

char *writeDigits(char *to, quint32 number, int width)
{
    std::array<char, s_intSize> digits;
    const char *const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    to = std::fill_n(to, width - (end - digits.data()), '0'); // none, if it is wider
    return std::copy(static_cast<const char *>(digits.data()), end, to);
}

char *writeIndex(char *to, qint32 index)
{
    const auto number = static_cast<quint32>(index);
    if (index >= 0) {
        return writeDigits(to, number, s_indexWidth);
    }
    *to++ = '-';
    return writeDigits(to, 0 - number, s_indexWidth - 1);
}

char *writeFixedPoint(char *to, double value)
{
    // Floating point rounds, but keeps the order: only a whole sum leaves open on which side of the
    // half the number lies. Qt looks at its exact value, and rounds halves away from zero.
    const double thousandths = std::abs(value) * 1000 + 0.5;
    if (thousandths < 4e9) { // neither large nor NaN
        const auto whole = static_cast<quint32>(thousandths);
        if (thousandths > whole) {
            if (value < 0) {
                *to++ = '-';
            }
            to = writeDigits(to, whole / 1000, 1);
            *to++ = '.';
            return writeDigits(to, whole % 1000, s_decimals);
        }
    }
    const QByteArray number = QByteArray::number(value, 'f', s_decimals);
    return std::copy(number.begin(), number.end(), to);
}

} // namespace

void SampleLines::append(qint32 number, double time, double distance, int code, double pan,
                         double tilt)
{
    std::array<char, s_lineSize> line;
    char *end = writeIndex(std::copy_n("Val", 3, line.data()), number);
    *end++ = '=';
    end = writeFixedPoint(end, time);
    *end++ = ';';
    end = writeFixedPoint(end, distance);
    *end++ = ';';
    end = std::to_chars(end, end + s_intSize, code).ptr;
    for (const double angle : {pan, tilt}) {
        *end++ = ';';
        end = writeFixedPoint(end, angle);
    }
    *end++ = '\n';
    m_text.append(line.data(), static_cast<int>(end - line.data()));
}

void SampleLines::write(QTextStream &out) const
{
    const std::string_view text(m_text.constData(), static_cast<std::size_t>(m_text.size()));
    std::vector<std::string_view> keys;
    for (std::size_t begin = 0; begin < text.size(); begin = text.find('\n', begin) + 1) {
        keys.push_back(text.substr(begin, text.find('=', begin) - begin));
    }
    // after Val99999 their order is not that of the samples
    std::stable_sort(keys.begin(), keys.end());
    for (auto key = keys.cbegin(); key != keys.cend(); ++key) {
        const auto next = std::next(key);
        if (next == keys.cend() || *next != *key) {
            const auto begin = static_cast<std::size_t>(key->data() - text.data());
            const std::string_view line = text.substr(begin, text.find('\n', begin) + 1 - begin);
            out << QLatin1String(line.data(), static_cast<int>(line.size()));
        }
    }
}

} // namespace Tavro::Shared::detail
