// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/NotEmptyValidator.h"
#include "tests/input/Declared.h"
#include "tests/input/Verdict.h"
#include "tests/support/LogRecorder.h"

#include <QTest>

using namespace Test;
using Tavro::Shared::NotEmptyValidator;

class tst_NotEmptyValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneCharacterIsEnough_data();
    void oneCharacterIsEnough();
    void refusalIsNotLogged();
    void hintIsOneLine();
    void metaObjectAddsNothing();
};

void tst_NotEmptyValidator::oneCharacterIsEnough_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("verdict");

    QTest::newRow("null") << QString() << QValidator::Invalid;
    QTest::newRow("empty") << QString(QLatin1String("")) << QValidator::Invalid;
    QTest::newRow("a letter") << QStringLiteral("a") << QValidator::Acceptable;
    QTest::newRow("a blank") << QStringLiteral(" ") << QValidator::Acceptable;
    QTest::newRow("a NUL") << QString(1, QChar(0)) << QValidator::Acceptable;
    QTest::newRow("a text") << QStringLiteral("two words") << QValidator::Acceptable;
}

void tst_NotEmptyValidator::oneCharacterIsEnough()
{
    QFETCH(QString, text);
    QTEST(verdictOf(NotEmptyValidator(), text), "verdict");
}

void tst_NotEmptyValidator::refusalIsNotLogged()
{
    const LogRecorder log;
    QCOMPARE(verdictOf(NotEmptyValidator(), QString()), QValidator::Invalid);
    QCOMPARE(log.entries(), QStringList());
}

void tst_NotEmptyValidator::hintIsOneLine()
{
    NotEmptyValidator validator;
    QCOMPARE(validator.hint(), QStringLiteral("Expression can not be empty\n"));
}

void tst_NotEmptyValidator::metaObjectAddsNothing()
{
    const QMetaObject &meta = NotEmptyValidator::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::NotEmptyValidator");
    QCOMPARE(meta.superClass(), &Tavro::Shared::Validator::staticMetaObject);
    QCOMPARE(declaredMethods(meta), QStringList());
    QCOMPARE(declaredProperties(meta), QStringList());
}

QTEST_APPLESS_MAIN(tst_NotEmptyValidator)

#include "tst_NotEmptyValidator.moc"
