// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/IntValidator.h"
#include "shared/input/TextValidator.h"
#include "shared/input/Validator.h"
#include "tests/input/CurrentLocale.h"
#include "tests/input/Declared.h"
#include "tests/input/Verdict.h"
#include "tests/support/LogRecorder.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <new>
#include <type_traits>

using namespace Test;
using Tavro::Shared::TextValidator;
using Tavro::Shared::Validator;
using ValidatorType = TextValidator::ValidatorType;

// any number may come from QML
static_assert(std::is_same_v<std::underlying_type_t<ValidatorType>, int>);

namespace {

bool passes(const TextValidator &validator, QString text)
{
    return validator.validate(text, false);
}

bool passesFinally(const TextValidator &validator, QString text)
{
    return validator.validate(text, true);
}

QVariantMap option(const char *name, const QVariant &value)
{
    return {{QLatin1String(name), value}};
}

/** Writes down the signals in their order. */
class SignalLog
{
public:
    explicit SignalLog(const TextValidator &validator)
    {
        QObject::connect(&validator, &TextValidator::hintChanged, &validator, [this, &validator] {
            m_signals.append(QStringLiteral("hint \"%1\"").arg(validator.hint()));
        });
        QObject::connect(&validator, &TextValidator::hasHintChanged, &validator,
                         [this, &validator] {
                             m_signals.append(validator.hasHint() ? QStringLiteral("has one")
                                                                  : QStringLiteral("has none"));
                         });
    }

    QStringList take() { return std::exchange(m_signals, {}); }

private:
    QStringList m_signals;
};

} // namespace

class tst_TextValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutRulesEveryTextPasses();
    void typeDecidesWhichRuleIsMade_data();
    void typeDecidesWhichRuleIsMade();
    void patternAndMaskDiffer();
    void rulesAreJudgedTogether();
    void hintsAreJoinedInTheOrderOfTheRules();
    void nothingButTheLastLineFeedIsRemoved();
    void unknownTypePassesEveryTextAndKeepsTheHint();
    void unknownTypeAloneHasAnEmptyHint();
    void everyRuleIsAnnouncedTwice();
    void composingAnewChangesNothing();
    void composingWithoutRulesAnnouncesAnEmptyHint();
    void maskComesThroughTheOptions();
    void optionsAreConverted();
    void unknownOptionsHaveNoEffect();
    void noOptionsChangeNothing();
    void optionsAreSetInTheOrderOfTheirNames();
    void intermediateIsUpToTheCaller();
    void firstRefusalEndsTheRound();
    void everyRuleGetsItsOwnCopy();
    void typesAreACopy();
    void rulesDieWithTheirOwner();
    void aSlotMayDeleteIt_data();
    void aSlotMayDeleteIt();
    void metaObjectHasItsOrder();
};

void tst_TextValidator::withoutRulesEveryTextPasses()
{
    const TextValidator validator;
    QCOMPARE(validator.hint(), QString());
    QVERIFY(!validator.hasHint());
    QVERIFY(validator.validatorTypes().isEmpty());
    for (const QString &text : {QString(), QStringLiteral("anything")}) {
        QVERIFY(passes(validator, text));
        QVERIFY(passesFinally(validator, text));
    }
}

void tst_TextValidator::typeDecidesWhichRuleIsMade_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("rule");

    QTest::newRow("double") << 0 << QByteArray("DoubleValidator");
    QTest::newRow("int") << 1 << QByteArray("IntValidator");
    QTest::newRow("pattern") << 2 << QByteArray("RegExpValidator");
    QTest::newRow("mask") << 3 << QByteArray("RegExpValidator");
    QTest::newRow("date") << 4 << QByteArray("DateTimeValidator");
    QTest::newRow("length") << 5 << QByteArray("StringLengthValidator");
    QTest::newRow("not empty") << 6 << QByteArray("NotEmptyValidator");
    QTest::newRow("7") << 7 << QByteArray("DefaultValidator");
    QTest::newRow("-1") << -1 << QByteArray("DefaultValidator");
    QTest::newRow("highest") << 2147483647 << QByteArray("DefaultValidator");
    QTest::newRow("lowest") << -2147483647 - 1 << QByteArray("DefaultValidator");
}

