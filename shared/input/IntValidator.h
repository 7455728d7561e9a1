// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * Accepts a whole number within inclusive bounds that lies on a grid of steps counted from bottom.
 * One "%" at the end is allowed.
 *
 * With bottom 0, top 10 and step 5: Acceptable "5", "10%"; Intermediate ""; Invalid "3", "15",
 * "-5", "five", "%". QString::toInt() in base 10 reads the number: ASCII digits in every locale,
 * white space around the number is ignored.
 *
 * Until bottom is set the grid starts at -2147483648: with step 5 alone "3" and "8" are Acceptable
 * and "0" is Invalid. The distance from bottom wraps around at 32 bits.
 *
 * A text that is not a whole number is logged at level Debug under "IntValidator". A number that
 * is out of range or off the grid is not logged.
 */
class OVO_SHARED_EXPORT IntValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(int bottom READ bottom WRITE setBottom NOTIFY bottomChanged)
    Q_PROPERTY(int top READ top WRITE setTop NOTIFY topChanged)
    Q_PROPERTY(int step READ step WRITE setStep NOTIFY stepChanged)

public:
    /** Creates a rule without a parent. The caller owns it. */
    IntValidator();
    ~IntValidator() override;

    /** Lowest accepted number, inclusive. The grid starts here. */
    int bottom() const;
    /**
     * Sets the lower bound, in the unit of the field. Default: -2147483648. The next hint includes
     * a bound that was set. Does not emit bottomChanged().
     */
    void setBottom(int bottom);
    /** Highest accepted number, inclusive. */
    int top() const;
    /**
     * Sets the upper bound, in the unit of the field. Default: 2147483647. The next hint includes
     * a bound that was set. Does not emit topChanged().
     */
    void setTop(int top);
    /** Distance between two neighbours on the grid. */
    int step() const;
    /**
     * Sets the step, in the unit of the field. Default: 0, no grid. The sign has no effect. The
     * next hint includes any step but 0. Does not emit stepChanged().
     */
    void setStep(int step);

    /**
     * Returns Intermediate for the empty text, else Acceptable or Invalid. Does not change
     * @p input.
     */
    QValidator::State validate(QString &input, int &pos) const override;
    /**
     * Sets a hint of up to three lines: bottom if it was set, top if it was set, step if it is not
     * 0.
     */
    void updateHint() override;

    /** Calls setBottom() and then setTop(). */
    virtual void setRange(int bottom, int top);

Q_SIGNALS:
    /** Never emitted: declared because the property names it. */
    void bottomChanged(int bottom);
    /** Never emitted: declared because the property names it. */
    void topChanged(int top);
    /** Never emitted: declared because the property names it. */
    void stepChanged(int step);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
