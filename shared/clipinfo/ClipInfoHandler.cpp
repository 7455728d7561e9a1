#include "shared/clipinfo/ClipInfoHandler.h"

#include "host/AppState.h"
#include "host/CApplicationSettings.h"
#include "host/CDistanceCounter.h"
#include "host/CPipeObservationObject.h"
#include "host/CVideoCreationHandler.h"
#include "host/CVideoRecorder.h"
#include "host/CoreApplication.h"
#include "host/PanTiltProvider.h"
#include "shared/clipinfo/detail/SampleText.h"
#include "shared/locale/CConversionServices.h"
#include "shared/locale/CLocaleSupport.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <cmath>

namespace Tavro::Shared {

namespace {

// numbers of the host
constexpr int s_creatingVideo = 1;
constexpr int s_recorderIdle = 0;
constexpr int s_recorderRecording = 2;
constexpr int s_recorderPaused = 3;

constexpr double s_pictureRatio = 1.0591;
constexpr double s_leastChangeOfDistance = 0.05; // metres
constexpr int s_indexDigits = 5;

// with the setting turned off connections remain, and the next clip connects again
constexpr auto s_connectOnce =
    static_cast<Qt::ConnectionType>(Qt::AutoConnection | Qt::UniqueConnection);

AppLogic::CDistanceCounter *distanceCounter()
{
    return AppLogic::CoreApplication::instance()->sectionDistanceCounter();
}

AppLogic::PanTiltProvider *panTiltProvider()
{
    return AppLogic::CoreApplication::instance()->panTiltProvider();
}

bool isIndexingEnabled()
{
    return CApplicationSettings::instance()->videoIndexingEnabled();
}

double secondsOf(const Multimedia::CVideoRecorder &recorder)
{
    return static_cast<double>(recorder.duration()) / 1000.0;
}

// A file may end with the largest number; the next one must not be undefined behaviour.
qint32 numberAfter(qint32 number)
{
    return static_cast<qint32>(static_cast<quint32>(number) + 1U);
}

// 0 when the text is not a number
qint32 numberIn(const QByteArray &text)
{
    // toInt() would end the text at such a byte
    return text.contains('\0') ? 0 : text.toInt();
}

qint32 lastValueIndex(const QByteArray &content)
{
    const QByteArray prefix = QByteArrayLiteral("Val");
    const int last = content.lastIndexOf(prefix);
    if (last < 0) {
        return 0;
    }
    const QByteArray entry = content.mid(last + prefix.size());
    const int end = entry.lastIndexOf('=');
    return end < 0 ? 0 : numberIn(entry.left(end));
}

void writeEntries(QTextStream &out, const QMap<QString, QVariant> &entries)
{
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        // the stream would round a double to six digits
        out << entry.key() << QLatin1Char('=') << entry.value().toString() << QLatin1Char('\n');
    }
}

} // namespace

ClipInfoHandler::ClipInfoHandler(AppLogic::CVideoCreationHandler *handler)
    : QObject(handler)
    , m_creationHandler(handler)
{
}

QString ClipInfoHandler::videoPathToFilePath(const QString &videoPath)
{
    const QFileInfo video(videoPath);
    // baseName(), not completeBaseName(): the name ends at the first dot
    return video.path() + QLatin1Char('/') + video.baseName() + QLatin1String(".txt");
}

void ClipInfoHandler::removeInfoForVideo(const QString &videoPath)
{
    QFile::remove(videoPathToFilePath(videoPath));
}

bool ClipInfoHandler::connectToVideoRecorder(Multimedia::CVideoRecorder *recorder)
{
    if (!recorder || recorder->state() != s_recorderIdle) {
        return false;
    }
    // the argument is only tested; the recorder that takes the video is the creation handler's
    if (const auto *ownRecorder = videoRecorder()) {
        connect(ownRecorder, &Multimedia::CVideoRecorder::stateChanged, this,
                &ClipInfoHandler::onVideoRecorderStateChanged, s_connectOnce);
    }
    return true;
}

bool ClipInfoHandler::initRecordedVideoIndexing(const QString &videoPath)
{
    const AppLogic::PanTiltProvider *camera = panTiltProvider();
    m_cameraConstant = camera->getCameraConstant();
    m_distanceOffset = camera->getDistanceOffset();
    connectSignalsForIndexing();
    m_tilt = camera->getTilt();
    m_pan = camera->getPan();
    setVideoIndexingFilePath(videoPath);
    return start();
}

