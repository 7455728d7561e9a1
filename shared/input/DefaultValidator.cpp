// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/DefaultValidator.h"

namespace Tavro::Shared {

class Q_DECL_HIDDEN DefaultValidator::Private
{
};

DefaultValidator::DefaultValidator() = default;

DefaultValidator::~DefaultValidator() = default;

QValidator::State DefaultValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(input)
    Q_UNUSED(pos)
    return QValidator::Acceptable;
}

void DefaultValidator::updateHint()
{
    m_hint.clear();
}

} // namespace Tavro::Shared
