// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/TransformFlags.h"

#include <QTest>

#include <limits>
#include <type_traits>

using Tavro::View3d::TransformFlags;

class tst_TransformFlags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void canBeDerivedFrom();
    void allAreSevenBits();
    void positionTests_data();
    void positionTests();
};

void tst_TransformFlags::canBeDerivedFrom()
{
    static_assert(std::has_virtual_destructor_v<TransformFlags>);
    static_assert(std::is_copy_constructible_v<TransformFlags>);

    struct Derived : TransformFlags
    {
        explicit Derived(bool *flag)
            : TransformFlags(5)
            , destroyed(flag)
        {
        }
        ~Derived() override { *destroyed = true; }
        bool *destroyed;
    };
    bool destroyed = false;
    TransformFlags *flags = new Derived(&destroyed);
    TransformFlags copy(0);
    copy = *flags;
    delete flags;
    QVERIFY(destroyed);
    QCOMPARE(copy.getFlags(), 5);
}

void tst_TransformFlags::allAreSevenBits()
{
    QCOMPARE(TransformFlags::allTransformFlags(), 127);
    QCOMPARE(TransformFlags(TransformFlags::allTransformFlags()).getFlags(), 127);
}

void tst_TransformFlags::positionTests_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("hasPosition");
    QTest::addColumn<bool>("positionBound");

    QTest::newRow("none") << 0 << false << false;
    QTest::newRow("bit 0 alone does not bind") << 1 << true << false;
    QTest::newRow("bit 1") << 2 << true << true;
    QTest::newRow("bits 0 and 1") << 3 << true << true;
    QTest::newRow("bit 2") << 4 << true << true;
    QTest::newRow("bit 3") << 8 << true << true;
    QTest::newRow("bit 4") << 16 << true << true;
    QTest::newRow("bit 5") << 32 << true << true;
    QTest::newRow("bit 6") << 64 << true << true;
    QTest::newRow("all seven") << 127 << true << true;
    QTest::newRow("bit 7 does not bind") << 128 << true << false;
    QTest::newRow("bits 7 and 0 do not bind") << 129 << true << false;
    QTest::newRow("bits 7 and 1") << 130 << true << true;
    QTest::newRow("the sign alone does not bind")
        << std::numeric_limits<int>::min() << true << false;
    QTest::newRow("every bit") << -1 << true << true;
}

void tst_TransformFlags::positionTests()
{
    QFETCH(int, flags);
    QFETCH(bool, hasPosition);
    QFETCH(bool, positionBound);

    const TransformFlags transform(flags);
    QCOMPARE(transform.getFlags(), flags);
    QCOMPARE(transform.hasPosition(), hasPosition);
    QCOMPARE(transform.positionBound(), positionBound);
}

QTEST_APPLESS_MAIN(tst_TransformFlags)

#include "tst_TransformFlags.moc"
