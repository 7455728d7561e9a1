// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/device/DriveList.h"

#include "fieldhost/jobs/UsbDrive.h"
#include "fieldhost/services/Printable.h"

#include <QThread>

#include <memory>

namespace Tavro::FieldHost {

namespace {

QString nameOf(DrivePartition::Mark mark)
{
    switch (mark) {
    case DrivePartition::Mark::Clean:
        return QStringLiteral("clean");
    case DrivePartition::Mark::Dirty:
        return QStringLiteral("dirty");
    case DrivePartition::Mark::Unreadable:
        return QStringLiteral("unreadable");
    default:
        return {};
    }
}

QVariantMap rowOf(const SurveyedDrive &drive, const DrivePartition &partition)
{
    return {
        {QStringLiteral("device"),
         partition.device.isEmpty() ? drive.device : printable(partition.device)},
        {QStringLiteral("vendor"), printable(drive.vendor)},
        {QStringLiteral("kind"), partition.kind},
        {QStringLiteral("mountPoint"), printable(partition.mountPoint)},
        {QStringLiteral("size"), partition.size},
        {QStringLiteral("free"), partition.free},
        {QStringLiteral("mark"), nameOf(partition.mark)},
        {QStringLiteral("isSupported"), drive.isSupported},
    };
}

} // namespace

DriveList::DriveList(QObject *parent)
    : QObject(parent)
{
    if (!surveyMounts()) {
        look();
    }
}

DriveList::~DriveList()
{
    if (m_thread && m_thread->wait(1000)) {
        delete m_thread;
    }
}

QVariantList DriveList::drives() const
{
    QVariantList rows;
    for (const SurveyedDrive &drive : m_drives) {
        for (const DrivePartition &partition : drive.partitions) {
            rows += rowOf(drive, partition);
        }
        if (drive.partitions.isEmpty()) {
            rows += rowOf(drive, DrivePartition());
        }
    }
    return rows;
}

QString DriveList::warning() const
{
    return isPulledOut(mountedUsbDevice()) ? pulledOutWhileMounted() : QString();
}

void DriveList::look()
{
    if (m_thread) {
        return;
    }
    // kept by the thread as well, which may be left to itself
    const auto found = std::make_shared<QList<SurveyedDrive>>();
    m_thread = QThread::create([found] { *found = surveyDrives(); });
    connect(m_thread, &QThread::finished, this, [this, found] { take(*found); });
    m_thread->start();
    Q_EMIT changed();
}

void DriveList::take(const QList<SurveyedDrive> &drives)
{
    m_thread->wait();
    m_thread->deleteLater();
    m_thread = nullptr;
    m_drives = drives;
    m_hasLooked = true;
    Q_EMIT changed();
}

} // namespace Tavro::FieldHost
