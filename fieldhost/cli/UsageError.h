#pragma once

#include <QString>

namespace Tavro::FieldHost {

class Console;

/**
 * Says why the command line of the command @p command was not understood, and where to read on;
 * returns the exit code for that.
 */
int usageError(Console &console, const char *command, const QString &reason);

} // namespace Tavro::FieldHost
