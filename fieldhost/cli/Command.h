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
};

/** `export`: copies folders and files durably. */
extern const Command exportCommand;
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
/** `validate`: judges texts by the rules of a form. */
extern const Command validateCommand;

} // namespace Tavro::FieldHost
