// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/export/DeleteModel.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

#include <memory>
#include <mutex>

#include <sys/syscall.h>
#include <unistd.h>

using namespace Tavro::FieldHost;
using namespace Test;

namespace {

// whoever holds it keeps a volume from being flushed, with which the deletion of a directory ends
std::mutex s_flushGate;

} // namespace

// for all of the program's libraries
extern "C" int syncfs(int fd)
{
    const std::lock_guard<std::mutex> gate(s_flushGate);
    return static_cast<int>(::syscall(SYS_syncfs, fd));
}

/** What a screen knows of a deletion. */
class tst_DeleteModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void sizesArrive();
    void whatMustStayIsNotTakenOn();
    void aDirectoryTakesAlongWhatIsInIt();
    void entriesGoAsTheyAreDeleted();
    void anAbortKeepsWhatComesBehind();
    void whatCannotBeDeletedIsSaid();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    static QStringList pathsOf(const DeleteModel &model);
    static QStringList textsOf(const DeleteModel &model);
    static bool waitForSizes(const DeleteModel &model)
    {
        return QTest::qWaitFor([&] { return model.totalSize() >= 0; }, 30'000);
    }
    static bool waitForEnd(const DeleteModel &model)
    {
        return QTest::qWaitFor([&] { return !model.isBusy(); }, 30'000);
    }

    std::unique_ptr<TemporaryFolder> m_folder;
};

QStringList tst_DeleteModel::pathsOf(const DeleteModel &model)
{
    QStringList paths;
    const QVariantList entries = model.entries();
    for (const QVariant &entry : entries) {
        paths.append(entry.toMap().value(QStringLiteral("path")).toString());
    }
    return paths;
}

QStringList tst_DeleteModel::textsOf(const DeleteModel &model)
{
    QStringList texts;
    const QVariantList messages = model.messages();
    for (const QVariant &message : messages) {
        texts.append(message.toMap().value(QStringLiteral("text")).toString());
    }
    return texts;
}

void tst_DeleteModel::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    makeFile(path("first/data.bin"), someBytes(5000));
    makeFile(path("first/.hidden"), someBytes(100));
    makeFile(path("second/data.bin"), someBytes(700));
    makeFile(path("single"), someBytes(30));
    QVERIFY(QFile::link(path("second"), path("link")));
}

void tst_DeleteModel::sizesArrive()
{
    DeleteModel model;
    model.add(path("first"));
    QCOMPARE(model.totalSize(), qlonglong(-1));
    QVERIFY(waitForSizes(model));
    QCOMPARE(model.totalSize(), qlonglong(5100));
    model.add(QUrl::fromLocalFile(path("single")).toString());
    model.add(path("link"));
    QCOMPARE(pathsOf(model), (QStringList{path("first"), path("single"), path("link")}));
    QCOMPARE(model.totalSize(), qlonglong(5130));
    QCOMPARE(model.entries().at(2).toMap().value(QStringLiteral("kind")),
             QVariant(QStringLiteral("link")));
    model.remove(0);
    QCOMPARE(model.totalSize(), qlonglong(30));
}

void tst_DeleteModel::whatMustStayIsNotTakenOn()
{
    DeleteModel model;
    QSignalSpy changed(&model, &DeleteModel::entriesChanged);
    model.add(path("missing"));
    QCOMPARE(textsOf(model),
             QStringList{QStringLiteral("There is no \"%1\".").arg(path("missing"))});
    model.add(QDir::currentPath());
    QCOMPARE(textsOf(model),
             QStringList{QStringLiteral("\"%1\" is, or holds, the current directory.")
                             .arg(QDir::currentPath())});
    QCOMPARE(changed.count(), 0);
    model.start();
    QCOMPARE(model.state(), DeleteStates::Choosing);
}

void tst_DeleteModel::aDirectoryTakesAlongWhatIsInIt()
{
    DeleteModel model;
    model.add(path("first/data.bin"));
    model.add(path("first"));
    model.add(path("first/.hidden"));
    model.add(path("first"));
    QCOMPARE(pathsOf(model), QStringList{path("first")});
    QVERIFY(waitForSizes(model));
    QCOMPARE(model.totalSize(), qlonglong(5100));
}

void tst_DeleteModel::entriesGoAsTheyAreDeleted()
{
    DeleteModel model;
    model.add(path("first"));
    model.start(); // no size is known
    QCOMPARE(model.state(), DeleteStates::Choosing);
    model.add(path("link"));
    QVERIFY(waitForSizes(model));
    model.start();
    QCOMPARE(model.state(), DeleteStates::Deleting);
    QVERIFY(waitForEnd(model));
    QCOMPARE(model.state(), DeleteStates::Done);
    QCOMPARE(pathsOf(model), QStringList());
    QCOMPARE(textsOf(model),
             (QStringList{QStringLiteral("Deleted: \"%1\"").arg(path("first")),
                          QStringLiteral("Deleted: \"%1\"").arg(path("link"))}));
    QVERIFY(!QFile::exists(path("first")));
    QVERIFY(QFile::exists(path("second/data.bin")));
}

void tst_DeleteModel::anAbortKeepsWhatComesBehind()
{
    DeleteModel model;
    model.add(path("first"));
    model.add(path("second"));
    QVERIFY(waitForSizes(model));
    std::unique_lock<std::mutex> held(s_flushGate);
    model.start();
    model.abort();
    held.unlock();
    QCOMPARE(model.state(), DeleteStates::Aborting);
    QVERIFY(waitForEnd(model));
    QCOMPARE(model.state(), DeleteStates::Aborted);
    QVERIFY(pathsOf(model).contains(path("second")));
    QVERIFY(QFile::exists(path("second/data.bin")));
    QVERIFY(textsOf(model).constLast().startsWith(QLatin1String("Aborted. Not deleted: ")));
}

void tst_DeleteModel::whatCannotBeDeletedIsSaid()
{
    DeleteModel model;
    model.add(path("single"));
    QVERIFY(QFile::remove(path("single")));
    model.add(path("link"));
    model.start();
    QVERIFY(waitForEnd(model));
    QCOMPARE(model.state(), DeleteStates::Failed);
    QCOMPARE(pathsOf(model), QStringList{path("single")});
    QVERIFY(textsOf(model).constFirst().startsWith(QLatin1String("Failed: ")));
}

QTEST_GUILESS_MAIN(tst_DeleteModel)

#include "tst_DeleteModel.moc"
