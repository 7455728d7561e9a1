// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/CInputType.h"

#include <QStringRef>

namespace Tavro::Shared {

/**
 * Converts codes of the catalog templates.
 *
 * Static functions without state. Any thread. Nothing blocks.
 */
class OVO_SHARED_EXPORT DataConverter
{
public:
    /**
     * Kind of data of a data-type code: "TXT", "INT", "DEC", "BOL" or "DAT", in capitals.
     * CInputType::InputTypeInvalid for any other text.
     */
    static CInputType::InputType stringToDataType(const QStringRef &code);
};

} // namespace Tavro::Shared
