// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/ValidationDoubleValidator.h"

#include "shared/input/detail/DecimalPoint.h"

namespace Tavro::Shared::Validation {

class Q_DECL_HIDDEN DoubleValidator::Private
{
};

DoubleValidator::DoubleValidator(QObject *parent)
    : QDoubleValidator(parent)
{
}

DoubleValidator::DoubleValidator(double bottom, double top, int decimals, QObject *parent)
    : QDoubleValidator(bottom, top, decimals, parent)
{
}

DoubleValidator::~DoubleValidator() = default;

QValidator::State DoubleValidator::validate(QString &input, int &pos) const
{
    fixup(input);
    return QDoubleValidator::validate(input, pos);
}

void DoubleValidator::fixup(QString &input) const
{
    // skips QDoubleValidator::fixup(): its repairs are not wanted here
    QValidator::fixup(input); // clazy:exclude=skipped-base-method
    detail::useCurrentDecimalPoint(input);
}

} // namespace Tavro::Shared::Validation
