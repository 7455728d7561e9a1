// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/StringLengthValidator.h"
#include "tests/input/Declared.h"
#include "tests/input/Verdict.h"
#include "tests/input/VirtualSlot.h"
#include "tests/support/LogRecorder.h"

#include <QSignalSpy>
#include <QTest>

using namespace Test;
using Tavro::Shared::StringLengthValidator;

class tst_StringLengthValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLengthIsAllowedAtFirst();
    void lengthDecides_data();
    void lengthDecides();
    void everyRefusalIsLogged();
    void hintNamesWhatWasSet();
    void rangeSetsBothBounds();
    void settersStaySilent();
    void optionsAreSetByName();
    void metaObjectHasItsOrder();
    void virtualFunctionsStandInTheirOrder();
};

void tst_StringLengthValidator::everyLengthIsAllowedAtFirst()
{
    const LogRecorder log;
    const StringLengthValidator validator;
    QCOMPARE(validator.bottom(), 0);
    QCOMPARE(validator.top(), 2147483647);
    QCOMPARE(verdictOf(validator, QString()), QValidator::Acceptable);
    QCOMPARE(verdictOf(validator, QString(100000, QLatin1Char('x'))), QValidator::Acceptable);
    QCOMPARE(log.entries(), QStringList());
}

void tst_StringLengthValidator::lengthDecides_data()
{
    QTest::addColumn<int>("bottom");
    QTest::addColumn<int>("top");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("verdict");

    const QString emoji = QString::fromUtf8("\xF0\x9F\x98\x80");
    QTest::newRow("empty, bottom 0") << 0 << 3 << QString() << QValidator::Acceptable;
    QTest::newRow("three of three") << 0 << 3 << QStringLiteral("abc") << QValidator::Acceptable;
    QTest::newRow("four of three") << 0 << 3 << QStringLiteral("abcd") << QValidator::Invalid;
    QTest::newRow("empty is too short") << 2 << 3 << QString() << QValidator::Invalid;
    QTest::newRow("too short") << 2 << 3 << QStringLiteral("a") << QValidator::Invalid;
    QTest::newRow("just long enough") << 2 << 3 << QStringLiteral("ab") << QValidator::Acceptable;
    QTest::newRow("blanks count") << 2 << 3 << QStringLiteral("  ") << QValidator::Acceptable;
    QTest::newRow("an emoji counts two") << 2 << 2 << emoji << QValidator::Acceptable;
    QTest::newRow("two emojis count four") << 0 << 3 << emoji + emoji << QValidator::Invalid;
    QTest::newRow("half an emoji counts one")
        << 1 << 1 << QString(emoji.at(0)) << QValidator::Acceptable;
    QTest::newRow("NULs count") << 3 << 3 << QString(3, QChar(0)) << QValidator::Acceptable;
    QTest::newRow("negative top") << 0 << -1 << QString() << QValidator::Invalid;
    QTest::newRow("negative bottom") << -5 << 3 << QString() << QValidator::Acceptable;
}

void tst_StringLengthValidator::lengthDecides()
{
    QFETCH(int, bottom);
    QFETCH(int, top);
    QFETCH(QString, text);

    StringLengthValidator validator;
    validator.setBottom(bottom);
    validator.setTop(top);
    QTEST(verdictOf(validator, text), "verdict");
}

void tst_StringLengthValidator::everyRefusalIsLogged()
{
    LogRecorder log;
    StringLengthValidator validator;
    validator.setRange(1, 3);
    verdictOf(validator, QStringLiteral("abc"));
    QCOMPARE(log.entries(), QStringList());
    verdictOf(validator, QStringLiteral("abcd"));
    verdictOf(validator, QString());
    const QStringList entries = {
        refusal("StringLengthValidator", QStringLiteral("abcd")),
        refusal("StringLengthValidator", QString()),
    };
    QCOMPARE(log.entries(), entries);
}

void tst_StringLengthValidator::hintNamesWhatWasSet()
{
    StringLengthValidator validator;
    QCOMPARE(validator.hint(), QString());
    validator.setTop(3);
    QCOMPARE(validator.hint(), QStringLiteral("Maximum length smaller or equal 3\n"));
    validator.setBottom(0);
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum length larger or equal 0\n"
                            "Maximum length smaller or equal 3\n"));
}

void tst_StringLengthValidator::rangeSetsBothBounds()
{
    StringLengthValidator validator;
    validator.setRange(2, 4);
    QCOMPARE(validator.bottom(), 2);
    QCOMPARE(validator.top(), 4);
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum length larger or equal 2\n"
                            "Maximum length smaller or equal 4\n"));
}

void tst_StringLengthValidator::settersStaySilent()
{
    StringLengthValidator validator;
    const QSignalSpy bottomChanged(&validator, &StringLengthValidator::bottomChanged);
    const QSignalSpy topChanged(&validator, &StringLengthValidator::topChanged);
    validator.setBottom(1);
    validator.setTop(9);
    validator.setRange(0, 8);
    QVERIFY(validator.setProperty("bottom", 3));
    QVERIFY(validator.setProperty("top", 3));
    QCOMPARE(bottomChanged.count(), 0);
    QCOMPARE(topChanged.count(), 0);

    // the spies hear
    Q_EMIT validator.bottomChanged(1);
    Q_EMIT validator.topChanged(2);
    QCOMPARE(bottomChanged.value(0), QVariantList{1});
    QCOMPARE(topChanged.value(0), QVariantList{2});
}

void tst_StringLengthValidator::optionsAreSetByName()
{
    StringLengthValidator validator;
    QVERIFY(validator.setProperty("bottom", QStringLiteral("5")));
    QVERIFY(validator.setProperty("top", 7.0));
    QCOMPARE(validator.property("bottom"), QVariant(5));
    QCOMPARE(validator.property("top"), QVariant(7));
}

void tst_StringLengthValidator::metaObjectHasItsOrder()
{
    const QMetaObject &meta = StringLengthValidator::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::StringLengthValidator");
    QCOMPARE(meta.superClass(), &Tavro::Shared::Validator::staticMetaObject);
    const QStringList methods = {
        QStringLiteral("signal void bottomChanged(int bottom)"),
        QStringLiteral("signal void topChanged(int top)"),
    };
    QCOMPARE(declaredMethods(meta), methods);
    const QStringList properties = {
        QStringLiteral("int bottom read write notify bottomChanged(int)"),
        QStringLiteral("int top read write notify topChanged(int)"),
    };
    QCOMPARE(declaredProperties(meta), properties);
}

void tst_StringLengthValidator::virtualFunctionsStandInTheirOrder()
{
    QCOMPARE(virtualSlot(&StringLengthValidator::validate), 1);
    QCOMPARE(virtualSlot(&StringLengthValidator::updateHint), 2);
    QCOMPARE(virtualSlot(&StringLengthValidator::setRange), 3);
}

QTEST_APPLESS_MAIN(tst_StringLengthValidator)

#include "tst_StringLengthValidator.moc"
