// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::View3d {

/**
 * The projection of the map, WGS 84 Web Mercator (EPSG:3857), as well-known text (WKT) in the three
 * spellings that map layers and geometry data need.
 *
 * Readers compare the texts byte for byte, so they never change. Static functions without state.
 * Any thread. Nothing blocks.
 */
class OVO_SHARED_EXPORT GeoProjectorSettings
{
public:
    GeoProjectorSettings() = delete;

    /**
     * The text for the map layers: "WKT:", followed by the spelling of ESRI with the authority
     * codes of EPSG. It contains no blanks. 475 characters.
     */
    static QString getDefaultPseudoMercatorWKT();
    /**
     * The text of ESRI, "WGS 1984 Web Mercator (Auxiliary Sphere)", in one line. 425 characters.
     */
    static QString getValidPseudoMercatorWKT();
    /**
     * The text of the EPSG registry in OGC WKT 1: 22 lines, separated by line feeds and indented by
     * four blanks for each level. 850 characters.
     */
    static QString getValidPseudoMercatorWKT_2();
};

} // namespace Tavro::View3d
