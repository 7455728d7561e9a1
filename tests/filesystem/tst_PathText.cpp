// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/detail/PathText.h"

#include <QTest>

using namespace Tavro::Shared::detail;

class tst_PathText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneFinalSlashIsAddedWhereNoneIs();
    void finalSlashesAreTakenOff();
    void theRootKeepsItsSlash();
    void blanksAreTakenOffTheEndOnly();
};

void tst_PathText::oneFinalSlashIsAddedWhereNoneIs()
{
    QCOMPARE(withFinalSlash(QStringLiteral("/a")), QStringLiteral("/a/"));
    QCOMPARE(withFinalSlash(QStringLiteral("/a/")), QStringLiteral("/a/"));
    QCOMPARE(withFinalSlash(QStringLiteral("/")), QStringLiteral("/"));
    QCOMPARE(withFinalSlash(QString()), QStringLiteral("/"));
}

void tst_PathText::finalSlashesAreTakenOff()
{
    QCOMPARE(withoutFinalSlashes(QStringLiteral("/a")), QStringLiteral("/a"));
    QCOMPARE(withoutFinalSlashes(QStringLiteral("/a/")), QStringLiteral("/a"));
    QCOMPARE(withoutFinalSlashes(QStringLiteral("/a//b///")), QStringLiteral("/a//b"));
    QCOMPARE(withoutFinalSlashes(QString()), QString());
}

void tst_PathText::theRootKeepsItsSlash()
{
    QCOMPARE(withoutFinalSlashes(QStringLiteral("/")), QStringLiteral("/"));
    QCOMPARE(withoutFinalSlashes(QStringLiteral("///")), QStringLiteral("/"));
}

void tst_PathText::blanksAreTakenOffTheEndOnly()
{
    QCOMPARE(withoutBlanksAtEnd(QStringLiteral(" \ta b \t ")), QStringLiteral(" \ta b"));
    QCOMPARE(withoutBlanksAtEnd(QStringLiteral("a\n")), QStringLiteral("a\n"));
    QCOMPARE(withoutBlanksAtEnd(QStringLiteral("\t ")), QString());
}

QTEST_APPLESS_MAIN(tst_PathText)

#include "tst_PathText.moc"
