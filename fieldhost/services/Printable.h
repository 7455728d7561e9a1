// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::FieldHost {

/**
 * @p text as a terminal can show it: control characters and those that change the direction of
 * writing are spelled out, so that a name can neither clear the screen nor pose as another.
 */
QString printable(const QString &text);

/** The same for several lines: the line feeds between them stay. */
QString printableLines(const QString &text);

} // namespace Tavro::FieldHost
