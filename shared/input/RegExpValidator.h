// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * Accepts a text that matches a pattern of QRegExp, or a mask of digits, from its first to its last
 * character.
 *
 * With the pattern "[A-Z]{2}": Acceptable "AB"; Invalid "", "A", "ABC". With the numerical mask
 * "00-00": Acceptable "12-34"; Invalid "1-34". It never returns Intermediate, so a text that does
 * not match yet is Invalid while it is typed. Every Invalid text is logged at level Debug under
 * "RegExpValidator".
 *
 * The limits are those of QRegExp. With a pattern that QRegExp cannot compile every text is
 * Invalid. The same holds for more than 1000 nested groups, because QRegExp might run out of stack.
 * A parenthesis in a character class or after a backslash does not count as a group.
 */
class OVO_SHARED_EXPORT RegExpValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(QString pattern READ pattern WRITE setPattern NOTIFY patternChanged)

public:
    /**
     * Creates a rule without a parent. The caller owns it. With @p numericalMask true, setPattern()
     * takes masks: "0" matches one digit, "." matches a point, and every other character means
     * what it means in a pattern of QRegExp.
     */
    explicit RegExpValidator(bool numericalMask);
    ~RegExpValidator() override;

    /**
     * The pattern that texts are matched against. For a numerical mask this is the pattern made of
     * the mask, not the mask.
     */
    QString pattern() const;
    /**
     * Sets the pattern or the mask. Default: the empty pattern, which only the empty text matches.
     * A mask is converted to Latin-1: each other character becomes "?". Does not emit
     * patternChanged().
     */
    void setPattern(const QString &pattern);

    /** Returns Acceptable or Invalid. Does not change @p input. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Sets a hint of one line, which contains the pattern or the mask as it was set. */
    void updateHint() override;

Q_SIGNALS:
    /** Never emitted: declared because the property names it. */
    void patternChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
