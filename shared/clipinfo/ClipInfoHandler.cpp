// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/clipinfo/ClipInfoHandler.h"

#include "host/AppState.h"
#include "host/CApplicationSettings.h"
#include "host/CDistanceCounter.h"
#include "host/CPipeObservationObject.h"
#include "host/CVideoCreationHandler.h"
#include "host/CVideoRecorder.h"
#include "host/CoreApplication.h"
#include "host/PanTiltProvider.h"
#include "shared/clipinfo/detail/SampleLines.h"
#include "shared/locale/CConversionServices.h"
#include "shared/locale/CLocaleSupport.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTextStream>
#include <QVariant>

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

using Entries = QMap<QString, QVariant>;

void writeEntries(QTextStream &out, const Entries &entries)
{
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        // the stream would round a double to six digits
        out << entry.key() << QLatin1Char('=') << entry.value().toString() << QLatin1Char('\n');
    }
}

} // namespace

class Q_DECL_HIDDEN ClipInfoHandler::Private
{
public:
    explicit Private(AppLogic::CVideoCreationHandler *handler)
        : creationHandler(handler)
    {
    }

    Multimedia::CVideoRecorder *videoRecorder() const
    {
        return creationHandler ? creationHandler->videoRecorder() : nullptr;
    }

    Entries clipInfo;
    Entries indexInfo;
    Entries laserCalibration;
    detail::SampleLines indexing;
    QString originalClipName;
    QString infoFilePath; // empty while no clip is under way
    bool paused = false;
    bool resumed = false; // the file was there already, so stop() appends
    qint32 nextValueIndex = 0;
    AppLogic::CVideoCreationHandler *const creationHandler;
    double lastDistance = 0.0; // of the last sample that a change of distance has caused
    double lastTime = 0.0; // of the last sample, in seconds
    double pan = 0.0;
    double tilt = 0.0;
    double cameraConstant = 0.0;
    double distanceOffset = 0.0;
};

ClipInfoHandler::ClipInfoHandler(AppLogic::CVideoCreationHandler *handler)
    : QObject(handler)
    , d(std::make_unique<Private>(handler))
{
}

ClipInfoHandler::~ClipInfoHandler() = default;

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
    if (const auto *ownRecorder = d->videoRecorder()) {
        connect(ownRecorder, &Multimedia::CVideoRecorder::stateChanged, this,
                &ClipInfoHandler::onVideoRecorderStateChanged, s_connectOnce);
    }
    return true;
}

bool ClipInfoHandler::initRecordedVideoIndexing(const QString &videoPath)
{
    const AppLogic::PanTiltProvider *camera = panTiltProvider();
    d->cameraConstant = camera->getCameraConstant();
    d->distanceOffset = camera->getDistanceOffset();
    connectSignalsForIndexing();
    d->tilt = camera->getTilt();
    d->pan = camera->getPan();
    setVideoIndexingFilePath(videoPath);
    return start();
}

void ClipInfoHandler::setVideoIndexingFilePath(const QString &videoPath)
{
    d->infoFilePath = videoPathToFilePath(videoPath);
    d->originalClipName = QFileInfo(videoPath).fileName();
}

bool ClipInfoHandler::start()
{
    QFile file(d->infoFilePath);
    if (file.exists()) {
        resume(file);
    } else {
        writeClipInfo();
        d->nextValueIndex = 0;
    }
    return true;
}

bool ClipInfoHandler::resume(QFile &file)
{
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return false;
    }
    d->nextValueIndex = numberAfter(lastValueIndex(file.readAll()));
    file.close();
    d->resumed = true;
    return true;
}

