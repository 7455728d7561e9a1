// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

class QString;

namespace Tavro::Shared::detail {

/**
 * A sample as it stands in the file: "12.480;3.215;0;-45.000;10.500". Seconds, distance and angles
 * with three decimals as QString::number() writes them, in every locale.
 */
QString sampleText(double time, double distance, int code, double pan, double tilt);

} // namespace Tavro::Shared::detail
