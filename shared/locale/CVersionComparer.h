#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::Shared {

/** Order of version numbers such as "1.10.0.2". Static functions, any thread. */
class OVO_SHARED_EXPORT CVersionComparer
{
public:
    /**
     * 1 when @p a is newer than @p b, -1 when it is older, 0 when they are the same.
     *
     * @p ok tells whether they could be compared; the result is 0 when not. Both need four parts.
     * Parts are read as 32-bit integers from the left and only until two differ: what stands
     * behind the difference may be anything.
     */
    static int compare(const QString &a, const QString &b, bool &ok);
};

} // namespace Tavro::Shared
