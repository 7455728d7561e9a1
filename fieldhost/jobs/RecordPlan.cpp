// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/RecordPlan.h"

#include "fieldhost/jobs/Text.h"
#include "shared/clipinfo/ClipInfoHandler.h"

#include <QFileInfo>

namespace Tavro::FieldHost {

QString objectionToPlace(const RecordPlan &plan)
{
    const QFileInfo clip(plan.clip);
    if (clip.fileName().isEmpty() || clip.isDir()) {
        return JobText::tr("%1 is a directory, not a clip.").arg(quoted(plan.clip));
    }
    if (clip.baseName().isEmpty()) {
        return JobText::tr("%1 has no name before its first dot.").arg(quoted(plan.clip));
    }
    const QString path = Shared::ClipInfoHandler::videoPathToFilePath(plan.clip);
    const QFileInfo info(path);
    if (info.absoluteFilePath() == clip.absoluteFilePath()) {
        return JobText::tr("%1 is the name of a clip information file, not of a clip.")
            .arg(quoted(plan.clip));
    }
    const QFileInfo directory(info.path());
    if (!directory.isDir()) {
        return JobText::tr("There is no directory %1.").arg(quoted(directory.filePath()));
    }
    if (info.exists() && (!info.isFile() || !info.isReadable() || !info.isWritable())) {
        return JobText::tr("%1 is there and cannot be continued.").arg(quoted(path));
    }
    if (!info.exists() && !directory.isWritable()) {
        return JobText::tr("The directory %1 cannot be written to.")
            .arg(quoted(directory.filePath()));
    }
    return {};
}

} // namespace Tavro::FieldHost
