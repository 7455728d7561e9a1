// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/clipinfo/RecordingHost.h"

#include "host/CPipeObservationObject.h"
#include "shared/locale/CProjectLocaleData.h"

#include <QMetaMethod>

using namespace Tavro;

namespace Test {

namespace {

// The state's own connections cannot be written down, as it is no object of the test's. So each
// entry says how it stands with them at that moment.
QString withObservation(const QString &entry)
{
    return entry
        + QLatin1String(isObservationConnected() ? ", observation on" : ", observation off");
}

QString nameOf(const QMetaMethod &signal)
{
    return QString::fromLatin1(signal.name());
}

QString connected(const QMetaMethod &signal)
{
    return withObservation(QLatin1String("connect ") + nameOf(signal));
}

QString disconnected(const QMetaMethod &signal)
{
    return withObservation(QLatin1String("disconnect ") + nameOf(signal));
}

class JournalCounter : public FieldHost::SimulatedDistanceCounter
{
public:
    explicit JournalCounter(QStringList &journal)
        : m_journal(journal)
    {
    }

protected:
    void connectNotify(const QMetaMethod &signal) override { m_journal += connected(signal); }
    void disconnectNotify(const QMetaMethod &signal) override { m_journal += disconnected(signal); }

private:
    QStringList &m_journal;
};

class JournalCamera : public FieldHost::SimulatedPanTilt
{
public:
    explicit JournalCamera(QStringList &journal)
        : m_journal(journal)
    {
    }

    double getPan() const override
    {
        m_journal += QStringLiteral("getPan");
        return SimulatedPanTilt::getPan();
    }
    double getTilt() const override
    {
        m_journal += QStringLiteral("getTilt");
        return SimulatedPanTilt::getTilt();
    }
    double getCameraConstant() const override
    {
        m_journal += QStringLiteral("getCameraConstant");
        return SimulatedPanTilt::getCameraConstant();
    }
    double getDistanceOffset() const override
    {
        m_journal += QStringLiteral("getDistanceOffset");
        return SimulatedPanTilt::getDistanceOffset();
    }

protected:
    void connectNotify(const QMetaMethod &signal) override { m_journal += connected(signal); }
    void disconnectNotify(const QMetaMethod &signal) override { m_journal += disconnected(signal); }

private:
    QStringList &m_journal;
};

} // namespace

ProjectUnit::ProjectUnit(Base::DistanceUnit unit)
{
    change(unit);
}

ProjectUnit::~ProjectUnit()
{
    change(Base::DistanceUnit::Undefined);
    if (Shared::CProjectLocaleData::instance()->localeValid()) {
        Shared::CProjectLocaleData::instance()->unsetLocale();
    }
    QLocale::setDefault(m_localeBefore);
}

void ProjectUnit::change(Base::DistanceUnit unit)
{
    Shared::CProjectLocaleData::instance()->setUnitType(unit);
}

FreeRecorder::FreeRecorder(QStringList &journal)
    : m_journal(journal)
{
}

qint64 FreeRecorder::duration() const
{
    m_journal += QStringLiteral("duration");
    return m_duration;
}

void FreeRecorder::setState(int state)
{
    m_state = state;
    Q_EMIT stateChanged();
}

void FreeRecorder::connectNotify(const QMetaMethod &signal)
{
    m_journal += connected(signal);
}

void FreeRecorder::disconnectNotify(const QMetaMethod &signal)
{
    m_journal += disconnected(signal);
}

RecordingHost::RecordingHost()
    : m_recorder(journal)
    , m_counter(std::make_unique<JournalCounter>(journal))
    , m_camera(std::make_unique<JournalCamera>(journal))
{
    m_creation.setState(FreeVideoCreation::Creating);
    m_creation.setVideoRecorder(&m_recorder);
    m_creation.setItem(Database::CDomainObjectPointer(new Database::CDomainObject));
}

RecordingHost::~RecordingHost() = default;

AppLogic::CDistanceCounter *RecordingHost::sectionDistanceCounter() const
{
    return m_counter.get();
}

AppLogic::PanTiltProvider *RecordingHost::panTiltProvider() const
{
    return m_camera.get();
}

void ObservedState::connectNotify(const QMetaMethod &signal)
{
    Q_UNUSED(signal)
    ++m_listeners; // it has one signal worth listening to
}

void ObservedState::disconnectNotify(const QMetaMethod &signal)
{
    Q_UNUSED(signal)
    --m_listeners;
}

bool isObservationConnected()
{
    return static_cast<ObservedState *>(AppState::instance())->isListenedTo();
}

QByteArrayList valuesIn(const QString &path)
{
    QByteArrayList values;
    const QByteArrayList lines = contentOf(path).split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("Val")) {
            values += line;
        }
    }
    return values;
}

} // namespace Test
