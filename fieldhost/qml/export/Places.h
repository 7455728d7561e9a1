// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/UsbDrive.h"

#include <QDir>
#include <QObject>

namespace Tavro::FieldHost {

/** Directories to begin a choice with. */
class Places : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString home READ home CONSTANT)
    Q_PROPERTY(QString usbDrive READ usbDrive CONSTANT)

public:
    explicit Places(QObject *parent = nullptr)
        : QObject(parent)
    {
    }

    /** The user's own. */
    static QString home() { return QDir::homePath(); }
    /** Where the USB drive is once it is mounted. */
    static QString usbDrive() { return QString::fromLatin1(usbMountPoint); }
};

} // namespace Tavro::FieldHost
