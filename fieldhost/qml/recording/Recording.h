// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/RecordRun.h"
#include "fieldhost/qml/recording/PlotCurve.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

namespace Tavro::FieldHost {

/**
 * Records clips with the simulated crawler, one at a time, on the thread of the host's services.
 *
 * What moves is announced five times a second, however fast the time passes. A recording that runs
 * when the object is destroyed is ended, and written.
 */
class Recording : public QObject
{
    Q_OBJECT
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    Q_PROPERTY(QString clip READ clip WRITE setClip NOTIFY clipChanged)
    Q_PROPERTY(double speed READ speed WRITE setSpeed NOTIFY speedChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY stateChanged)
    Q_PROPERTY(QString summary READ summary NOTIFY stateChanged)
    Q_PROPERTY(QString continued READ continued NOTIFY stateChanged)
    Q_PROPERTY(QString infoPath READ infoPath NOTIFY stateChanged)
    Q_PROPERTY(QString clock READ clock NOTIFY moved)
    Q_PROPERTY(int observations READ observations NOTIFY moved)
    Q_PROPERTY(double distanceInMeters READ distanceInMeters NOTIFY moved)
    Q_PROPERTY(double panAngle READ panAngle NOTIFY moved)
    Q_PROPERTY(double tiltAngle READ tiltAngle NOTIFY moved)
    Q_PROPERTY(QString unit READ unit NOTIFY stateChanged)
    Q_PROPERTY(Tavro::FieldHost::PlotCurve *distance READ distance CONSTANT)
    Q_PROPERTY(Tavro::FieldHost::PlotCurve *pan READ pan CONSTANT)
    Q_PROPERTY(Tavro::FieldHost::PlotCurve *tilt READ tilt CONSTANT)

public:
    enum State {
        Idle,
        Running,
        Paused,
    };
    Q_ENUM(State)

    explicit Recording(QObject *parent = nullptr);
    ~Recording() override;

    State state() const;
    /** Path of the video; its clip information file lies beside it. At first in the home. */
    const QString &clip() const { return m_clip; }
    void setClip(const QString &clip);
    /** How many times faster than real time the next recording passes; 1 at first. */
    double speed() const { return m_speed; }
    void setSpeed(double speed);

    /** Why nothing was recorded, or the file is not as it should be, as a sentence; or empty. */
    const QString &problem() const { return m_problem; }
    /** What the last recording has written, as a sentence; empty before, and after a problem. */
    const QString &summary() const { return m_summary; }
    /** That an earlier file is continued, as a sentence; empty for a new one. */
    const QString &continued() const { return m_continued; }
    /** The clip information file of the last recording. */
    const QString &infoPath() const { return m_infoPath; }

    /** Length of the video so far, as a clock. */
    QString clock() const;
    /** How many were entered in this recording. */
    int observations() const { return m_observations; }
    double distanceInMeters() const;
    double panAngle() const;
    double tiltAngle() const;

    /** Unit of @ref distance: that of the project when the recording began. */
    const QString &unit() const { return m_unit; }
    PlotCurve *distance() { return &m_distance; }
    PlotCurve *pan() { return &m_pan; }
    PlotCurve *tilt() { return &m_tilt; }

    /** Begins, or leaves a problem. Nothing while a recording runs. */
    Q_INVOKABLE void start();
    Q_INVOKABLE void pause();
    Q_INVOKABLE void resume();
    /** Enters an observation where the crawler is. */
    Q_INVOKABLE void observe();
    /** Ends the recording. Blocks while the file is written, about 50 bytes for each sample. */
    Q_INVOKABLE void stop();

Q_SIGNALS:
    void stateChanged();
    void clipChanged();
    void speedChanged();
    void moved();
    /** The file of a recording is written, or could not be. */
    void finished();

private:
    void addValues();
    void show();
    void finish();

    QString m_clip;
    double m_speed = 1;
    std::unique_ptr<RecordRun> m_run; // while one runs
    QString m_problem;
    QString m_summary;
    QString m_continued;
    QString m_infoPath;
    QString m_unit;
    bool m_isInFeet = false;
    int m_observations = 0;
    PlotCurve m_distance;
    PlotCurve m_pan;
    PlotCurve m_tilt;
    QTimer m_refresh;
};

} // namespace Tavro::FieldHost
