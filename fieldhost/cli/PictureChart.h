// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/Trace.h"

#include <QImage>

namespace Tavro::FieldHost {

/**
 * The curves of @p trace one below the other over a time axis, dark on white, 960 by 720 pixels.
 * Needs a QGuiApplication, for the fonts.
 */
QImage drawPicture(const Trace &trace);

} // namespace Tavro::FieldHost
