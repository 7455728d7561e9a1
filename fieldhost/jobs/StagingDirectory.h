// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <memory>

namespace Tavro::FieldHost {

/**
 * A hidden directory, ".ovo-export-XXXXXX", in which a copy is made that is to land on what exists.
 *
 * It is locked while the object lives: what an export leaves behind that was killed can be told
 * from the directory of one that runs.
 */
class StagingDirectory
{
    Q_DISABLE_COPY(StagingDirectory)

public:
    /** A new one in @p place. Null, with the errno in @p error, when it cannot be created. */
    static std::unique_ptr<StagingDirectory> create(const QString &place, int &error);
    ~StagingDirectory();

    QString path() const { return m_path; }
    /** Where to make the copy of a directory or of a file that is to be @p name in the end. */
    QString rootFor(const QString &name, bool isDirectory) const;
    /** Where files wait that were taken from their names, by their paths below the place. */
    QString backups() const;

    /** To be called before the copy is moved to its place: from then on both hold one another. */
    bool beginMerge();
    /** Removes it when nothing but directories is in it, else returns false. */
    bool removeEmpty();
    /**
     * Puts what waits in backups() back where its name is free, and removes the rest. False when
     * something stays: it could not be removed, or might be the same data as a file in place.
     */
    bool discard();

    /** Whether @p directory holds anything but what killed exports have left. */
    static bool isFilled(const QString &directory);
    /** Discards what killed exports have left in @p place. Returns the paths that stay. */
    static QStringList discardAbandoned(const QString &place);

private:
    StagingDirectory(QString path, int lock)
        : m_path(std::move(path))
        , m_lock(lock)
    {
    }
    static std::unique_ptr<StagingDirectory> adopt(const QString &path);

    const QString m_path;
    const int m_lock; // descriptor of the directory
    bool m_isOurs = false; // made here, so that no cut of power lies behind it
};

} // namespace Tavro::FieldHost
