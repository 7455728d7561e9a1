#include "tests/support/FileTree.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QtDebug>

#include <sys/stat.h>

#include <filesystem>

namespace Test {

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored; // the base class says what is left
    std::filesystem::remove_all(QFile::encodeName(path()).toStdString(), ignored);
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
