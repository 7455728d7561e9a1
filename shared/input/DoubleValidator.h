// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * Accepts a number within inclusive bounds that lies on a grid of steps counted from bottom. Both
 * "." and "," are decimal points.
 *
 * With bottom 0, top 1 and step 0.1: Acceptable "0.3", "0,3", "1e-1"; Intermediate ""; Invalid
 * "0.35", "1.1", "nan", "a", "30%".
 *
 * **The default of bottom is the smallest positive number**, so "0" and negative numbers are
 * Invalid until bottom is set.
 *
 * A text that is not a number is logged at level Debug under "DoubleValidator", with the decimal
 * points already rewritten. A number that is out of range or off the grid is not logged. "nan" is
 * Invalid and not logged, because it is read as a number.
 */
class OVO_SHARED_EXPORT DoubleValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(double bottom READ bottom WRITE setBottom NOTIFY bottomChanged)
    Q_PROPERTY(double top READ top WRITE setTop NOTIFY topChanged)
    Q_PROPERTY(double step READ step WRITE setStep NOTIFY stepChanged)

public:
    /** Creates a rule without a parent. The caller owns it. */
    DoubleValidator();
    ~DoubleValidator() override;

    /** Lowest accepted number, inclusive. The grid starts here. */
    double bottom() const;
    /**
     * Sets the lower bound, in the unit of the field. Default: 2.2250738585072014e-308. The next
     * hint includes a bound that was set. Does not emit bottomChanged().
     */
    void setBottom(double bottom);
    /** Highest accepted number, inclusive. */
    double top() const;
    /**
     * Sets the upper bound, in the unit of the field. Default: 1.7976931348623157e+308. The next
     * hint includes a bound that was set. Does not emit topChanged().
     */
    void setTop(double top);
    /** Distance between two neighbours on the grid. */
    double step() const;
    /**
     * Sets the step, in the unit of the field. Default: 0. From -1e-12 to 1e-12 there is no grid.
     * The sign has no effect. The next hint includes any step but 0. Does not emit stepChanged().
     */
    void setStep(double step);

    /**
     * Returns Intermediate for the empty text, else Acceptable or Invalid. Rewrites @p input: each
     * "." and each "," becomes the decimal point of CLocaleSupport::getCurrentLocale(). The default
     * QLocale then reads the number, so both locales must have the same decimal point. They do
     * once GlobalLocaleData has set the default locale.
     *
     * A number is on the grid when it is at most 1e-12 steps away from it. **The rounding error is
     * larger than that after some thousand steps**, unless the step is a power of two. With bottom
     * 0 and step 0.01, "109.32" is Invalid, as are 1 366 of the 20 001 numbers up to 200. With step
     * 0.1, "819.3" is the first Invalid one. To limit the number of decimals, set no step and add
     * a RegExpValidator.
     */
    QValidator::State validate(QString &input, int &pos) const override;
    /**
     * Sets a hint of up to three lines: bottom if it was set, top if it was set, step if it is not
     * 0. Numbers have six significant digits, and the decimal point is "." in every locale.
     */
    void updateHint() override;

    /** Calls setBottom() and then setTop(). */
    virtual void setRange(double bottom, double top);

Q_SIGNALS:
    /** Never emitted: declared because the property names it. */
    void bottomChanged(double bottom);
    /** Never emitted: declared because the property names it. */
    void topChanged(double top);
    /** Never emitted: declared because the property names it. */
    void stepChanged(double step);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
