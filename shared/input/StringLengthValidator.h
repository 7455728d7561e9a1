#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * A text of a certain length, bounds included, in UTF-16 code units: an emoji counts two.
 *
 * With bottom 2 and top 3: Acceptable "ab", "abc"; Invalid "", "a", "abcd". Intermediate: none, so
 * a text that is still too short is refused while it is typed. Every refusal is logged.
 */
class OVO_SHARED_EXPORT StringLengthValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(int bottom READ bottom WRITE setBottom NOTIFY bottomChanged)
    Q_PROPERTY(int top READ top WRITE setTop NOTIFY topChanged)

public:
    /** A rule without a parent; belongs to the caller. */
    StringLengthValidator();
    ~StringLengthValidator() override;

    /** Shortest length allowed; at first 0. */
    int bottom() const;
    /** From now on the hint names it, too. */
    void setBottom(int bottom);
    /** Longest length allowed; at first 2147483647. */
    int top() const;
    /** From now on the hint names it, too. */
    void setTop(int top);

    /** Acceptable or Invalid. Leaves @p input as it is. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Up to two lines: bottom if it was set, top if it was set. */
    void updateHint() override;

    /** setBottom() and setTop(). */
    virtual void setRange(int bottom, int top);

Q_SIGNALS:
    /** Declared for the property system; nothing emits it. */
    void bottomChanged(int bottom);
    /** Declared for the property system; nothing emits it. */
    void topChanged(int top);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
