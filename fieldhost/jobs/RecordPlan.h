#pragma once

#include "fieldhost/cli/ExitCode.h"
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

/** Why a plan cannot be carried out; ExitDone when it can. */
struct RecordRefusal
{
    ExitCode code = ExitDone;
    QString reason;
};

/** Looks at the place where the clip information file is to lie. */
RecordRefusal checkPlace(const RecordPlan &plan);

} // namespace Tavro::FieldHost
