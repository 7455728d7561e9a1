// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/base/CBaseTypeConversion.h"

namespace Tavro::Base {

bool CBaseTypeConversion::tavroBoolToBool(const QVariant &value)
{
    return value.toBool();
}

QVariant CBaseTypeConversion::boolToTavroBool(bool value)
{
    return QVariant(value);
}

} // namespace Tavro::Base
