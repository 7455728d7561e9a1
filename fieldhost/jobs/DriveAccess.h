#pragma once

#include "shared/usb/USBDriveCleanAccessManager.h"

#include <QString>

namespace Tavro::FieldHost {

class Console;
struct ExportPlan;

/**
 * A warning of the files of @p plan that are too large for the file system they go to; empty when
 * there are none.
 */
QString largeFileWarning(const ExportPlan &plan, const QString &fileSystemType);

/**
 * Brackets an export to the USB drive, and tells the user. For a destination elsewhere it does
 * nothing.
 */
class DriveAccess
{
    Q_DISABLE_COPY(DriveAccess)

public:
    /** For an export to @p destination, as the user typed it. */
    DriveAccess(const QString &destination, Console &console);
    /** Calls end(). */
    ~DriveAccess();

    /**
     * Mounts the drive and marks it. A drive that cannot be marked is used all the same; false
     * when there is none: the copy would land on the disk that the mount point lies on.
     */
    bool begin();

    /** Tells of the files of @p plan that the file system they go to has no room for. */
    void warnOfLargeFiles(const ExportPlan &plan);

    /** Unmounts and cleans what begin() has mounted and marked; waits while it is in use. */
    void end();

private:
    QString fileSystemType() const;

    const QString m_destination;
    Console &m_console;
    Shared::USBDriveCleanAccessManager m_manager;
    bool m_begun = false;
    bool m_marked = false;
};

} // namespace Tavro::FieldHost
