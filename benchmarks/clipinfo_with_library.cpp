// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Has the clip information handler take samples as a host sends them, and write its file. Prints
// the processor's seconds for all samples, for stop() and for the longest sample, and the bytes by
// which memory grew at most.

#include "benchmarks/ClipCourse.h"
#include "benchmarks/resident.h"
#include "host/CDistanceCounter.h"
#include "host/CVideoCreationHandler.h"
#include "host/CVideoRecorder.h"
#include "host/CoreApplication.h"
#include "host/PanTiltProvider.h"
#include "shared/clipinfo/ClipInfoHandler.h"
#include "shared/locale/CProjectLocaleData.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

using namespace Tavro;
using Benchmarks::ClipCourse;

namespace {

class Recorder : public Multimedia::CVideoRecorder
{
public:
    int state() const override { return 2; }
    qint64 duration() const override { return m_duration; }
    void setDuration(qint64 milliseconds) { m_duration = milliseconds; }

private:
    qint64 m_duration = 0;
};

class Creation : public AppLogic::CVideoCreationHandler
{
public:
    int state() const override { return 1; }
    Multimedia::CVideoRecorder *videoRecorder() const override { return &m_recorder; }
    Database::CDomainObjectPointer currentSharedItem() const override { return {}; }
    Recorder &recorder() { return m_recorder; }

private:
    mutable Recorder m_recorder;
};

// one sample by a signal, where the distance changes enough as well as where it does not
void sendSample(int number, Recorder &recorder)
{
    const ClipCourse course(number);
    recorder.setDuration(course.milliseconds);
    if (number % 2 == 0) {
        Q_EMIT AppLogic::CoreApplication::instance()->panTiltProvider()->panChanged(course.pan);
    } else {
        Q_EMIT AppLogic::CoreApplication::instance()->panTiltProvider()->tiltChanged(course.tilt);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int samples = arguments.value(2).toInt();
    const bool timesEach = arguments.value(3) == QLatin1String("each");
    if (arguments.size() != 4 || samples <= 0) {
        std::fprintf(stderr, "usage: %s VIDEO SAMPLES each|all\n", argv[0]);
        return EXIT_FAILURE;
    }
    Shared::CProjectLocaleData::instance()->setUnitType(Base::DistanceUnit::Meter);
    Creation creation;
    Shared::ClipInfoHandler handler(&creation);
    handler.initRecordedVideoIndexing(arguments.at(1));

    const long before = peak_resident_bytes();
    double longest = 0;
    const double began = processor_seconds();
    // a look at the clock costs as much as some of the work, so the sum is taken without
    for (int i = 0; i < samples; ++i) {
        const double begin = timesEach ? processor_seconds() : 0;
        sendSample(i, creation.recorder());
        if (timesEach) {
            longest = std::max(longest, processor_seconds() - begin);
        }
    }
    const double collected = processor_seconds();
    const bool isWritten = handler.stop();
    const double stopped = processor_seconds();
    std::printf("%.9f %.9f %.9f %ld\n", collected - began, stopped - collected, longest,
                peak_resident_bytes() - before);
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}
