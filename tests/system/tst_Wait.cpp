// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/Wait.h"

#include <QSignalSpy>
#include <QTest>

using Tavro::Shared::Wait;

class tst_Wait : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObjectHasOneSignal();
    void keepsAText();
    void theHostEmitsItsSignal();
};

void tst_Wait::metaObjectHasOneSignal()
{
    const QMetaObject &meta = Wait::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::Wait");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod method = meta.method(meta.methodOffset());
    QCOMPARE(method.methodSignature(), QByteArray("waitFinished()"));
    QCOMPARE(method.methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_Wait::keepsAText()
{
    Wait wait;
    QVERIFY(!wait.parent());
    QCOMPARE(wait.text(), QString());
    QSignalSpy finished(&wait, &Wait::waitFinished);
    wait.setText(QStringLiteral("Ø 300 mm"));
    QCOMPARE(wait.text(), QStringLiteral("Ø 300 mm"));
    wait.setText(QString());
    QCOMPARE(wait.text(), QString());
    QCOMPARE(finished.count(), 0);
}

void tst_Wait::theHostEmitsItsSignal()
{
    QObject parent;
    auto *wait = new Wait(&parent);
    QSignalSpy finished(wait, &Wait::waitFinished);
    Q_EMIT wait->waitFinished();
    QCOMPARE(finished.count(), 1);
}

QTEST_APPLESS_MAIN(tst_Wait)

#include "tst_Wait.moc"
