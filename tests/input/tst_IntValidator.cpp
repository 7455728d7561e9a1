// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/IntValidator.h"
#include "tests/input/Declared.h"
#include "tests/input/Verdict.h"
#include "tests/input/VirtualSlot.h"
#include "tests/support/LogRecorder.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace Test;
using Tavro::Shared::IntValidator;

namespace {

constexpr int s_lowest = std::numeric_limits<int>::min();
constexpr int s_highest = std::numeric_limits<int>::max();

} // namespace

class tst_IntValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingIsAllowedAtFirst();
    void textIsReadAsANumber_data();
    void textIsReadAsANumber();
    void boundsAndStepsDecide_data();
    void boundsAndStepsDecide();
    void boundsCountBeforeTheyAreSet();
    void textIsLeftAsItIs();
    void onlyTextsWithoutANumberAreLogged_data();
    void onlyTextsWithoutANumberAreLogged();
    void hintNamesWhatWasSet();
    void hintFollowsTheNextCall();
    void hintNamesTheLimitsOfTheTypeOnceTheyAreSet();
    void rangeSetsBothBounds();
    void settersStaySilent();
    void optionsAreSetByName();
    void metaObjectHasItsOrder();
    void virtualFunctionsStandInTheirOrder();
};

void tst_IntValidator::everythingIsAllowedAtFirst()
{
    const IntValidator validator;
    QCOMPARE(validator.bottom(), s_lowest);
    QCOMPARE(validator.top(), s_highest);
    QCOMPARE(validator.step(), 0);
    for (const int number : {s_lowest, -1, 0, 1, s_highest}) {
        QCOMPARE(verdictOf(validator, QString::number(number)), QValidator::Acceptable);
    }
}

void tst_IntValidator::textIsReadAsANumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("verdict");

    QTest::newRow("null") << QString() << QValidator::Intermediate;
    QTest::newRow("empty") << QString(QLatin1String("")) << QValidator::Intermediate;
    QTest::newRow("digits") << QStringLiteral("42") << QValidator::Acceptable;
    QTest::newRow("percent") << QStringLiteral("42%") << QValidator::Acceptable;
    QTest::newRow("percent twice") << QStringLiteral("42%%") << QValidator::Invalid;
    QTest::newRow("percent alone") << QStringLiteral("%") << QValidator::Invalid;
    QTest::newRow("percent in front") << QStringLiteral("%42") << QValidator::Invalid;
    QTest::newRow("blank before percent") << QStringLiteral("42 %") << QValidator::Acceptable;
    QTest::newRow("percent of another script")
        << QStringLiteral("42") + QChar(0x066A) << QValidator::Invalid;
    QTest::newRow("plus") << QStringLiteral("+42") << QValidator::Acceptable;
    QTest::newRow("minus") << QStringLiteral("-42") << QValidator::Acceptable;
    QTest::newRow("sign alone") << QStringLiteral("-") << QValidator::Invalid;
    QTest::newRow("leading blank") << QStringLiteral(" 42") << QValidator::Acceptable;
    QTest::newRow("trailing blank") << QStringLiteral("42 ") << QValidator::Acceptable;
    QTest::newRow("blank alone") << QStringLiteral(" ") << QValidator::Invalid;
    QTest::newRow("leading zeros are not octal") << QStringLiteral("009") << QValidator::Acceptable;
    QTest::newRow("hexadecimal") << QStringLiteral("0x10") << QValidator::Invalid;
    QTest::newRow("decimals") << QStringLiteral("1.0") << QValidator::Invalid;
    QTest::newRow("group separator") << QStringLiteral("1,000") << QValidator::Invalid;
    QTest::newRow("exponent") << QStringLiteral("1e2") << QValidator::Invalid;
    QTest::newRow("letters") << QStringLiteral("five") << QValidator::Invalid;
    QTest::newRow("highest") << QStringLiteral("2147483647") << QValidator::Acceptable;
    QTest::newRow("above the highest") << QStringLiteral("2147483648") << QValidator::Invalid;
    QTest::newRow("lowest") << QStringLiteral("-2147483648") << QValidator::Acceptable;
    QTest::newRow("below the lowest") << QStringLiteral("-2147483649") << QValidator::Invalid;
    QTest::newRow("of 400 digits") << QString(400, QLatin1Char('9')) << QValidator::Invalid;
}

void tst_IntValidator::textIsReadAsANumber()
{
    QFETCH(QString, text);
    QTEST(verdictOf(IntValidator(), text), "verdict");
}

