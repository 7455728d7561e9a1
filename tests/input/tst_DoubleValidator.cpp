// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/DoubleValidator.h"
#include "shared/input/TextValidator.h"
#include "tests/input/CurrentLocale.h"
#include "tests/input/Declared.h"
#include "tests/input/Verdict.h"
#include "tests/input/VirtualSlot.h"
#include "tests/support/LogRecorder.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace Test;
using Tavro::Shared::DoubleValidator;
using Tavro::Shared::TextValidator;

namespace {

constexpr double s_smallest = 2.2250738585072014e-308;
constexpr double s_largest = 1.7976931348623157e+308;
constexpr double s_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double s_infinity = std::numeric_limits<double>::infinity();

QLocale german()
{
    return QLocale(QLocale::German, QLocale::Germany);
}

} // namespace

class tst_DoubleValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bottomIsTheSmallestPositiveNumberAtFirst();
    void textIsReadAsANumber_data();
    void textIsReadAsANumber();
    void boundsAndStepsDecide_data();
    void boundsAndStepsDecide();
    void roundingTakesNumbersOffTheGrid_data();
    void roundingTakesNumbersOffTheGrid();
    void aPatternAsksForDecimalsInstead();
    void separatorsBecomeThoseOfTheCurrentLocale_data();
    void separatorsBecomeThoseOfTheCurrentLocale();
    void numberIsReadByTheDefaultLocale();
    void gridOfTheDefaultBottom();
    void onlyTextsWithoutANumberAreLogged_data();
    void onlyTextsWithoutANumberAreLogged();
    void logShowsTheTextAsRewritten();
    void hintNamesWhatWasSet();
    void hintHasSixDigitsInEveryLocale_data();
    void hintHasSixDigitsInEveryLocale();
    void rangeSetsBothBounds();
    void settersStaySilent();
    void optionsAreSetByName();
    void metaObjectHasItsOrder();
    void virtualFunctionsStandInTheirOrder();
};

void tst_DoubleValidator::bottomIsTheSmallestPositiveNumberAtFirst()
{
    const DoubleValidator validator;
    QVERIFY(validator.bottom() == s_smallest);
    QVERIFY(validator.top() == s_largest);
    QVERIFY(validator.step() == 0.0);
    QCOMPARE(verdictOf(validator, QStringLiteral("0")), QValidator::Invalid);
    QCOMPARE(verdictOf(validator, QStringLiteral("-1")), QValidator::Invalid);
    QCOMPARE(verdictOf(validator, QStringLiteral("0.5")), QValidator::Acceptable);
    QCOMPARE(verdictOf(validator, QStringLiteral("2.2250738585072014e-308")),
             QValidator::Acceptable);
    QCOMPARE(verdictOf(validator, QStringLiteral("1e-309")), QValidator::Invalid);
    QCOMPARE(verdictOf(validator, QStringLiteral("1.7976931348623157e+308")),
             QValidator::Acceptable);
}

void tst_DoubleValidator::textIsReadAsANumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("verdict");

    QTest::newRow("null") << QString() << QValidator::Intermediate;
    QTest::newRow("empty") << QString(QLatin1String("")) << QValidator::Intermediate;
    QTest::newRow("point") << QStringLiteral("1.5") << QValidator::Acceptable;
    QTest::newRow("comma") << QStringLiteral("1,5") << QValidator::Acceptable;
    QTest::newRow("both") << QStringLiteral("1,000.5") << QValidator::Invalid;
    QTest::newRow("whole") << QStringLiteral("15") << QValidator::Acceptable;
    QTest::newRow("exponent") << QStringLiteral("1e-1") << QValidator::Acceptable;
    QTest::newRow("point alone") << QStringLiteral(".") << QValidator::Invalid;
    QTest::newRow("point in front") << QStringLiteral(".5") << QValidator::Acceptable;
    QTest::newRow("point behind") << QStringLiteral("5.") << QValidator::Acceptable;
    QTest::newRow("minus alone") << QStringLiteral("-") << QValidator::Invalid;
    QTest::newRow("percent is not stripped") << QStringLiteral("30%") << QValidator::Invalid;
    QTest::newRow("letters") << QStringLiteral("a") << QValidator::Invalid;
    QTest::newRow("nan") << QStringLiteral("nan") << QValidator::Invalid;
    QTest::newRow("inf") << QStringLiteral("inf") << QValidator::Invalid;
    QTest::newRow("-inf") << QStringLiteral("-inf") << QValidator::Invalid;
    QTest::newRow("beyond the largest") << QStringLiteral("1e400") << QValidator::Invalid;
    QTest::newRow("of 400 digits") << QString(400, QLatin1Char('9')) << QValidator::Invalid;
    QTest::newRow("of 400 decimals")
        << QStringLiteral("0.") + QString(400, QLatin1Char('9')) << QValidator::Acceptable;
}

