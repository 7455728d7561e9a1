// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/base/CBaseTypeConversion.h"

#include <QTest>

using Tavro::Base::CBaseTypeConversion;

class tst_CBaseTypeConversion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void variantIsReadByItsOwnConversion_data();
    void variantIsReadByItsOwnConversion();
    void boolBecomesAVariantOfTypeBool();
};

void tst_CBaseTypeConversion::variantIsReadByItsOwnConversion_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("expected");

    QTest::newRow("true") << QVariant(true) << true;
    QTest::newRow("false") << QVariant(false) << false;
    QTest::newRow("invalid") << QVariant() << false;
    QTest::newRow("one") << QVariant(1) << true;
    QTest::newRow("zero") << QVariant(0) << false;
    QTest::newRow("negative") << QVariant(-1) << true;
    QTest::newRow("text true") << QVariant(QStringLiteral("true")) << true;
    QTest::newRow("text False") << QVariant(QStringLiteral("False")) << false;
    QTest::newRow("text 0") << QVariant(QStringLiteral("0")) << false;
    QTest::newRow("empty text") << QVariant(QString()) << false;
    QTest::newRow("any other text") << QVariant(QStringLiteral("no")) << true;
    QTest::newRow("a type without a truth") << QVariant(QStringList()) << false;
}

void tst_CBaseTypeConversion::variantIsReadByItsOwnConversion()
{
    QFETCH(QVariant, value);
    QTEST(CBaseTypeConversion::tavroBoolToBool(value), "expected");
}

void tst_CBaseTypeConversion::boolBecomesAVariantOfTypeBool()
{
    for (const bool value : {false, true}) {
        const QVariant variant = CBaseTypeConversion::boolToTavroBool(value);
        QVERIFY(variant.isValid());
        QCOMPARE(variant.userType(), static_cast<int>(QMetaType::Bool));
        QCOMPARE(variant.toBool(), value);
    }
}

QTEST_APPLESS_MAIN(tst_CBaseTypeConversion)

#include "tst_CBaseTypeConversion.moc"
