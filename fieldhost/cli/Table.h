// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <vector>

namespace Tavro::FieldHost {

/**
 * Rows of cells in columns as wide as their widest cell on a terminal, each line indented. The
 * cells are shown as they are.
 */
QString formatTable(const std::vector<QStringList> &rows);

} // namespace Tavro::FieldHost
