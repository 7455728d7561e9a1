// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::FieldHost {

class Progress;

/**
 * @p progress in @p columns of a terminal: "12.3 MiB of 56.3 MiB  21 %  45.2 MiB/s  0:03 left", as
 * far as it is known, then @p remark. Where that is too long, the rate goes, then the bytes;
 * percent and time stay. @p directory stands in front, cut to the room that is left. 0 columns
 * stand for a line without a limit, and without the directory.
 */
QString progressLine(const Progress &progress, const QString &directory, const QString &remark,
                     int columns);

} // namespace Tavro::FieldHost