void tst_DoubleValidator::textIsReadAsANumber()
{
    QFETCH(QString, text);
    const CurrentLocale locale(QLocale::c());
    QTEST(verdictOf(DoubleValidator(), text), "verdict");
}

void tst_DoubleValidator::boundsAndStepsDecide_data()
{
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("top");
    QTest::addColumn<double>("step");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isAcceptable");

    const auto row = [](const char *name, double bottom, double top, double step, const char *text,
                        bool isAcceptable) {
        QTest::newRow(name) << bottom << top << step << QString::fromLatin1(text) << isAcceptable;
    };
    row("bottom itself", 1.0, 2.0, 0.0, "1", true);
    row("top itself", 1.0, 2.0, 0.0, "2", true);
    row("below", 1.0, 2.0, 0.0, "0.999999", false);
    row("above", 1.0, 2.0, 0.0, "2.000001", false);
    row("zero, allowed", 0.0, 2.0, 0.0, "0", true);
    row("negative, allowed", -1.0, 2.0, 0.0, "-0.5", true);
    row("bounds crossed", 2.0, 1.0, 0.0, "1.5", false);

    row("on the grid but for rounding", 0.0, 1.0, 0.1, "0.3", true);
    row("off the grid", 0.0, 1.0, 0.1, "0.35", false);
    row("on the grid, above", 0.0, 1.0, 0.1, "1.1", false);
    row("grid starts at the bottom", 0.05, 1.0, 0.1, "0.15", true);
    row("and not at 0", 0.05, 1.0, 0.1, "0.2", false);
    row("negative step", 0.0, 1.0, -0.1, "0.3", true);
    row("negative step, off the grid", 0.0, 1.0, -0.1, "0.35", false);
    row("half a step", 0.0, 10.0, 1.0, "0.5", false);
    row("half a step below 0", -10.0, 10.0, 4.0, "-4", false);

    // distances from the grid count in steps, not in units
    row("small distance of a small step", 0.0, 1.0, 1e-6, "0.00000050000001", false);
    row("1e-11 units are 1e-11 steps", 0.0, 10.0, 1.0, "1.00000000001", false);
    row("1e-11 units are 1e-13 steps", 0.0, 1000.0, 100.0, "100.00000000001", true);
    row("1e-13 units are 1e-10 steps", 0.0, 1.0, 1e-3, "0.0010000000001", false);

    row("step within the tolerance is none", 0.0, 1.0, 1e-12, "0.35", true);
    row("negative step within the tolerance is none", 0.0, 1.0, -1e-12, "0.35", true);
    row("step just outside of it", 0.0, 1.0, 1.1e-12, "0.0000000000005", false);

    row("not a number", -s_infinity, s_infinity, 0.0, "nan", false);
    row("infinity within its bounds", -s_infinity, s_infinity, 0.0, "inf", true);
    row("infinity is on no grid", 0.0, s_infinity, 1.0, "inf", false);
    row("bottom is not a number", s_nan, 10.0, 0.0, "5", false);
    row("top is not a number", 0.0, s_nan, 0.0, "5", false);
    row("step is not a number: none", 0.0, 10.0, s_nan, "5.5", true);
    row("step is infinite, bottom itself", 0.0, 10.0, s_infinity, "0", true);
}

