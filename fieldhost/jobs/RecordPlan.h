// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVector>

#include <limits>

namespace Tavro::FieldHost {

/** What the user wants to have recorded. Times are those of the video, in milliseconds. */
struct RecordPlan
{
    QString clip; // path of the video
    qint64 duration = std::numeric_limits<qint64>::max(); // without one, until it is ended
    double speed = 1; // how many times faster than real time
    QVector<qint64> pauses;
    QVector<qint64> observations;
};

/**
 * Why the clip information file of @p plan cannot lie where it should, as a sentence; empty when it
 * can.
 */
QString objectionToPlace(const RecordPlan &plan);

} // namespace Tavro::FieldHost
