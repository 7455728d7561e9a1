// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/RegExpValidator.h"
#include "shared/input/TextValidator.h"
#include "shared/input/ValidationDoubleValidator.h"
#include "tests/input/CurrentLocale.h"
#include "tests/input/Verdict.h"
#include "tests/support/LogRecorder.h"

#include <QTest>

using namespace Test;
using Tavro::Shared::RegExpValidator;
using Tavro::Shared::TextValidator;
using Tavro::Shared::Validator;
using ValidatorType = TextValidator::ValidatorType;

namespace {

struct Rule
{
    const char *name;
    ValidatorType type;
    QVariantMap options;
};

/** A rule of each kind, which has something to look for. */
QVector<Rule> everyRule()
{
    const QVariantMap range = {
        {QStringLiteral("bottom"), 0}, {QStringLiteral("top"), 10}, {QStringLiteral("step"), 5}};
    const QVariantMap length = {{QStringLiteral("bottom"), 1}, {QStringLiteral("top"), 10}};
    const auto pattern = [](const char *text) {
        return QVariantMap{{QStringLiteral("pattern"), QString::fromLatin1(text)}};
    };
    return {
        {"double", TextValidator::ValidatorDouble, range},
        {"int", TextValidator::ValidatorInt, range},
        {"pattern", TextValidator::ValidatorRegExp, pattern("[A-Z]*[0-9]{1,3}")},
        {"mask", TextValidator::ValidatorNumericalMask, pattern("000.00")},
        {"date",
         TextValidator::ValidatorDateTimeMask,
         {{QStringLiteral("format"), QStringLiteral("dd.MM.yyyy hh:mm")}}},
        {"length", TextValidator::ValidatorLength, length},
        {"not empty", TextValidator::ValidatorNotEmpty, {}},
        {"unknown", static_cast<ValidatorType>(99), {}},
    };
}

struct Text
{
    const char *name;
    QString text;
    bool isWithinRange; // by the rules for numbers
};

QVector<Text> hostileTexts()
{
    constexpr int megabyte = 1024 * 1024;
    const QChar nul(0);
    return {
        {"a megabyte of letters", QString(megabyte, QLatin1Char('a')), false},
        {"a megabyte of digits", QString(megabyte, QLatin1Char('9')), false},
        {"a megabyte of zeros", QString(megabyte, QLatin1Char('0')), true},
        {"a megabyte of separators", QString(megabyte, QLatin1Char('.')), false},
        {"a megabyte of percent signs", QString(megabyte, QLatin1Char('%')), false},
        {"a megabyte of line feeds", QString(megabyte, QLatin1Char('\n')), false},
        {"a number of 400 digits", QString(400, QLatin1Char('7')), false},
        {"a number with 400 zeros in front", QString(400, QLatin1Char('0')) + QLatin1Char('5'),
         true},
        {"an exponent of 400 digits", QStringLiteral("1e") + QString(400, QLatin1Char('9')), false},
        {"a high surrogate alone", QString(QChar(0xD83D)), false},
        {"a low surrogate alone", QString(QChar(0xDE00)), false},
        {"surrogates in the wrong order", QString(QChar(0xDE00)) + QChar(0xD83D), false},
        {"a number with half an emoji", QStringLiteral("5") + QChar(0xD83D), false},
        {"a NUL", QString(nul), false},
        {"a number, a NUL, a letter", QStringLiteral("5") + nul + QLatin1Char('a'), false},
        {"digits written from right to left", QString::fromUtf8("٥"), false},
        {"a digit behind a mark for right to left", QChar(0x200F) + QStringLiteral("5"), false},
        {"a byte order mark before a digit", QChar(0xFEFF) + QStringLiteral("5"), false},
        {"full-width digits", QString::fromUtf8("５"), false},
        {"a digit with an accent of its own", QStringLiteral("5") + QChar(0x0301), false},
        {"the last code unit", QString(QChar(0xFFFF)), false},
    };
}

} // namespace

/** What nobody types, and a scanner, a paste or a broken catalog brings all the same. */
class tst_HostileInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRuleSurvivesEveryText_data();
    void everyRuleSurvivesEveryText();
    void explodingPatternsEnd_data();
    void explodingPatternsEnd();
    void patternsThatDoNotCompileRefuseEveryText_data();
    void patternsThatDoNotCompileRefuseEveryText();
    void deepPatternsStillMatch_data();
    void deepPatternsStillMatch();
    void tooDeepPatternsRefuse_data();
    void tooDeepPatternsRefuse();
    void masksOfPatternSignsSurvive();
    void everyOptionSurvivesEveryValue();
    void formatsSurvive_data();
    void formatsSurvive();
    void toolkitsValidatorSurvivesEveryText();
};

