// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/RepeatedTexts.h"
#include "fieldhost/jobs/SurveyedFiles.h"

#include <QTest>

using namespace Tavro::FieldHost;

namespace {

QStringList linesOf(const SurveyedFiles &files)
{
    QStringList lines;
    for (const SurveyedFile &file : files) {
        lines.append(QStringLiteral("%1 %2").arg(file.path).arg(file.size));
    }
    return lines;
}

} // namespace

/** What keeps very many files in little memory. */
class tst_SurveyedFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst();
    void filesStandInOrderBelowTheirDirectories();
    void aNameComesBackAsItWas_data();
    void aNameComesBackAsItWas();
    void aFileIsFoundByItsNumber();
    void repeatedTextsAreFound();
};

void tst_SurveyedFiles::isEmptyAtFirst()
{
    const SurveyedFiles files;
    QCOMPARE(files.size(), 0);
    QCOMPARE(linesOf(files), QStringList());
}

void tst_SurveyedFiles::filesStandInOrderBelowTheirDirectories()
{
    SurveyedFiles files;
    files.append(QString(), QStringLiteral("b"), 2);
    files.append(QString(), QStringLiteral("a"), 0);
    files.append(QStringLiteral("d/"), QStringLiteral("large"), Q_INT64_C(1) << 40);
    files.append(QStringLiteral("d/e/"), QStringLiteral("c"), 3);
    QCOMPARE(linesOf(files),
             (QStringList{QStringLiteral("b 2"), QStringLiteral("a 0"),
                          QStringLiteral("d/large 1099511627776"), QStringLiteral("d/e/c 3")}));
    QCOMPARE(files.size(), 4);
}

void tst_SurveyedFiles::aNameComesBackAsItWas_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("none") << QString();
    QTest::newRow("ASCII") << QStringLiteral("Clip 1\x7f.mp4");
    QTest::newRow("Latin-1") << QStringLiteral(u"Stra\u00dfe");
    QTest::newRow("surrogates") << QString::fromUtf8("\xf0\x9f\x8e\xa5");
    QTest::newRow("long") << QString(255, QChar(0x4e2d));
}

void tst_SurveyedFiles::aNameComesBackAsItWas()
{
    QFETCH(QString, name);
    const QString directory = QStringLiteral(u"d\u00f6/");
    SurveyedFiles files;
    files.append(directory, QStringLiteral("before"), 1);
    files.append(directory, name, 2);
    files.append(directory, QStringLiteral("after"), 3);
    QCOMPARE(linesOf(files),
             (QStringList{directory + QStringLiteral("before 1"),
                          directory + name + QStringLiteral(" 2"),
                          directory + QStringLiteral("after 3")}));
}

void tst_SurveyedFiles::aFileIsFoundByItsNumber()
{
    SurveyedFiles files;
    for (int i = 0; i < 100; ++i) {
        files.append(QStringLiteral("%1/").arg(i / 10), QString::number(i), i);
    }
    QCOMPARE(files.at(0).path, QStringLiteral("0/0"));
    QCOMPARE(files.at(57).path, QStringLiteral("5/57"));
    QCOMPARE(files.at(99).size, qint64(99));
}

void tst_SurveyedFiles::repeatedTextsAreFound()
{
    RepeatedTexts texts(1000);
    for (int i = 0; i < 1000; ++i) {
        texts.add(QString::number(i));
    }
    texts.add(QStringLiteral("500"));
    texts.add(QStringLiteral("7"));
    texts.add(QStringLiteral("7"));
    texts.find();
    QStringList repeated;
    for (int i = 0; i < 1000; ++i) {
        if (texts.mayHold(QString::number(i))) {
            repeated.append(QString::number(i));
        }
    }
    QCOMPARE(repeated, (QStringList{QStringLiteral("7"), QStringLiteral("500")}));
    QVERIFY(!texts.mayHold(QStringLiteral("a text that was not added")));
}

QTEST_APPLESS_MAIN(tst_SurveyedFiles)

#include "tst_SurveyedFiles.moc"
