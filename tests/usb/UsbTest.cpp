// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/usb/UsbTest.h"

#include <QFile>

#include <unistd.h>

namespace {

std::function<void()> &syncHook()
{
    static std::function<void()> hook;
    return hook;
}

} // namespace

// takes the place of the system's in all of the program
extern "C" void sync() noexcept
{
    if (syncHook()) {
        syncHook()();
    }
}

namespace Test {

void onSync(const std::function<void()> &function)
{
    syncHook() = function;
}

QByteArray mounted(const QByteArray &device, const QByteArray &mountPoint,
                   const QByteArray &fileSystemType)
{
    return device + ' ' + mountPoint + ' ' + fileSystemType + " rw,relatime 0 0\n";
}

UsbCommands::UsbCommands()
{
    add(QStringLiteral("mount"));
    add(QStringLiteral("umount"));
    add(QStringLiteral("usleep"));
}

void UsbCommands::mountingSets(const QByteArray &table)
{
    add(QStringLiteral("mount"), "printf '%s' '" + table + "' > /etc/mtab");
    add(QStringLiteral("umount"), ": > /etc/mtab");
}

void UsbCommands::failUmount(int times, const QByteArray &failure)
{
    // the calls are counted in the journal, this one included
    add(QStringLiteral("umount"),
        "calls=0\nwhile read -r line; do\n"
        "case $line in umount*) calls=$((calls + 1));; esac\ndone < '"
            + QFile::encodeName(journalPath()) + "'\nif [ $calls -le " + QByteArray::number(times)
            + " ]; then " + failure + "; fi");
}

QStringList UsbCommands::takeJournal()
{
    QStringList lines = journal();
    QFile::remove(journalPath());
    return lines;
}

} // namespace Test