void tst_TextValidator::typeDecidesWhichRuleIsMade()
{
    QFETCH(int, type);
    QFETCH(QByteArray, rule);

    TextValidator validator;
    const QScopedPointer<Validator> made(
        validator.createNewValidator(static_cast<ValidatorType>(type)));
    QCOMPARE(made->metaObject()->className(), QByteArray("Tavro::Shared::") + rule);
    QCOMPARE(made->parent(), nullptr);
    QVERIFY(!validator.hasHint()); // it was made, and not added
}

void tst_TextValidator::patternAndMaskDiffer()
{
    const QVariantMap pattern = option("pattern", QStringLiteral("0"));
    TextValidator asPattern;
    asPattern.addValidator(TextValidator::ValidatorRegExp, pattern);
    QVERIFY(passes(asPattern, QStringLiteral("0")));
    QVERIFY(!passes(asPattern, QStringLiteral("7")));
    TextValidator asMask;
    asMask.addValidator(TextValidator::ValidatorNumericalMask, pattern);
    QVERIFY(passes(asMask, QStringLiteral("7")));
}

void tst_TextValidator::rulesAreJudgedTogether()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorInt,
                           {{QStringLiteral("bottom"), 1}, {QStringLiteral("top"), 9}});
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal 1\n"
                            "Maximum value smaller or equal 9"));
    QVERIFY(validator.hasHint());
    QVERIFY(passes(validator, QStringLiteral("5")));
    QVERIFY(passesFinally(validator, QStringLiteral("5")));
    QVERIFY(passes(validator, QString()));
    QVERIFY(!passesFinally(validator, QString()));
    QVERIFY(!passes(validator, QStringLiteral("10")));

    validator.addValidator(TextValidator::ValidatorLength, option("top", 2));
    QVERIFY(passes(validator, QStringLiteral("05")));
    QVERIFY(!passes(validator, QStringLiteral("005")));
    QVERIFY(!passes(validator, QStringLiteral("10")));
}

void tst_TextValidator::hintsAreJoinedInTheOrderOfTheRules()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorNotEmpty);
    QCOMPARE(validator.hint(), QStringLiteral("Expression can not be empty"));
    validator.addValidator(TextValidator::ValidatorLength, option("top", 3));
    QCOMPARE(validator.hint(),
             QStringLiteral("Expression can not be empty\n"
                            "Maximum length smaller or equal 3"));
    const QVector<ValidatorType> types = {TextValidator::ValidatorNotEmpty,
                                          TextValidator::ValidatorLength};
    QCOMPARE(validator.validatorTypes(), types);
}

void tst_TextValidator::nothingButTheLastLineFeedIsRemoved()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorDateTimeMask); // without a format
    QCOMPARE(validator.hint(), QStringLiteral("Date have to match format: "));
    validator.addValidator(TextValidator::ValidatorRegExp,
                           option("pattern", QStringLiteral("a\n\n")));
    QCOMPARE(validator.hint(),
             QStringLiteral("Date have to match format: \n"
                            "Expression have to match pattern: a\n\n"));
}

void tst_TextValidator::unknownTypePassesEveryTextAndKeepsTheHint()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorLength, option("top", 3));
    const QString hint = validator.hint();
    validator.addValidator(static_cast<ValidatorType>(7));
    QCOMPARE(validator.hint(), hint);
    QVERIFY(passes(validator, QStringLiteral("abc")));
    QVERIFY(!passes(validator, QStringLiteral("abcd"))); // still by the other rule
    QCOMPARE(static_cast<int>(validator.validatorTypes().constLast()), 7);
}

void tst_TextValidator::unknownTypeAloneHasAnEmptyHint()
{
    TextValidator validator;
    validator.addValidator(static_cast<ValidatorType>(-1));
    QVERIFY(validator.hasHint());
    QCOMPARE(validator.hint(), QString());
    QVERIFY(passes(validator, QStringLiteral("anything")));
    QVERIFY(passesFinally(validator, QString()));
}

void tst_TextValidator::everyRuleIsAnnouncedTwice()
{
    TextValidator validator;
    SignalLog log(validator);
    validator.addValidator(TextValidator::ValidatorNotEmpty);
    const QStringList first = {QStringLiteral("hint \"Expression can not be empty\""),
                               QStringLiteral("has one")};
    QCOMPARE(log.take(), first);
    // also where nothing changes
    validator.addValidator(static_cast<ValidatorType>(99));
    QCOMPARE(log.take(), first);
    validator.updateHint();
    QCOMPARE(log.take(), first);
}

