// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/GeoProjectorSettings.h"

#include <QTest>
#include <QtMath>

#include <cmath>
#include <memory>

#include <proj.h>

using Tavro::View3d::GeoProjectorSettings;

namespace {

struct Release
{
    void operator()(PJ_CONTEXT *context) const { proj_context_destroy(context); }
    void operator()(PJ *object) const { proj_destroy(object); }
    void operator()(PJ_OBJ_LIST *list) const { proj_list_destroy(list); }
};
using Context = std::unique_ptr<PJ_CONTEXT, Release>;
using Object = std::unique_ptr<PJ, Release>;

struct Place
{
    const char *name;
    double lon;
    double lat;
};

constexpr Place s_places[] = {
    {"where the map begins", 0.0, 0.0}, {"in the Alps", 7.5, 47.1},
    {"in the Andes", -70.66, -33.45},   {"on Fiji", 178.44, -18.14},
    {"on Svalbard", 15.65, 78.22},
};

// the earth as a ball, which is what makes this projection what it is
constexpr double s_radius = 6378137.0;

double eastingOf(const Place &place)
{
    return s_radius * qDegreesToRadians(place.lon);
}

double northingOf(const Place &place)
{
    return s_radius * std::log(std::tan(M_PI / 4 + qDegreesToRadians(place.lat) / 2));
}

} // namespace

/** The texts, as a projection library understands them. */
class tst_Projections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void isTheDialectItClaims_data() { texts(); }
    void isTheDialectItClaims();
    void isReadWithoutAComplaint_data() { texts(); }
    void isReadWithoutAComplaint();
    void isThatOfTheRegistry_data() { texts(); }
    void isThatOfTheRegistry();
    void isInMetresOnWgs84_data() { texts(); }
    void isInMetresOnWgs84();
    void projectsPlaces_data() { texts(); }
    void projectsPlaces();

private:
    static void texts();
    static QByteArray wellKnownText();
    Object projection() const
    {
        return Object(proj_create_from_wkt(m_context.get(), wellKnownText().constData(), nullptr,
                                           nullptr, nullptr));
    }
    Object registered() const { return Object(proj_create(m_context.get(), "EPSG:3857")); }

    Context m_context;
};

void tst_Projections::initTestCase()
{
    const Context context(proj_context_create());
    QVERIFY(context);
    QVERIFY2(proj_context_get_database_path(context.get()),
             "PROJ does not find its proj.db: install proj-data, or set PROJ_LIB to its directory");
}

void tst_Projections::init()
{
    m_context.reset(proj_context_create());
    QVERIFY(m_context);
}

void tst_Projections::cleanup()
{
    m_context.reset();
}

void tst_Projections::texts()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("dialect");
    QTest::addColumn<QByteArray>("code"); // the authority code that the text carries

    QTest::newRow("default") << GeoProjectorSettings::getDefaultPseudoMercatorWKT()
                             << int(PJ_GUESSED_WKT1_ESRI) << QByteArray("3857");
    QTest::newRow("valid") << GeoProjectorSettings::getValidPseudoMercatorWKT()
                           << int(PJ_GUESSED_WKT1_ESRI) << QByteArray();
    QTest::newRow("second valid") << GeoProjectorSettings::getValidPseudoMercatorWKT_2()
                                  << int(PJ_GUESSED_WKT1_GDAL) << QByteArray("3857");
}

QByteArray tst_Projections::wellKnownText()
{
    QFETCH(QString, text);

    // the prefix is for the map layers, which take it off themselves
    const QLatin1String prefix("WKT:");
    return (text.startsWith(prefix) ? text.mid(prefix.size()) : text).toUtf8();
}

void tst_Projections::isTheDialectItClaims()
{
    QFETCH(int, dialect);

    QCOMPARE(int(proj_context_guess_wkt_dialect(m_context.get(), wellKnownText().constData())),
             dialect);
}

