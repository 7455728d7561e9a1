// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/NotEmptyValidator.h"

namespace Tavro::Shared {

class Q_DECL_HIDDEN NotEmptyValidator::Private
{
};

NotEmptyValidator::NotEmptyValidator() = default;

NotEmptyValidator::~NotEmptyValidator() = default;

QValidator::State NotEmptyValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    return input.isEmpty() ? QValidator::Invalid : QValidator::Acceptable;
}

void NotEmptyValidator::updateHint()
{
    m_hint = tr("Expression can not be empty\n");
}

} // namespace Tavro::Shared
