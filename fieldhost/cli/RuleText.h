// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/input/TextValidator.h"

#include <QString>
#include <QVariantMap>

namespace Tavro::FieldHost {

/** A rule as somebody typed it: "int:bottom=0,top=10". */
struct RuleText
{
    QString text; // as it was typed
    Shared::TextValidator::ValidatorType type = Shared::TextValidator::ValidatorInt;
    QVariantMap options;
    QString error; // why it is none; empty when it is one
};

/**
 * Reads TYPE, or TYPE:KEY=VALUE,KEY=VALUE. The values of "pattern" and "format" reach to the end of
 * @p text, commas included.
 */
RuleText parseRule(const QString &text);

} // namespace Tavro::FieldHost
