#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/Validator.h"

#include <memory>

namespace Tavro::Shared {

/**
 * A number within bounds, both included, and on a grid of steps counted from the bottom. "." and
 * "," both separate decimals.
 *
 * With bottom 0, top 1 and step 0.1: Acceptable "0.3", "0,3", "1e-1"; Intermediate ""; Invalid
 * "0.35", "1.1", "nan", "a", "30%".
 *
 * **While bottom is not set it is the smallest positive number**, so that "0" and everything below
 * is Invalid.
 *
 * A text that is no number is logged, with its separators as rewritten; one that is out of range
 * or off the grid is not, and neither is "nan", which counts as a number.
 */
class OVO_SHARED_EXPORT DoubleValidator : public Validator
{
    Q_OBJECT
    Q_PROPERTY(double bottom READ bottom WRITE setBottom NOTIFY bottomChanged)
    Q_PROPERTY(double top READ top WRITE setTop NOTIFY topChanged)
    Q_PROPERTY(double step READ step WRITE setStep NOTIFY stepChanged)

public:
    /** A rule without a parent; belongs to the caller. */
    DoubleValidator();
    ~DoubleValidator() override;

    /** Lowest number allowed, and the one that the grid starts at; at
     * first 2.2250738585072014e-308. */
    double bottom() const;
    /** From now on the hint names it, too. */
    void setBottom(double bottom);
    /** Highest number allowed; at first 1.7976931348623157e+308. */
    double top() const;
    /** From now on the hint names it, too. */
    void setTop(double top);
    /** Distance of the grid's numbers; up to 1e-12 either side of 0, as at first, for no grid. */
    double step() const;
    /** A negative @p step makes the same grid as a positive one. */
    void setStep(double step);

    /**
     * Intermediate for the empty text. Rewrites @p input: each "." and each "," becomes the
     * decimal point of CLocaleSupport::getCurrentLocale(). The number is then read by the default
     * QLocale, so both locales have to agree, as they do once GlobalLocaleData has chosen.
     *
     * A number is on the grid when it is at most 1e-12 steps away from it. **That is less than
     * rounding takes once there are some thousand steps**, unless the step is a power of two: with
     * bottom 0 and step 0.01, "109.32" is Invalid, and so are 1 366 of the 20 001 numbers up to
     * 200; with step 0.1, "819.3" is the first. To ask for a number of decimals, leave the step out
     * and add a RegExpValidator.
     */
    QValidator::State validate(QString &input, int &pos) const override;
    /**
     * Up to three lines: bottom if it was set, top if it was set, step if it is not 0; six
     * significant digits, with a point in every locale.
     */
    void updateHint() override;

    /** setBottom() and setTop(). */
    virtual void setRange(double bottom, double top);

Q_SIGNALS:
    /** Declared for the property system; nothing emits it. */
    void bottomChanged(double bottom);
    /** Declared for the property system; nothing emits it. */
    void topChanged(double top);
    /** Declared for the property system; nothing emits it. */
    void stepChanged(double step);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
