// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/**
 * Formats numbers by the pictures of the catalog templates. The decimal point is "." in every
 * locale.
 *
 * | picture | 7.5 | |
 * | --- | --- | --- |
 * | "0" | 8 | |
 * | "00" | 08 | at least two characters |
 * | "0.00" | 7.50 | |
 * | "00.00" | 07.50 | at least five characters |
 * | "00.000" | 07.500 | at least six characters |
 *
 * These five pictures round as printf() does: the exact value counts, and halves go to the even
 * digit. "0" gives 6 for 6.5, "0.00" gives 0.12 for 0.125. Infinities and NaN are padded with
 * blanks to the width of the picture.
 *
 * Static functions without state. Any thread. Nothing blocks.
 */
class OVO_SHARED_EXPORT DoubleFormater
{
public:
    /**
     * Returns @p value by the picture @p format. An empty @p format gives up to six decimals
     * without trailing zeros. Any other text gives six significant digits, as printf("%g") does.
     */
    static QString toString(const double &value, const QString &format);
    /**
     * Reads the number in @p text by the rules of the C locale and formats it as above. Returns
     * @p text unchanged when it is not a number.
     */
    static QString toString(const QString &text, const QString &format);
    /**
     * Returns @p text without the zeros at its end, and without a "." that is then the last
     * character. Returns a text without "." unchanged. The first character is never removed as a
     * zero.
     */
    static QString TrimString(QString text);
};

} // namespace Tavro::Shared
