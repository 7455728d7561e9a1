#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QVariant>

namespace Tavro::Base {

/** Between the catalogs' boolean columns and a plain bool. Static functions, any thread. */
class OVO_SHARED_EXPORT CBaseTypeConversion
{
public:
    CBaseTypeConversion() = delete;

    /**
     * The variant's own conversion, QVariant::toBool(): false for an invalid variant, zero and
     * the texts "", "0" and "false" in any case.
     */
    static bool tavroBoolToBool(const QVariant &value);

    /** A valid variant of type bool, which is what the catalogs' boolean columns store. */
    static QVariant boolToTavroBool(bool value);
};

} // namespace Tavro::Base
