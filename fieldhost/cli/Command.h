#pragma once

#include <QStringList>

namespace Tavro::FieldHost {

/** A sub-command of the program. */
struct Command
{
    const char *name;
    const char *summary; // a line for the list of commands
    /** Gets the program's name, the command's and what follows; returns an ExitCode. */
    int (*run)(const QStringList &arguments);
    /** Option with which the command draws pictures, for which it needs fonts; null for none. */
    const char *pictureOption = nullptr;
};

/** `export`: copies folders and files durably. */
extern const Command exportCommand;
/** `record`: records the clip information of a simulated drive. */
extern const Command recordCommand;
/** `trace`: draws what a clip information file holds. */
extern const Command traceCommand;

} // namespace Tavro::FieldHost
