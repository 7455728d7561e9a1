// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/recording/RecordingTypes.h"

#include "fieldhost/qml/recording/ClipTrace.h"
#include "fieldhost/qml/recording/PlotCurve.h"
#include "fieldhost/qml/recording/Recording.h"

#include <QtQml>

namespace Tavro::FieldHost {

void registerRecordingTypes()
{
    const char uri[] = "OvoFieldHost";
    qmlRegisterType<Recording>(uri, 1, 0, "Recording");
    qmlRegisterType<ClipTrace>(uri, 1, 0, "ClipTrace");
    qmlRegisterUncreatableType<PlotCurve>(uri, 1, 0, "PlotCurve",
                                          QStringLiteral("belongs to a recording or a trace"));
}

} // namespace Tavro::FieldHost
