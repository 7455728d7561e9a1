// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/base/UiMessageTypes.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

using Tavro::Base::UiMessageTypes;

namespace {

struct Key
{
    const char *name;
    int value;
};

struct Enumeration
{
    const char *name;
    QVector<Key> keys;
};

const QVector<Enumeration> &enumerations()
{
    static const QVector<Enumeration> table = {
        {"MsgCategory",
         {{"General", 0}, {"ExternalCategoryFirst", 0}, {"ExternalCategoryLast", 10}}},
        {"MsgLevel", {{"Error", 0}, {"Warning", 1}, {"Question", 2}, {"Info", 3}, {"Debug", 4}}},
        {"MsgResult",
         {{"NoResult", 0}, {"Accepted", 1}, {"Rejected", 2}, {"CustomActiontriggered", 3}}},
        {"DeviceType",
         {{"WrongDevice", -1},
          {"NoDevice", 0},
          {"ExternalDeviceFirst", 0},
          {"ExternalDeviceLast", 40}}},
    };
    return table;
}

} // namespace

class tst_UiMessageTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enumerationsStandInOrder();
    void sharedValueReadsBackAsTheFirstKey();
    void qmlNamesEveryKey();
};

void tst_UiMessageTypes::enumerationsStandInOrder()
{
    const QMetaObject &meta = UiMessageTypes::staticMetaObject;
    QCOMPARE(meta.enumeratorCount(), enumerations().size());
    for (int i = 0; i < meta.enumeratorCount(); ++i) {
        const Enumeration &expected = enumerations().at(i);
        const QMetaEnum actual = meta.enumerator(i);
        QCOMPARE(actual.name(), expected.name);
        QCOMPARE(actual.keyCount(), expected.keys.size());
        for (int k = 0; k < actual.keyCount(); ++k) {
            QCOMPARE(actual.key(k), expected.keys.at(k).name);
            QCOMPARE(actual.value(k), expected.keys.at(k).value);
        }
    }
}

void tst_UiMessageTypes::sharedValueReadsBackAsTheFirstKey()
{
    QCOMPARE(QMetaEnum::fromType<UiMessageTypes::MsgCategory>().valueToKey(0), "General");
    QCOMPARE(QMetaEnum::fromType<UiMessageTypes::DeviceType>().valueToKey(0), "NoDevice");
}

void tst_UiMessageTypes::qmlNamesEveryKey()
{
    qmlRegisterUncreatableMetaObject(UiMessageTypes::staticMetaObject, "Tavro.Base", 1, 0,
                                     "UiMessageTypes", QStringLiteral("only enumerations"));
    QQmlEngine engine;
    for (const Enumeration &enumeration : enumerations()) {
        for (const Key &key : enumeration.keys) {
            QQmlComponent component(&engine);
            component.setData(QByteArrayLiteral("import QtQml 2.15\nimport Tavro.Base 1.0\n"
                                                "QtObject { property int value: UiMessageTypes.")
                                  + key.name + " }",
                              QUrl());
            const QScopedPointer<QObject> object(component.create());
            QVERIFY2(object, qPrintable(component.errorString()));
            QCOMPARE(object->property("value").toInt(), key.value);
        }
    }
}

QTEST_GUILESS_MAIN(tst_UiMessageTypes)

#include "tst_UiMessageTypes.moc"
