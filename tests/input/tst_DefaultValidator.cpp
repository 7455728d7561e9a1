// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/DefaultValidator.h"
#include "tests/input/Declared.h"
#include "tests/input/Verdict.h"
#include "tests/support/LogRecorder.h"

#include <QTest>

using namespace Test;
using Tavro::Shared::DefaultValidator;

class tst_DefaultValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextIsAcceptable();
    void hintIsEmpty();
    void metaObjectAddsNothing();
};

void tst_DefaultValidator::everyTextIsAcceptable()
{
    const LogRecorder log;
    const DefaultValidator validator;
    QCOMPARE(verdictOf(validator, QString()), QValidator::Acceptable);
    QCOMPARE(verdictOf(validator, QStringLiteral("anything, 1 or 2")), QValidator::Acceptable);
    QCOMPARE(verdictOf(validator, QString(3, QChar(0))), QValidator::Acceptable);
    QCOMPARE(log.entries(), QStringList());
}

void tst_DefaultValidator::hintIsEmpty()
{
    DefaultValidator validator;
    QCOMPARE(validator.hint(), QString());
}

void tst_DefaultValidator::metaObjectAddsNothing()
{
    const QMetaObject &meta = DefaultValidator::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::DefaultValidator");
    QCOMPARE(meta.superClass(), &Tavro::Shared::Validator::staticMetaObject);
    QCOMPARE(declaredMethods(meta), QStringList());
    QCOMPARE(declaredProperties(meta), QStringList());
}

QTEST_APPLESS_MAIN(tst_DefaultValidator)

#include "tst_DefaultValidator.moc"