void ClipInfoHandler::setVideoIndexingFilePath(const QString &videoPath)
{
    m_infoFilePath = videoPathToFilePath(videoPath);
    m_originalClipName = QFileInfo(videoPath).fileName();
}

bool ClipInfoHandler::start()
{
    QFile file(m_infoFilePath);
    if (file.exists()) {
        resume(file);
    } else {
        writeClipInfo();
        m_nextValueIndex = 0;
    }
    return true;
}

bool ClipInfoHandler::resume(QFile &file)
{
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return false;
    }
    m_nextValueIndex = numberAfter(lastValueIndex(file.readAll()));
    file.close();
    m_resumed = true;
    return true;
}

bool ClipInfoHandler::writeClipInfo()
{
    m_clipInfo.insert(QStringLiteral("Application"), QCoreApplication::applicationName());
    m_clipInfo.insert(QStringLiteral("ClipRatio"), s_pictureRatio);
    m_clipInfo.insert(QStringLiteral("CreationDate"),
                      QDateTime::currentDateTime().toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")));
    m_clipInfo.insert(QStringLiteral("OriginalClipName"), m_originalClipName);
    m_clipInfo.insert(QStringLiteral("PictureRatio"), s_pictureRatio);
    writeIndexInfo();
    writeLaserCalibrationInfo();
    return true;
}

bool ClipInfoHandler::writeIndexInfo()
{
    m_indexInfo.insert(QStringLiteral("DistanceUnit"), CLocaleSupport::getDistanceUnitString());
    return true;
}

bool ClipInfoHandler::writeLaserCalibrationInfo()
{
    m_laserCalibration.insert(QStringLiteral("Intercept"), m_distanceOffset / 100000.0);
    m_laserCalibration.insert(QStringLiteral("Slope"), m_cameraConstant / 100.0);
    return true;
}

bool ClipInfoHandler::write(double time, double distance, int code, double pan, double tilt)
{
    if (time < m_lastTime) {
        return false;
    }
    m_lastTime = time;
    if (CLocaleSupport::getDistanceUnit() == Base::DistanceUnit::Feet) {
        distance = CConversionServices::convertMetersToFeet(distance);
    }
    const QString key =
        QStringLiteral("Val%1").arg(m_nextValueIndex, s_indexDigits, 10, QLatin1Char('0'));
    // a hint: up to Val99999 each one goes to the end
    m_indexing.insert(m_indexing.cend(), key, detail::sampleText(time, distance, code, pan, tilt));
    m_nextValueIndex = numberAfter(m_nextValueIndex);
    return true;
}

bool ClipInfoHandler::writeInitialIndexingDistance()
{
    const double distance = distanceCounter()->distanceValue();
    const auto *recorder = videoRecorder();
    if (!recorder || recorder->state() != s_recorderRecording) {
        return false;
    }
    // the initial sample has 0, wherever the camera looks
    const bool isWritten = write(secondsOf(*recorder), distance, 0, 0.0, 0.0);
    m_lastDistance = distance;
    return isWritten;
}

bool ClipInfoHandler::stop()
{
    if (m_infoFilePath.isEmpty()) {
        return false;
    }
    QFile file(m_infoFilePath);
    const QIODevice::OpenMode mode = m_resumed ? QIODevice::Append : QIODevice::Truncate;
    if (!file.open(QIODevice::WriteOnly | mode | QIODevice::Text)) {
        return false;
    }
    QTextStream out(&file);
    if (!m_resumed) {
        out << QLatin1String("[ClipInfo]\n");
        writeEntries(out, m_clipInfo);
        out << QLatin1String("\n[IndexInfo]\n");
        writeEntries(out, m_indexInfo);
        out << QLatin1String("\n[LaserCalibration]\n");
        writeEntries(out, m_laserCalibration);
        out << QLatin1String("\n[Indexing]\n");
    }
    writeEntries(out, m_indexing);

    m_lastTime = 0.0;
    m_resumed = false;
    m_clipInfo.clear();
    m_indexInfo.clear();
    m_laserCalibration.clear();
    m_indexing.clear();
    m_infoFilePath.clear();
    return true;
}

bool ClipInfoHandler::endVideoIndexing()
{
    if (!isIndexingEnabled()) {
        return false;
    }
    disconnectSignalsForIndexing();
    m_pan = 0.0;
    m_tilt = 0.0;
    return stop();
}

void ClipInfoHandler::connectSignalsForIndexing()
{
    using AppLogic::CDistanceCounter;
    using AppLogic::PanTiltProvider;

    connect(distanceCounter(), &CDistanceCounter::distanceValueChanged, this,
            &ClipInfoHandler::onDistanceCounterValueChanged, s_connectOnce);
    connect(AppState::instance(), &AppState::observationCreated, this,
            &ClipInfoHandler::onObservationCreated, s_connectOnce);
    const PanTiltProvider *camera = panTiltProvider();
    connect(camera, &PanTiltProvider::panChanged, this, &ClipInfoHandler::onPanValueChanged,
            s_connectOnce);
    connect(camera, &PanTiltProvider::tiltChanged, this, &ClipInfoHandler::onTiltValueChanged,
            s_connectOnce);
}

void ClipInfoHandler::disconnectSignalsForIndexing()
{
    using AppLogic::CDistanceCounter;
    using AppLogic::PanTiltProvider;

    disconnect(distanceCounter(), &CDistanceCounter::distanceValueChanged, this,
               &ClipInfoHandler::onDistanceCounterValueChanged);
    disconnect(AppState::instance(), &AppState::observationCreated, this,
               &ClipInfoHandler::onObservationCreated);
    if (const auto *recorder = videoRecorder()) {
        disconnect(recorder, &Multimedia::CVideoRecorder::stateChanged, this,
                   &ClipInfoHandler::onVideoRecorderStateChanged);
    }
    const PanTiltProvider *camera = panTiltProvider();
    disconnect(camera, &PanTiltProvider::panChanged, this, &ClipInfoHandler::onPanValueChanged);
    disconnect(camera, &PanTiltProvider::tiltChanged, this, &ClipInfoHandler::onTiltValueChanged);
}

void ClipInfoHandler::onDistanceCounterValueChanged(double distance)
{
    if (std::abs(distance - m_lastDistance) < s_leastChangeOfDistance) {
        return;
    }
    if (const auto *recorder = videoRecorder()) {
        write(secondsOf(*recorder), distance, 0, m_pan, m_tilt);
        m_lastDistance = distance; // also of a sample that came too late to be written
    }
}

void ClipInfoHandler::onPanValueChanged(double pan)
{
    if (const auto *recorder = videoRecorder()) {
        write(secondsOf(*recorder), m_lastDistance, 0, pan, m_tilt);
        m_pan = pan;
    }
}

void ClipInfoHandler::onTiltValueChanged(double tilt)
{
    if (const auto *recorder = videoRecorder()) {
        write(secondsOf(*recorder), m_lastDistance, 0, m_pan, tilt);
        m_tilt = tilt;
    }
}

void ClipInfoHandler::onObservationCreated(const Database::CDomainObjectPointer &object)
{
    if (!m_creationHandler || m_creationHandler->currentSharedItem().isNull()) {
        return;
    }
    const auto *recorder = videoRecorder();
    if (!recorder) {
        return;
    }
    const double time = secondsOf(*recorder);
    if (object.dynamicCast<Database::CPipeObservationObject>().isNull()) {
        return;
    }
    // where the observation was made, but no change of distance: the threshold keeps its base
    write(time, distanceCounter()->distanceValue(), 0, m_pan, m_tilt);
}

void ClipInfoHandler::onVideoRecorderStateChanged()
{
    const auto *recorder = videoRecorder();
    if (!recorder) {
        return;
    }
    if (m_creationHandler->state() == s_creatingVideo && recorder->state() == s_recorderIdle) {
        if (isIndexingEnabled()) {
            endVideoIndexing();
        }
        return;
    }
    if (recorder->state() == s_recorderPaused) {
        m_paused = true;
        return;
    }
    if (m_paused) {
        m_paused = false;
        return;
    }
    if (isIndexingEnabled() && m_creationHandler->state() == s_creatingVideo
        && recorder->state() == s_recorderRecording) {
        writeInitialIndexingDistance();
    }
}

Multimedia::CVideoRecorder *ClipInfoHandler::videoRecorder() const
{
    return m_creationHandler ? m_creationHandler->videoRecorder() : nullptr;
}

} // namespace Tavro::Shared
