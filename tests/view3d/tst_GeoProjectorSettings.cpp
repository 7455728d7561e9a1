// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/GeoProjectorSettings.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <thread>
#include <vector>

using Tavro::View3d::GeoProjectorSettings;

namespace {
using Reader = QString (*)();
}

Q_DECLARE_METATYPE(Reader)

/** The texts, against files that were typed in from the definitions and not made by a program. */
class tst_GeoProjectorSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void threadsMeetAtTheFirstUse();
    void textsAreExact_data();
    void textsAreExact();
    void theDefaultHasNoBlank();
    void theSecondValidOneHasLines();
    void aCopyIsTheCallersOwn_data() { textsAreExact_data(); }
    void aCopyIsTheCallersOwn();
};

// the first test: the texts are not made yet
void tst_GeoProjectorSettings::threadsMeetAtTheFirstUse()
{
    std::vector<std::thread> threads;
    std::vector<QString> texts(8);
    threads.reserve(texts.size());
    for (QString &text : texts) {
        threads.emplace_back([&text] {
            text = GeoProjectorSettings::getDefaultPseudoMercatorWKT()
                + GeoProjectorSettings::getValidPseudoMercatorWKT()
                + GeoProjectorSettings::getValidPseudoMercatorWKT_2();
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    for (const QString &text : texts) {
        QCOMPARE(text.size(), 475 + 425 + 850);
    }
}

void tst_GeoProjectorSettings::textsAreExact_data()
{
    QTest::addColumn<Reader>("read");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("characters");

    QTest::newRow("default") << &GeoProjectorSettings::getDefaultPseudoMercatorWKT
                             << QStringLiteral("default.wkt") << 475;
    QTest::newRow("valid") << &GeoProjectorSettings::getValidPseudoMercatorWKT
                           << QStringLiteral("valid.wkt") << 425;
    QTest::newRow("second valid") << &GeoProjectorSettings::getValidPseudoMercatorWKT_2
                                  << QStringLiteral("valid_2.wkt") << 850;
}

void tst_GeoProjectorSettings::textsAreExact()
{
    QFETCH(Reader, read);
    QFETCH(QString, file);
    QFETCH(int, characters);

    QFile expected(QStringLiteral(OVO_PROJECTIONS) + file);
    QVERIFY(expected.open(QIODevice::ReadOnly));
    const QByteArray bytes = expected.readAll();
    QCOMPARE(bytes.size(), characters);
    QCOMPARE(read().toUtf8(), bytes);
    QCOMPARE(read().size(), characters);
}

void tst_GeoProjectorSettings::theDefaultHasNoBlank()
{
    const QString text = GeoProjectorSettings::getDefaultPseudoMercatorWKT();
    QVERIFY(!text.contains(QRegularExpression(QStringLiteral("\\s"))));
    QVERIFY(text.startsWith(QLatin1String("WKT:PROJCS")));
    QVERIFY(text.endsWith(QLatin1String(R"(AUTHORITY["EPSG","3857"]])")));
}

void tst_GeoProjectorSettings::theSecondValidOneHasLines()
{
    const QString text = GeoProjectorSettings::getValidPseudoMercatorWKT_2();
    QCOMPARE(text.count(QLatin1Char('\n')), 21);
    QVERIFY(!text.endsWith(QLatin1Char('\n')));
    QVERIFY(!text.contains(QLatin1Char('\r')));
    QVERIFY(!text.contains(QLatin1Char('\t')));
}

void tst_GeoProjectorSettings::aCopyIsTheCallersOwn()
{
    QFETCH(Reader, read);
    QFETCH(int, characters);

    QString copy = read();
    copy.fill(QLatin1Char('#'));
    copy.append(QLatin1Char('#'));
    QCOMPARE(read().size(), characters);
    QVERIFY(!read().contains(QLatin1Char('#')));
}

QTEST_APPLESS_MAIN(tst_GeoProjectorSettings)

#include "tst_GeoProjectorSettings.moc"
