// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>

namespace Tavro::FieldHost {

/**
 * Translates the texts of the command line. Those of tables are marked with QT_TRANSLATE_NOOP(),
 * and translated where they are shown.
 */
class CommandText
{
    Q_DECLARE_TR_FUNCTIONS(Tavro::FieldHost::CommandText)
};

} // namespace Tavro::FieldHost
