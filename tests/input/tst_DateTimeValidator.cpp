// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/DateTimeValidator.h"
#include "tests/input/Declared.h"
#include "tests/input/Verdict.h"
#include "tests/support/LogRecorder.h"

#include <QSignalSpy>
#include <QTest>

using namespace Test;
using Tavro::Shared::DateTimeValidator;

class tst_DateTimeValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formatDecides_data();
    void formatDecides();
    void formatCanBeReplaced();
    void everyRefusalIsLogged();
    void hintAlwaysNamesTheFormat();
    void setterStaysSilent();
    void metaObjectHasItsOrder();
};

void tst_DateTimeValidator::formatDecides_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("verdict");

    const QString date = QStringLiteral("dd.MM.yyyy");
    QTest::newRow("a date") << date << QStringLiteral("24.12.2024") << QValidator::Acceptable;
    QTest::newRow("29 February in a leap year")
        << date << QStringLiteral("29.02.2024") << QValidator::Acceptable;
    QTest::newRow("29 February in another year")
        << date << QStringLiteral("29.02.2023") << QValidator::Invalid;
    QTest::newRow("too few digits") << date << QStringLiteral("1.2.2024") << QValidator::Invalid;
    QTest::newRow("unfinished") << date << QStringLiteral("24.12.") << QValidator::Invalid;
    QTest::newRow("followed by more")
        << date << QStringLiteral("24.12.2024 10") << QValidator::Invalid;
    QTest::newRow("empty") << date << QString() << QValidator::Invalid;
    QTest::newRow("a time") << QStringLiteral("hh:mm") << QStringLiteral("23:59")
                            << QValidator::Acceptable;
    QTest::newRow("no time of day")
        << QStringLiteral("hh:mm") << QStringLiteral("24:00") << QValidator::Invalid;
    QTest::newRow("both") << QStringLiteral("yyyy-MM-dd hh:mm:ss")
                          << QStringLiteral("2024-12-24 18:00:01") << QValidator::Acceptable;
    QTest::newRow("no format") << QString() << QStringLiteral("24.12.2024") << QValidator::Invalid;
    QTest::newRow("neither format nor text") << QString() << QString() << QValidator::Acceptable;
}

void tst_DateTimeValidator::formatDecides()
{
    QFETCH(QString, format);
    QFETCH(QString, text);

    DateTimeValidator validator;
    validator.setFormat(format);
    QCOMPARE(validator.format(), format);
    QTEST(verdictOf(validator, text), "verdict");
}

void tst_DateTimeValidator::formatCanBeReplaced()
{
    DateTimeValidator validator;
    QCOMPARE(validator.format(), QString());
    QVERIFY(validator.setProperty("format", QStringLiteral("hh:mm")));
    QCOMPARE(verdictOf(validator, QStringLiteral("10:30")), QValidator::Acceptable);
    validator.setFormat(QStringLiteral("hh.mm"));
    QCOMPARE(verdictOf(validator, QStringLiteral("10:30")), QValidator::Invalid);
    QCOMPARE(verdictOf(validator, QStringLiteral("10.30")), QValidator::Acceptable);
}

void tst_DateTimeValidator::everyRefusalIsLogged()
{
    LogRecorder log;
    DateTimeValidator validator;
    validator.setFormat(QStringLiteral("hh:mm"));
    verdictOf(validator, QStringLiteral("10:30"));
    QCOMPARE(log.entries(), QStringList());
    verdictOf(validator, QStringLiteral("noon"));
    verdictOf(validator, QString());
    const QStringList entries = {
        refusal("DateTimeValidator", QStringLiteral("noon")),
        refusal("DateTimeValidator", QString()),
    };
    QCOMPARE(log.entries(), entries);
}

void tst_DateTimeValidator::hintAlwaysNamesTheFormat()
{
    DateTimeValidator validator;
    QCOMPARE(validator.hint(), QStringLiteral("Date have to match format: \n"));
    validator.setFormat(QStringLiteral("dd.MM.yyyy"));
    QCOMPARE(validator.hint(), QStringLiteral("Date have to match format: dd.MM.yyyy\n"));
    validator.setFormat(QStringLiteral("%1 %2"));
    QCOMPARE(validator.hint(), QStringLiteral("Date have to match format: %1 %2\n"));
}

void tst_DateTimeValidator::setterStaysSilent()
{
    DateTimeValidator validator;
    const QSignalSpy formatChanged(&validator, &DateTimeValidator::formatChanged);
    validator.setFormat(QStringLiteral("hh:mm"));
    QVERIFY(validator.setProperty("format", QStringLiteral("hh")));
    QCOMPARE(formatChanged.count(), 0);
    Q_EMIT validator.formatChanged(); // the spy hears
    QCOMPARE(formatChanged.count(), 1);
}

void tst_DateTimeValidator::metaObjectHasItsOrder()
{
    const QMetaObject &meta = DateTimeValidator::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::DateTimeValidator");
    QCOMPARE(meta.superClass(), &Tavro::Shared::Validator::staticMetaObject);
    QCOMPARE(declaredMethods(meta), QStringList{QStringLiteral("signal void formatChanged()")});
    QCOMPARE(declaredProperties(meta),
             QStringList{QStringLiteral("QString format read write notify formatChanged()")});
}

QTEST_APPLESS_MAIN(tst_DateTimeValidator)

#include "tst_DateTimeValidator.moc"
