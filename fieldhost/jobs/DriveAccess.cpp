#include "fieldhost/jobs/DriveAccess.h"

#include "fieldhost/cli/Console.h"
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
    return QStringLiteral("Warning: on a FAT drive every file has less than 4 GiB. The copy will "
                          "fail at %1%2.")
        .arg(quoted(files.first()),
             files.size() > 1
                 ? QStringLiteral(" and %1").arg(counted(files.size() - 1, "more file"))
                 : QString());
}

DriveAccess::DriveAccess(const QString &destination, Console &console)
    : m_destination(futureCanonicalPath(absolutePath(destination)))
    , m_console(console)
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
    const QString missing = missingMountRight();
    if (!missing.isEmpty() && MountedUSBDeviceList::isUSBMounted()) {
        // to unmount it would be tried for ever
        m_console.printError(
            QStringLiteral("The USB drive is not marked as in use, and stays mounted. %1")
                .arg(missing));
        return true;
    }
    m_marked = m_manager.lock(m_destination);
    m_begun = true;
    if (m_marked) {
        const auto partition = partitionOf(m_destination);
        m_console.print(
            QStringLiteral("The USB drive is marked as in use%1.")
                .arg(partition ? QStringLiteral(": ") + described(*partition) : QString()));
        return true;
    }
    const QString why = whyNotMarked(m_destination);
    if (!MountedUSBDeviceList::isUSBMounted() && !partitionOf(m_destination)) {
        m_console.printError(why);
        m_console.printError(QStringLiteral("Nothing was copied: it would not land on a drive."));
        return false;
    }
    m_console.printError(QStringLiteral("The USB drive is not marked as in use. %1").arg(why));
    return true;
}

QString DriveAccess::fileSystemType() const
{
    // of the drive, the library knows better: it can be mounted by another name
    if (m_begun) {
        if (const auto partition = partitionOf(m_destination)) {
            return partition->fileSystemType;
        }
    }
    return QString::fromLatin1(QStorageInfo(nearestExisting(m_destination)).fileSystemType());
}

void DriveAccess::warnOfLargeFiles(const ExportPlan &plan)
{
    const QString warning = largeFileWarning(plan, fileSystemType());
    if (!warning.isEmpty()) {
        m_console.printError(warning);
    }
}

void DriveAccess::end()
{
    if (!m_begun) {
        return;
    }
    m_begun = false;
    QDir::setCurrent(QStringLiteral("/")); // a folder of the drive keeps it in use
    if (MountedUSBDeviceList::isUSBMounted()) {
        m_console.print(QStringLiteral("Unmounting the USB drive, as soon as nobody uses it; "
                                       "Ctrl-C leaves it mounted."));
    }
    const bool clean = m_manager.unlock();
    if (clean == m_marked) {
        m_console.print(clean ? QStringLiteral("The USB drive is unmounted and marked clean.")
                              : QStringLiteral("The USB drive is unmounted."));
    } else if (m_marked) {
        m_console.printError(QStringLiteral("The USB drive is unmounted, and still marked as in "
                                            "use: it did not take the mark back."));
    }
}

} // namespace Tavro::FieldHost