bool ClipInfoHandler::writeClipInfo()
{
    d->clipInfo.insert(QStringLiteral("Application"), QCoreApplication::applicationName());
    d->clipInfo.insert(QStringLiteral("ClipRatio"), s_pictureRatio);
    d->clipInfo.insert(
        QStringLiteral("CreationDate"),
        QDateTime::currentDateTime().toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")));
    d->clipInfo.insert(QStringLiteral("OriginalClipName"), d->originalClipName);
    d->clipInfo.insert(QStringLiteral("PictureRatio"), s_pictureRatio);
    writeIndexInfo();
    writeLaserCalibrationInfo();
    return true;
}

bool ClipInfoHandler::writeIndexInfo()
{
    d->indexInfo.insert(QStringLiteral("DistanceUnit"), CLocaleSupport::getDistanceUnitString());
    return true;
}

bool ClipInfoHandler::writeLaserCalibrationInfo()
{
    d->laserCalibration.insert(QStringLiteral("Intercept"), d->distanceOffset / 100000.0);
    d->laserCalibration.insert(QStringLiteral("Slope"), d->cameraConstant / 100.0);
    return true;
}

bool ClipInfoHandler::write(double time, double distance, int code, double pan, double tilt)
{
    if (time < d->lastTime) {
        return false;
    }
    d->lastTime = time;
    if (CLocaleSupport::getDistanceUnit() == Base::DistanceUnit::Feet) {
        distance = CConversionServices::convertMetersToFeet(distance);
    }
    d->indexing.append(d->nextValueIndex, time, distance, code, pan, tilt);
    d->nextValueIndex = numberAfter(d->nextValueIndex);
    return true;
}

bool ClipInfoHandler::writeInitialIndexingDistance()
{
    const double distance = distanceCounter()->distanceValue();
    const auto *recorder = d->videoRecorder();
    if (!recorder || recorder->state() != s_recorderRecording) {
        return false;
    }
    // the initial sample has 0, wherever the camera looks
    const bool isWritten = write(secondsOf(*recorder), distance, 0, 0.0, 0.0);
    d->lastDistance = distance;
    return isWritten;
}

bool ClipInfoHandler::stop()
{
    if (d->infoFilePath.isEmpty()) {
        return false;
    }
    QFile file(d->infoFilePath);
    const QIODevice::OpenMode mode = d->resumed ? QIODevice::Append : QIODevice::Truncate;
    if (!file.open(QIODevice::WriteOnly | mode | QIODevice::Text)) {
        return false;
    }
    QTextStream out(&file);
    if (!d->resumed) {
        out << QLatin1String("[ClipInfo]\n");
        writeEntries(out, d->clipInfo);
        out << QLatin1String("\n[IndexInfo]\n");
        writeEntries(out, d->indexInfo);
        out << QLatin1String("\n[LaserCalibration]\n");
        writeEntries(out, d->laserCalibration);
        out << QLatin1String("\n[Indexing]\n");
    }
    d->indexing.write(out);

    d->lastTime = 0.0;
    d->resumed = false;
    d->clipInfo.clear();
    d->indexInfo.clear();
    d->laserCalibration.clear();
    d->indexing.clear();
    d->infoFilePath.clear();
    return true;
}

bool ClipInfoHandler::endVideoIndexing()
{
    if (!isIndexingEnabled()) {
        return false;
    }
    disconnectSignalsForIndexing();
    d->pan = 0.0;
    d->tilt = 0.0;
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
    if (const auto *recorder = d->videoRecorder()) {
        disconnect(recorder, &Multimedia::CVideoRecorder::stateChanged, this,
                   &ClipInfoHandler::onVideoRecorderStateChanged);
    }
    const PanTiltProvider *camera = panTiltProvider();
    disconnect(camera, &PanTiltProvider::panChanged, this, &ClipInfoHandler::onPanValueChanged);
    disconnect(camera, &PanTiltProvider::tiltChanged, this, &ClipInfoHandler::onTiltValueChanged);
}

void ClipInfoHandler::onDistanceCounterValueChanged(double distance)
{
    if (std::abs(distance - d->lastDistance) < s_leastChangeOfDistance) {
        return;
    }
    if (const auto *recorder = d->videoRecorder()) {
        write(secondsOf(*recorder), distance, 0, d->pan, d->tilt);
        d->lastDistance = distance; // also if write() has dropped the sample
    }
}

void ClipInfoHandler::onPanValueChanged(double pan)
{
    if (const auto *recorder = d->videoRecorder()) {
        write(secondsOf(*recorder), d->lastDistance, 0, pan, d->tilt);
        d->pan = pan;
    }
}

void ClipInfoHandler::onTiltValueChanged(double tilt)
{
    if (const auto *recorder = d->videoRecorder()) {
        write(secondsOf(*recorder), d->lastDistance, 0, d->pan, tilt);
        d->tilt = tilt;
    }
}

void ClipInfoHandler::onObservationCreated(const Database::CDomainObjectPointer &object)
{
    if (!d->creationHandler || d->creationHandler->currentSharedItem().isNull()) {
        return;
    }
    const auto *recorder = d->videoRecorder();
    if (!recorder) {
        return;
    }
    const double time = secondsOf(*recorder);
    if (object.dynamicCast<Database::CPipeObservationObject>().isNull()) {
        return;
    }
    // the last distance stays: the next change of distance is compared with it
    write(time, distanceCounter()->distanceValue(), 0, d->pan, d->tilt);
}

void ClipInfoHandler::onVideoRecorderStateChanged()
{
    const auto *recorder = d->videoRecorder();
    if (!recorder) {
        return;
    }
    if (d->creationHandler->state() == s_creatingVideo && recorder->state() == s_recorderIdle) {
        if (isIndexingEnabled()) {
            endVideoIndexing();
        }
        return;
    }
    if (recorder->state() == s_recorderPaused) {
        d->paused = true;
        return;
    }
    if (d->paused) {
        d->paused = false;
        return;
    }
    if (isIndexingEnabled() && d->creationHandler->state() == s_creatingVideo
        && recorder->state() == s_recorderRecording) {
        writeInitialIndexingDistance();
    }
}

} // namespace Tavro::Shared
