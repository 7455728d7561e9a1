// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/FakeCommands.h"
#include "tests/support/PrivateMounts.h"

#include <QCoreApplication>
#include <QTest>

#include <functional>

/** For initTestCase(): nothing below works without a machine of the test's own. */
#define SKIP_WITHOUT_PRIVATE_MOUNTS() \
    if (!Test::PrivateMounts::entered()) { \
        QSKIP("mounts and device nodes need the rights of root, and no user namespace"); \
    }

/** QTEST_GUILESS_MAIN for a test that has PrivateMounts. */
#define USB_TEST_MAIN(TestObject) \
    int main(int argc, char *argv[]) \
    { \
        Test::PrivateMounts::enter(); \
        QCoreApplication application(argc, argv); \
        TestObject test; \
        return QTest::qExec(&test, argc, argv); \
    }

namespace Test {

/**
 * sync() does nothing in these tests but call @p function: on a busy machine it takes seconds,
 * and writes what others have to write.
 */
void onSync(const std::function<void()> &function);

/** A line of the mount table. */
QByteArray mounted(const QByteArray &device, const QByteArray &mountPoint,
                   const QByteArray &fileSystemType = "vfat");

/**
 * The commands that the library runs, as fakes that record their calls.
 *
 * At first "mount" and "umount" succeed and do nothing, and "usleep" does not sleep.
 */
class UsbCommands : public FakeCommands
{
public:
    UsbCommands();

    /** From now on "mount" puts @p table into the mount table, and "umount" empties that. */
    void mountingSets(const QByteArray &table);
    /** The first @p times calls of "umount" end with what @p failure does; later ones succeed. */
    void failUmount(int times, const QByteArray &failure);
    /** What was recorded since the last call. */
    QStringList takeJournal();
};

} // namespace Test
