// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/DriveSurvey.h"

#include <QObject>
#include <QVariantList>

class QThread;

namespace Tavro::FieldHost {

/** The USB drives, for a screen. They are looked at on another thread. GUI thread only. */
class DriveList : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList drives READ drives NOTIFY changed)
    Q_PROPERTY(bool isLooking READ isLooking NOTIFY changed)
    Q_PROPERTY(bool hasLooked READ hasLooked NOTIFY changed)
    Q_PROPERTY(bool mounts READ mounts NOTIFY changed)
    Q_PROPERTY(QString warning READ warning NOTIFY changed)

public:
    /** Looks at once if nothing has to be mounted for it. */
    explicit DriveList(QObject *parent = nullptr);
    /** A look that has not ended after a second is left to itself: nothing can end it. */
    ~DriveList() override;

    /**
     * A partition each, with the members `device`, `vendor`, `kind`, `mountPoint`, `size`, `free`,
     * `mark` ("clean", "dirty", "unreadable" or "") and `isSupported`; for a drive without any, one
     * with empty texts.
     */
    QVariantList drives() const;
    /** True from look() until its result is there. */
    bool isLooking() const { return m_thread != nullptr; }
    /** Whether there is a result. */
    bool hasLooked() const { return m_hasLooked; }
    /** Whether look() would mount a drive. */
    bool mounts() const { return surveyMounts(); }
    /** That the drive was pulled out while it was mounted, and what to do; else empty. */
    QString warning() const;

    /** Has the drives looked at. Does nothing while that is being done. */
    Q_INVOKABLE void look();

Q_SIGNALS:
    void changed();

private:
    void take(const QList<SurveyedDrive> &drives);

    QThread *m_thread = nullptr;
    QList<SurveyedDrive> m_drives;
    bool m_hasLooked = false;
};

} // namespace Tavro::FieldHost
