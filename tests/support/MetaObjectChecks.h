// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>
#include <QVector>

namespace Test {

// Each of these functions is the last one that a test calls.

/** A method of a class as QML sees it; all of them return nothing. */
struct Method
{
    QByteArray signature;
    QMetaMethod::MethodType type;
    QMetaMethod::Access access;
    QList<QByteArray> parameters;
};

/** Compares the class's own methods, in their order. */
inline void compareMethods(const QMetaObject &meta, const QVector<Method> &expected)
{
    QCOMPARE(meta.methodCount() - meta.methodOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaMethod actual = meta.method(meta.methodOffset() + i);
        QCOMPARE(actual.methodSignature(), expected.at(i).signature);
        QCOMPARE(actual.methodType(), expected.at(i).type);
        QCOMPARE(actual.access(), expected.at(i).access);
        QCOMPARE(actual.parameterNames(), expected.at(i).parameters);
        QCOMPARE(actual.returnType(), static_cast<int>(QMetaType::Void));
    }
}

/** Compares the class's own properties, all read-only: name, end of the type, notify signal. */
inline void compareProperties(const QMetaObject &meta, const QVector<QVector<QByteArray>> &expected)
{
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaProperty actual = meta.property(meta.propertyOffset() + i);
        QCOMPARE(QByteArray(actual.name()), expected.at(i).at(0));
        QVERIFY(QByteArray(actual.typeName()).endsWith(expected.at(i).at(1)));
        QCOMPARE(actual.notifySignal().name(), expected.at(i).at(2));
        QVERIFY(!actual.isWritable());
    }
}

/** Compares the class's own enumerations, which count from 0. */
inline void compareEnumerations(const QMetaObject &meta,
                                const QVector<QPair<QByteArray, QList<QByteArray>>> &expected)
{
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaEnum actual = meta.enumerator(meta.enumeratorOffset() + i);
        QCOMPARE(QByteArray(actual.name()), expected.at(i).first);
        QCOMPARE(actual.keyCount(), expected.at(i).second.size());
        for (int k = 0; k < actual.keyCount(); ++k) {
            QCOMPARE(QByteArray(actual.key(k)), expected.at(i).second.at(k));
            QCOMPARE(actual.value(k), k);
        }
    }
}

/** Calls a slot that stores a @p property; the notify signal must come with a change and no other
 * time. @p type is "int" or "qlonglong". */
inline void checkThatOnlyAChangeIsAnnounced(QObject &object, const QByteArray &slot,
                                            const QByteArray &property, const QByteArray &type)
{
    const QMetaObject &meta = *object.metaObject();
    const QMetaMethod signal = meta.property(meta.indexOfProperty(property)).notifySignal();
    QSignalSpy spy(&object, '2' + signal.methodSignature());
    const auto set = [&](int value) {
        return type == "int" ? QMetaObject::invokeMethod(&object, slot, Q_ARG(int, value))
                             : QMetaObject::invokeMethod(&object, slot, Q_ARG(qlonglong, value));
    };
    QVERIFY(set(0));
    QCOMPARE(spy.count(), 0);
    QVERIFY(set(2));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(object.property(property).toInt(), 2);
    QVERIFY(set(2));
    QCOMPARE(spy.count(), 1);
    QVERIFY(set(0));
    QCOMPARE(spy.count(), 2);
}

} // namespace Test
