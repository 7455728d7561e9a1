// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Program.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Test;

namespace {

enum Exit { Done = 0, Failed = 1, Usage = 2 };

/** A copy of the program in a directory of its own, which may have screens beside it. */
class Installation
{
public:
    Installation()
    {
        if (!QDir(m_root.path()).mkpath(QStringLiteral("bin"))
            || !QFile::copy(programPath(), program())) {
            qFatal("cannot copy the program");
        }
        m_environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":77"));
        for (const char *name : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            m_environment.remove(QLatin1String(name));
        }
    }

    /** Installs screens that say what they are told, and end with 7. */
    void addScreens(const QString &directory)
    {
        const QString path = m_root.filePath(directory + QStringLiteral("/ovo-fieldhost-gui"));
        makeFile(path, "#!/bin/sh\nprintf '<%s>' \"$@\"\nexit 7\n");
        QFile::setPermissions(path, QFile::permissions(path) | QFile::ExeOwner);
    }

    void removeDisplay() { m_environment.remove(QStringLiteral("DISPLAY")); }
    void setPlatform(const QString &name)
    {
        m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), name);
    }

    Outcome gui(const QStringList &options = {}) const
    {
        Program process;
        process.setProgram(program());
        process.setProcessEnvironment(m_environment);
        process.begin(QStringList{QStringLiteral("gui")} + options);
        return process.end();
    }

private:
    QString program() const { return m_root.filePath(QStringLiteral("bin/ovo-fieldhost")); }

    QTemporaryDir m_root;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

} // namespace

/** `ovo-fieldhost gui`. */
class tst_GuiCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpNamesEveryOption();
    void mistakesAreUsageErrors();
    void screensAreStarted_data();
    void screensAreStarted();
    void optionsArePassedOn();
    void withoutScreensItSaysSo();
    void withoutADisplayItSaysSo();
    void aPlatformNeedsNoDisplay();
#ifdef OVO_FIELDHOST_GUI
    void screensRefuseWhatTheyDoNotUnderstand_data();
    void screensRefuseWhatTheyDoNotUnderstand();
    void screensRefuseInTheLanguageOfTheEnvironment();
#endif
};

void tst_GuiCommand::helpNamesEveryOption()
{
    const Outcome outcome = Program::run({QStringLiteral("gui"), QStringLiteral("--help")});
    QCOMPARE(outcome.exitCode, int(Done));
    for (const char *option : {"--page NAME", "--dark", "--language LOCALE", "--font-scale FACTOR",
                               "--size WIDTHxHEIGHT"}) {
        QVERIFY2(outcome.output.contains(QStringLiteral("\n  ") + QLatin1String(option)), option);
    }
}

void tst_GuiCommand::mistakesAreUsageErrors()
{
    const Outcome outcome = Program::run({QStringLiteral("gui"), QStringLiteral("--drak")});
    QCOMPARE(outcome.exitCode, int(Usage));
    QVERIFY(outcome.errors.contains(QLatin1String("drak")));
}

void tst_GuiCommand::screensAreStarted_data()
{
    QTest::addColumn<QString>("directory");

    QTest::newRow("where they are built") << QStringLiteral("qml");
    QTest::newRow("where they are installed") << QStringLiteral(OVO_LIBEXECDIR);
}

void tst_GuiCommand::screensAreStarted()
{
    QFETCH(QString, directory);
    Installation installation;
    installation.addScreens(directory);
    const Outcome outcome = installation.gui();
    QCOMPARE(outcome.exitCode, 7);
    QCOMPARE(outcome.output, QStringLiteral("<>"));
}

void tst_GuiCommand::optionsArePassedOn()
{
    Installation installation;
    installation.addScreens(QStringLiteral("qml"));
    const Outcome outcome = installation.gui(
        {QStringLiteral("--size=800x480"), QStringLiteral("--dark"), QStringLiteral("--language"),
         QStringLiteral("de"), QStringLiteral("--font-scale"), QStringLiteral("1.5"),
         QStringLiteral("--page"), QStringLiteral("device")});
    QCOMPARE(outcome.exitCode, 7);
    QCOMPARE(
        outcome.output,
        QStringLiteral("<--dark><--page=device><--language=de><--font-scale=1.5><--size=800x480>"));
}

void tst_GuiCommand::withoutScreensItSaysSo()
{
    const Outcome outcome = Installation().gui();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(outcome.errors.startsWith(QLatin1String("The screens are not installed: ")));
}

void tst_GuiCommand::withoutADisplayItSaysSo()
{
    Installation installation;
    installation.addScreens(QStringLiteral("qml"));
    installation.removeDisplay();
    const Outcome outcome = installation.gui();
    QCOMPARE(outcome.exitCode, int(Failed));
    QVERIFY(outcome.errors.startsWith(QLatin1String("There is no display: ")));
    QVERIFY(outcome.output.isEmpty());
}

void tst_GuiCommand::aPlatformNeedsNoDisplay()
{
    Installation installation;
    installation.addScreens(QStringLiteral("qml"));
    installation.removeDisplay();
    installation.setPlatform(QStringLiteral("linuxfb"));
    QCOMPARE(installation.gui().exitCode, 7);
}

#ifdef OVO_FIELDHOST_GUI

namespace {

Outcome runScreens(const QString &option, const QString &locale = QStringLiteral("C.UTF-8"))
{
    Program screens;
    screens.setProgram(QStringLiteral(OVO_FIELDHOST_GUI));
    // Qt would make one, and leave it behind
    const QTemporaryDir runtimeDirectory;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeDirectory.path());
    environment.insert(QStringLiteral("LC_ALL"), locale);
    screens.setProcessEnvironment(environment);
    screens.begin({option});
    return screens.end();
}

} // namespace

void tst_GuiCommand::screensRefuseWhatTheyDoNotUnderstand_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("reason");

    QTest::newRow("no size") << QStringLiteral("--size=small") << QStringLiteral("--size needs ");
    QTest::newRow("fonts too large")
        << QStringLiteral("--font-scale=9") << QStringLiteral("--font-scale needs ");
    QTest::newRow("fonts of no number")
        << QStringLiteral("--font-scale=big") << QStringLiteral("--font-scale needs ");
    QTest::newRow("no page") << QStringLiteral("--page=usb") << QStringLiteral("--page needs ");
    QTest::newRow("no language") << QStringLiteral("--language=xx")
                                 << QStringLiteral("--language needs ");
}

void tst_GuiCommand::screensRefuseWhatTheyDoNotUnderstand()
{
    QFETCH(QString, option);
    QFETCH(QString, reason);
    const Outcome outcome = runScreens(option);
    QCOMPARE(outcome.exitCode, int(Usage));
    QVERIFY2(outcome.errors.contains(reason), qPrintable(outcome.errors));
}

void tst_GuiCommand::screensRefuseInTheLanguageOfTheEnvironment()
{
    const Outcome outcome = runScreens(QStringLiteral("--size=small"), QStringLiteral("de_DE"));
    QCOMPARE(outcome.exitCode, int(Usage));
    QVERIFY2(
        outcome.errors.contains(QStringLiteral("--size erwartet Breite und Höhe, wie "
                                               "1280x800.\nHilfe: ovo-fieldhost gui --help\n")),
        qPrintable(outcome.errors));
}

#endif

QTEST_GUILESS_MAIN(tst_GuiCommand)

#include "tst_GuiCommand.moc"
