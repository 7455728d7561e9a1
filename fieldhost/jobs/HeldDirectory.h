// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::FieldHost {

/**
 * Holds on to an existing directory of the destination.
 *
 * What is done by way of reach() happens in this very directory and on its volume, whatever its
 * path comes to mean: a drive that is taken away does not let a copy go on below its mount point.
 * The system refuses to unmount the volume meanwhile, except lazily.
 */
class HeldDirectory
{
    Q_DISABLE_COPY(HeldDirectory)

public:
    /** Takes hold of @p path, absolute and clean. See error(). */
    explicit HeldDirectory(const QString &path);
    ~HeldDirectory();

    QString path() const { return m_path; }
    /** Why there is no hold on the directory, an errno; 0 when there is. */
    int error() const { return m_error; }

    /** Where to find @p path, the directory's own or one below it, by way of the hold. */
    QString reach(const QString &path) const;
    /** A path that reach() gave, or one below it, as the user knows it; any other as it is. */
    QString shown(const QString &path) const;

    /** False once path() means another directory than the one held, or none. */
    bool isInPlace() const;

private:
    const QString m_path;
    int m_descriptor = -1;
    int m_error = 0;
};

} // namespace Tavro::FieldHost
