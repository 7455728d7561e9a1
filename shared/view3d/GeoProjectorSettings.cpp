// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/GeoProjectorSettings.h"

namespace Tavro::View3d {

QString GeoProjectorSettings::getDefaultPseudoMercatorWKT()
{
    // laid out for readers of the code; the result has no blanks
    static const QString text = QStringLiteral(R"(WKT:
    PROJCS["WGS_84_Pseudo_Mercator",
        GEOGCS["GCS_WGS_1984",
            DATUM["World_Geodetic_System_1984",
                SPHEROID["WGS_84",6378137,298.257223563],
                TOWGS84[0,0,0,0,0,0,0]],
            PRIMEM["Greenwich",0],
            UNIT["Degree",0.0174532925199433]],
        PROJECTION["Mercator_Auxiliary_Sphere"],
        PARAMETER["Central_Meridian",0],
        PARAMETER["False_Easting",0],
        PARAMETER["False_Northing",0],
        PARAMETER["Standard_Parallel_1",0],
        PARAMETER["Scale_Factor",1],
        UNIT["Meter",1,AUTHORITY["EPSG","9001"]],
        AUTHORITY["EPSG","3857"]])")
                                    .simplified()
                                    .remove(QLatin1Char(' '));
    return text;
}

QString GeoProjectorSettings::getValidPseudoMercatorWKT()
{
    static const QString text = QStringLiteral(R"(PROJCS["WGS_1984_Web_Mercator_Auxiliary_Sphere",)"
                                               R"(GEOGCS["GCS_WGS_1984",)"
                                               R"(DATUM["D_WGS_1984",)"
                                               R"(SPHEROID["WGS_1984",6378137.0,298.257223563]],)"
                                               R"(PRIMEM["Greenwich",0.0],)"
                                               R"(UNIT["Degree",0.0174532925199433]],)"
                                               R"(PROJECTION["Mercator_Auxiliary_Sphere"],)"
                                               R"(PARAMETER["False_Easting",0.0],)"
                                               R"(PARAMETER["False_Northing",0.0],)"
                                               R"(PARAMETER["Central_Meridian",0.0],)"
                                               R"(PARAMETER["Standard_Parallel_1",0.0],)"
                                               R"(PARAMETER["Auxiliary_Sphere_Type",0.0],)"
                                               R"(UNIT["Meter",1.0]])");
    return text;
}

QString GeoProjectorSettings::getValidPseudoMercatorWKT_2()
{
    // the layout of the registry, which is part of the text
    static const QString text = QStringLiteral(R"(PROJCS["WGS 84 / Pseudo-Mercator",
    GEOGCS["WGS 84",
        DATUM["WGS_1984",
            SPHEROID["WGS 84",6378137,298.257223563,
                AUTHORITY["EPSG","7030"]],
            AUTHORITY["EPSG","6326"]],
        PRIMEM["Greenwich",0,
            AUTHORITY["EPSG","8901"]],
        UNIT["degree",0.0174532925199433,
            AUTHORITY["EPSG","9122"]],
        AUTHORITY["EPSG","4326"]],
    PROJECTION["Mercator_1SP"],
    PARAMETER["central_meridian",0],
    PARAMETER["scale_factor",1],
    PARAMETER["false_easting",0],
    PARAMETER["false_northing",0],
    UNIT["metre",1,
        AUTHORITY["EPSG","9001"]],
    AXIS["Easting",EAST],
    AXIS["Northing",NORTH],
    EXTENSION["PROJ4","+proj=merc +a=6378137 +b=6378137 +lat_ts=0 +lon_0=0 +x_0=0 +y_0=0 +k=1 +units=m +nadgrids=@null +wktext +no_defs"],
    AUTHORITY["EPSG","3857"]])");
    return text;
}

} // namespace Tavro::View3d
