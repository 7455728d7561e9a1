// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QTemporaryDir>

namespace Test {

/** A temporary folder that also takes away what no QString can name. */
class TemporaryFolder : public QTemporaryDir
{
public:
    ~TemporaryFolder();
};

/**
 * A chain of folders, each in the one before, far deeper than a path reaches; gone with the object.
 * Every folder holds a file with the same content.
 */
class DeepTree
{
public:
    /** @p path is the first of @p levels folders; aborts the test when it cannot create one. */
    DeepTree(const QString &path, int levels, const QByteArray &content);
    ~DeepTree();

    DeepTree(const DeepTree &) = delete;
    DeepTree &operator=(const DeepTree &) = delete;

private:
    const QByteArray m_path;
};

/** Creates a file, and the folders above it, with that content; aborts the test when it cannot. */
void makeFile(const QString &path, const QByteArray &content = QByteArray());

/** Content of a file; null when it cannot be read. */
QByteArray contentOf(const QString &path);

/** The permission bits of a file, as the system keeps them; -1 when it does not exist. */
int modeOf(const QString &path);

/** @p size bytes that differ from place to place, the same for the same @p seed. */
QByteArray someBytes(int size, int seed = 1);

/**
 * What lies below a directory: relative path to content, with a null content and a final "/" for
 * each directory. Hidden entries count, links are followed.
 */
QMap<QString, QByteArray> treeOf(const QString &directory);

} // namespace Test
