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
    QTest::newRow("nothing like any") << ""
                                      << "fres";
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

QTEST_APPLESS_MAIN(tst_NearestWord)
#include "tst_NearestWord.moc"
