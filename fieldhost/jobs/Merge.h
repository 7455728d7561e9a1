// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/ExportPlan.h"

#include <QString>
#include <QStringList>

namespace Tavro::FieldHost {

/** Waits until what is in the file system of @p directory is on the device; returns an errno. */
int flushVolume(const QString &directory);

/**
 * Moves a whole copy to its place, by the list of what was copied, so that a power cut leaves
 * each file of before either old or new.
 *
 * Renaming onto a name is one step on file systems with a journal. On FAT it is two: the entry of
 * the place is changed to the new data, and the entry that the copy had is removed, in any order.
 * There, all depends on which of them is on the device first:
 *
 * 1. The copy is on the device.
 * 2. The file in place is kept open: its data stays allocated while its entry still leads there.
 * 3. The copy is renamed onto it, and the removal of its entry is written: the place is old.
 * 4. The changed entry is written, in one sector: the place is new.
 * 5. The file of before is closed, which frees its data.
 *
 * Elsewhere (exFAT for one), where the new entry is another one than the old, the file of before
 * waits under another name until the copy is in place.
 */
class Merge
{
public:
    /** Of @p job's copy at @p copy to @p place; files of before wait in @p backups. */
    Merge(const ExportJob &job, QString copy, QString place, QString backups);

    /** False when something stays as it was. */
    bool run();
    /** What went wrong, as a clause, and what is new, uncertain and old then; a sentence a line. */
    QString error() const;

private:
    enum class Renaming { Atomic, InPlace, ByAnotherName };

    bool createDirectories();
    bool placeFiles(const QStringList &files);
    bool setAside(const QString &file);
    bool fail(const QString &path, int error);
    bool flush();
    QString at(const QString &root, const QString &file) const;
    QString range(int first, int end) const;

    const ExportJob &m_job;
    const QString m_copy;
    const QString m_place;
    const QString m_backups;
    Renaming m_renaming = Renaming::Atomic;
    int m_placed = 0; // files that are on the device under their names
    int m_moved = 0; // files that have their names
    QString m_error;
};

} // namespace Tavro::FieldHost
