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

/** `compare`: whether two files have the same content. */
extern const Command compareCommand;
/** `delete`: deletes folders and files. */
extern const Command deleteCommand;
/** `export`: copies folders and files durably. */
extern const Command exportCommand;
/** `free`: space left on a volume. */
extern const Command freeCommand;
/** `name`: a name that no file in a folder has. */
extern const Command nameCommand;
/** `safe-name`: a text as a name that any drive takes. */
extern const Command safeNameCommand;
/** `size`: bytes in folders. */
extern const Command sizeCommand;
/** `record`: records the clip information of a simulated drive. */
extern const Command recordCommand;
/** `trace`: draws what a clip information file holds. */
extern const Command traceCommand;
/** `clock`: shows and sets the device's clock. */
extern const Command clockCommand;
/** `projection`: shows the texts of the map's projection. */
extern const Command projectionCommand;
/** `locale`: how a project shows numbers, dates and units. */
extern const Command localeCommand;
/** `convert`: lengths from one unit to another. */
extern const Command convertCommand;
/** `countries`: the codes of countries and languages. */
extern const Command countriesCommand;
/** `usb`: shows the USB drive, mounts, marks and unmounts it. */
extern const Command usbCommand;
/** `validate`: judges texts by the rules of a form. */
extern const Command validateCommand;

} // namespace Tavro::FieldHost
