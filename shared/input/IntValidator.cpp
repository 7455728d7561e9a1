// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/IntValidator.h"

#include "shared/input/detail/RefusedText.h"

#include <limits>

namespace Tavro::Shared {

class Q_DECL_HIDDEN IntValidator::Private
{
public:
    bool isOnGrid(int value) const
    {
        if (step == 0) {
            return true;
        }
        // The difference wraps around at 32 bits. The remainder is taken in 64: -2147483648 % -1
        // in 32 ends the process.
        const auto distance =
            static_cast<qint32>(static_cast<quint32>(value) - static_cast<quint32>(bottom));
        return static_cast<qint64>(distance) % step == 0;
    }

    int bottom = std::numeric_limits<int>::min();
    int top = std::numeric_limits<int>::max();
    int step = 0;
    bool bottomSet = false; // as the user's rule, not as the limit of the type
    bool topSet = false;
};

IntValidator::IntValidator()
    : d(std::make_unique<Private>())
{
}

IntValidator::~IntValidator() = default;

int IntValidator::bottom() const
{
    return d->bottom;
}

void IntValidator::setBottom(int bottom)
{
    d->bottom = bottom;
    d->bottomSet = true;
    m_hintOutdated = true;
}

int IntValidator::top() const
{
    return d->top;
}

void IntValidator::setTop(int top)
{
    d->top = top;
    d->topSet = true;
    m_hintOutdated = true;
}

int IntValidator::step() const
{
    return d->step;
}

void IntValidator::setStep(int step)
{
    d->step = step;
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
    if (value > d->top || value < d->bottom || !d->isOnGrid(value)) {
        return QValidator::Invalid;
    }
    return QValidator::Acceptable;
}

void IntValidator::updateHint()
{
    m_hint.clear();
    if (d->bottomSet) {
        m_hint += tr("Minimum value larger or equal %1\n").arg(d->bottom);
    }
    if (d->topSet) {
        m_hint += tr("Maximum value smaller or equal %1\n").arg(d->top);
    }
    if (d->step != 0) {
        m_hint += tr("Value quantized with step size %1\n").arg(d->step);
    }
}

void IntValidator::setRange(int bottom, int top)
{
    setBottom(bottom);
    setTop(top);
}

} // namespace Tavro::Shared
