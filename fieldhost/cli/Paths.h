#pragma once

#include <QString>

namespace Tavro::FieldHost {

/** The folder that an absolute, clean path lies in; "/" for that itself. */
QString parentOf(const QString &path);

/** @p name in @p folder, which may end in "/". */
QString below(const QString &folder, const QString &name);

/** Whether there is anything of that name, a link that leads nowhere included. */
bool existsOrIsLink(const QString &path);

} // namespace Tavro::FieldHost
