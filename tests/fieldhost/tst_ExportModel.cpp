// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/export/ExportModel.h"
#include "tests/fieldhost/Handshake.h"
#include "tests/fieldhost/TestDrive.h"
#include "tests/support/FileTree.h"

#include <QSignalSpy>
#include <QUrl>

#include <memory>

using namespace Tavro::FieldHost;
using namespace Test;

namespace {

const QString s_destination = QStringLiteral("/media/usbdrive/export");

/** The states that a model goes through, from the thread of the screen. */
class StateLog
{
public:
    explicit StateLog(ExportModel &model)
        : m_model(model)
    {
        QObject::connect(&model, &ExportModel::stateChanged, &model,
                         [this] { m_states.append(m_model.state()); });
    }
    QList<ExportStates::State> states() const { return m_states; }
    bool waitFor(ExportStates::State state) const
    {
        return QTest::qWaitFor([&] { return m_states.contains(state); }, 30'000);
    }
    bool waitForEnd() const
    {
        return QTest::qWaitFor([&] { return !m_states.isEmpty() && !m_model.isBusy(); }, 30'000);
    }

private:
    ExportModel &m_model;
    QList<ExportStates::State> m_states;
};

QStringList textsOf(const ExportModel &model, const QString &kind)
{
    QStringList texts;
    const QVariantList messages = model.messages();
    for (const QVariant &message : messages) {
        const QVariantMap map = message.toMap();
        if (map.value(QStringLiteral("kind")) == kind) {
            texts.append(map.value(QStringLiteral("text")).toString());
        }
    }
    return texts;
}

} // namespace

/** What a screen knows of an export, most of all of one to the USB drive. */
class tst_ExportModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void pathsMayBeUrls();
    void theDriveIsMarkedCopiedToAndUnmounted();
    void theScreenGoesOnWhileTheDriveIsMounted();
    void theScreenGoesOnWhileTheDriveIsInUse();
    void anAbortBeforeTheCopyUnmounts();
    void withoutADriveNothingIsCopied();
    void aRefusedPlanLetsGoOfTheDrive();
    void whatIsReplacedIsAskedFor_data();
    void whatIsReplacedIsAskedFor();
    void aModelThatGoesAbortsItsCopy();
    void nothingIsChosenWhileItRuns();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void choose(ExportModel &model, const QString &destination) const
    {
        model.setSource(path("source"));
        model.setDestination(destination);
    }
    void holdMounting(TestDrive &drive) const;
    void letGo() const { makeFile(path("gate")); }

    std::unique_ptr<TemporaryFolder> m_folder;
};

void tst_ExportModel::initTestCase()
{
    SKIP_WITHOUT_PRIVATE_MOUNTS();
}

void tst_ExportModel::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    makeFile(path("source/data.bin"), someBytes(100'000));
    makeFile(path("source/later.txt"));
}

// the drive is mounted once there is a file
void tst_ExportModel::holdMounting(TestDrive &drive) const
{
    drive.commands.addHeld(QStringLiteral("mount"), path("gate"),
                           "printf '%s' '" + drive.tableLine() + "' > /etc/mtab");
}

void tst_ExportModel::pathsMayBeUrls()
{
    ExportModel model;
    QSignalSpy changed(&model, &ExportModel::sourceChanged);
    model.setSource(QUrl::fromLocalFile(path("100 %")).toString(QUrl::FullyEncoded));
    QCOMPARE(model.source(), path("100 %"));
    QCOMPARE(changed.count(), 1);
    model.setSource(path("100 %"));
    QCOMPARE(changed.count(), 1);
    model.setDestination(QStringLiteral("file:///media/usbdrive"));
    QCOMPARE(model.destination(), QStringLiteral("/media/usbdrive"));
}

void tst_ExportModel::theDriveIsMarkedCopiedToAndUnmounted()
{
    TestDrive drive;
    ExportModel model;
    StateLog log(model);
    choose(model, s_destination);
    model.start();
    QVERIFY(model.isBusy());
    QVERIFY(log.waitForEnd());
    using namespace ExportStates;
    QCOMPARE(log.states(), (QList<State>{Locking, Planning, Copying, Verifying, Unmounting, Done}));
    QVERIFY(model.canPull());
    QCOMPARE(drive.dirtyByte(), '\0');
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));
    QCOMPARE(treeOf(s_destination + QStringLiteral("/source")), treeOf(path("source")));
    QCOMPARE(model.landing(), s_destination + QStringLiteral("/source"));
    QCOMPARE(
        textsOf(model, QStringLiteral("info")),
        (QStringList{QStringLiteral("The USB drive is marked as in use: \"/dev/sda1\" (fat32)."),
                     QStringLiteral("The USB drive is unmounted and marked clean.")}));
    QCOMPARE(textsOf(model, QStringLiteral("good")).value(0),
             QStringLiteral("Verified: every copy equals its source"));
    QCOMPARE(textsOf(model, QStringLiteral("warning")), QStringList());

    model.clear();
    QCOMPARE(model.state(), Choosing);
    QVERIFY(!model.canPull());
    QCOMPARE(model.messages(), QVariantList());
}

