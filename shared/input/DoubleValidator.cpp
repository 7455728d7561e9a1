#include "shared/input/DoubleValidator.h"

#include "shared/input/detail/DecimalPoint.h"
#include "shared/input/detail/RefusedText.h"

#include <QLocale>

#include <cmath>

namespace Tavro::Shared {

namespace {

// for the step, and for the distance from the grid, which is counted in steps
constexpr double s_tolerance = 1e-12;

} // namespace

DoubleValidator::DoubleValidator() = default;

DoubleValidator::~DoubleValidator() = default;

double DoubleValidator::bottom() const
{
    return m_bottom;
}

void DoubleValidator::setBottom(double bottom)
{
    m_bottom = bottom;
    m_bottomSet = true;
    m_hintOutdated = true;
}

double DoubleValidator::top() const
{
    return m_top;
}

void DoubleValidator::setTop(double top)
{
    m_top = top;
    m_topSet = true;
    m_hintOutdated = true;
}

double DoubleValidator::step() const
{
    return m_step;
}

void DoubleValidator::setStep(double step)
{
    m_step = step;
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
    // nothing holds for a NaN, so it falls through
    if (m_bottom <= value && value <= m_top && isOnGrid(value)) {
        return QValidator::Acceptable;
    }
    return QValidator::Invalid;
}

bool DoubleValidator::isOnGrid(double value) const
{
    if (std::abs(m_step) > s_tolerance) {
        const double steps = (value - m_bottom) / m_step;
        return std::abs(steps - std::round(steps)) <= s_tolerance;
    }
    return true;
}

void DoubleValidator::updateHint()
{
    m_hint.clear();
    if (m_bottomSet) {
        m_hint += QStringLiteral("Minimum value larger or equal %1\n").arg(m_bottom);
    }
    if (m_topSet) {
        m_hint += QStringLiteral("Maximum value smaller or equal %1\n").arg(m_top);
    }
    // not by the tolerance: a step too small to be checked is told all the same
    if (m_step != 0.0) {
        m_hint += QStringLiteral("Value quantized with step size %1\n").arg(m_step);
    }
}

void DoubleValidator::setRange(double bottom, double top)
{
    setBottom(bottom);
    setTop(top);
}

} // namespace Tavro::Shared
