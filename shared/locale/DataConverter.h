#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/CInputType.h"

#include <QStringRef>

namespace Tavro::Shared {

/** What the codes in catalog templates mean. Static functions, any thread. */
class OVO_SHARED_EXPORT DataConverter
{
public:
    /**
     * Kind of input for a data-type code: "TXT", "INT", "DEC", "BOL" or "DAT", in capitals.
     * CInputType::InputTypeInvalid for everything else.
     */
    static CInputType::InputType stringToDataType(const QStringRef &code);
};

} // namespace Tavro::Shared
