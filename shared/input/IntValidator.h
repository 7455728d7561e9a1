#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * A whole number within bounds, both included, and on a grid of steps counted from the bottom.
 * A "%" at the end is allowed.
 *
 * With bottom 0, top 10 and step 5: Acceptable "5", "10%"; Intermediate ""; Invalid "3", "15",
 * "-5", "five", "%". Numbers are read as QString::toInt() reads them in base 10: in ASCII digits,
 * whatever the locale, with white space around them.
 *
 * While bottom is not set, the grid starts at -2147483648, so that with step 5 alone "3" and "8"
 * are Acceptable and "0" is not. Differences wrap around at 32 bits.
 *
 * A text that is no whole number is logged, one that is out of range or off the grid is not.
 */
class OVO_SHARED_EXPORT IntValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(int bottom READ bottom WRITE setBottom NOTIFY bottomChanged)
    Q_PROPERTY(int top READ top WRITE setTop NOTIFY topChanged)
    Q_PROPERTY(int step READ step WRITE setStep NOTIFY stepChanged)

public:
    /** A rule without a parent; belongs to the caller. */
    IntValidator();
    ~IntValidator() override;

    /** Lowest number allowed, and the one that the grid starts at; at first -2147483648. */
    int bottom() const;
    /** From now on the hint names it, too. */
    void setBottom(int bottom);
    /** Highest number allowed; at first 2147483647. */
    int top() const;
    /** From now on the hint names it, too. */
    void setTop(int top);
    /** Distance of the grid's numbers; 0, as at first, for no grid. */
    int step() const;
    /** A negative @p step makes the same grid as a positive one. */
    void setStep(int step);

    /** Intermediate for the empty text. Leaves @p input as it is. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Up to three lines: bottom if it was set, top if it was set, step if it is not 0. */
    void updateHint() override;

    /** setBottom() and setTop(). */
    virtual void setRange(int bottom, int top);

Q_SIGNALS:
    /** Declared for the property system; nothing emits it. */
    void bottomChanged(int bottom);
    /** Declared for the property system; nothing emits it. */
    void topChanged(int top);
    /** Declared for the property system; nothing emits it. */
    void stepChanged(int step);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
