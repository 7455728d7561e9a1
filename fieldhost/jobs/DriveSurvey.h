// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

namespace Tavro::FieldHost {

/** A partition of a USB drive. */
struct DrivePartition
{
    /** What the dirty byte says of the last system that wrote to it. */
    enum class Mark {
        None, /**< it has no such byte that is known here */
        Unreadable, /**< this user may not read it */
        Clean, /**< it was unmounted */
        Dirty, /**< it was not, or it is mounted now */
    };

    QString device; /**< "/dev/sda1" */
    QString kind; /**< "fat32", "exfat"; empty for a FAT of no known type */
    QString mountPoint; /**< empty when it was mounted for the survey only */
    qint64 size = -1; /**< in bytes; -1 when unknown */
    qint64 free = -1; /**< in bytes; -1 when unknown */
    Mark mark = Mark::None;
};

/** A USB drive. */
struct SurveyedDrive
{
    QString device; /**< "/dev/sda" */
    QString vendor; /**< may be empty */
    bool isSupported = true; /**< whether the application works with its file systems */
    QList<DrivePartition> partitions;
};

/** Whether surveyDrives() would mount the drive. Does not block. */
bool surveyMounts();

/**
 * The USB drives with their partitions. A drive that is not mounted is mounted meanwhile to look
 * at it: blocks without limit, while somebody else uses it.
 */
QList<SurveyedDrive> surveyDrives();

} // namespace Tavro::FieldHost
