// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/support/FileTree.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QtDebug>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <utility>

namespace Test {

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored; // the base class says what is left
    std::filesystem::remove_all(QFile::encodeName(path()).toStdString(), ignored);
}

namespace {

int openFolder(int folder, const char *name)
{
    return ::openat(folder, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

} // namespace

DeepTree::DeepTree(const QString &path, int levels, const QByteArray &content)
    : m_path(QFile::encodeName(path))
{
    const char *name = m_path.constData();
    int folder = AT_FDCWD;
    for (int i = 0; i < levels; ++i) {
        const bool isMade = ::mkdirat(folder, name, 0777) == 0;
        const int below = openFolder(folder, std::exchange(name, "d"));
        const int file = ::openat(below, "f", O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
        if (!isMade
            || ::write(file, content.constData(), static_cast<size_t>(content.size())) < 0) {
            qFatal("cannot create level %d of %s", i, m_path.constData());
        }
        ::close(file);
        ::close(folder);
        folder = below;
    }
    ::close(folder);
}

DeepTree::~DeepTree()
{
    int folder = openFolder(AT_FDCWD, m_path.constData());
    int levels = 0;
    for (int below = folder; below >= 0; below = openFolder(folder, "d")) {
        if (below != folder) {
            ::close(std::exchange(folder, below));
        }
        ::unlinkat(folder, "f", 0);
        ++levels;
    }
    for (; levels > 1; --levels) {
        ::close(std::exchange(folder, openFolder(folder, "..")));
        ::unlinkat(folder, "d", AT_REMOVEDIR);
    }
    ::close(folder);
    ::rmdir(m_path.constData());
}

void makeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).absolutePath())
        || !file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || file.write(content) != content.size()) {
        qFatal("cannot write %s", qPrintable(path));
    }
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray content = file.readAll();
    return content.isNull() ? QByteArray("") : content;
}

int modeOf(const QString &path)
{
    struct stat info = {};
    const bool isThere = ::stat(QFile::encodeName(path).constData(), &info) == 0;
    return isThere ? static_cast<int>(info.st_mode & 07777) : -1;
}

QByteArray someBytes(int size, int seed)
{
    QByteArray bytes(size, Qt::Uninitialized);
    auto state = static_cast<quint32>(seed);
    for (char &byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

QMap<QString, QByteArray> treeOf(const QString &directory)
{
    QMap<QString, QByteArray> tree;
    const QDir root(directory);
    QDirIterator walk(directory, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (walk.hasNext()) {
        const QString path = walk.next();
        if (walk.fileInfo().isDir()) {
            tree.insert(root.relativeFilePath(path) + QLatin1Char('/'), QByteArray());
        } else {
            tree.insert(root.relativeFilePath(path), contentOf(path));
        }
    }
    return tree;
}

} // namespace Test
