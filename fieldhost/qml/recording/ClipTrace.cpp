// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/recording/ClipTrace.h"

#include "fieldhost/jobs/ClipInfoFile.h"
#include "fieldhost/jobs/Text.h"
#include "shared/clipinfo/ClipInfoHandler.h"

#include <QtConcurrentRun>

#include <cmath>

namespace Tavro::FieldHost {

ClipTrace::ClipTrace(QObject *parent)
    : QObject(parent)
{
    connect(&m_reading, &QFutureWatcher<Drawing>::finished, this, &ClipTrace::take);
}

ClipTrace::~ClipTrace() = default;

void ClipTrace::read(const QString &clip)
{
    m_isReading = true;
    m_reading.setFuture(
        QtConcurrent::run(&ClipTrace::draw, Shared::ClipInfoHandler::videoPathToFilePath(clip)));
    Q_EMIT changed();
}

ClipTrace::Drawing ClipTrace::draw(const QString &path)
{
    Drawing drawing;
    const ClipInfoFile file = ClipInfoFile::read(path);
    if (!file.error.isEmpty()) {
        drawing.problem = tr("Cannot read %1: %2").arg(quoted(path), file.error);
        return drawing;
    }
    const Trace trace(file);
    drawing.headline =
        QStringLiteral("%1: %2, %3, %4")
            .arg(quoted(path), counted(file.samples.size(), tr("1 sample"), tr("%1 samples")),
                 formatDuration(std::llround(trace.duration() * 1000)),
                 counted(trace.recordings(), tr("1 recording"), tr("%1 recordings")));
    if (file.badLines > 0) {
        drawing.doubts += counted(file.badLines, tr("Line %2 could not be read."),
                                  tr("%1 lines could not be read, the first is line %2."))
                              .arg(file.firstBadLine);
    }
    if (file.replacedSamples > 0) {
        drawing.doubts += counted(
            file.replacedSamples, tr("1 sample has the number of a later one, which was taken."),
            tr("%1 samples have the number of a later one, which was taken."));
    }
    if (file.samples.isEmpty()) {
        drawing.problem = tr("There is no sample to draw.");
        return drawing;
    }
    drawing.unit = file.unit;
    drawing.duration = trace.duration();
    for (const Curve &curve : trace.curves()) {
        drawing.curves += trace.columnsOf(curve, PlotCurve::most);
    }
    return drawing;
}

void ClipTrace::take()
{
    const Drawing drawing = m_reading.result();
    m_isReading = false;
    m_problem = drawing.problem;
    m_headline = drawing.headline;
    m_doubts = drawing.doubts;
    m_unit = drawing.unit;
    for (int i = 0; i < 3; ++i) {
        m_curves[i].setStretches(drawing.curves.value(i), drawing.duration);
        m_curves[i].show();
    }
    Q_EMIT changed();
}

} // namespace Tavro::FieldHost
