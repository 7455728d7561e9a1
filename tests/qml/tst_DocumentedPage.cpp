// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/OvoSharedBaseTypes.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"
#include "tests/support/LocaleScope.h"

#include <QApplication>
#include <QFile>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

namespace {

/** The page of the documentation, as QML. */
QByteArray documentedPage()
{
    QFile file(QStringLiteral(OVO_SOURCE_DIR "/docs/qml.md"));
    file.open(QIODevice::ReadOnly);
    const QByteArray text = file.readAll();
    const QByteArray fence("\n```qml\n");
    const int begin = text.indexOf(fence, text.indexOf("\n## A complete page\n")) + fence.size();
    return text.mid(begin, text.indexOf("\n```\n", begin) - begin + 1);
}

} // namespace

/** The complete page of docs/qml.md, as its reader runs it. */
class tst_DocumentedPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void copies();
    void saysWhatIsMissing();
    void pausedCopyIsAborted();
    void figuresFollowTheLocale();

private:
    QQuickItem *item(const char *name) const
    {
        return m_window->findChild<QQuickItem *>(QLatin1String(name));
    }
    QString textOf(const char *name) const { return item(name)->property("text").toString(); }
    void click(const char *name) const
    {
        QQuickItem *button = item(name);
        QTRY_VERIFY_WITH_TIMEOUT(button->isEnabled(), 30000);
        const QPointF center(button->width() / 2, button->height() / 2);
        QTest::mouseClick(m_window, Qt::LeftButton, {}, button->mapToScene(center).toPoint());
    }
    QString below(const char *name) const { return m_directory->filePath(QLatin1String(name)); }

    QScopedPointer<Test::LocaleScope> m_locale;
    QScopedPointer<QTemporaryDir> m_directory;
    QScopedPointer<QQmlApplicationEngine> m_engine;
    QStringList m_warnings;
    QQuickWindow *m_window = nullptr;
};

void tst_DocumentedPage::initTestCase()
{
    registerOvoSharedBaseTypes();
}

void tst_DocumentedPage::init()
{
    m_locale.reset(new Test::LocaleScope(QLocale(QStringLiteral("en_GB"))));
    m_directory.reset(new QTemporaryDir);
    Test::makeFile(below("source/project.txt"), Test::someBytes(1000));
    Test::makeFile(below("source/section 1/video"), Test::someBytes(5000000));
    QDir().mkdir(below("drive"));

    m_engine.reset(new QQmlApplicationEngine);
    connect(m_engine.data(), &QQmlEngine::warnings, this, [this](const QList<QQmlError> &warnings) {
        for (const QQmlError &warning : warnings) {
            m_warnings += warning.toString();
        }
    });
    // as a dialog has it, and as a path
    m_engine->setInitialProperties(
        {{QStringLiteral("source"), QUrl::fromLocalFile(below("source")).toString()},
         {QStringLiteral("destination"), below("drive")}});
    m_engine->loadData(documentedPage());
    QVERIFY2(!m_engine->rootObjects().isEmpty(), qPrintable(m_warnings.join(QLatin1Char('\n'))));
    m_window = qobject_cast<QQuickWindow *>(m_engine->rootObjects().constFirst());
    QVERIFY(m_window);
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
}

void tst_DocumentedPage::cleanup()
{
    m_engine.reset();
    m_directory.reset();
    m_locale.reset();
    QCOMPARE(m_warnings, QStringList());
}

void tst_DocumentedPage::copies()
{
    click("start");
    QTRY_COMPARE_WITH_TIMEOUT(textOf("outcome"), QStringLiteral("Copied: 4.8 MB"), 30000);
    QCOMPARE(Test::treeOf(below("drive/export")), Test::treeOf(below("source")));
    QVERIFY(!item("abort")->isEnabled());
}

void tst_DocumentedPage::saysWhatIsMissing()
{
    // a file is where the directory should be
    Test::makeFile(below("drive/export/section 1"), "in the way");
    click("start");
    QTRY_VERIFY_WITH_TIMEOUT(
        textOf("outcome").startsWith(QLatin1String("Not everything was copied. ")), 30000);
    QVERIFY2(textOf("outcome").contains(QLatin1String("/section 1")),
             qPrintable(textOf("outcome")));
}

void tst_DocumentedPage::pausedCopyIsAborted()
{
    // holds the copy in its last chunk until it is paused
    Test::FakeCommands commands;
    commands.addHeld(QStringLiteral("sync"), below("letGo"));
    click("start");
    QTRY_VERIFY_WITH_TIMEOUT(!commands.journal().isEmpty(), 30000);
    click("pause");
    QCOMPARE(textOf("pause"), QStringLiteral("Resume"));
    Test::makeFile(below("letGo"), QByteArray());

    click("abort");
    QTRY_COMPARE_WITH_TIMEOUT(textOf("outcome"),
                              QStringLiteral("Canceled. The destination has been removed."), 30000);
    QVERIFY(!QFile::exists(below("drive/export")));
    QCOMPARE(textOf("pause"), QStringLiteral("Pause"));
}

void tst_DocumentedPage::figuresFollowTheLocale()
{
    QTRY_VERIFY_WITH_TIMEOUT(textOf("sizes").startsWith(QLatin1String("4.8 MB to copy, ")), 30000);
    Tavro::Shared::GlobalLocaleData::instance()->setDeviceLocale(QLocale(QStringLiteral("de_DE")));
    QVERIFY(textOf("sizes").startsWith(QLatin1String("4,8 MB to copy, ")));
}

int main(int argc, char *argv[])
{
    // Qt would make one, and leave it behind
    const QTemporaryDir runtimeDirectory;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));
    const QApplication application(argc, argv);
    tst_DocumentedPage test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_DocumentedPage.moc"