void tst_IntValidator::boundsAndStepsDecide_data()
{
    QTest::addColumn<int>("bottom");
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("isAcceptable");

    QTest::newRow("bottom itself") << 0 << 10 << 5 << 0 << true;
    QTest::newRow("on the grid") << 0 << 10 << 5 << 5 << true;
    QTest::newRow("top itself") << 0 << 10 << 5 << 10 << true;
    QTest::newRow("off the grid") << 0 << 10 << 5 << 3 << false;
    QTest::newRow("above") << 0 << 10 << 5 << 11 << false;
    QTest::newRow("below, though on the grid") << 0 << 10 << 5 << -5 << false;
    QTest::newRow("above, though on the grid") << 0 << 10 << 5 << 15 << false;

    QTest::newRow("grid starts at the bottom") << 1 << 10 << 5 << 6 << true;
    QTest::newRow("and not at 0") << 1 << 10 << 5 << 5 << false;
    QTest::newRow("negative bottom") << -7 << 10 << 5 << -2 << true;
    QTest::newRow("negative step") << 0 << 10 << -5 << 5 << true;
    QTest::newRow("negative step, off the grid") << 0 << 10 << -5 << 3 << false;
    QTest::newRow("step beyond the top") << 0 << 10 << 50 << 0 << true;
    QTest::newRow("step beyond the top, off the grid") << 0 << 10 << 50 << 5 << false;

    QTest::newRow("no step, bottom itself") << 1 << 3 << 0 << 1 << true;
    QTest::newRow("no step, top itself") << 1 << 3 << 0 << 3 << true;
    QTest::newRow("no step, below") << 1 << 3 << 0 << 0 << false;
    QTest::newRow("no step, above") << 1 << 3 << 0 << 4 << false;
    QTest::newRow("bounds crossed") << 3 << 1 << 0 << 2 << false;

    // counted from -2147483648, with differences that wrap around at 32 bits
    QTest::newRow("default bottom, 0") << s_lowest << s_highest << 5 << 0 << false;
    QTest::newRow("default bottom, 3") << s_lowest << s_highest << 5 << 3 << true;
    QTest::newRow("default bottom, 8") << s_lowest << s_highest << 5 << 8 << true;
    QTest::newRow("default bottom, 2") << s_lowest << s_highest << 5 << 2 << false;
    QTest::newRow("default bottom, -2147483643")
        << s_lowest << s_highest << 5 << -2147483643 << true;
    QTest::newRow("unwrapped difference on the grid")
        << -2000000000 << s_highest << 7 << 2000000004 << false;
    QTest::newRow("wrapped difference on the grid")
        << -2000000000 << s_highest << 7 << 2000000001 << true;

    // the quotient of the lowest number and -1 does not fit
    QTest::newRow("lowest difference, step -1") << s_lowest << s_highest << -1 << 0 << true;
    QTest::newRow("lowest difference, step 1") << s_lowest << s_highest << 1 << 0 << true;
    QTest::newRow("lowest step") << s_lowest << s_highest << s_lowest << 0 << true;
    QTest::newRow("lowest step, off the grid") << s_lowest << s_highest << s_lowest << 1 << false;
}

void tst_IntValidator::boundsAndStepsDecide()
{
    QFETCH(int, bottom);
    QFETCH(int, top);
    QFETCH(int, step);
    QFETCH(int, number);

    LogRecorder log;
    IntValidator validator;
    validator.setBottom(bottom);
    validator.setTop(top);
    validator.setStep(step);
    const QValidator::State verdict = verdictOf(validator, QString::number(number));
    QVERIFY(verdict != QValidator::Intermediate);
    QTEST(verdict == QValidator::Acceptable, "isAcceptable");
    QCOMPARE(log.entries(), QStringList());
}

void tst_IntValidator::boundsCountBeforeTheyAreSet()
{
    IntValidator validator;
    validator.setStep(5);
    QCOMPARE(verdictOf(validator, QStringLiteral("0")), QValidator::Invalid);
    QCOMPARE(verdictOf(validator, QStringLiteral("3")), QValidator::Acceptable);
    QCOMPARE(verdictOf(validator, QStringLiteral("8")), QValidator::Acceptable);
    // and setting them to what they are changes no verdict
    validator.setRange(s_lowest, s_highest);
    QCOMPARE(verdictOf(validator, QStringLiteral("0")), QValidator::Invalid);
    QCOMPARE(verdictOf(validator, QStringLiteral("3")), QValidator::Acceptable);
}

void tst_IntValidator::textIsLeftAsItIs()
{
    const IntValidator validator;
    QString text = QStringLiteral(" 42%");
    int pos = 2;
    QCOMPARE(validator.validate(text, pos), QValidator::Acceptable);
    QCOMPARE(text, QStringLiteral(" 42%"));
    QCOMPARE(pos, 2);
}

void tst_IntValidator::onlyTextsWithoutANumberAreLogged_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isLogged");

    QTest::newRow("empty") << QString() << false;
    QTest::newRow("acceptable") << QStringLiteral("5") << false;
    QTest::newRow("out of range") << QStringLiteral("11") << false;
    QTest::newRow("off the grid") << QStringLiteral("3") << false;
    QTest::newRow("no number") << QStringLiteral("five") << true;
    QTest::newRow("percent alone, whole") << QStringLiteral("%") << true;
    QTest::newRow("no number with percent, whole") << QStringLiteral("a%") << true;
    QTest::newRow("more than 32 bits") << QStringLiteral("2147483648") << true;
}

