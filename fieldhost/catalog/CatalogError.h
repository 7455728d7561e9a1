#pragma once

#include <QString>

namespace Tavro::FieldHost {

/** Why a catalog file cannot be used. */
struct CatalogError
{
    /** The file, as it was named. */
    QString file;
    /** Line of the first mistake, from 1; 0 when no place of the file is to blame. */
    int line = 0;
    /** Column in that line, in characters, from 1; 0 together with the line. */
    int column = 0;
    /** What is wrong, without a period at its end. May quote the file, control characters too. */
    QString cause;
};

} // namespace Tavro::FieldHost
