// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/NearestWord.h"

#include <QTest>

using Tavro::FieldHost::nearest;

class tst_NearestWord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fewestChangesWin_data();
    void fewestChangesWin();
    void nothingIsNearestAmongNoWords();
    void howFarIsStillNearCanBeTold();
};

void tst_NearestWord::fewestChangesWin_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("expected");

    QTest::newRow("the word itself") << "size"
                                     << "size";
    QTest::newRow("a letter too many") << "exxport"
                                       << "export";
    QTest::newRow("a letter too few") << "exprt"
                                      << "export";
    QTest::newRow("a wrong letter") << "sice"
                                    << "size";
    QTest::newRow("the first of two equally near") << "free"
                                                   << "fres";
    QTest::newRow("two letters swapped") << "fers"
                                         << "fres";
    QTest::newRow("more than a third is wrong") << "sixes"
                                                << "";
    QTest::newRow("a third of a long word is wrong") << "Expord"
                                                     << "export";
    QTest::newRow("nothing like any") << "cp"
                                      << "";
    QTest::newRow("no letter at all") << ""
                                      << "";
}

void tst_NearestWord::fewestChangesWin()
{
    QFETCH(QString, word);

    const QStringList words = {QStringLiteral("fres"), QStringLiteral("frey"),
                               QStringLiteral("size"), QStringLiteral("export")};
    QTEST(nearest(word, words), "expected");
}

void tst_NearestWord::nothingIsNearestAmongNoWords()
{
    QCOMPARE(nearest(QStringLiteral("size"), {}), QString());
}

void tst_NearestWord::howFarIsStillNearCanBeTold()
{
    const QStringList words{QStringLiteral("ft")};
    QCOMPARE(nearest(QStringLiteral("feet"), words), QString());
    QCOMPARE(nearest(QStringLiteral("feet"), words, 2), QStringLiteral("ft"));
}

QTEST_APPLESS_MAIN(tst_NearestWord)
#include "tst_NearestWord.moc"
