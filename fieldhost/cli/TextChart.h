// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/Trace.h"

#include <QStringList>

namespace Tavro::FieldHost {

/**
 * The curves of @p trace one below the other, above a time axis, in lines of at most @p columns
 * characters. Each character of the drawing is a Braille pattern of two by four dots.
 */
QStringList drawText(const Trace &trace, int columns);

} // namespace Tavro::FieldHost