void tst_ExportModel::theScreenGoesOnWhileTheDriveIsMounted()
{
    TestDrive drive;
    holdMounting(drive); // until the event loop of the screen lets it go
    ExportModel model;
    StateLog log(model);
    choose(model, s_destination);
    model.start();
    QCOMPARE(model.state(), ExportStates::Locking);
    QVERIFY(QTest::qWaitFor([&] { return !drive.commands.journal().isEmpty(); }, 30'000));
    QCOMPARE(log.states(), QList<ExportStates::State>{ExportStates::Locking});
    letGo();
    QVERIFY(log.waitForEnd());
    QCOMPARE(model.state(), ExportStates::Done);
}

void tst_ExportModel::theScreenGoesOnWhileTheDriveIsInUse()
{
    TestDrive drive;
    drive.mount();
    const QString gate = path("gate");
    drive.commands.add(QStringLiteral("umount"),
                       "[ -e '" + QFile::encodeName(gate) + "' ] && : > /etc/mtab");
    ExportModel model;
    StateLog log(model);
    choose(model, s_destination);
    model.start();
    QVERIFY(log.waitFor(ExportStates::Unmounting));
    QVERIFY(QTest::qWaitFor(
        [&] { return drive.commands.journal().count(QStringLiteral("umount /dev/sda1")) > 1; },
        30'000));
    QVERIFY(!model.canPull());
    makeFile(gate);
    QVERIFY(log.waitForEnd());
    QCOMPARE(model.state(), ExportStates::Done);
    QVERIFY(model.canPull());
}

void tst_ExportModel::anAbortBeforeTheCopyUnmounts()
{
    TestDrive drive;
    holdMounting(drive);
    ExportModel model;
    StateLog log(model);
    choose(model, s_destination);
    model.start();
    model.abort();
    letGo();
    QVERIFY(log.waitForEnd());
    QCOMPARE(model.state(), ExportStates::Aborted);
    QVERIFY(!log.states().contains(ExportStates::Copying));
    QVERIFY(textsOf(model, QStringLiteral("info"))
                .contains(QStringLiteral("Aborted before anything was copied.")));
    QVERIFY(model.canPull());
    QVERIFY(!QFile::exists(s_destination));
    QCOMPARE(PrivateMounts::mountTable(), QByteArray(""));

    // an abort of the last export does not end the next one
    model.start();
    QVERIFY(log.waitFor(ExportStates::Done));
}

void tst_ExportModel::withoutADriveNothingIsCopied()
{
    TestDrive drive;
    drive.commands.add(QStringLiteral("mount"), "exit 32");
    ExportModel model;
    StateLog log(model);
    choose(model, s_destination);
    model.start();
    QVERIFY(log.waitForEnd());
    QCOMPARE(model.state(), ExportStates::Refused);
    QCOMPARE(textsOf(model, QStringLiteral("warning")),
             (QStringList{QStringLiteral("No USB drive is mounted on \"/media/usbdrive\"."),
                          QStringLiteral("Nothing was copied: it would not land on a drive.")}));
    QVERIFY(!model.canPull());
    QVERIFY(!QFile::exists(s_destination));
}

void tst_ExportModel::aRefusedPlanLetsGoOfTheDrive()
{
    TestDrive drive;
    makeFile(s_destination + QStringLiteral("/source"), "a file in the way");
    ExportModel model;
    StateLog log(model);
    choose(model, s_destination);
    model.start();
    QVERIFY(log.waitForEnd());
    QCOMPARE(model.state(), ExportStates::Refused);
    QCOMPARE(textsOf(model, QStringLiteral("bad")).size(), 1);
    QVERIFY(model.canPull());
}

void tst_ExportModel::whatIsReplacedIsAskedFor_data()
{
    QTest::addColumn<bool>("replace");
    QTest::newRow("replaced") << true;
    QTest::newRow("left as it was") << false;
}

void tst_ExportModel::whatIsReplacedIsAskedFor()
{
    QFETCH(bool, replace);
    const QString destination = path("destination");
    makeFile(destination + QStringLiteral("/source/data.bin"), "old");
    ExportModel model;
    StateLog log(model);
    choose(model, destination);
    model.start();
    QVERIFY(log.waitFor(ExportStates::Confirming));
    QVERIFY(model.isBusy());
    QVERIFY(model.landingExists());
    QCOMPARE(model.replacedFiles(), 1);
    QCOMPARE(contentOf(destination + QStringLiteral("/source/data.bin")), QByteArray("old"));
    model.confirm(replace);
    QVERIFY(log.waitForEnd());
    QCOMPARE(model.state(), replace ? ExportStates::Done : ExportStates::Aborted);
    QCOMPARE(contentOf(destination + QStringLiteral("/source/data.bin")),
             replace ? someBytes(100'000) : QByteArray("old"));
    QVERIFY(!model.canPull());
}

void tst_ExportModel::aModelThatGoesAbortsItsCopy()
{
    Handshake handshake;
    const QString destination = path("destination");
    {
        ExportModel model;
        choose(model, destination);
        model.start();
        QVERIFY(handshake.waitUntilHeld());
        QVERIFY(QFile::exists(destination + QStringLiteral("/source/data.bin")));
        model.pause(); // before "later.txt"
        QVERIFY(QTest::qWaitFor([&] { return model.state() == ExportStates::Paused; }, 30'000));
        handshake.letGo();
    }
    QVERIFY(!QFile::exists(destination));
}

void tst_ExportModel::nothingIsChosenWhileItRuns()
{
    Handshake handshake;
    const QString destination = path("destination");
    ExportModel model;
    StateLog log(model);
    choose(model, destination);
    model.start();
    QVERIFY(handshake.waitUntilHeld());
    model.setSource(path("other"));
    model.setDestination(path("other"));
    model.setVerify(false);
    model.start();
    model.clear();
    QCOMPARE(model.source(), path("source"));
    QCOMPARE(model.destination(), destination);
    QVERIFY(model.verify());
    handshake.letGo();
    QVERIFY(log.waitForEnd());
    QCOMPARE(model.state(), ExportStates::Done);
    QCOMPARE(log.states().count(ExportStates::Copying), 1);
}

USB_TEST_MAIN(tst_ExportModel)

#include "tst_ExportModel.moc"
