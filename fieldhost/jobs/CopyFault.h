#pragma once

#include <QString>

namespace Tavro::FieldHost {

/** The first file or folder that a copy lacks. */
struct CopyFault
{
    QString source;
    QString cause; // a sentence without its full stop
};

} // namespace Tavro::FieldHost
