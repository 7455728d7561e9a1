// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Tavro::FieldHost {

/** How many columns of a terminal @p text takes. */
int columnsOf(const QString &text);

/** The beginning of @p line that fits into @p columns of a terminal, "…" last where it was cut. */
QString fitToColumns(const QString &line, int columns);

} // namespace Tavro::FieldHost
