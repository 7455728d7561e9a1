// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/system/CheckVideoTask.h"

#include "tests/support/ShownCode.h"

#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

using Tavro::Shared::Async;

namespace {
constexpr int s_patience = 60'000; // ms
}

/** The task that the documentation shows. */
class tst_CheckVideoTask : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePageShowsIt();
    void oneAfterTheOther();
    void onceAndGone();

private:
    QString video() const
    {
        QFile file(m_folder.filePath(QStringLiteral("video")));
        if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(3'000'000, 'v')) < 0) {
            qFatal("cannot write %s", qPrintable(file.fileName()));
        }
        return file.fileName();
    }

    QTemporaryDir m_folder;
};

void tst_CheckVideoTask::thePageShowsIt()
{
    QVERIFY(Test::showsCode(QStringLiteral(OVO_PAGE), QStringLiteral(OVO_TASK)));
}

void tst_CheckVideoTask::oneAfterTheOther()
{
    QVector<bool> answers;
    Async checks(Async::Sequential);
    connect(&checks, qOverload<const bool &>(&Async::taskDone), this,
            [&answers](bool readable) { answers.append(readable); });
    checks.startTask(new CheckVideoTask(checks, video()));
    checks.startTask(new CheckVideoTask(checks, m_folder.filePath(QStringLiteral("missing"))));
    checks.startTask(new CheckVideoTask(checks, m_folder.path()));
    QTRY_COMPARE_WITH_TIMEOUT(answers, (QVector<bool>{true, false, false}), s_patience);
}

void tst_CheckVideoTask::onceAndGone()
{
    bool answer = false;
    const QPointer<Async> once(new Async(Async::Sequential));
    once->setDeleteLater(true);
    connect(once, qOverload<const bool &>(&Async::taskDone), this,
            [&answer](bool readable) { answer = readable; });
    once->startTask(new CheckVideoTask(*once, video()));
    QTRY_VERIFY_WITH_TIMEOUT(!once, s_patience);
    QVERIFY(answer);
}

QTEST_GUILESS_MAIN(tst_CheckVideoTask)

#include "tst_CheckVideoTask.moc"