void tst_IntValidator::onlyTextsWithoutANumberAreLogged()
{
    QFETCH(QString, text);
    QFETCH(bool, isLogged);

    LogRecorder log;
    IntValidator validator;
    validator.setRange(0, 10);
    validator.setStep(5);
    verdictOf(validator, text);
    QCOMPARE(log.entries(), isLogged ? QStringList{refusal("IntValidator", text)} : QStringList());
}

void tst_IntValidator::hintNamesWhatWasSet()
{
    IntValidator validator;
    QCOMPARE(validator.hint(), QString());
    validator.setTop(5);
    QCOMPARE(validator.hint(), QStringLiteral("Maximum value smaller or equal 5\n"));
    validator.setStep(-3);
    QCOMPARE(validator.hint(),
             QStringLiteral("Maximum value smaller or equal 5\n"
                            "Value quantized with step size -3\n"));
    validator.setBottom(-2000);
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal -2000\n"
                            "Maximum value smaller or equal 5\n"
                            "Value quantized with step size -3\n"));
    validator.setStep(0);
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal -2000\n"
                            "Maximum value smaller or equal 5\n"));
}

void tst_IntValidator::hintFollowsTheNextCall()
{
    IntValidator validator;
    validator.setBottom(1);
    const QString before = validator.hint();
    validator.setBottom(2);
    QCOMPARE(before, QStringLiteral("Minimum value larger or equal 1\n"));
    QCOMPARE(validator.hint(), QStringLiteral("Minimum value larger or equal 2\n"));
}

void tst_IntValidator::hintNamesTheLimitsOfTheTypeOnceTheyAreSet()
{
    IntValidator validator;
    validator.setRange(validator.bottom(), validator.top());
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal -2147483648\n"
                            "Maximum value smaller or equal 2147483647\n"));
}

void tst_IntValidator::rangeSetsBothBounds()
{
    IntValidator validator;
    validator.setRange(-1, 1);
    QCOMPARE(validator.bottom(), -1);
    QCOMPARE(validator.top(), 1);
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal -1\n"
                            "Maximum value smaller or equal 1\n"));
}

void tst_IntValidator::settersStaySilent()
{
    IntValidator validator;
    const QSignalSpy bottomChanged(&validator, &IntValidator::bottomChanged);
    const QSignalSpy topChanged(&validator, &IntValidator::topChanged);
    const QSignalSpy stepChanged(&validator, &IntValidator::stepChanged);
    validator.setBottom(1);
    validator.setTop(9);
    validator.setStep(2);
    validator.setRange(0, 8);
    QVERIFY(validator.setProperty("bottom", 3));
    QVERIFY(validator.setProperty("top", 3));
    QVERIFY(validator.setProperty("step", 3));
    QCOMPARE(bottomChanged.count(), 0);
    QCOMPARE(topChanged.count(), 0);
    QCOMPARE(stepChanged.count(), 0);

    // the spies hear
    Q_EMIT validator.bottomChanged(1);
    Q_EMIT validator.topChanged(2);
    Q_EMIT validator.stepChanged(3);
    QCOMPARE(bottomChanged.value(0), QVariantList{1});
    QCOMPARE(topChanged.value(0), QVariantList{2});
    QCOMPARE(stepChanged.value(0), QVariantList{3});
}

void tst_IntValidator::optionsAreSetByName()
{
    IntValidator validator;
    QVERIFY(validator.setProperty("bottom", QStringLiteral("5")));
    QVERIFY(validator.setProperty("top", 7.0));
    QVERIFY(validator.setProperty("step", 2));
    QCOMPARE(validator.property("bottom"), QVariant(5));
    QCOMPARE(validator.property("top"), QVariant(7));
    QCOMPARE(validator.property("step"), QVariant(2));
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal 5\n"
                            "Maximum value smaller or equal 7\n"
                            "Value quantized with step size 2\n"));
}

void tst_IntValidator::metaObjectHasItsOrder()
{
    const QMetaObject &meta = IntValidator::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::IntValidator");
    QCOMPARE(meta.superClass(), &Tavro::Shared::Validator::staticMetaObject);
    const QStringList methods = {
        QStringLiteral("signal void bottomChanged(int bottom)"),
        QStringLiteral("signal void topChanged(int top)"),
        QStringLiteral("signal void stepChanged(int step)"),
    };
    QCOMPARE(declaredMethods(meta), methods);
    const QStringList properties = {
        QStringLiteral("int bottom read write notify bottomChanged(int)"),
        QStringLiteral("int top read write notify topChanged(int)"),
        QStringLiteral("int step read write notify stepChanged(int)"),
    };
    QCOMPARE(declaredProperties(meta), properties);
}

void tst_IntValidator::virtualFunctionsStandInTheirOrder()
{
    QCOMPARE(virtualSlot(&IntValidator::validate), 1);
    QCOMPARE(virtualSlot(&IntValidator::updateHint), 2);
    QCOMPARE(virtualSlot(&IntValidator::setRange), 3);
}

QTEST_APPLESS_MAIN(tst_IntValidator)

#include "tst_IntValidator.moc"
