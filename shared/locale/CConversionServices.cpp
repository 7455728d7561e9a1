// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CConversionServices.h"

namespace Tavro::Shared {

double CConversionServices::convertMetersToFeet(double m)
{
    return m * 3.2808; // rounded on purpose: stored distances were made with it
}

double CConversionServices::convertMetersToInches(double m)
{
    return m * 39.3700787;
}

double CConversionServices::convertFeetToMeters(double ft)
{
    return ft * 0.3048;
}

float CConversionServices::toMegabytes(unsigned long long bytes)
{
    return static_cast<float>(static_cast<double>(bytes) * 9.5367431640625e-7); // 2^-20
}

} // namespace Tavro::Shared
