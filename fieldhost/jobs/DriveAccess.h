// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/usb/USBDriveCleanAccessManager.h"

#include <QObject>
#include <QString>

namespace Tavro::FieldHost {

struct ExportPlan;

/**
 * A warning of the files of @p plan that are too large for the file system they go to; empty when
 * there are none.
 */
QString largeFileWarning(const ExportPlan &plan, const QString &fileSystemType);

/** Brackets an export to the USB drive. For a destination elsewhere it does nothing. */
class DriveAccess : public QObject
{
    Q_OBJECT

public:
    /** For an export to @p destination, as the user typed it. */
    explicit DriveAccess(const QString &destination, QObject *parent = nullptr);
    /** Calls end(). */
    ~DriveAccess() override;

    /**
     * Mounts the drive and marks it. A drive that cannot be marked is used all the same; false
     * when there is none: the copy would land on the disk that the mount point lies on.
     */
    bool begin();

    /** A warning of the files of @p plan that the file system they go to has no room for. */
    QString largeFileWarning(const ExportPlan &plan) const;

    /**
     * Unmounts and cleans what begin() has mounted and marked; waits while it is in use, without
     * limit. True when it has unmounted the drive, which can be pulled then; not when it was pulled
     * before.
     */
    bool end();

Q_SIGNALS:
    /** Something was done to the drive, or is about to be; a sentence for the user. */
    void reported(const QString &sentence);
    /** Something could not be done to it; a sentence for the user. */
    void warned(const QString &sentence);
    /** The drive is about to be unmounted, as soon as nobody uses it. */
    void unmounting();

private:
    const QString m_destination;
    Shared::USBDriveCleanAccessManager m_manager;
    bool m_begun = false;
    bool m_marked = false;
};

} // namespace Tavro::FieldHost
