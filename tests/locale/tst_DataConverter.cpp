// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/DataConverter.h"

#include <QTest>

#include <type_traits>

using Tavro::Shared::CInputType;
using Tavro::Shared::DataConverter;

class tst_DataConverter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainClass();
    void codesBecomeInputTypes_data();
    void codesBecomeInputTypes();
    void partOfATextIsEnough();
};

void tst_DataConverter::isAPlainClass()
{
    static_assert(std::is_trivially_default_constructible_v<DataConverter>);
    static_assert(std::is_empty_v<DataConverter>);
    static_assert(std::is_same_v<decltype(DataConverter::stringToDataType(QStringRef())),
                                 CInputType::InputType>);
}

void tst_DataConverter::codesBecomeInputTypes_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("expected");

    QTest::newRow("text") << QStringLiteral("TXT") << 1;
    QTest::newRow("integer") << QStringLiteral("INT") << 2;
    QTest::newRow("decimal") << QStringLiteral("DEC") << 3;
    QTest::newRow("boolean") << QStringLiteral("BOL") << 4;
    QTest::newRow("date") << QStringLiteral("DAT") << 5;
    QTest::newRow("null") << QString() << 0;
    QTest::newRow("empty") << QString::fromLatin1("") << 0;
    QTest::newRow("small letters") << QStringLiteral("txt") << 0;
    QTest::newRow("mixed letters") << QStringLiteral("Int") << 0;
    QTest::newRow("blank behind") << QStringLiteral("DEC ") << 0;
    QTest::newRow("blank in front") << QStringLiteral(" BOL") << 0;
    QTest::newRow("longer") << QStringLiteral("DATE") << 0;
    QTest::newRow("shorter") << QStringLiteral("DA") << 0;
    QTest::newRow("a time has no code") << QStringLiteral("TIM") << 0;
    QTest::newRow("number") << QStringLiteral("1") << 0;
}

void tst_DataConverter::codesBecomeInputTypes()
{
    QFETCH(QString, code);
    QFETCH(int, expected);
    QCOMPARE(static_cast<int>(DataConverter::stringToDataType(QStringRef(&code))), expected);
}

void tst_DataConverter::partOfATextIsEnough()
{
    const QString column = QStringLiteral("length;DEC;mm");
    QCOMPARE(DataConverter::stringToDataType(column.midRef(7, 3)), CInputType::InputTypeDecimal);
    QCOMPARE(DataConverter::stringToDataType(column.midRef(7)), CInputType::InputTypeInvalid);
    QCOMPARE(DataConverter::stringToDataType(QStringRef()), CInputType::InputTypeInvalid);
}

QTEST_APPLESS_MAIN(tst_DataConverter)

#include "tst_DataConverter.moc"
