// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/DriveAccess.h"

#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"
#include "fieldhost/jobs/UsbDrive.h"

#include <QDir>
#include <QStorageInfo>

namespace Tavro::FieldHost {

using Shared::MountedUSBDeviceList;

namespace {

// the size of a FAT file is a 32-bit number
constexpr qint64 s_largestFatFile = 0xffffffff;

} // namespace

QString largeFileWarning(const ExportPlan &plan, const QString &fileSystemType)
{
    QStringList files;
    for (const ExportJob &job : plan.jobs) {
        for (const SurveyedFile &file : job.survey.files) {
            if (file.size > s_largestFatFile) {
                files.append(job.source + file.path);
            }
        }
    }
    if (files.isEmpty() || !isFat(fileSystemType)) {
        return {};
    }
    const QString first = quoted(files.first());
    const int others = files.size() - 1;
    return DriveAccess::tr("Warning: on a FAT drive every file has less than 4 GiB. The copy will "
                           "fail at %1.")
        .arg(others == 0 ? first
                         : counted(others, DriveAccess::tr("%2 and 1 more file"),
                                   DriveAccess::tr("%2 and %1 more files"))
                               .arg(first));
}

DriveAccess::DriveAccess(const QString &destination, QObject *parent)
    : QObject(parent)
    , m_destination(futureCanonicalPath(absolutePath(destination)))
{
}

DriveAccess::~DriveAccess()
{
    end();
}

bool DriveAccess::begin()
{
    if (!isOnUsbDrive(m_destination)) {
        return true;
    }
    const QMutexLocker locker(&usbDriveMutex());
    const QString missing = missingMountRight();
    if (!missing.isEmpty() && MountedUSBDeviceList::isUSBMounted()) {
        // to unmount it would be tried for ever
        Q_EMIT warned(
            tr("The USB drive is not marked as in use, and stays mounted. %1").arg(missing));
        return true;
    }
    m_marked = m_manager.lock(m_destination);
    m_begun = true;
    if (m_marked) {
        const auto partition = partitionOf(m_destination);
        Q_EMIT reported(
            partition ? tr("The USB drive is marked as in use: %1.").arg(described(*partition))
                      : tr("The USB drive is marked as in use."));
        return true;
    }
    const QString why = whyNotMarked(m_destination);
    if (!MountedUSBDeviceList::isUSBMounted() && !partitionOf(m_destination)) {
        Q_EMIT warned(why);
        Q_EMIT warned(tr("Nothing was copied: it would not land on a drive."));
        return false;
    }
    Q_EMIT warned(tr("The USB drive is not marked as in use. %1").arg(why));
    return true;
}

QString DriveAccess::largeFileWarning(const ExportPlan &plan) const
{
    // of the drive, the library knows better: it can be mounted by another name
    const auto partition = m_begun ? partitionOf(m_destination) : std::nullopt;
    return FieldHost::largeFileWarning(
        plan,
        partition
            ? kindOf(*partition)
            : QString::fromLatin1(QStorageInfo(nearestExisting(m_destination)).fileSystemType()));
}

bool DriveAccess::end()
{
    if (!m_begun) {
        return false;
    }
    m_begun = false;
    const QMutexLocker locker(&usbDriveMutex());
    QDir::setCurrent(QStringLiteral("/")); // a directory of the drive keeps it in use
    const QString mounted = mountedUsbDevice();
    if (!mounted.isEmpty()) {
        Q_EMIT unmounting();
    }
    const bool clean = m_manager.unlock();
    if (isPulledOut(mounted)) {
        Q_EMIT warned(unmountedAfterPull());
        return false;
    }
    if (clean == m_marked) {
        Q_EMIT reported(clean ? tr("The USB drive is unmounted and marked clean.")
                              : tr("The USB drive is unmounted."));
    } else if (m_marked) {
        Q_EMIT warned(tr("The USB drive is unmounted, and still marked as in "
                         "use: it did not take the mark back."));
    }
    return !mounted.isEmpty();
}

} // namespace Tavro::FieldHost
