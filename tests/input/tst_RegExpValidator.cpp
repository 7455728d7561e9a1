// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/RegExpValidator.h"
#include "tests/input/Declared.h"
#include "tests/input/Verdict.h"
#include "tests/support/LogRecorder.h"

#include <QSignalSpy>
#include <QTest>

using namespace Test;
using Tavro::Shared::RegExpValidator;

class tst_RegExpValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutPatternOnlyTheEmptyTextMatches_data();
    void withoutPatternOnlyTheEmptyTextMatches();
    void patternMatchesTheWholeText_data();
    void patternMatchesTheWholeText();
    void maskBecomesAPattern_data();
    void maskBecomesAPattern();
    void maskDecides_data();
    void maskDecides();
    void runOfZerosUpToTheLimitOfTheEngine();
    void maskCanBeReplaced();
    void everyRefusalIsLogged();
    void hintNamesThePatternAsItWasSet();
    void setterStaysSilent();
    void metaObjectHasItsOrder();
};

void tst_RegExpValidator::withoutPatternOnlyTheEmptyTextMatches_data()
{
    QTest::addColumn<bool>("numericalMask");
    QTest::newRow("pattern") << false;
    QTest::newRow("mask") << true;
}

void tst_RegExpValidator::withoutPatternOnlyTheEmptyTextMatches()
{
    QFETCH(bool, numericalMask);

    LogRecorder log;
    const RegExpValidator validator(numericalMask);
    QCOMPARE(validator.pattern(), QString());
    QCOMPARE(verdictOf(validator, QString()), QValidator::Acceptable);
    QCOMPARE(log.entries(), QStringList());
    QCOMPARE(verdictOf(validator, QStringLiteral("a")), QValidator::Invalid);
    QCOMPARE(verdictOf(validator, QStringLiteral("0")), QValidator::Invalid);
    const QStringList entries = {
        refusal("RegExpValidator", QStringLiteral("a")),
        refusal("RegExpValidator", QStringLiteral("0")),
    };
    QCOMPARE(log.entries(), entries);
}

void tst_RegExpValidator::patternMatchesTheWholeText_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("verdict");

    const QString two = QStringLiteral("[A-Z]{2}");
    QTest::newRow("matches") << two << QStringLiteral("AB") << QValidator::Acceptable;
    QTest::newRow("beginning alone") << two << QStringLiteral("A") << QValidator::Invalid;
    QTest::newRow("followed by more") << two << QStringLiteral("ABC") << QValidator::Invalid;
    QTest::newRow("another case") << two << QStringLiteral("ab") << QValidator::Invalid;
    QTest::newRow("empty") << two << QString() << QValidator::Invalid;
    QTest::newRow("a 0 is a 0") << QStringLiteral("0.0") << QStringLiteral("0x0")
                                << QValidator::Acceptable;
    QTest::newRow("and no other digit")
        << QStringLiteral("0.0") << QStringLiteral("1x1") << QValidator::Invalid;
    QTest::newRow("beyond Latin-1")
        << QString::fromUtf8("[α-ω]+") << QString::fromUtf8("λόγος") << QValidator::Invalid;
    QTest::newRow("beyond Latin-1, without accent")
        << QString::fromUtf8("[α-ω]+") << QString::fromUtf8("λογος") << QValidator::Acceptable;
    QTest::newRow("unbalanced pattern, text")
        << QStringLiteral("(") << QStringLiteral("(") << QValidator::Invalid;
}

void tst_RegExpValidator::patternMatchesTheWholeText()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);

    RegExpValidator validator(false);
    validator.setPattern(pattern);
    QCOMPARE(validator.pattern(), pattern);
    QTEST(verdictOf(validator, text), "verdict");
}

void tst_RegExpValidator::maskBecomesAPattern_data()
{
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("pattern");

    QTest::newRow("decimals") << QStringLiteral("000.00")
                              << QStringLiteral("^[0-9]{3}\\.[0-9]{2}$");
    QTest::newRow("hyphen") << QStringLiteral("00-00") << QStringLiteral("^[0-9]{2}-[0-9]{2}$");
    QTest::newRow("empty") << QString(QLatin1String("")) << QStringLiteral("^$");
    QTest::newRow("one zero") << QStringLiteral("0") << QStringLiteral("^[0-9]{1}$");
    QTest::newRow("twelve zeros") << QString(12, QLatin1Char('0')) << QStringLiteral("^[0-9]{12}$");
    QTest::newRow("no zero") << QStringLiteral("ab") << QStringLiteral("^ab$");
    QTest::newRow("points alone") << QStringLiteral("..") << QStringLiteral("^\\.\\.$");
    QTest::newRow("zero at the end") << QStringLiteral("-0") << QStringLiteral("^-[0-9]{1}$");
    QTest::newRow("zero in front") << QStringLiteral("0-") << QStringLiteral("^[0-9]{1}-$");
    QTest::newRow("other digits stand for themselves")
        << QStringLiteral("190") << QStringLiteral("^19[0-9]{1}$");
    QTest::newRow("nothing but the point is escaped")
        << QStringLiteral("(-|+)?0*[9]\\d") << QStringLiteral("^(-|+)?[0-9]{1}*[9]\\d$");
    QTest::newRow("Latin-1 is kept")
        << QString::fromUtf8("00°") << QString::fromUtf8("^[0-9]{2}°$");
    QTest::newRow("what is not Latin-1 becomes a question mark")
        << QString::fromUtf8("0€0") << QStringLiteral("^[0-9]{1}?[0-9]{1}$");
    QTest::newRow("an emoji becomes two")
        << QString::fromUtf8("\xF0\x9F\x98\x80") << QStringLiteral("^??$");
    QTest::newRow("a NUL is kept")
        << QString(1, QChar(0)) + QLatin1Char('0')
        << QLatin1Char('^') + QString(1, QChar(0)) + QStringLiteral("[0-9]{1}$");
    QTest::newRow("placeholders are kept")
        << QStringLiteral("%10") << QStringLiteral("^%1[0-9]{1}$");
}

