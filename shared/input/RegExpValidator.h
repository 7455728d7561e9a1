#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * A text that matches a pattern of QRegExp as a whole, or a mask of digits.
 *
 * With the pattern "[A-Z]{2}": Acceptable "AB"; Invalid "", "A", "ABC". As a numerical mask
 * "00-00": Acceptable "12-34"; Invalid "1-34". Intermediate: none, so a text that does not match
 * yet is refused while it is typed. Every refusal is logged.
 *
 * The limits are those of QRegExp: a pattern that it cannot compile refuses every text, and so does
 * one with more than a thousand groups within each other, for which the engine might run out of
 * stack. Parentheses in a class or behind a backslash are no groups.
 */
class OVO_SHARED_EXPORT RegExpValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(QString pattern READ pattern WRITE setPattern NOTIFY patternChanged)

public:
    /**
     * A rule without a parent; belongs to the caller. With @p numericalMask patterns are masks: a
     * "0" stands for a digit, "." for itself, and everything else for what it means in a pattern.
     */
    explicit RegExpValidator(bool numericalMask);
    ~RegExpValidator() override;

    /**
     * The pattern that texts are matched against: for a numerical mask the one made of it, not
     * the mask itself. Empty until one is set, which only the empty text matches.
     */
    QString pattern() const;
    /**
     * @p pattern is a pattern, or else a mask, of which only the Latin-1 characters count: "?"
     * stands in for every other one.
     */
    void setPattern(const QString &pattern);

    /** Acceptable or Invalid. Leaves @p input as it is. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** One line with the pattern, or mask, as it was set. */
    void updateHint() override;

Q_SIGNALS:
    /** Declared for the property system; nothing emits it. */
    void patternChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
