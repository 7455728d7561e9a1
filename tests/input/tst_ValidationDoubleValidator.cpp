// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/ValidationDoubleValidator.h"
#include "tests/input/CurrentLocale.h"

#include <QTest>

using namespace Test;
using Tavro::Shared::Validation::DoubleValidator;

Q_DECLARE_METATYPE(QValidator::State)

namespace {

QLocale german()
{
    return QLocale(QLocale::German, QLocale::Germany);
}

/** A host's own, which takes a letter for the decimal point as well. */
class LetterValidator : public DoubleValidator
{
public:
    using DoubleValidator::DoubleValidator;

    void fixup(QString &input) const override
    {
        input.replace(QLatin1Char('p'), QLatin1Char('.'));
        DoubleValidator::fixup(input);
    }
};

} // namespace

class tst_ValidationDoubleValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsRewrittenAndJudged_data();
    void textIsRewrittenAndJudged();
    void fixupRewritesEverySeparator_data();
    void fixupRewritesEverySeparator();
    void fixupOfASubclassIsHonoured();
    void constructorsForward();
    void localeIsThatOfTheConstruction();
    void hasNoMetaObjectOfItsOwn();
};

void tst_ValidationDoubleValidator::textIsRewrittenAndJudged_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rewritten");
    QTest::addColumn<QValidator::State>("verdict");

    const QLocale c = QLocale::c();
    const auto row = [](const char *name, const QLocale &locale, const char *text,
                        const char *rewritten, QValidator::State verdict) {
        QTest::newRow(name) << locale << QString::fromLatin1(text) << QString::fromLatin1(rewritten)
                            << verdict;
    };
    row("point in de", german(), "1.5", "1,5", QValidator::Acceptable);
    row("comma in de", german(), "1,5", "1,5", QValidator::Acceptable);
    row("point in c", c, "1.5", "1.5", QValidator::Acceptable);
    row("comma in c", c, "1,5", "1.5", QValidator::Acceptable);
    row("empty", c, "", "", QValidator::Intermediate);
    row("too many decimals", c, "1,555", "1.555", QValidator::Invalid);
    row("negative, though the range is not", c, "-1", "-1", QValidator::Invalid);
    row("letter", c, "a", "a", QValidator::Invalid);
    row("zero", c, "0", "0", QValidator::Acceptable);
    row("top itself", c, "10", "10", QValidator::Acceptable);
}

void tst_ValidationDoubleValidator::textIsRewrittenAndJudged()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, text);

    const CurrentLocale current(locale);
    const DoubleValidator validator(0.0, 10.0, 2, nullptr);
    int pos = 0;
    QTEST(validator.validate(text, pos), "verdict");
    QTEST(text, "rewritten");
}

void tst_ValidationDoubleValidator::fixupRewritesEverySeparator_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("rewritten");
    QTest::newRow("de") << german() << QStringLiteral("1,234,5,");
    QTest::newRow("c") << QLocale::c() << QStringLiteral("1.234.5.");
}

void tst_ValidationDoubleValidator::fixupRewritesEverySeparator()
{
    QFETCH(QLocale, locale);

    const CurrentLocale current(locale);
    QString text = QStringLiteral("1.234,5,");
    DoubleValidator().fixup(text);
    QTEST(text, "rewritten");
}

void tst_ValidationDoubleValidator::fixupOfASubclassIsHonoured()
{
    const CurrentLocale current(german());
    const LetterValidator validator(0.0, 10.0, 2, nullptr);
    QString text = QStringLiteral("1p5");
    int pos = 0;
    QCOMPARE(validator.validate(text, pos), QValidator::Acceptable);
    QCOMPARE(text, QStringLiteral("1,5"));
}

void tst_ValidationDoubleValidator::constructorsForward()
{
    QObject parent;
    const auto *plain = new DoubleValidator(&parent);
    const QDoubleValidator toolkit;
    QCOMPARE(plain->parent(), &parent);
    QVERIFY(plain->bottom() == toolkit.bottom());
    QVERIFY(plain->top() == toolkit.top());
    QCOMPARE(plain->decimals(), toolkit.decimals());

    const auto *ranged = new DoubleValidator(-1.5, 2.5, 3, &parent);
    QCOMPARE(ranged->parent(), &parent);
    QVERIFY(ranged->bottom() == -1.5);
    QVERIFY(ranged->top() == 2.5);
    QCOMPARE(ranged->decimals(), 3);
    QCOMPARE(ranged->notation(), toolkit.notation());
}

void tst_ValidationDoubleValidator::localeIsThatOfTheConstruction()
{
    const CurrentLocale before(QLocale::c());
    DoubleValidator validator(0.0, 10.0, 2, nullptr);
    const CurrentLocale current(german());
    QString text = QStringLiteral("1.5");
    int pos = 0;
    QVERIFY(validator.validate(text, pos) != QValidator::Acceptable); // "," parts groups there
    QCOMPARE(text, QStringLiteral("1,5"));
    validator.setLocale(QLocale());
    QCOMPARE(validator.validate(text, pos), QValidator::Acceptable);
}

void tst_ValidationDoubleValidator::hasNoMetaObjectOfItsOwn()
{
    QCOMPARE(DoubleValidator().metaObject(), &QDoubleValidator::staticMetaObject);
}

QTEST_GUILESS_MAIN(tst_ValidationDoubleValidator)

#include "tst_ValidationDoubleValidator.moc"