void tst_RegExpValidator::maskBecomesAPattern()
{
    QFETCH(QString, mask);

    RegExpValidator validator(true);
    validator.setPattern(mask);
    QTEST(validator.pattern(), "pattern");
    QTEST(validator.property("pattern").toString(), "pattern");
    QCOMPARE(validator.hint(),
             QStringLiteral("Expression have to match pattern: ") + mask + QLatin1Char('\n'));
}

void tst_RegExpValidator::maskDecides_data()
{
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("verdict");

    const QString mask = QStringLiteral("00.0");
    QTest::newRow("matches") << mask << QStringLiteral("12.5") << QValidator::Acceptable;
    QTest::newRow("comma") << mask << QStringLiteral("12,5") << QValidator::Invalid;
    QTest::newRow("digit missing") << mask << QStringLiteral("1.5") << QValidator::Invalid;
    QTest::newRow("digit too many") << mask << QStringLiteral("112.5") << QValidator::Invalid;
    QTest::newRow("letter") << mask << QStringLiteral("1a.5") << QValidator::Invalid;
    QTest::newRow("empty") << mask << QString() << QValidator::Invalid;
    QTest::newRow("digits of another script")
        << mask << QString::fromUtf8("١٢.٥") << QValidator::Invalid;
    QTest::newRow("empty mask, empty text") << QString() << QString() << QValidator::Acceptable;
    QTest::newRow("empty mask, a text") << QString() << QStringLiteral("1") << QValidator::Invalid;
    QTest::newRow("signs of patterns mean what they mean there")
        << QStringLiteral("-?(0)+") << QStringLiteral("-123") << QValidator::Acceptable;
}

void tst_RegExpValidator::maskDecides()
{
    QFETCH(QString, mask);
    QFETCH(QString, text);

    RegExpValidator validator(true);
    validator.setPattern(mask);
    QTEST(verdictOf(validator, text), "verdict");
}

void tst_RegExpValidator::runOfZerosUpToTheLimitOfTheEngine()
{
    RegExpValidator validator(true);
    validator.setPattern(QString(1000, QLatin1Char('0')));
    QCOMPARE(validator.pattern(), QStringLiteral("^[0-9]{1000}$"));
    QCOMPARE(verdictOf(validator, QString(1000, QLatin1Char('7'))), QValidator::Acceptable);
    QCOMPARE(verdictOf(validator, QString(999, QLatin1Char('7'))), QValidator::Invalid);

    // one more than QRegExp counts to: the pattern does not compile
    validator.setPattern(QString(1025, QLatin1Char('0')));
    QCOMPARE(validator.pattern(), QStringLiteral("^[0-9]{1025}$"));
    QCOMPARE(verdictOf(validator, QString(1025, QLatin1Char('7'))), QValidator::Invalid);
}

void tst_RegExpValidator::maskCanBeReplaced()
{
    RegExpValidator validator(true);
    validator.setPattern(QStringLiteral("000"));
    validator.setPattern(QStringLiteral("00"));
    QCOMPARE(validator.pattern(), QStringLiteral("^[0-9]{2}$"));
    QCOMPARE(verdictOf(validator, QStringLiteral("12")), QValidator::Acceptable);
    QVERIFY(validator.setProperty("pattern", QStringLiteral("0")));
    QCOMPARE(verdictOf(validator, QStringLiteral("12")), QValidator::Invalid);
}

void tst_RegExpValidator::everyRefusalIsLogged()
{
    LogRecorder log;
    RegExpValidator validator(false);
    validator.setPattern(QStringLiteral("a+"));
    verdictOf(validator, QStringLiteral("aa"));
    QCOMPARE(log.entries(), QStringList());
    verdictOf(validator, QStringLiteral("b"));
    verdictOf(validator, QString());
    const QStringList entries = {
        refusal("RegExpValidator", QStringLiteral("b")),
        refusal("RegExpValidator", QString()),
    };
    QCOMPARE(log.entries(), entries);
}

void tst_RegExpValidator::hintNamesThePatternAsItWasSet()
{
    RegExpValidator validator(false);
    QCOMPARE(validator.hint(), QStringLiteral("Expression have to match pattern: \n"));
    validator.setPattern(QStringLiteral("%1[0-9]{2}"));
    QCOMPARE(validator.hint(), QStringLiteral("Expression have to match pattern: %1[0-9]{2}\n"));
}

void tst_RegExpValidator::setterStaysSilent()
{
    RegExpValidator validator(false);
    const QSignalSpy patternChanged(&validator, &RegExpValidator::patternChanged);
    validator.setPattern(QStringLiteral("a"));
    QVERIFY(validator.setProperty("pattern", QStringLiteral("b")));
    QCOMPARE(patternChanged.count(), 0);
    Q_EMIT validator.patternChanged(); // the spy hears
    QCOMPARE(patternChanged.count(), 1);
}

void tst_RegExpValidator::metaObjectHasItsOrder()
{
    const QMetaObject &meta = RegExpValidator::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::RegExpValidator");
    QCOMPARE(meta.superClass(), &Tavro::Shared::Validator::staticMetaObject);
    QCOMPARE(declaredMethods(meta), QStringList{QStringLiteral("signal void patternChanged()")});
    QCOMPARE(declaredProperties(meta),
             QStringList{QStringLiteral("QString pattern read write notify patternChanged()")});
}

QTEST_APPLESS_MAIN(tst_RegExpValidator)

#include "tst_RegExpValidator.moc"
