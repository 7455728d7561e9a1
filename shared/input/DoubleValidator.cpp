// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/DoubleValidator.h"

#include "shared/input/detail/DecimalPoint.h"
#include "shared/input/detail/RefusedText.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace Tavro::Shared {

namespace {

// for the step, and for the distance from the grid, which is counted in steps
constexpr double s_tolerance = 1e-12;

} // namespace

class Q_DECL_HIDDEN DoubleValidator::Private
{
public:
    bool isOnGrid(double value) const
    {
        if (std::abs(step) > s_tolerance) {
            const double steps = (value - bottom) / step;
            return std::abs(steps - std::round(steps)) <= s_tolerance;
        }
        return true;
    }

    // min() of a floating point type is its smallest positive number: forms rely on a field
    // without a bottom refusing 0
    double bottom = std::numeric_limits<double>::min();
    double top = std::numeric_limits<double>::max();
    double step = 0.0;
    bool bottomSet = false; // as the user's rule, not as the limit of the type
    bool topSet = false;
};

DoubleValidator::DoubleValidator()
    : d(std::make_unique<Private>())
{
}

DoubleValidator::~DoubleValidator() = default;

double DoubleValidator::bottom() const
{
    return d->bottom;
}

void DoubleValidator::setBottom(double bottom)
{
    d->bottom = bottom;
    d->bottomSet = true;
    m_hintOutdated = true;
}

double DoubleValidator::top() const
{
    return d->top;
}

void DoubleValidator::setTop(double top)
{
    d->top = top;
    d->topSet = true;
    m_hintOutdated = true;
}

double DoubleValidator::step() const
{
    return d->step;
}

void DoubleValidator::setStep(double step)
{
    d->step = step;
    m_hintOutdated = true;
}

QValidator::State DoubleValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (input.isEmpty()) {
        return QValidator::Intermediate;
    }
    detail::useCurrentDecimalPoint(input);
    bool isNumber = false;
    const double value = QLocale().toDouble(input, &isNumber);
    if (!isNumber) {
        detail::logRefusedText(QStringLiteral("DoubleValidator"), input);
        return QValidator::Invalid;
    }
    // every comparison with NaN is false
    if (d->bottom <= value && value <= d->top && d->isOnGrid(value)) {
        return QValidator::Acceptable;
    }
    return QValidator::Invalid;
}

void DoubleValidator::updateHint()
{
    m_hint.clear();
    if (d->bottomSet) {
        m_hint += tr("Minimum value larger or equal %1\n").arg(d->bottom);
    }
    if (d->topSet) {
        m_hint += tr("Maximum value smaller or equal %1\n").arg(d->top);
    }
    // without the tolerance: the hint also names a step too small to be checked
    if (d->step != 0.0) {
        m_hint += tr("Value quantized with step size %1\n").arg(d->step);
    }
}

void DoubleValidator::setRange(double bottom, double top)
{
    setBottom(bottom);
    setTop(top);
}

} // namespace Tavro::Shared