void tst_Projections::isReadWithoutAComplaint()
{
    const char *const options[] = {"STRICT=YES", nullptr};
    PROJ_STRING_LIST warnings = nullptr;
    PROJ_STRING_LIST errors = nullptr;
    const Object read(proj_create_from_wkt(m_context.get(), wellKnownText().constData(), options,
                                           &warnings, &errors));
    const QByteArray complaint = warnings ? *warnings : errors ? *errors : "";
    proj_string_list_destroy(warnings);
    proj_string_list_destroy(errors);
    QVERIFY(read);
    QCOMPARE(complaint, QByteArray());
    QCOMPARE(proj_get_type(read.get()), PJ_TYPE_PROJECTED_CRS);
}

void tst_Projections::isThatOfTheRegistry()
{
    QFETCH(QByteArray, code);

    const Object read = projection();
    QVERIFY(read);
    QCOMPARE(QByteArray(proj_get_id_code(read.get(), 0)), code);
    QVERIFY(proj_is_equivalent_to_with_ctx(m_context.get(), read.get(), registered().get(),
                                           PJ_COMP_EQUIVALENT));

    // found by what it says, not only by its code
    int *confidence = nullptr;
    const std::unique_ptr<PJ_OBJ_LIST, Release> found(
        proj_identify(m_context.get(), read.get(), "EPSG", nullptr, &confidence));
    const int percent = confidence ? *confidence : 0;
    proj_int_list_destroy(confidence);
    QCOMPARE(proj_list_get_count(found.get()), 1);
    const Object match(proj_list_get(m_context.get(), found.get(), 0));
    QCOMPARE(QByteArray(proj_get_id_code(match.get(), 0)), QByteArray("3857"));
    QCOMPARE(percent, 100);
}

void tst_Projections::isInMetresOnWgs84()
{
    const Object read = projection();
    const Object ellipsoid(proj_get_ellipsoid(m_context.get(), read.get()));
    double axis = 0;
    double inverseFlattening = 0;
    QVERIFY(proj_ellipsoid_get_parameters(m_context.get(), ellipsoid.get(), &axis, nullptr, nullptr,
                                          &inverseFlattening));
    QCOMPARE(axis, 6378137.0);
    QCOMPARE(inverseFlattening, 298.257223563);

    const Object system(proj_crs_get_coordinate_system(m_context.get(), read.get()));
    QCOMPARE(proj_cs_get_axis_count(m_context.get(), system.get()), 2);
    const char *const directions[] = {"east", "north"};
    for (int i = 0; i < 2; ++i) {
        const char *direction = nullptr;
        double metres = 0;
        QVERIFY(proj_cs_get_axis_info(m_context.get(), system.get(), i, nullptr, nullptr,
                                      &direction, &metres, nullptr, nullptr, nullptr));
        QCOMPARE(direction, directions[i]);
        QCOMPARE(metres, 1.0);
    }
}

void tst_Projections::projectsPlaces()
{
    const Object read = projection();
    const Object geographic(proj_create(m_context.get(), "EPSG:4326"));
    const Object asListed(proj_create_crs_to_crs_from_pj(m_context.get(), geographic.get(),
                                                         read.get(), nullptr, nullptr));
    const Object transformation(proj_normalize_for_visualization(m_context.get(), asListed.get()));
    QVERIFY(transformation);

    constexpr double tolerance = 1e-6; // m
    for (const Place &place : s_places) {
        const PJ_COORD onMap =
            proj_trans(transformation.get(), PJ_FWD, proj_coord(place.lon, place.lat, 0, 0));
        QVERIFY2(std::abs(onMap.xy.x - eastingOf(place)) < tolerance, place.name);
        QVERIFY2(std::abs(onMap.xy.y - northingOf(place)) < tolerance, place.name);
        const PJ_COORD back = proj_trans(transformation.get(), PJ_INV, onMap);
        QVERIFY2(std::abs(back.lp.lam - place.lon) < 1e-9, place.name);
        QVERIFY2(std::abs(back.lp.phi - place.lat) < 1e-9, place.name);
    }
}

QTEST_APPLESS_MAIN(tst_Projections)

#include "tst_Projections.moc"
