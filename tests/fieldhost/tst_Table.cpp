// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Table.h"

#include <QTest>

#include <clocale>
#include <initializer_list>

namespace {

// of rows whose cells are separated by "|"
QString tableOf(std::initializer_list<const char *> rows)
{
    std::vector<QStringList> cells;
    for (const char *row : rows) {
        cells.push_back(QString::fromUtf8(row).split(QLatin1Char('|')));
    }
    return Tavro::FieldHost::formatTable(cells);
}

} // namespace

class tst_Table : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void columnsAreAsWideAsTheirWidestCell();
    void wideLettersTakeTwoColumns();
    void noBlanksStandAtTheEnd();
    void noRowsAreNoText();
};

void tst_Table::initTestCase()
{
    QVERIFY(std::setlocale(LC_CTYPE, "C.UTF-8")); // how wide a letter is
}

void tst_Table::columnsAreAsWideAsTheirWidestCell()
{
    QCOMPARE(tableOf({"a|bcd|e", "fgh|i|j"}),
             QStringLiteral("  a    bcd  e\n"
                            "  fgh  i    j"));
}

void tst_Table::wideLettersTakeTwoColumns()
{
    QCOMPARE(tableOf({"日本|x", "abcd|y"}),
             QStringLiteral("  日本  x\n"
                            "  abcd  y"));
}

void tst_Table::noBlanksStandAtTheEnd()
{
    QCOMPARE(tableOf({"a||", "b||c", "longer"}),
             QStringLiteral("  a\n"
                            "  b         c\n"
                            "  longer"));
}

void tst_Table::noRowsAreNoText()
{
    QCOMPARE(tableOf({}), QString());
}

QTEST_APPLESS_MAIN(tst_Table)

#include "tst_Table.moc"
