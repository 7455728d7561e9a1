#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/** Numbers of bytes as text. Static functions, any thread. */
class OVO_SHARED_EXPORT SizeFormater
{
public:
    /**
     * @p bytes with one decimal, a blank and the unit: "B", "KB", "MB", "GB", "TB", "PB" or "EB",
     * each 1024 of the one before. The decimal mark is "." in every locale. Negative numbers stay
     * in "B".
     *
     * The unit is that of the whole number, before rounding: one byte less than a megabyte is
     * "1024.0 KB".
     */
    static QString toString(long long bytes);
};

} // namespace Tavro::Shared
