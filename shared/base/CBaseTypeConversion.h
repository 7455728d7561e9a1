// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QVariant>

namespace Tavro::Base {

/**
 * Converts between the boolean columns of the catalogs and bool.
 *
 * Static functions without state. Any thread. Nothing blocks or fails.
 */
class OVO_SHARED_EXPORT CBaseTypeConversion
{
public:
    CBaseTypeConversion() = delete;

    /**
     * Returns value.toBool(): false for an invalid variant, for zero and for the texts "", "0" and
     * "false", the last in any case.
     */
    static bool tavroBoolToBool(const QVariant &value);

    /** Returns a valid variant of type bool, the type that boolean columns store. */
    static QVariant boolToTavroBool(bool value);
};

} // namespace Tavro::Base
