// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/Screens.h"
#include "fieldhost/qml/locale/ProjectLocale.h"
#include "fieldhost/qml/translations/Translations.h"
#include "fieldhost/services/FieldApplication.h"
#include "shared/locale/GlobalLocaleData.h"
#include "tests/qml/screens/ScreenTest.h"

#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tavro::FieldHost;
using Tavro::Shared::GlobalLocaleData;
using Tavro::Test::ScreenTest;

namespace {

const char *const s_pages[] = {"export", "delete", "form", "recording", "locale", "device"};

void setLocale(const char *name)
{
    GlobalLocaleData::instance()->setDeviceLocale(QLocale(QLatin1String(name)));
}

// catalogs have a language of their own
bool isOfCatalog(QString text)
{
    QFile catalog(QStringLiteral(":/catalogs/inspection.json"));
    QFile form(QStringLiteral(":/forms/inspection-form.json"));
    if (!catalog.open(QIODevice::ReadOnly) || !form.open(QIODevice::ReadOnly)) {
        return false;
    }
    text.remove(QRegularExpression(QStringLiteral(" \\*$"))); // a mandatory field
    return (catalog.readAll() + form.readAll()).contains('"' + text.toUtf8() + '"');
}

} // namespace

/** Every screen in German: nothing stays English, nothing is cut off, and English comes back. */
class tst_GermanScreens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();
    void everyTextIsTranslated_data();
    void everyTextIsTranslated();
    void everyTextFits_data();
    void everyTextFits();
    void anObjectionIsInOneLanguage();

private:
    QStringList words() const;

    ScreenTest m_screen;
    FieldApplication m_host;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    std::unique_ptr<Translations> m_translations;
    QQuickWindow *m_window = nullptr;
};

void tst_GermanScreens::initTestCase()
{
    m_screen.watchMessages();
    registerScreens();
    m_engine = std::make_unique<QQmlApplicationEngine>();
    m_translations = std::make_unique<Translations>(*m_engine);
    m_engine->load(QUrl(QStringLiteral("qrc:/screens/Main.qml")));
    QCOMPARE(m_engine->rootObjects().size(), 1);
    m_window = qobject_cast<QQuickWindow *>(m_engine->rootObjects().constFirst());
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
    // a thread reads its catalog
    m_window->setProperty("page", QStringLiteral("form"));
    QTRY_VERIFY_WITH_TIMEOUT(m_screen.find(m_window->contentItem(), QStringLiteral("accept")),
                             30000);
}

void tst_GermanScreens::init()
{
    setLocale("en_GB");
    m_window->resize(1280, 800);
    m_window->setProperty("fontScale", 1.0);
}

void tst_GermanScreens::cleanup()
{
    QCOMPARE(m_screen.takeWarnings().join(QLatin1Char('\n')), QString());
}

void tst_GermanScreens::cleanupTestCase()
{
    m_translations.reset();
    m_engine.reset();
}

// what is neither a number nor a path
QStringList tst_GermanScreens::words() const
{
    static const QRegularExpression word(QStringLiteral("^[^/]*[A-Za-z]{4,}[^/]*$"));
    return m_screen.visibleTexts(m_window->contentItem()).filter(word);
}

void tst_GermanScreens::everyTextIsTranslated_data()
{
    QTest::addColumn<QString>("page");
    for (const char *page : s_pages) {
        QTest::newRow(page) << page;
    }
}

void tst_GermanScreens::everyTextIsTranslated()
{
    QFETCH(QString, page);
    m_window->setProperty("page", page);
    const QStringList english = words();
    QVERIFY(!english.isEmpty());

    setLocale("de_DE");
    const QStringList sameInBoth{QStringLiteral("Export"), QStringLiteral("mbar"),
                                 // what the British call it
                                 QStringLiteral("British English, United Kingdom")};
    const QStringList german = words();
    QStringList left;
    for (const QString &text : german) {
        if (english.contains(text) && !sameInBoth.contains(text) && !isOfCatalog(text)) {
            left += text;
        }
    }
    QCOMPARE(left.join(QLatin1Char('\n')), QString());

    setLocale("en_GB");
    QCOMPARE(words(), english);
}

void tst_GermanScreens::everyTextFits_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("fontScale");
    for (const char *page : s_pages) {
        for (const QSize size : {QSize(1280, 800), QSize(800, 480)}) {
            for (const double fontScale : {1.0, 1.5}) {
                QTest::addRow("%s, %d x %d, fonts %.1f times", page, size.width(), size.height(),
                              fontScale)
                    << page << size << fontScale;
            }
        }
    }
}

void tst_GermanScreens::everyTextFits()
{
    QFETCH(QString, page);
    QFETCH(QSize, size);
    QFETCH(double, fontScale);
    setLocale("de_DE");
    m_window->resize(size);
    m_window->setProperty("fontScale", fontScale);
    m_window->setProperty("page", page);
    m_window->grabWindow(); // layouts settle when they are polished, before a frame
    QTRY_COMPARE_WITH_TIMEOUT(
        m_screen.layoutFaults(m_window->contentItem()).join(QLatin1Char('\n')), QString(), 30000);
}

void tst_GermanScreens::anObjectionIsInOneLanguage()
{
    const QString none = QStringLiteral("/none.json");
    ProjectLocale locale;
    locale.setCatalog(none);
    const QString english =
        QStringLiteral("The catalog \"/none.json\" cannot be read: there is no such file.");
    QCOMPARE(locale.objection(), english);
    setLocale("de_DE");
    QCOMPARE(locale.objection(), english);
    locale.setCatalog(none);
    QCOMPARE(
        locale.objection(),
        QStringLiteral("Der Katalog \"/none.json\" ist nicht lesbar: die Datei gibt es nicht."));
}

int main(int argc, char *argv[])
{
    // Qt would make one, and leave it behind
    const QTemporaryDir runtimeDirectory;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));
    const QApplication application(argc, argv);
    tst_GermanScreens test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_GermanScreens.moc"
