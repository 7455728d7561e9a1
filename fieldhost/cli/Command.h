// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::FieldHost {

class CommandLine;
class Console;

/** A sub-command of the program. The summary and the help are texts for CommandText::tr(). */
struct Command
{
    const char *name;
    const char *summary; // a line for the list of commands
    const char *help;
    /** Names of its options, with blanks between; "=" ends one that has a value. */
    const char *options;
    /**
     * Names of its arguments, with blanks between. One that ends in "..." may come several times,
     * one in brackets need not be there.
     */
    const char *arguments;
    /** Gets what was typed behind its name; returns an ExitCode. */
    int (*run)(const CommandLine &line, Console &console);
    /** Option with which it draws pictures, for which it needs fonts; null for none. */
    const char *pictureOption = nullptr;
};

/** `clock`: shows and sets the device's clock. */
extern const Command clockCommand;
/** `compare`: whether two files have the same content. */
extern const Command compareCommand;
/** `convert`: lengths from one unit to another. */
extern const Command convertCommand;
/** `countries`: the codes of countries and languages. */
extern const Command countriesCommand;
/** `delete`: deletes directories and files. */
extern const Command deleteCommand;
/** `export`: copies directories and files durably. */
extern const Command exportCommand;
/** `free`: space left on a volume. */
extern const Command freeCommand;
/** `gui`: shows the screens. */
extern const Command guiCommand;
/** `locale`: how a project shows numbers, dates and units. */
extern const Command localeCommand;
/** `name`: a name that no file in a directory has. */
extern const Command nameCommand;
/** `projection`: shows the texts of the map's projection. */
extern const Command projectionCommand;
/** `record`: records the clip information of a simulated drive. */
extern const Command recordCommand;
/** `safe-name`: a text as a name that any drive takes. */
extern const Command safeNameCommand;
/** `size`: bytes in directories. */
extern const Command sizeCommand;
/** `trace`: draws what a clip information file holds. */
extern const Command traceCommand;
/** `usb`: shows the USB drive, mounts, marks and unmounts it. */
extern const Command usbCommand;
/** `validate`: judges texts by the rules of a form. */
extern const Command validateCommand;

} // namespace Tavro::FieldHost