void tst_HostileInput::everyRuleSurvivesEveryText_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<int>("text");

    const QVector<Rule> rules = everyRule();
    const QVector<Text> texts = hostileTexts();
    for (int rule = 0; rule < rules.size(); ++rule) {
        for (int text = 0; text < texts.size(); ++text) {
            QTest::addRow("%s: %s", rules.at(rule).name, texts.at(text).name) << rule << text;
        }
    }
}

void tst_HostileInput::everyRuleSurvivesEveryText()
{
    QFETCH(int, rule);
    QFETCH(int, text);

    const CurrentLocale locale(QLocale::c());
    const LogRecorder log;
    const Rule tried = everyRule().at(rule);
    const Text hostile = hostileTexts().at(text);
    TextValidator validator;
    validator.addValidator(tried.type, tried.options);
    QString input = hostile.text;
    const bool passes = validator.validate(input, true);
    QCOMPARE(input, hostile.text);
    switch (static_cast<int>(tried.type)) {
    case TextValidator::ValidatorDouble:
    case TextValidator::ValidatorInt:
        QCOMPARE(passes, hostile.isWithinRange);
        break;
    case TextValidator::ValidatorLength:
        QCOMPARE(passes, hostile.text.size() <= 10);
        break;
    case TextValidator::ValidatorNotEmpty:
    case 99:
        QVERIFY(passes);
        break;
    default:
        QVERIFY(!passes);
    }
}

void tst_HostileInput::explodingPatternsEnd_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("matches");

    // engines that try one way after the other take years for these
    const QString letters(3000, QLatin1Char('a'));
    const QString almost = letters + QLatin1Char('!');
    QTest::newRow("nested repetition") << QStringLiteral("(a+)+$") << letters << true;
    QTest::newRow("nested repetition, no match") << QStringLiteral("(a+)+$") << almost << false;
    QTest::newRow("nested stars, no match") << QStringLiteral("(a*)*") << almost << false;
    QTest::newRow("alternatives alike, no match") << QStringLiteral("(a|aa)+$") << almost << false;
    QTest::newRow("alternatives that overlap, no match")
        << QStringLiteral("(a|a?)+") << almost << false;
    QTest::newRow("many optional letters")
        << QStringLiteral("a?").repeated(50) + QStringLiteral("a").repeated(50)
        << QString(50, QLatin1Char('a')) << true;
}

void tst_HostileInput::explodingPatternsEnd()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);

    const LogRecorder log;
    RegExpValidator validator(false);
    validator.setPattern(pattern);
    QTEST(verdictOf(validator, text) == QValidator::Acceptable, "matches");
}

void tst_HostileInput::patternsThatDoNotCompileRefuseEveryText_data()
{
    QTest::addColumn<QString>("pattern");

    QTest::newRow("unbalanced parenthesis") << QStringLiteral("(");
    QTest::newRow("unbalanced bracket") << QStringLiteral("[a");
    QTest::newRow("nothing to repeat") << QStringLiteral("*a");
    QTest::newRow("repetition crossed") << QStringLiteral("a{3,2}");
    QTest::newRow("repetition too high") << QStringLiteral("a{99999999999}");
    QTest::newRow("backslash at the end") << QStringLiteral("a\\");
    QTest::newRow("look-behind") << QStringLiteral("(?<=a)b");
    // compiling them takes more stack than there is
    QTest::newRow("groups within groups") << QStringLiteral("(").repeated(200000)
            + QStringLiteral("a") + QStringLiteral(")").repeated(200000);
    QTest::newRow("groups that are never closed") << QStringLiteral("(").repeated(200000);
}

void tst_HostileInput::patternsThatDoNotCompileRefuseEveryText()
{
    QFETCH(QString, pattern);

    const LogRecorder log;
    RegExpValidator validator(false);
    validator.setPattern(pattern);
    QCOMPARE(validator.pattern(), pattern);
    for (const QString &text : {QString(), QStringLiteral("a"), pattern}) {
        QCOMPARE(verdictOf(validator, text), QValidator::Invalid);
    }
}

