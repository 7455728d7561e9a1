#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

namespace Tavro::View3d {

/**
 * The projection of the map, WGS 84 Web Mercator (EPSG:3857), as well-known texts in the three
 * spellings that map layers and geometry data ask for.
 *
 * The texts are compared byte for byte by those who read them, so not a blank of them changes.
 * Every function may be called from any thread.
 */
class OVO_SHARED_EXPORT GeoProjectorSettings
{
public:
    GeoProjectorSettings() = delete;

    /**
     * What the map layers start with: the spelling of ESRI with EPSG's authority codes, behind the
     * prefix "WKT:" and without a blank anywhere. 475 characters.
     */
    static QString getDefaultPseudoMercatorWKT();
    /** The WGS 1984 Web Mercator (Auxiliary Sphere) of ESRI, in one line. 425 characters. */
    static QString getValidPseudoMercatorWKT();
    /**
     * What the EPSG registry publishes, as OGC WKT 1: 22 lines with a line feed between each two
     * of them, indented by four blanks a level. 850 characters.
     */
    static QString getValidPseudoMercatorWKT_2();
};

} // namespace Tavro::View3d
