// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/fieldhost/Handshake.h"
#include "tests/fieldhost/TestDrive.h"
#include "tests/qml/screens/ScreenTest.h"
#include "tests/support/FileTree.h"
#include "tests/support/LoopDevice.h"

#include <memory>

namespace Tavro::Test {

/** For screens that work with files: real ones, below a directory that is the user's home. */
class FileScreenTest : public ScreenTest
{
    Q_OBJECT
    Q_PROPERTY(QString home READ home NOTIFY homeChanged)
    Q_PROPERTY(bool mayMount READ mayMount CONSTANT)

public:
    ~FileScreenTest() override;

    QString home() const { return m_home ? m_home->path() : QString(); }
    /** Whether there may be disks and drives of the test's own. */
    bool mayMount() const;

    /** A home with "project", of "data.bin" and the empty "later.txt", and an empty "target". */
    Q_INVOKABLE void begin();
    /** Takes everything away that begin() and the functions below have made. */
    Q_INVOKABLE void end();

    Q_INVOKABLE void makeFile(const QString &path, int size);
    Q_INVOKABLE void makeDirectory(const QString &path);
    Q_INVOKABLE bool exists(const QString &path) const;
    Q_INVOKABLE bool areSame(const QString &directory, const QString &other) const;
    Q_INVOKABLE void remove(const QString &path);
    /** Changes a byte of a file and leaves its size. */
    Q_INVOKABLE void spoil(const QString &path);

    /** The next copy is held when "data.bin" is written, with "later.txt" still to come. */
    Q_INVOKABLE void holdCopies();
    Q_INVOKABLE bool waitUntilHeld();
    Q_INVOKABLE void letGo();

    /** Mounts a disk of 1 MiB on the directory "target". */
    Q_INVOKABLE void mountDisk();
    /** Writes until nothing more goes onto it. */
    Q_INVOKABLE void fillDisk();
    /** Takes it away, whoever uses it. */
    Q_INVOKABLE void pullDisk();

    /** Mounts a volume of ext4 on the directory "target". */
    Q_INVOKABLE void mountVolume();
    /** Whoever changes anything there waits until it thaws. */
    Q_INVOKABLE void freezeVolume();
    Q_INVOKABLE void thawVolume();

    /** There is a USB drive, not mounted. */
    Q_INVOKABLE void plugDrive();
    Q_INVOKABLE bool isDriveClean() const;

Q_SIGNALS:
    void homeChanged();

private:
    void freeze(unsigned long request) const;
    QString path(const char *name) const { return m_home->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<::Test::TemporaryFolder> m_home;
    std::unique_ptr<::Test::Handshake> m_handshake;
    std::unique_ptr<::Test::LoopDevice> m_loop;
    bool m_isFrozen = false;
    std::unique_ptr<::Test::TestDrive> m_drive;
};

} // namespace Tavro::Test
