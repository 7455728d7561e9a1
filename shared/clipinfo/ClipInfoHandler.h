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
 * Writes the clip information file that lies beside a recorded video.
 *
 * The file says when and with what the video was made, and where the camera was and looked at
 * each moment of it: an INI-like text of four sections, of which the last one holds a line for
 * each sample, such as
 *
 *     Val00007=12.480;3.215;0;-45.000;10.500
 *
 * with the time in the video in seconds, the distance in the project's unit, a 0, pan and tilt.
 *
 * The life of one clip: connectToVideoRecorder() while the recorder is idle and
 * initRecordedVideoIndexing() before it starts. From then on the handler follows the distance
 * counter, the camera head, the observations and the recorder by itself, keeps every sample in
 * memory, and writes the file in one go when the recorder becomes idle.
 *
 * Everything belongs to the thread that the handler lives in, which is that of the host's
 * services. Nothing is logged; a failure shows in the result of the call alone. The host's
 * CoreApplication, AppState and CApplicationSettings must exist while a clip is recorded.
 */
class OVO_SHARED_EXPORT ClipInfoHandler : public QObject
{
    Q_OBJECT

public:
    /**
     * Listens to nothing yet. @p handler becomes the parent and is asked for the recorder each
     * time one is needed; with null there never is one, so no sample is taken from a signal.
     */
    explicit ClipInfoHandler(AppLogic::CVideoCreationHandler *handler = nullptr);
    ~ClipInfoHandler() override;

    /**
     * Path of the clip information file of a video: its folder, and what its name holds before
     * the first dot, with ".txt". So "/data/a.b.mp4" gets "/data/a.txt". A relative path stays one.
     */
    static QString videoPathToFilePath(const QString &videoPath);
    /** Removes the clip information file of a video. Whether there was one is not reported. */
    static void removeInfoForVideo(const QString &videoPath);

    /**
     * Follows the recorder from now on, until indexing ends. False, and nothing done, when
     * @p recorder is null or not idle (state 0).
     *
     * What is followed is the recorder of the creation handler, whichever @p recorder was given;
     * true as well when it has none.
     */
    bool connectToVideoRecorder(Multimedia::CVideoRecorder *recorder);

    /**
     * Begins a clip: takes calibration, tilt and pan from the camera, connects the signals, and
     * calls setVideoIndexingFilePath() and start(), whose result it returns. Whether the user
     * wants indexing is not asked here.
     *
     * **A clip before that no stop() has written is still there**: until the new one is longer
     * its samples are dropped, and the old ones get into its file. See stop() and
     * endVideoIndexing().
     */
    bool initRecordedVideoIndexing(const QString &videoPath);
    /** Takes over the name of the video and, from it, the path of the file to write. */
    void setVideoIndexingFilePath(const QString &videoPath);

    /**
     * Begins a new file with writeClipInfo() and sample number 0 or, where the file exists
     * already, continues that with resume(). Always true, also when resume() was false.
     */
    bool start();
    /**
     * Continues @p file: the next sample gets the number after that of the last "Val" in it, and
     * stop() will append. Number 1 comes next when there is no "Val", or no number in its place.
     *
     * Opens, reads and closes @p file. False, and nothing changed, when it cannot be opened.
     * Blocks while the whole file is read into memory.
     */
    bool resume(QFile &file);

    /**
     * Fills the section "[ClipInfo]" in memory: application, date and time, name of the video
     * and the two picture ratios; then calls writeIndexInfo() and writeLaserCalibrationInfo().
     * Always true.
     */
    bool writeClipInfo();
    /** Fills the section "[IndexInfo]": the text of the distance unit in force now. Always true. */
    bool writeIndexInfo();
    /** Fills "[LaserCalibration]" from what the camera said when indexing began. Always true. */
    bool writeLaserCalibrationInfo();

    /**
     * Adds one sample: @p time in the video in seconds, @p distance in metres, @p code any
     * number, @p pan and @p tilt as the camera counts them. The distance is written in feet when
     * the project's unit is feet at this moment.
     *
     * False, and no sample, when @p time lies before that of the last sample.
     */
    bool write(double time, double distance, int code, double pan, double tilt);
    /**
     * Adds a sample for the place where the recording begins, with pan and tilt 0. False, and no
     * sample, without a recorder that is recording (state 2), or when write() refuses it.
     */
    bool writeInitialIndexingDistance();

    /**
     * Writes the file, or appends to the one that is continued, and forgets the clip. Blocks
     * while it writes: some 50 bytes a sample, not flushed to the device.
     *
     * False when the file cannot be opened, for want of a path as well; everything stays in
     * memory then, and a later call can still write it. To drop it, use another handler.
     */
    bool stop();
    /**
     * Ends the clip: disconnects the signals, sets pan and tilt to 0 and returns what stop()
     * returns. False, and nothing done, when the user has turned video indexing off: the clip goes
     * on, and ends with disconnectSignalsForIndexing() and stop() if at all.
     */
    bool endVideoIndexing();

    /**
     * Connects distance, observations, pan and tilt, in this order, to the slots. What is
     * connected already stays connected once, so that no sample is taken twice.
     */
    void connectSignalsForIndexing();
    /** Disconnects them again, and the recorder of the creation handler. */
    void disconnectSignalsForIndexing();

public Q_SLOTS:
    /** Adds a sample when @p distance, in metres, is 0.05 or more away from the last one's. */
    void onDistanceCounterValueChanged(double distance);
    /** Adds a sample with the new @p pan. */
    void onPanValueChanged(double pan);
    /** Adds a sample with the new @p tilt. */
    void onTiltValueChanged(double tilt);
    /**
     * Adds a sample at the counter's current distance when @p object is an observation in a pipe
     * and the video belongs to something.
     */
    void onObservationCreated(const Tavro::Database::CDomainObjectPointer &object);
    /**
     * Ends the clip when the recorder has become idle, and adds the initial sample when it has
     * begun to record, except after a pause.
     */
    void onVideoRecorderStateChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
