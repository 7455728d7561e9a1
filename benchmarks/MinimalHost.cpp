// Each static function that the library calls in its host, with services that stand still.
#include "host/AppState.h"
#include "host/CApplicationSettings.h"
#include "host/CDistanceCounter.h"
#include "host/CLogger.h"
#include "host/CoreApplication.h"
#include "host/PanTiltProvider.h"

#include <QTextStream>

namespace {

class Settings : public CApplicationSettings
{
public:
    bool videoIndexingEnabled() const override { return false; }
};

// a camera that stands still at the beginning of the pipe
class DistanceCounter : public Tavro::AppLogic::CDistanceCounter
{
public:
    double distanceValue() const override { return 0.0; }
};

class PanTilt : public Tavro::AppLogic::PanTiltProvider
{
public:
    double getPan() const override { return 0.0; }
    double getTilt() const override { return 0.0; }
    double getCameraConstant() const override { return 1.0; }
    double getDistanceOffset() const override { return 0.0; }
};

class Application : public Tavro::AppLogic::CoreApplication
{
public:
    Tavro::AppLogic::CDistanceCounter *sectionDistanceCounter() const override
    {
        return &m_distanceCounter;
    }
    Tavro::AppLogic::PanTiltProvider *panTiltProvider() const override { return &m_panTilt; }

private:
    mutable DistanceCounter m_distanceCounter;
    mutable PanTilt m_panTilt;
};

} // namespace

// called from any thread: one write for each entry
void Tavro::Logging::CLogger::logMessage(LogLevel level, const QString &category,
                                         const QString &message)
{
    QTextStream(stderr)
        << QStringLiteral("%1 %2: %3\n").arg(static_cast<int>(level)).arg(category, message);
}

CApplicationSettings *CApplicationSettings::instance()
{
    static Settings settings;
    return &settings;
}

Tavro::AppLogic::CoreApplication *Tavro::AppLogic::CoreApplication::instance()
{
    static Application application;
    return &application;
}

Tavro::AppState *Tavro::AppState::instance()
{
    static AppState state;
    return &state;
}
