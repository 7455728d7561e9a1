// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/StringLengthValidator.h"

#include "shared/input/detail/RefusedText.h"

#include <limits>

namespace Tavro::Shared {

class Q_DECL_HIDDEN StringLengthValidator::Private
{
public:
    int bottom = 0;
    int top = std::numeric_limits<int>::max();
    bool bottomSet = false; // as the user's rule, not as the limit of the type
    bool topSet = false;
};

StringLengthValidator::StringLengthValidator()
    : d(std::make_unique<Private>())
{
}

StringLengthValidator::~StringLengthValidator() = default;

int StringLengthValidator::bottom() const
{
    return d->bottom;
}

void StringLengthValidator::setBottom(int bottom)
{
    d->bottom = bottom;
    d->bottomSet = true;
    m_hintOutdated = true;
}

int StringLengthValidator::top() const
{
    return d->top;
}

void StringLengthValidator::setTop(int top)
{
    d->top = top;
    d->topSet = true;
    m_hintOutdated = true;
}

QValidator::State StringLengthValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (d->bottom <= input.size() && input.size() <= d->top) {
        return QValidator::Acceptable;
    }
    detail::logRefusedText(QStringLiteral("StringLengthValidator"), input);
    return QValidator::Invalid;
}

void StringLengthValidator::updateHint()
{
    m_hint.clear();
    if (d->bottomSet) {
        m_hint += tr("Minimum length larger or equal %1\n").arg(d->bottom);
    }
    if (d->topSet) {
        m_hint += tr("Maximum length smaller or equal %1\n").arg(d->top);
    }
}

void StringLengthValidator::setRange(int bottom, int top)
{
    setBottom(bottom);
    setTop(top);
}

} // namespace Tavro::Shared
