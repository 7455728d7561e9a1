// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace Test {

/**
 * A machine of the test's own where the library looks for drives: /media is empty, /dev has no
 * disk, and /etc/mtab says what the test wants. Temporary files are in memory, below /media.
 *
 * Only this process and the ones that it starts see any of it, and it is gone with the last of
 * them, however they end.
 */
namespace PrivateMounts {

/**
 * To be called first in main(), before there is a second thread. False when the system refuses
 * it, which it does to everybody but root, and to the root of a user namespace; nothing is changed
 * then.
 */
bool enter();
/** Whether enter() has succeeded. The functions below are for then. */
bool entered();

/** What /etc/mtab holds from now on. */
void setMountTable(const QByteArray &content);
/** What it holds; null when there is none. */
QByteArray mountTable();
/** Takes /etc/mtab away. */
void removeMountTable();
/** Makes /etc/mtab what it is everywhere: the kernel's table, of what this process sees. */
void useSystemMountTable();

/** What /etc/fstab holds from now on. */
void setFstab(const QByteArray &content);

/** Creates the node of a block device, in place of what has the name. */
void makeBlockNode(const QString &path, dev_t device);

} // namespace PrivateMounts

} // namespace Test
