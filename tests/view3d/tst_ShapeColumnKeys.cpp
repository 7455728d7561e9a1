// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/ShapeColumnKeys.h"

#include "tests/view3d/OtherShapeColumnKeys.h"

#include <QTest>

using namespace Tavro::View3d;

namespace {
// made after the keys, by the same source: they must be there already
const QString s_madeFromAKey = QStringLiteral("SELECT ") + shapeViewColumnX;
} // namespace

class tst_ShapeColumnKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreExact();
    void globalsCanBeMadeFromThem();
    void eachSourceHasItsOwn();
};

void tst_ShapeColumnKeys::textsAreExact()
{
    QCOMPARE(shapeColumn, QStringLiteral("OBJ_Shape_WKT"));
    QCOMPARE(shapeViewPrefix, QStringLiteral("V_"));
    QCOMPARE(shapeViewColumn, QStringLiteral("V_OBJ_Shape_WKT"));
    QCOMPARE(shapeViewColumnX, QStringLiteral("V_OBJ_Shape_WKT_X"));
    QCOMPARE(shapeViewColumnY, QStringLiteral("V_OBJ_Shape_WKT_Y"));
    QCOMPARE(shapeViewColumnZ, QStringLiteral("V_OBJ_Shape_WKT_Z"));
    QCOMPARE(shapeViewColumnM, QStringLiteral("V_OBJ_Shape_WKT_M"));
}

void tst_ShapeColumnKeys::globalsCanBeMadeFromThem()
{
    QCOMPARE(s_madeFromAKey, QStringLiteral("SELECT V_OBJ_Shape_WKT_X"));
}

void tst_ShapeColumnKeys::eachSourceHasItsOwn()
{
    QVERIFY(&shapeViewColumnM != otherShapeViewColumnM());
    QCOMPARE(*otherShapeViewColumnM(), shapeViewColumnM);
}

QTEST_APPLESS_MAIN(tst_ShapeColumnKeys)

#include "tst_ShapeColumnKeys.moc"