void tst_TextValidator::composingAnewChangesNothing()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorLength, option("top", 3));
    validator.addValidator(TextValidator::ValidatorNotEmpty);
    const QString hint = validator.hint();
    validator.updateHint();
    validator.updateHint();
    QCOMPARE(validator.hint(), hint); // not one character less each time
}

void tst_TextValidator::composingWithoutRulesAnnouncesAnEmptyHint()
{
    TextValidator validator;
    SignalLog log(validator);
    validator.updateHint(); // no last line feed to remove
    QCOMPARE(validator.hint(), QString());
    const QStringList announced = {QStringLiteral("hint \"\""), QStringLiteral("has none")};
    QCOMPARE(log.take(), announced);
}

void tst_TextValidator::maskComesThroughTheOptions()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorNumericalMask,
                           option("pattern", QStringLiteral("00.0")));
    QVERIFY(passes(validator, QStringLiteral("12.5")));
    QVERIFY(!passes(validator, QStringLiteral("12,5")));
    QVERIFY(!passes(validator, QStringLiteral("1.5")));
    QCOMPARE(validator.hint(), QStringLiteral("Expression have to match pattern: 00.0"));
}

void tst_TextValidator::optionsAreConverted()
{
    TextValidator validator;
    validator.addValidator(
        TextValidator::ValidatorInt,
        {{QStringLiteral("bottom"), QStringLiteral("5")}, {QStringLiteral("top"), 7.0}});
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal 5\n"
                            "Maximum value smaller or equal 7"));
    validator.addValidator(TextValidator::ValidatorDouble, option("step", QStringLiteral("0.5")));
    QVERIFY(validator.hint().endsWith(QStringLiteral("\nValue quantized with step size 0.5")));
    validator.addValidator(TextValidator::ValidatorDateTimeMask,
                           option("format", QStringLiteral("hh:mm")));
    QVERIFY(validator.hint().endsWith(QStringLiteral("\nDate have to match format: hh:mm")));
}

void tst_TextValidator::unknownOptionsHaveNoEffect()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorInt,
                           {{QStringLiteral("Bottom"), 5},
                            {QStringLiteral("pattern"), QStringLiteral("a")},
                            {QString(), 1},
                            {QString::fromUtf8("größe"), 1},
                            {QStringLiteral("top"), QStringLiteral("no number")}});
    QCOMPARE(validator.hint(), QString());
    QVERIFY(passes(validator, QStringLiteral("4")));
    QVERIFY(!passes(validator, QStringLiteral("a")));

    using Tavro::Shared::IntValidator;
    IntValidator rule;
    TextValidator::setOptionsForValidator(&rule, option("largest", 5));
    QCOMPARE(rule.property("largest"), QVariant(5)); // a dynamic property, which nobody reads
    QCOMPARE(rule.top(), 2147483647);
}

void tst_TextValidator::noOptionsChangeNothing()
{
    using Tavro::Shared::IntValidator;
    IntValidator rule;
    rule.setTop(3);
    TextValidator::setOptionsForValidator(&rule, {});
    QCOMPARE(rule.top(), 3);
    QVERIFY(rule.dynamicPropertyNames().isEmpty());
}

void tst_TextValidator::optionsAreSetInTheOrderOfTheirNames()
{
    using Tavro::Shared::IntValidator;
    IntValidator rule;
    TextValidator::setOptionsForValidator(
        &rule, {{QStringLiteral("b"), 1}, {QStringLiteral("a"), 2}, {QStringLiteral("B"), 3}});
    const QList<QByteArray> names = {"B", "a", "b"};
    QCOMPARE(rule.dynamicPropertyNames(), names);
}

void tst_TextValidator::intermediateIsUpToTheCaller()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorDouble);
    validator.addValidator(TextValidator::ValidatorLength, option("top", 3));
    QVERIFY(passes(validator, QString()));
    QVERIFY(!passesFinally(validator, QString()));
    // the rules behind an unfinished one are asked, too
    validator.addValidator(TextValidator::ValidatorNotEmpty);
    QVERIFY(!passes(validator, QString()));
}

