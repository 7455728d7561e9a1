// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/forms/ColumnForm.h"

#include <QMap>
#include <QString>

#include <optional>

namespace Tavro::FieldHost {

/** How the columns of a catalog are edited, by the keys of the columns. */
using Form = QMap<QString, ColumnForm>;

/**
 * Reads the form file @p path, blocking; docs/input.md describes the files. Nothing when it cannot
 * be used, and then @p error says why, and where in the file.
 */
std::optional<Form> readForm(const QString &path, QString &error);

} // namespace Tavro::FieldHost
