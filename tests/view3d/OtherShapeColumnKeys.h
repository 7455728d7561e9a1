// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/** The key as a second source has it. */
const QString *otherShapeViewColumnM();
