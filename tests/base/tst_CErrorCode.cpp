// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/base/CErrorCode.h"

#include <QJSValue>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QTest>

using Tavro::Base::CErrorCode;
using Tavro::Base::ErrorCode;

class tst_CErrorCode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultIsNoError();
    void fieldsComeFromTheirBits_data();
    void fieldsComeFromTheirBits();
    void wordIsStoredUnchanged_data();
    void wordIsStoredUnchanged();
    void plainNumberBecomesAnError();
    void propertiesAreReadOnlyAndInOrder();
    void qmlReadsTheProperties();
};

void tst_CErrorCode::defaultIsNoError()
{
    const CErrorCode code;
    QCOMPARE(static_cast<quint32>(code.errorCode()), 0U);
    QVERIFY(code.isNoError());
}

void tst_CErrorCode::fieldsComeFromTheirBits_data()
{
    QTest::addColumn<quint32>("word");
    QTest::addColumn<int>("detail");
    QTest::addColumn<int>("component");
    QTest::addColumn<int>("module");
    QTest::addColumn<int>("domain");
    QTest::addColumn<bool>("isNoError");

    QTest::newRow("zero") << 0U << 0 << 0 << 0 << 0 << true;
    QTest::newRow("maker without a cause is no error") << 0x000B0100U << 0 << 1 << 11 << 0 << true;
    QTest::newRow("copying, write failed") << 0x000B0104U << 4 << 1 << 11 << 0 << false;
    QTest::newRow("domain flag") << 0x80000005U << 5 << 0 << 0 << 1 << false;
    QTest::newRow("domain flag alone is no error") << 0x80000000U << 0 << 0 << 0 << 1 << true;
    QTest::newRow("highest detail") << 0x000000FFU << 255 << 0 << 0 << 0 << false;
    QTest::newRow("highest component") << 0x0000FF00U << 0 << 255 << 0 << 0 << true;
    QTest::newRow("highest module") << 0x00FF0000U << 0 << 0 << 255 << 0 << true;
    QTest::newRow("bits without a field") << 0x7F000000U << 0 << 0 << 0 << 0 << true;
    QTest::newRow("all bits") << 0xFFFFFFFFU << 255 << 255 << 255 << 1 << false;
}

void tst_CErrorCode::fieldsComeFromTheirBits()
{
    QFETCH(quint32, word);
    const CErrorCode code(word);
    QTEST(static_cast<int>(code.detailCode()), "detail");
    QTEST(static_cast<int>(code.componentId()), "component");
    QTEST(static_cast<int>(code.moduleId()), "module");
    QTEST(static_cast<int>(code.domain()), "domain");
    QTEST(code.isNoError(), "isNoError");
}

void tst_CErrorCode::wordIsStoredUnchanged_data()
{
    QTest::addColumn<quint32>("word");
    QTest::newRow("all bits") << 0xFFFFFFFFU;
    QTest::newRow("bits without a field") << 0x7F000000U;
    QTest::newRow("some of each") << 0x92345678U;
}

void tst_CErrorCode::wordIsStoredUnchanged()
{
    QFETCH(quint32, word);
    QCOMPARE(static_cast<quint32>(CErrorCode(word).errorCode()), word);
    QCOMPARE(sizeof(CErrorCode), sizeof(quint32));
    QCOMPARE(sizeof(ErrorCode), sizeof(quint32));
}

void tst_CErrorCode::plainNumberBecomesAnError()
{
    const CErrorCode code = 0x000B0203U;
    QCOMPARE(static_cast<int>(code.componentId()), 2);
}

void tst_CErrorCode::propertiesAreReadOnlyAndInOrder()
{
    const QMetaObject &meta = CErrorCode::staticMetaObject;
    QCOMPARE(meta.propertyCount(), 2);
    const QMetaProperty isNoError = meta.property(0);
    QCOMPARE(isNoError.name(), "isNoError");
    QCOMPARE(isNoError.typeName(), "bool");
    const QMetaProperty errorCode = meta.property(1);
    QCOMPARE(errorCode.name(), "errorCode");
    QCOMPARE(errorCode.typeName(), "Tavro::Base::ErrorCode");
    QCOMPARE(errorCode.userType(), qMetaTypeId<ErrorCode>());
    for (const QMetaProperty &property : {isNoError, errorCode}) {
        QVERIFY(!property.isWritable());
        QVERIFY(!property.hasNotifySignal());
    }
}

void tst_CErrorCode::qmlReadsTheProperties()
{
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("code"),
                                             QVariant::fromValue(CErrorCode(0x800B0104U)));
    const auto evaluate = [&engine](const char *text) {
        QQmlExpression expression(engine.rootContext(), nullptr, QString::fromLatin1(text));
        const QVariant result = expression.evaluate();
        return expression.hasError() ? QVariant(expression.error().toString()) : result;
    };
    QCOMPARE(evaluate("code.isNoError"), QVariant(false));
    QCOMPARE(evaluate("code.errorCode >>> 0").toUInt(), 0x800B0104U);
    QCOMPARE(evaluate("(code.errorCode & 0xff) === 4"), QVariant(true));
}

QTEST_GUILESS_MAIN(tst_CErrorCode)

#include "tst_CErrorCode.moc"