void tst_DoubleValidator::boundsAndStepsDecide()
{
    QFETCH(double, bottom);
    QFETCH(double, top);
    QFETCH(double, step);
    QFETCH(QString, text);

    const CurrentLocale locale(QLocale::c());
    LogRecorder log;
    DoubleValidator validator;
    validator.setBottom(bottom);
    validator.setTop(top);
    validator.setStep(step);
    const QValidator::State verdict = verdictOf(validator, text);
    QVERIFY(verdict != QValidator::Intermediate);
    QTEST(verdict == QValidator::Acceptable, "isAcceptable");
    QCOMPARE(log.entries(), QStringList());
}

void tst_DoubleValidator::roundingTakesNumbersOffTheGrid_data()
{
    QTest::addColumn<double>("step");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("steps"); // from 0 on
    QTest::addColumn<int>("refused");
    QTest::addColumn<QString>("first");

    QTest::newRow("0.01 up to 109.31") << 0.01 << 2 << 10'931 << 0 << QString();
    QTest::newRow("0.01 up to 200") << 0.01 << 2 << 20'000 << 1366 << QStringLiteral("109.32");
    QTest::newRow("0.1 up to 819.2") << 0.1 << 1 << 8192 << 0 << QString();
    QTest::newRow("0.1 up to 1000") << 0.1 << 1 << 10'000 << 362 << QStringLiteral("819.3");
    QTest::newRow("0.05 up to 1000") << 0.05 << 2 << 20'000 << 3591 << QStringLiteral("409.65");
    QTest::newRow("0.001 up to 10") << 0.001 << 3 << 10'000 << 171 << QStringLiteral("8.197");
    // powers of two, whose multiples are not rounded
    QTest::newRow("1 up to 100000") << 1.0 << 0 << 100'000 << 0 << QString();
    QTest::newRow("0.5 up to 50000") << 0.5 << 1 << 100'000 << 0 << QString();
    QTest::newRow("0.25 up to 25000") << 0.25 << 2 << 100'000 << 0 << QString();
    QTest::newRow("0.125 up to 12500") << 0.125 << 3 << 100'000 << 0 << QString();
}

// the tolerance is that of the rule; a form has to know what it does to its users
void tst_DoubleValidator::roundingTakesNumbersOffTheGrid()
{
    QFETCH(double, step);
    QFETCH(int, decimals);
    QFETCH(int, steps);
    const CurrentLocale locale(QLocale::c());
    DoubleValidator validator;
    validator.setBottom(0);
    validator.setStep(step);
    QStringList refused;
    for (int i = 0; i <= steps; ++i) {
        const QString text = QString::number(i * step, 'f', decimals);
        if (verdictOf(validator, text) != QValidator::Acceptable) {
            refused.append(text);
        }
    }
    QTEST(refused.value(0), "first");
    QTEST(refused.size(), "refused");
}

void tst_DoubleValidator::aPatternAsksForDecimalsInstead()
{
    const CurrentLocale locale(QLocale::c());
    TextValidator rules;
    rules.addValidator(TextValidator::ValidatorDouble,
                       {{QStringLiteral("bottom"), 0}, {QStringLiteral("top"), 200}});
    rules.addValidator(TextValidator::ValidatorRegExp,
                       {{QStringLiteral("pattern"), QStringLiteral("-?[0-9]+([.,][0-9]{1,2})?")}});
    for (int i = 0; i <= 20'000; ++i) {
        QString text = QString::number(i / 100.0, 'f', 2);
        QVERIFY2(rules.validate(text, true), qPrintable(text));
    }
    for (const char *refused : {"109.325", "200.01", "-0.01", "1e2", "109.", "nan", ""}) {
        QString text = QString::fromLatin1(refused);
        QVERIFY2(!rules.validate(text, true), refused);
    }
}