void tst_HostileInput::deepPatternsStillMatch_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");

    QTest::newRow("a thousand groups within each other") << QStringLiteral("(").repeated(1000)
            + QStringLiteral("a")
            + QStringLiteral(")").repeated(1000) << QStringLiteral("a");
    QTest::newRow("many groups one after the other")
        << QStringLiteral("(a)").repeated(3000) << QStringLiteral("a").repeated(3000);
    QTest::newRow("parentheses that mean themselves")
        << QStringLiteral("\\(").repeated(3000) << QStringLiteral("(").repeated(3000);
    const QString thousands = QStringLiteral("(").repeated(8000);
    QTest::newRow("parentheses in a class")
        << QLatin1Char('[') + thousands + QLatin1Char(']') << QStringLiteral("(");
    QTest::newRow("in a class that begins with ]")
        << QStringLiteral("[]") + thousands + QLatin1Char(']') << QStringLiteral("]");
    QTest::newRow("in a class of what it does not have, that begins with ]")
        << QStringLiteral("[^]") + thousands + QLatin1Char(']') << QStringLiteral(")");
    QTest::newRow("in a class behind an escaped ]")
        << QStringLiteral("[a\\]") + thousands + QLatin1Char(']') << QStringLiteral("]");
    QTest::newRow("in a class behind [")
        << QStringLiteral("[[") + thousands + QLatin1Char(']') << QStringLiteral("[");
    QTest::newRow("in classes, each with one")
        << QStringLiteral("[(]").repeated(2000) << QStringLiteral("(").repeated(2000);
    QTest::newRow("backslashes before groups")
        << QStringLiteral("\\\\(a)").repeated(1500) << QStringLiteral("\\a").repeated(1500);
}

void tst_HostileInput::deepPatternsStillMatch()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);

    RegExpValidator validator(false);
    validator.setPattern(pattern);
    QCOMPARE(verdictOf(validator, text), QValidator::Acceptable);
    // a shallow pattern after a deep one is asked again
    validator.setPattern(QStringLiteral("(").repeated(2000));
    validator.setPattern(pattern);
    QCOMPARE(verdictOf(validator, text), QValidator::Acceptable);
}

void tst_HostileInput::tooDeepPatternsRefuse_data()
{
    QTest::addColumn<bool>("isMask");
    QTest::addColumn<QString>("pattern");

    constexpr int deep = 20'000; // QRegExp survives some ten thousand
    const QString open = QStringLiteral("(").repeated(deep);
    const QString close = QStringLiteral(")").repeated(deep);
    for (const bool isMask : {false, true}) {
        const auto row = [isMask](const char *name, const QString &pattern) {
            QTest::addRow("%s%s", name, isMask ? ", in a mask" : "") << isMask << pattern;
        };
        const auto repeated = [](const char *part) {
            return QString::fromLatin1(part).repeated(deep);
        };
        row("groups", open + QLatin1Char('a') + close);
        row("groups that nothing closes", open);
        row("closed before, in a class",
            QLatin1Char('[') + close + QLatin1Char(']') + open + QLatin1Char('a') + close);
        row("closed in a class that begins with ]",
            QStringLiteral("[]") + close + QLatin1Char(']') + open);
        row("closed in a class that begins with ^]",
            QStringLiteral("[^]") + close + QLatin1Char(']') + open);
        row("closed in a class behind an escaped ]",
            QStringLiteral("[\\]") + close + QLatin1Char(']') + open);
        row("each closed in a class", repeated("([)]"));
        row("closed by too many before", close + open);
        row("closed behind a backslash", repeated("(\\)"));
        row("behind a class that a backslash does not end", QStringLiteral("[\\\\]") + open);
        row("what no class begins", QStringLiteral("\\[") + open);
        // mistakes, in spite of which QRegExp reads on
        row("closed by the letter behind (?", repeated("(?)"));
        row("a class begun by the letter behind (?", QStringLiteral("(?[") + open);
        row("a backslash behind (?", QStringLiteral("(?\\") + open);
        row("closed by the letter behind {", repeated("(a{)"));
        row("closed by the letter behind {1,2", repeated("(a{1,2)"));
        row("a class begun by the letter behind {", QStringLiteral("a{[") + open);
        row("a backslash behind {", repeated("(a{3\\"));
        row("look-aheads", repeated("(?="));
    }
}

// "refuse" is all that can be asked: without the guard the process ends here
void tst_HostileInput::tooDeepPatternsRefuse()
{
    QFETCH(bool, isMask);
    QFETCH(QString, pattern);

    RegExpValidator validator(isMask);
    validator.setPattern(pattern);
    QCOMPARE(verdictOf(validator, QStringLiteral("a")), QValidator::Invalid);
    validator.setPattern(QString());
    QCOMPARE(verdictOf(validator, QString()), QValidator::Acceptable);
}

