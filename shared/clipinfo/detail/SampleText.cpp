// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/clipinfo/detail/SampleText.h"

#include <QByteArray>
#include <QString>
#include <QVarLengthArray>

#include <charconv>
#include <cmath>

namespace Tavro::Shared::detail {

namespace {

using Text = QVarLengthArray<char, 128>; // on the stack for all that a recording holds

constexpr int s_decimals = 3;
constexpr double s_largest = 1e15; // what is smaller fits below
constexpr int s_fixedPointSize = 1 + 15 + 1 + s_decimals; // sign, digits, mark, decimals
constexpr int s_intSize = 11; // of the smallest one

// Four decimals that end in 5 are exact for odd sixteenths alone. QString::number() rounds them
// away from zero, std::to_chars() to the even neighbour.
bool isHalfway(double value)
{
    return std::abs(std::fmod(value, 0.125)) == 0.0625;
}

template<typename... Arguments> void appendChars(Text &text, int room, Arguments... numberAndFormat)
{
    const int begin = text.size();
    text.resize(begin + room);
    const auto result =
        std::to_chars(text.data() + begin, text.data() + text.size(), numberAndFormat...);
    text.resize(static_cast<int>(result.ptr - text.data()));
}

// as QString::number() would, but without a text of its own for each number
void appendFixedPoint(Text &text, double value)
{
    const bool isFitting = std::abs(value) < s_largest; // neither is NaN
    if (!isFitting || isHalfway(value)) {
        const QByteArray number = QByteArray::number(value, 'f', s_decimals);
        text.append(number.constData(), number.size());
        return;
    }
    const double unsignedZero = value + 0.0; // -0.0 has no sign in the file
    appendChars(text, s_fixedPointSize, unsignedZero, std::chars_format::fixed, s_decimals);
}

} // namespace

QString sampleText(double time, double distance, int code, double pan, double tilt)
{
    Text text;
    appendFixedPoint(text, time);
    text.append(';');
    appendFixedPoint(text, distance);
    text.append(';');
    appendChars(text, s_intSize, code);
    for (const double angle : {pan, tilt}) {
        text.append(';');
        appendFixedPoint(text, angle);
    }
    return QString::fromLatin1(text.constData(), text.size());
}

} // namespace Tavro::Shared::detail
