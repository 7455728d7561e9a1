// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/forms/FieldRules.h"

#include "shared/input/CInputType.h"
#include "shared/input/TextValidator.h"

#include <limits>

namespace Tavro::FieldHost {

using Shared::CInputType;
using Shared::TextValidator;

namespace {

QVariantMap limitsOf(const CInputType &type)
{
    QVariantMap options;
    if (type.minimumValue().isValid()) {
        options.insert(QStringLiteral("bottom"), type.minimumValue());
    }
    if (type.maximumValue().isValid()) {
        options.insert(QStringLiteral("top"), type.maximumValue());
    }
    return options;
}

QVariantMap decimalLimitsOf(const CInputType &type)
{
    QVariantMap options = limitsOf(type);
    // a column without a minimum takes 0 and negative numbers, the rule without one does not
    if (!options.contains(QStringLiteral("bottom"))) {
        options.insert(QStringLiteral("bottom"), std::numeric_limits<double>::lowest());
    }
    return options;
}

} // namespace

void addFieldRules(TextValidator &rules, const CInputType &type)
{
    if (type.hasList() && !type.editableList()) {
        return;
    }
    switch (type.inputType()) {
    case CInputType::InputTypeInteger:
        rules.addValidator(TextValidator::ValidatorInt, limitsOf(type));
        break;
    case CInputType::InputTypeDecimal:
        rules.addValidator(TextValidator::ValidatorDouble, decimalLimitsOf(type));
        break;
    case CInputType::InputTypeDate:
        rules.addValidator(TextValidator::ValidatorDateTimeMask,
                           {{QStringLiteral("format"), type.displayFormat()}});
        break;
    default:
        break;
    }
    if (type.maximumTextLength() > 0) {
        rules.addValidator(TextValidator::ValidatorLength,
                           {{QStringLiteral("top"), type.maximumTextLength()}});
    }
    if (type.mandatory()) {
        rules.addValidator(TextValidator::ValidatorNotEmpty);
    }
}

} // namespace Tavro::FieldHost