void tst_DoubleValidator::separatorsBecomeThoseOfTheCurrentLocale_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rewritten");
    QTest::addColumn<QValidator::State>("verdict");

    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const QString point = QStringLiteral("1.5");
    const QString comma = QStringLiteral("1,5");
    QTest::newRow("point in en") << english << point << point << QValidator::Acceptable;
    QTest::newRow("comma in en") << english << comma << point << QValidator::Acceptable;
    QTest::newRow("point in de") << german() << point << comma << QValidator::Acceptable;
    QTest::newRow("comma in de") << german() << comma << comma << QValidator::Acceptable;
    QTest::newRow("all of them in de") << german() << QStringLiteral("1.2,3.4")
                                       << QStringLiteral("1,2,3,4") << QValidator::Invalid;
    QTest::newRow("all of them in en")
        << english << QStringLiteral("1.2,3.4") << QStringLiteral("1.2.3.4") << QValidator::Invalid;
    QTest::newRow("decimal point of neither kind")
        << QLocale(QLocale::Arabic, QLocale::Egypt) << point
        << QStringLiteral("1") + QChar(0x066B) + QStringLiteral("5") << QValidator::Acceptable;
    QTest::newRow("digits of the locale")
        << QLocale(QLocale::Arabic, QLocale::Egypt) << QString::fromUtf8("١.٥")
        << QString::fromUtf8("١٫٥") << QValidator::Acceptable;
}

void tst_DoubleValidator::separatorsBecomeThoseOfTheCurrentLocale()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, text);

    const CurrentLocale current(locale);
    const DoubleValidator validator;
    int pos = 1;
    QTEST(validator.validate(text, pos), "verdict");
    QTEST(text, "rewritten");
    QCOMPARE(pos, 1);
}

void tst_DoubleValidator::numberIsReadByTheDefaultLocale()
{
    const CurrentLocale current(german());
    QLocale::setDefault(QLocale::c()); // they no longer agree
    const DoubleValidator validator;
    QString text = QStringLiteral("1.5");
    int pos = 0;
    QCOMPARE(validator.validate(text, pos), QValidator::Invalid);
    QCOMPARE(text, QStringLiteral("1,5"));
}

void tst_DoubleValidator::gridOfTheDefaultBottom()
{
    const CurrentLocale locale(QLocale::c());
    DoubleValidator validator;
    validator.setStep(0.5);
    QCOMPARE(verdictOf(validator, QStringLiteral("1.5")), QValidator::Acceptable);
    QCOMPARE(verdictOf(validator, QStringLiteral("1.6")), QValidator::Invalid);
    QCOMPARE(verdictOf(validator, QStringLiteral("0")), QValidator::Invalid);
}

void tst_DoubleValidator::onlyTextsWithoutANumberAreLogged_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isLogged");

    QTest::newRow("empty") << QString() << false;
    QTest::newRow("acceptable") << QStringLiteral("5") << false;
    QTest::newRow("out of range") << QStringLiteral("11") << false;
    QTest::newRow("off the grid") << QStringLiteral("3") << false;
    QTest::newRow("nan is a number") << QStringLiteral("nan") << false;
    QTest::newRow("inf is a number") << QStringLiteral("inf") << false;
    QTest::newRow("no number") << QStringLiteral("five") << true;
    QTest::newRow("percent") << QStringLiteral("5%") << true;
}

void tst_DoubleValidator::onlyTextsWithoutANumberAreLogged()
{
    QFETCH(QString, text);
    QFETCH(bool, isLogged);

    const CurrentLocale locale(QLocale::c());
    LogRecorder log;
    DoubleValidator validator;
    validator.setRange(0.0, 10.0);
    validator.setStep(5.0);
    verdictOf(validator, text);
    QCOMPARE(log.entries(),
             isLogged ? QStringList{refusal("DoubleValidator", text)} : QStringList());
}

void tst_DoubleValidator::logShowsTheTextAsRewritten()
{
    const CurrentLocale locale(german());
    LogRecorder log;
    verdictOf(DoubleValidator(), QStringLiteral("1.a"));
    QCOMPARE(log.entries(), QStringList{refusal("DoubleValidator", QStringLiteral("1,a"))});
}

void tst_DoubleValidator::hintNamesWhatWasSet()
{
    DoubleValidator validator;
    QCOMPARE(validator.hint(), QString());
    validator.setTop(5);
    QCOMPARE(validator.hint(), QStringLiteral("Maximum value smaller or equal 5\n"));
    validator.setStep(0.25);
    QCOMPARE(validator.hint(),
             QStringLiteral("Maximum value smaller or equal 5\n"
                            "Value quantized with step size 0.25\n"));
    validator.setBottom(-0.5);
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal -0.5\n"
                            "Maximum value smaller or equal 5\n"
                            "Value quantized with step size 0.25\n"));
    validator.setStep(0.0);
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal -0.5\n"
                            "Maximum value smaller or equal 5\n"));
    validator.setStep(1e-13); // too small to be checked, and told all the same
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal -0.5\n"
                            "Maximum value smaller or equal 5\n"
                            "Value quantized with step size 1e-13\n"));
}

