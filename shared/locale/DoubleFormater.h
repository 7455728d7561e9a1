#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/**
 * Numbers by the pictures of the catalog templates, with "." as decimal mark whatever the locale.
 *
 * | picture | 7.5 | |
 * | --- | --- | --- |
 * | "0" | 8 | |
 * | "00" | 08 | at least two characters |
 * | "0.00" | 7.50 | |
 * | "00.00" | 07.50 | at least five characters |
 * | "00.000" | 07.500 | at least six characters |
 *
 * These five round as the C library does, by the exact value and halves to the even digit: "0"
 * gives 6 for 6.5, "0.00" gives 0.12 for 0.125. Infinities and NaN are padded with blanks.
 *
 * Static functions, any thread.
 */
class OVO_SHARED_EXPORT DoubleFormater
{
public:
    /**
     * @p value by the picture @p format. An empty format gives up to six decimals and no
     * redundant zero; any other text gives six significant digits, with an exponent where that is
     * shorter.
     */
    static QString toString(const double &value, const QString &format);
    /** The number in @p text, read as in C, likewise; @p text as it is when it is no number. */
    static QString toString(const QString &text, const QString &format);
    /**
     * @p text without the zeros at its end, and without the "." when nothing follows it. A text
     * without "." stays as it is; the first character is never taken for a redundant zero.
     */
    static QString TrimString(QString text);
};

} // namespace Tavro::Shared
