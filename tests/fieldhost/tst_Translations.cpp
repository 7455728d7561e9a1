// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/ExportPlan.h"
#include "fieldhost/jobs/Text.h"
#include "fieldhost/qml/translations/Translations.h"
#include "shared/input/NotEmptyValidator.h"
#include "shared/locale/GlobalLocaleData.h"

#include <QLocale>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tavro::FieldHost;
using Tavro::Shared::GlobalLocaleData;
using Tavro::Shared::NotEmptyValidator;

namespace {

void setLocale(const char *name)
{
    GlobalLocaleData::instance()->setDeviceLocale(QLocale(QLatin1String(name)));
}

QString hint()
{
    return NotEmptyValidator().hint();
}

} // namespace

class tst_Translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theFirstTextsAreInTheCurrentLanguage();
    void textsFollowTheLanguage_data();
    void textsFollowTheLanguage();
    void bindingsFollowTheLanguage();
    void bindingsRestWhileTheLanguageStays();
    void jobsSpeakTheLanguage();
    void numbersInTextsAreOfTheirLanguage();
    void aProcessWithoutThemSpeaksEnglish();
};

void tst_Translations::init()
{
    setLocale("en_GB");
}

void tst_Translations::theFirstTextsAreInTheCurrentLanguage()
{
    setLocale("de_AT");
    QQmlEngine engine;
    const Translations translations(engine);
    QCOMPARE(hint(), QStringLiteral("Eingabe erforderlich\n"));
}

void tst_Translations::textsFollowTheLanguage_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");

    const QString english = QStringLiteral("Expression can not be empty\n");
    const QString german = QStringLiteral("Eingabe erforderlich\n");
    QTest::newRow("German") << "de_DE" << german;
    QTest::newRow("German of Switzerland") << "de_CH" << german;
    QTest::newRow("English") << "en_US" << english;
    QTest::newRow("a language without a translation") << "ar_EG" << english;
    QTest::newRow("no language") << "C" << english;
}

void tst_Translations::textsFollowTheLanguage()
{
    QFETCH(QString, name);
    QQmlEngine engine;
    const Translations translations(engine);
    for (const char *before : {"de_DE", "en_GB"}) {
        setLocale(before);
        setLocale(name.toLatin1().constData());
        QTEST(hint(), "text");
    }
}

void tst_Translations::bindingsFollowTheLanguage()
{
    QQmlEngine engine;
    const Translations translations(engine);
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.15\n"
                      "QtObject { property string text: qsTranslate("
                      "'Tavro::FieldHost::ExportRun', '%1 files') }",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(object->property("text"), QVariant(QStringLiteral("%1 files")));
    setLocale("de_DE");
    QCOMPARE(object->property("text"), QVariant(QStringLiteral("%1 Dateien")));
    setLocale("en_GB");
    QCOMPARE(object->property("text"), QVariant(QStringLiteral("%1 files")));
}

// all bindings at once take their time
void tst_Translations::bindingsRestWhileTheLanguageStays()
{
    QQmlEngine engine;
    const Translations translations(engine);
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.15\n"
                      "QtObject {\n"
                      "    property var counter: ({ reads: 0 })\n"
                      "    property int reads: ++counter.reads\n"
                      "}",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(object->property("reads"), QVariant(1));
    setLocale("en_US");
    QCOMPARE(object->property("reads"), QVariant(1));
    setLocale("de_DE");
    QVERIFY(object->property("reads").toInt() > 1);
}

void tst_Translations::jobsSpeakTheLanguage()
{
    setLocale("de_DE");
    QQmlEngine engine;
    const Translations translations(engine);
    const QTemporaryDir directory;
    const QString source = directory.filePath(QStringLiteral("Haltung 7"));
    const ExportPlan plan = planExport({source}, directory.filePath(QStringLiteral("Ziel")), false,
                                       [] { return false; });
    QCOMPARE(plan.reasons,
             QStringList(QStringLiteral("Die Quelle \"%1\" gibt es nicht.").arg(source)));
}

// where nothing is translated, they are as in the sentences: English
void tst_Translations::numbersInTextsAreOfTheirLanguage()
{
    QQmlEngine engine;
    const Translations translations(engine);
    setLocale("fr_FR");
    QCOMPARE(formatBytes(1536), QStringLiteral("1.5 KiB"));
    setLocale("de_DE");
    QCOMPARE(formatBytes(1536), QStringLiteral("1,5 KiB"));
    QCOMPARE(formatBytes(1024 * 1024 - 1), QStringLiteral("1,0 MiB"));
    QCOMPARE(formatRate(2000.0 * 1024 * 1024), QStringLiteral("2000,0 MiB/s"));
    QCOMPARE(formatDuration(1300), QStringLiteral("1,3 s"));
}

void tst_Translations::aProcessWithoutThemSpeaksEnglish()
{
    setLocale("de_DE");
    {
        QQmlEngine engine;
        const Translations translations(engine);
        QCOMPARE(hint(), QStringLiteral("Eingabe erforderlich\n"));
    }
    QCOMPARE(hint(), QStringLiteral("Expression can not be empty\n"));
}

QTEST_GUILESS_MAIN(tst_Translations)

#include "tst_Translations.moc"
