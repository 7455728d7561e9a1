// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/services/FieldApplication.h"
#include "host/CVideoCreationHandler.h"
#include "host/CVideoRecorder.h"
#include "shared/base/DistanceUnit.h"
#include "tests/support/FileTree.h"

#include <QByteArrayList>
#include <QLocale>
#include <QStringList>

#include <memory>

namespace Test {

/** Sets the project's unit of distance, and takes project and locale back to none at its end. */
class ProjectUnit
{
public:
    explicit ProjectUnit(Tavro::Base::DistanceUnit unit = Tavro::Base::DistanceUnit::Meter);
    ~ProjectUnit();

    ProjectUnit(const ProjectUnit &) = delete;
    ProjectUnit &operator=(const ProjectUnit &) = delete;

    void change(Tavro::Base::DistanceUnit unit);

private:
    QLocale m_localeBefore;
};

/** A recorder in whatever state and at whatever time a test wants, going back included. */
class FreeRecorder : public Tavro::Multimedia::CVideoRecorder
{
public:
    enum State { Idle = 0, Unused = 1, Recording = 2, Paused = 3 };

    explicit FreeRecorder(QStringList &journal);

    int state() const override { return m_state; }
    qint64 duration() const override;

    /** Announced each time, as a host may. */
    void setState(int state);
    void setDuration(qint64 milliseconds) { m_duration = milliseconds; }

protected:
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    QStringList &m_journal;
    int m_state = Idle;
    qint64 m_duration = 0;
};

/** The creation of a video, of which a test may change every part. */
class FreeVideoCreation : public Tavro::AppLogic::CVideoCreationHandler
{
public:
    enum State { NoVideo = 0, Creating = 1, Storing = 2 };

    int state() const override { return m_state; }
    Tavro::Multimedia::CVideoRecorder *videoRecorder() const override { return m_recorder; }
    Tavro::Database::CDomainObjectPointer currentSharedItem() const override { return m_item; }

    void setState(int state) { m_state = state; }
    void setVideoRecorder(Tavro::Multimedia::CVideoRecorder *recorder) { m_recorder = recorder; }
    void setItem(const Tavro::Database::CDomainObjectPointer &item) { m_item = item; }

private:
    int m_state = NoVideo;
    Tavro::Multimedia::CVideoRecorder *m_recorder = nullptr;
    Tavro::Database::CDomainObjectPointer m_item;
};

/**
 * The host's state, which knows whether anybody listens to its observations.
 *
 * QObject::isSignalConnected() could be asked, but not in a disconnectNotify(): a receiver that is
 * being destroyed calls that with one of Qt's mutexes held, and it may be the one that is needed.
 */
class ObservedState : public Tavro::AppState
{
public:
    bool isListenedTo() const { return m_listeners > 0; }

protected:
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    int m_listeners = 0;
};

/**
 * A host that writes down, in order, what is connected to it, disconnected from it and asked of it.
 *
 * A video is being created for an item, the recorder is idle.
 */
class RecordingHost : public Tavro::FieldHost::FieldApplication
{
public:
    RecordingHost();
    ~RecordingHost() override;

    Tavro::AppLogic::CDistanceCounter *sectionDistanceCounter() const override;
    Tavro::AppLogic::PanTiltProvider *panTiltProvider() const override;

    Tavro::AppState &state() override { return m_state; }
    Tavro::FieldHost::SimulatedDistanceCounter &counter() { return *m_counter; }
    Tavro::FieldHost::SimulatedPanTilt &camera() { return *m_camera; }
    FreeRecorder &recorder() { return m_recorder; }
    FreeVideoCreation &creation() { return m_creation; }

    /** What happened since it was cleared. */
    QStringList journal;

    /** Path of a file in a folder of the host's own. */
    QString path(const QString &name) const { return m_folder.filePath(name); }

private:
    ObservedState m_state; // first: the others' journal asks it to their end
    TemporaryFolder m_folder;
    FreeRecorder m_recorder;
    FreeVideoCreation m_creation;
    std::unique_ptr<Tavro::FieldHost::SimulatedDistanceCounter> m_counter;
    std::unique_ptr<Tavro::FieldHost::SimulatedPanTilt> m_camera;
};

/** Whether anybody listens to the observations of the RecordingHost that lives. */
bool isObservationConnected();

/** The lines of a file that begin with "Val". */
QByteArrayList valuesIn(const QString &path);

} // namespace Test
