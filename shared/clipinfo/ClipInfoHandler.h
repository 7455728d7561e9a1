// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CDomainObject.h"
#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>

#include <memory>

class QFile;

namespace Tavro::AppLogic {
class CVideoCreationHandler;
}

namespace Tavro::Multimedia {
class CVideoRecorder;
}

namespace Tavro::Shared {

/**
 * Writes the clip information file, which lies beside a recorded video.
 *
 * The file contains the date of the video, the application, the distance unit, the calibration of
 * the camera, and a trace of the position and direction of the camera. It is an INI-like text of
 * four sections. The last section has one line for each sample, such as
 *
 *     Val00007=12.480;3.215;0;-45.000;10.500
 *
 * with the time in the video in seconds, the distance in the project's unit, a 0, pan and tilt.
 *
 * For each clip the host calls connectToVideoRecorder() while the recorder is idle, and
 * initRecordedVideoIndexing() before it starts. The handler then takes samples on the signals of
 * the distance counter, the camera head and the observations, keeps them in memory, and writes the
 * file in one go when the recorder becomes idle.
 *
 * Call all functions on the thread that the handler lives in, which is also the thread of the
 * host's services. The host's CoreApplication with its distance counter and its PanTiltProvider,
 * AppState and CApplicationSettings must exist while a clip is recorded. Nothing is logged: the
 * return value is the only sign of a failure. resume(), stop() and the functions that call them,
 * and removeInfoForVideo(), access files and block.
 *
 * The library uses these numbers of the host: CVideoCreationHandler::state() 1, a video is being
 * created; CVideoRecorder::state() 0 idle, 2 recording, 3 paused.
 */
class OVO_SHARED_EXPORT ClipInfoHandler : public QObject
{
    Q_OBJECT

public:
    /**
     * Connects nothing. @p handler becomes the parent; its videoRecorder() is called each time the
     * recorder is needed. With null there is no recorder, and signals cause no samples.
     */
    explicit ClipInfoHandler(AppLogic::CVideoCreationHandler *handler = nullptr);
    ~ClipInfoHandler() override;

    /**
     * Path of the clip information file of a video: the directory of the video, and its file name
     * up to the first dot, with ".txt". "/data/a.b.mp4" gives "/data/a.txt". A relative path gives
     * a relative path.
     */
    static QString videoPathToFilePath(const QString &videoPath);
    /** Removes the clip information file of a video, if it exists. Errors are not reported. */
    static void removeInfoForVideo(const QString &videoPath);

    /**
     * Connects onVideoRecorderStateChanged() to the recorder of the creation handler, until
     * indexing ends. Returns false and does nothing when @p recorder is null or not idle (state 0).
     *
     * @p recorder is used for this check only. Returns true also when the creation handler has no
     * recorder; then nothing is connected.
     */
    bool connectToVideoRecorder(Multimedia::CVideoRecorder *recorder);

    /**
     * Begins a clip: reads calibration, tilt and pan from the camera, calls
     * connectSignalsForIndexing() and setVideoIndexingFilePath(), and returns the result of
     * start(). Does not check whether the user has turned indexing on.
     *
     * **An earlier clip that stop() has not written is kept.** Its samples get into the file of the
     * new clip, and samples of the new clip are dropped until their time reaches that of its last
     * one. See stop() and endVideoIndexing().
     */
    bool initRecordedVideoIndexing(const QString &videoPath);
    /** Sets the name of the video and, by videoPathToFilePath(), the path of the file to write. */
    void setVideoIndexingFilePath(const QString &videoPath);

    /**
     * Calls writeClipInfo() and begins with sample number 0. If the file exists already, calls
     * resume() instead to continue it. Always returns true, also when resume() has returned false.
     */
    bool start();
    /**
     * Continues @p file: the next sample gets the number after that of the last "Val" in it, and
     * stop() will append. If there is no "Val", or no number after it, the next number is 1.
     *
     * Opens, reads and closes @p file. Returns false and changes nothing when it cannot be opened.
     * Blocks while the whole file is read into memory.
     */
    bool resume(QFile &file);

    /**
     * Fills the section "[ClipInfo]" in memory: application, local date and time, name of the video
     * and the two picture ratios. Then calls writeIndexInfo() and writeLaserCalibrationInfo().
     * Always returns true.
     */
    bool writeClipInfo();
    /**
     * Fills the section "[IndexInfo]" in memory: CLocaleSupport::getDistanceUnitString() at the
     * time of the call. Always returns true.
     */
    bool writeIndexInfo();
    /**
     * Fills the section "[LaserCalibration]" in memory, from the values that
     * initRecordedVideoIndexing() has read from the camera. Always returns true.
     */
    bool writeLaserCalibrationInfo();

    /**
     * Adds a sample. @p time is the time in the video in seconds, @p distance is in metres, @p code
     * is any number, @p pan and @p tilt are in the unit of the PanTiltProvider. The distance is
     * stored in feet if the project's unit is feet at the time of the call.
     *
     * Returns false and adds nothing when @p time is less than that of the last sample.
     */
    bool write(double time, double distance, int code, double pan, double tilt);
    /**
     * Adds a sample of the distance at which the recording begins, with pan and tilt 0. Returns
     * false and adds nothing when no recorder is recording (state 2), or when write() returns
     * false.
     */
    bool writeInitialIndexingDistance();

    /**
     * Writes the file, or appends to the one that is continued, and drops the clip from memory.
     * Blocks while it writes about 50 bytes for each sample. The file is not flushed to the device.
     * Errors while writing are not detected.
     *
     * Returns false when no path is set or the file cannot be opened. Everything stays in memory
     * then, and a later call can still write it. To discard it, use another handler.
     */
    bool stop();
    /**
     * Ends the clip: calls disconnectSignalsForIndexing(), sets pan and tilt to 0 and returns the
     * result of stop(). Returns false and does nothing when the user has turned video indexing off:
     * the clip goes on. To end it nevertheless, call disconnectSignalsForIndexing() and stop().
     */
    bool endVideoIndexing();

    /**
     * Connects distance, observations, pan and tilt to the slots, in this order. Connections are
     * unique, so no sample is taken twice.
     */
    void connectSignalsForIndexing();
    /** Disconnects these four signals and the recorder of the creation handler. */
    void disconnectSignalsForIndexing();

public Q_SLOTS:
    /**
     * Adds a sample when @p distance, in metres, differs by 0.05 or more from the last distance.
     * The last distance is that of the initial sample, or of the last change of 0.05 or more, even
     * if its sample was dropped. Like all slots, it does nothing without a recorder.
     */
    void onDistanceCounterValueChanged(double distance);
    /** Adds a sample with the new @p pan, at the last distance. */
    void onPanValueChanged(double pan);
    /** Adds a sample with the new @p tilt, at the last distance. */
    void onTiltValueChanged(double tilt);
    /**
     * Adds a sample at the present distance of the counter when @p object is a
     * CPipeObservationObject and CVideoCreationHandler::currentSharedItem() is not null.
     */
    void onObservationCreated(const Tavro::Database::CDomainObjectPointer &object);
    /**
     * While a video is being created and indexing is turned on: calls endVideoIndexing() when the
     * recorder has become idle, and writeInitialIndexingDistance() when it has begun to record,
     * except after a pause. Otherwise it only records the pause.
     */
    void onVideoRecorderStateChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
