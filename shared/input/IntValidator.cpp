#include "shared/input/IntValidator.h"

#include "shared/input/detail/RefusedText.h"

namespace Tavro::Shared {

IntValidator::IntValidator() = default;

IntValidator::~IntValidator() = default;

int IntValidator::bottom() const
{
    return m_bottom;
}

void IntValidator::setBottom(int bottom)
{
    m_bottom = bottom;
    m_bottomSet = true;
    m_hintOutdated = true;
}

int IntValidator::top() const
{
    return m_top;
}

void IntValidator::setTop(int top)
{
    m_top = top;
    m_topSet = true;
    m_hintOutdated = true;
}

int IntValidator::step() const
{
    return m_step;
}

void IntValidator::setStep(int step)
{
    m_step = step;
    m_hintOutdated = true;
}

QValidator::State IntValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (input.isEmpty()) {
        return QValidator::Intermediate;
    }
    QString number = input;
    if (number.endsWith(QLatin1Char('%'))) {
        number.chop(1);
    }
    bool isNumber = false;
    const int value = number.toInt(&isNumber, 10);
    if (!isNumber) {
        detail::logRefusedText(QStringLiteral("IntValidator"), input);
        return QValidator::Invalid;
    }
    if (value > m_top || value < m_bottom || !isOnGrid(value)) {
        return QValidator::Invalid;
    }
    return QValidator::Acceptable;
}

bool IntValidator::isOnGrid(int value) const
{
    if (m_step == 0) {
        return true;
    }
    // The difference wraps around at 32 bits. The remainder is taken in 64: -2147483648 % -1 in
    // 32 ends the process.
    const auto distance =
        static_cast<qint32>(static_cast<quint32>(value) - static_cast<quint32>(m_bottom));
    return static_cast<qint64>(distance) % m_step == 0;
}

void IntValidator::updateHint()
{
    m_hint.clear();
    if (m_bottomSet) {
        m_hint += QStringLiteral("Minimum value larger or equal %1\n").arg(m_bottom);
    }
    if (m_topSet) {
        m_hint += QStringLiteral("Maximum value smaller or equal %1\n").arg(m_top);
    }
    if (m_step != 0) {
        m_hint += QStringLiteral("Value quantized with step size %1\n").arg(m_step);
    }
}

void IntValidator::setRange(int bottom, int top)
{
    setBottom(bottom);
    setTop(top);
}

} // namespace Tavro::Shared
