// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace Tavro::Benchmarks {

/** Where the camera is and looks at sample @p number: 25 samples a second of a long inspection. */
struct ClipCourse
{
    explicit ClipCourse(int number)
        : milliseconds(number * 40LL)
        , distance(number * 0.008)
        , pan(number % 1200 * 0.1 - 60)
        , tilt(number % 200 * 0.1)
    {
    }

    long long milliseconds; // in the video
    double distance; // metres
    double pan; // degrees
    double tilt; // degrees
};

} // namespace Tavro::Benchmarks
