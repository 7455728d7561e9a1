#pragma once

#include <QString>

namespace Tavro::FieldHost {

/** The folder that an absolute, clean path lies in; "/" for that itself. */
QString parentOf(const QString &path);

/** @p name in @p folder, which may end in "/". */
QString below(const QString &folder, const QString &name);

/** Whether there is anything of that name, a link that leads nowhere included. */
bool existsOrIsLink(const QString &path);

/** A path as typed, made absolute and clean. */
QString absolutePath(const QString &typed);

/** Whether a path is a folder's own or lies below it; both absolute and clean. */
bool isSameOrBelow(const QString &path, const QString &folder);

/** The longest beginning of an absolute path that there is. */
QString nearestExisting(QString path);

/** The canonical path that something is going to have that need not exist yet. */
QString futureCanonicalPath(const QString &path);

} // namespace Tavro::FieldHost