void tst_HostileInput::masksOfPatternSignsSurvive()
{
    const LogRecorder log;
    const QString signs = QStringLiteral("0.[](){}*+?|\\^$-,1a");
    RegExpValidator validator(true);
    for (const QChar first : signs) {
        for (const QChar second : signs) {
            for (const QChar third : signs) {
                const QString mask = QString(first) + second + third;
                validator.setPattern(mask);
                QVERIFY(validator.pattern().startsWith(QLatin1Char('^')));
                QVERIFY(validator.pattern().endsWith(QLatin1Char('$')));
                QVERIFY(verdictOf(validator, mask) != QValidator::Intermediate);
            }
        }
    }
    // masks of these alone are not touched by any of it
    validator.setPattern(QStringLiteral("0.0"));
    QCOMPARE(verdictOf(validator, QStringLiteral("1.5")), QValidator::Acceptable);
}

void tst_HostileInput::everyOptionSurvivesEveryValue()
{
    const LogRecorder log;
    const QVector<QVariant> values = {
        QVariant(),
        QVariant(QVariant::Int),
        -2147483647 - 1,
        2147483647,
        -1,
        0,
        9007199254740993LL,
        qInf(),
        -qInf(),
        qQNaN(),
        5e-324,
        true,
        QString(),
        QString(QChar(0xD83D)),
        QString(70000, QLatin1Char('0')),
        QStringLiteral("((((a{1,9}){1,9})"),
        QByteArray("\xff"),
        QVariantList{1, 2},
        QVariantMap{{QStringLiteral("bottom"), 1}},
        QVariant::fromValue<QObject *>(nullptr),
    };
    const QStringList keys = {QStringLiteral("bottom"),  QStringLiteral("top"),
                              QStringLiteral("step"),    QStringLiteral("format"),
                              QStringLiteral("pattern"), QStringLiteral("objectName"),
                              QString(QChar(0xD83D)),    QString(1, QChar(0)),
                              QStringLiteral("parent"),  QString(70000, QLatin1Char('k'))};
    const QVector<Rule> rules = everyRule();
    for (const Rule &rule : rules) {
        for (const QString &key : keys) {
            for (const QVariant &value : values) {
                TextValidator validator;
                validator.addValidator(rule.type, {{key, value}});
                QVERIFY(validator.hasHint());
                for (const char *text : {"", "0", "-2147483648", "2147483647", "1.5", "nan"}) {
                    QString input = QString::fromLatin1(text);
                    validator.validate(input, false);
                    QCOMPARE(input, QString::fromLatin1(text));
                }
            }
        }
    }
}

void tst_HostileInput::formatsSurvive_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");

    QTest::newRow("quote that is not closed") << QStringLiteral("'dd") << QStringLiteral("01");
    QTest::newRow("quotes alone") << QStringLiteral("''''") << QStringLiteral("'");
    QTest::newRow("a NUL") << QString(1, QChar(0)) << QString(1, QChar(0));
    QTest::newRow("half an emoji") << QString(QChar(0xD83D)) << QString(QChar(0xD83D));
    QTest::newRow("ten thousand years")
        << QStringLiteral("yyyy").repeated(2500) << QStringLiteral("2024").repeated(2500);
    QTest::newRow("the same part twice") << QStringLiteral("dd dd") << QStringLiteral("01 02");
    QTest::newRow("a year of many digits")
        << QStringLiteral("yyyy") << QString(400, QLatin1Char('9'));
    QTest::newRow("a time zone that nobody knows")
        << QStringLiteral("hh:mm t") << QStringLiteral("10:00 Nowhere/Land");
    QTest::newRow("a month's name in another script")
        << QStringLiteral("MMMM") << QString::fromUtf8("يناير");
}

void tst_HostileInput::formatsSurvive()
{
    QFETCH(QString, format);
    QFETCH(QString, text);

    const LogRecorder log;
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorDateTimeMask,
                           {{QStringLiteral("format"), format}});
    QCOMPARE(validator.hint(), QStringLiteral("Date have to match format: ") + format);
    for (const QString &input : {text, QString(), format, text + text}) {
        QString copy = input;
        // what passes is for QDateTime to say
        QCOMPARE(validator.validate(copy, true), validator.validate(copy, false));
        QCOMPARE(copy, input);
    }
}

void tst_HostileInput::toolkitsValidatorSurvivesEveryText()
{
    const CurrentLocale locale(QLocale::c());
    const Tavro::Shared::Validation::DoubleValidator validator(0.0, 10.0, 2, nullptr);
    const QVector<Text> texts = hostileTexts();
    for (const Text &hostile : texts) {
        QString text = hostile.text;
        int pos = text.size();
        const QValidator::State verdict = validator.validate(text, pos);
        QVERIFY2(hostile.isWithinRange || verdict != QValidator::Acceptable, hostile.name);
        QCOMPARE(text.size(), hostile.text.size());
    }
}

QTEST_GUILESS_MAIN(tst_HostileInput)

#include "tst_HostileInput.moc"
