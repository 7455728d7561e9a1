#pragma once

#include "shared/base/DistanceUnit.h"

#include <QString>
#include <QVector>

namespace Tavro::FieldHost {

/** What the user wants to have recorded. Times are those of the video, in milliseconds. */
struct RecordPlan
{
    QString clip; // path of the video
    qint64 duration = 0;
    double speed = 1; // how many times faster than real time
    QVector<qint64> pauses;
    QVector<qint64> observations;
    Base::DistanceUnit unit = Base::DistanceUnit::Meter;
};

/**
 * Why the clip information file of @p plan cannot lie where it should, as a sentence; empty when it
 * can.
 */
QString objectionToPlace(const RecordPlan &plan);

} // namespace Tavro::FieldHost