void tst_DoubleValidator::hintHasSixDigitsInEveryLocale_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");

    QTest::newRow("a third") << 1.0 / 3.0 << QStringLiteral("0.333333");
    QTest::newRow("a million") << 1e6 << QStringLiteral("1e+06");
    QTest::newRow("below a million") << 123456.0 << QStringLiteral("123456");
    QTest::newRow("small") << 0.00001 << QStringLiteral("1e-05");
    QTest::newRow("decimals end") << 1234.5 << QStringLiteral("1234.5");
}

void tst_DoubleValidator::hintHasSixDigitsInEveryLocale()
{
    QFETCH(double, number);
    QFETCH(QString, text);

    const CurrentLocale locale(german());
    DoubleValidator validator;
    validator.setTop(number);
    QCOMPARE(validator.hint(),
             QStringLiteral("Maximum value smaller or equal ") + text + QLatin1Char('\n'));
}

void tst_DoubleValidator::rangeSetsBothBounds()
{
    DoubleValidator validator;
    validator.setRange(-1.5, 1.5);
    QVERIFY(validator.bottom() == -1.5);
    QVERIFY(validator.top() == 1.5);
    QCOMPARE(validator.hint(),
             QStringLiteral("Minimum value larger or equal -1.5\n"
                            "Maximum value smaller or equal 1.5\n"));
}

void tst_DoubleValidator::settersStaySilent()
{
    DoubleValidator validator;
    const QSignalSpy bottomChanged(&validator, &DoubleValidator::bottomChanged);
    const QSignalSpy topChanged(&validator, &DoubleValidator::topChanged);
    const QSignalSpy stepChanged(&validator, &DoubleValidator::stepChanged);
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
    Q_EMIT validator.bottomChanged(1.5);
    Q_EMIT validator.topChanged(2.5);
    Q_EMIT validator.stepChanged(3.5);
    QCOMPARE(bottomChanged.value(0), QVariantList{1.5});
    QCOMPARE(topChanged.value(0), QVariantList{2.5});
    QCOMPARE(stepChanged.value(0), QVariantList{3.5});
}

void tst_DoubleValidator::optionsAreSetByName()
{
    DoubleValidator validator;
    QVERIFY(validator.setProperty("bottom", QStringLiteral("0.5")));
    QVERIFY(validator.setProperty("top", 7));
    QVERIFY(validator.setProperty("step", 0.5));
    QCOMPARE(validator.property("bottom"), QVariant(0.5));
    QCOMPARE(validator.property("top"), QVariant(7.0));
    QCOMPARE(validator.property("step"), QVariant(0.5));
}

void tst_DoubleValidator::metaObjectHasItsOrder()
{
    const QMetaObject &meta = DoubleValidator::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::DoubleValidator");
    QCOMPARE(meta.superClass(), &Tavro::Shared::Validator::staticMetaObject);
    const QStringList methods = {
        QStringLiteral("signal void bottomChanged(double bottom)"),
        QStringLiteral("signal void topChanged(double top)"),
        QStringLiteral("signal void stepChanged(double step)"),
    };
    QCOMPARE(declaredMethods(meta), methods);
    const QStringList properties = {
        QStringLiteral("double bottom read write notify bottomChanged(double)"),
        QStringLiteral("double top read write notify topChanged(double)"),
        QStringLiteral("double step read write notify stepChanged(double)"),
    };
    QCOMPARE(declaredProperties(meta), properties);
}

void tst_DoubleValidator::virtualFunctionsStandInTheirOrder()
{
    QCOMPARE(virtualSlot(&DoubleValidator::validate), 1);
    QCOMPARE(virtualSlot(&DoubleValidator::updateHint), 2);
    QCOMPARE(virtualSlot(&DoubleValidator::setRange), 3);
}

QTEST_GUILESS_MAIN(tst_DoubleValidator)

#include "tst_DoubleValidator.moc"