void tst_TextValidator::firstRefusalEndsTheRound()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorInt);
    validator.addValidator(TextValidator::ValidatorLength, option("top", 3));
    LogRecorder log;
    QVERIFY(!passes(validator, QStringLiteral("abcd")));
    QCOMPARE(log.entries(), QStringList{refusal("IntValidator", QStringLiteral("abcd"))});
    log.clear();
    QVERIFY(!passes(validator, QStringLiteral("1234")));
    QCOMPARE(log.entries(), QStringList{refusal("StringLengthValidator", QStringLiteral("1234"))});
    log.clear();
    // an unfinished text ends it, too, when it is rejected
    validator.addValidator(TextValidator::ValidatorDateTimeMask);
    QVERIFY(!passesFinally(validator, QString()));
    QCOMPARE(log.entries(), QStringList());
}

void tst_TextValidator::everyRuleGetsItsOwnCopy()
{
    const CurrentLocale locale(QLocale(QLocale::German, QLocale::Germany));
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorDouble); // rewrites the separators
    validator.addValidator(TextValidator::ValidatorRegExp,
                           option("pattern", QStringLiteral("1\\.5")));
    QString text = QStringLiteral("1.5");
    QVERIFY(validator.validate(text, true));
    QCOMPARE(text, QStringLiteral("1.5"));
    QVERIFY(!passes(validator, QStringLiteral("1,5")));
}

void tst_TextValidator::typesAreACopy()
{
    TextValidator validator;
    validator.addValidator(TextValidator::ValidatorInt);
    QVector<ValidatorType> types = validator.validatorTypes();
    types.clear();
    QCOMPARE(validator.validatorTypes().size(), 1);
}

void tst_TextValidator::rulesDieWithTheirOwner()
{
    // the address sanitizer tells of a rule that does not
    QObject parent;
    auto *validator = new TextValidator(&parent);
    for (int type = -1; type <= 7; ++type) {
        validator->addValidator(static_cast<ValidatorType>(type));
    }
    QCOMPARE(validator->parent(), &parent);
    QCOMPARE(validator->children(), QObjectList());
}

void tst_TextValidator::aSlotMayDeleteIt_data()
{
    QTest::addColumn<bool>("atTheFirstSignal");

    QTest::newRow("at the first signal") << true;
    QTest::newRow("at the second signal") << false;
}

void tst_TextValidator::aSlotMayDeleteIt()
{
    QFETCH(bool, atTheFirstSignal);
    alignas(TextValidator) std::array<char, sizeof(TextValidator)> memory;
    auto *validator = new (memory.data()) TextValidator;
    const QPointer<TextValidator> alive = validator;
    const QSignalSpy secondSignals(validator, &TextValidator::hasHintChanged);
    const auto end = [validator, &memory] {
        validator->~TextValidator();
        memory.fill('\xdd'); // nothing that somebody could go on using
    };
    if (atTheFirstSignal) {
        connect(validator, &TextValidator::hintChanged, validator, end);
    } else {
        connect(validator, &TextValidator::hasHintChanged, validator, end);
    }
    validator->addValidator(TextValidator::ValidatorNotEmpty, {});
    QVERIFY(alive.isNull());
    QCOMPARE(secondSignals.count(), atTheFirstSignal ? 0 : 1);
}

void tst_TextValidator::metaObjectHasItsOrder()
{
    const QMetaObject &meta = TextValidator::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::TextValidator");
    QCOMPARE(meta.superClass()->className(), "QObject");
    const QStringList methods = {
        QStringLiteral("signal void hintChanged()"),
        QStringLiteral("signal void hasHintChanged()"),
        QStringLiteral("invokable void addValidator(ValidatorType type, QVariantMap options)"),
        QStringLiteral("invokable void addValidator(ValidatorType type)"),
    };
    QCOMPARE(declaredMethods(meta), methods);
    const QStringList properties = {
        QStringLiteral("QString hint read notify hintChanged()"),
        QStringLiteral("bool hasHint read notify hasHintChanged()"),
    };
    QCOMPARE(declaredProperties(meta), properties);
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 1);
    const QStringList keys = {
        QStringLiteral("ValidatorDouble 0"),       QStringLiteral("ValidatorInt 1"),
        QStringLiteral("ValidatorRegExp 2"),       QStringLiteral("ValidatorNumericalMask 3"),
        QStringLiteral("ValidatorDateTimeMask 4"), QStringLiteral("ValidatorLength 5"),
        QStringLiteral("ValidatorNotEmpty 6"),
    };
    QCOMPARE(declaredKeys(meta, "ValidatorType"), keys);
}

QTEST_GUILESS_MAIN(tst_TextValidator)

#include "tst_TextValidator.moc"
