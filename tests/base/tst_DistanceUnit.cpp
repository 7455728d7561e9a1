// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/base/DistanceUnit.h"
#include "shared/base/GUID.h"

#include <QTest>
#include <QVariant>

#include <type_traits>

using Tavro::Base::DistanceUnit;

static_assert(std::is_same_v<std::underlying_type_t<DistanceUnit>, qint32>);
static_assert(std::is_same_v<Tavro::Base::GUID, QString>);

class tst_DistanceUnit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersAreThoseOfTheCatalogs();
    void travelsInAVariant();
};

void tst_DistanceUnit::numbersAreThoseOfTheCatalogs()
{
    QCOMPARE(static_cast<qint32>(DistanceUnit::Undefined), 0);
    QCOMPARE(static_cast<qint32>(DistanceUnit::Meter), 1);
    QCOMPARE(static_cast<qint32>(DistanceUnit::Feet), 2);
    QCOMPARE(static_cast<qint32>(DistanceUnit::Inch), 3);
}

void tst_DistanceUnit::travelsInAVariant()
{
    QVERIFY(QVariant::fromValue(DistanceUnit::Inch).value<DistanceUnit>() == DistanceUnit::Inch);
}

QTEST_APPLESS_MAIN(tst_DistanceUnit)

#include "tst_DistanceUnit.moc"
