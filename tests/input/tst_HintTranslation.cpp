// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/DateTimeValidator.h"
#include "shared/input/DoubleValidator.h"
#include "shared/input/IntValidator.h"
#include "shared/input/NotEmptyValidator.h"
#include "shared/input/RegExpValidator.h"
#include "shared/input/StringLengthValidator.h"
#include "shared/input/TextValidator.h"
#include "tests/input/CurrentLocale.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

using namespace Test;
using namespace Tavro::Shared;

namespace {

/** Has the library speak German for as long as the object lives. */
class German
{
    Q_DISABLE_COPY(German)

public:
    German()
        : m_isLoaded(m_translator.load(QStringLiteral(OVO_GERMAN))
                     && QCoreApplication::installTranslator(&m_translator))
    {
    }
    ~German() { QCoreApplication::removeTranslator(&m_translator); }

    bool isLoaded() const { return m_isLoaded; }

private:
    QTranslator m_translator;
    const bool m_isLoaded;
};

} // namespace

class tst_HintTranslation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRuleIsTranslated();
    void decimalsFollowTheLocale();
    void anUnknownTextStaysEnglish();
    void hintOfARuleFollowsTheLanguage();
    void combinedHintKeepsTheLanguageOfItsRules();
};

void tst_HintTranslation::everyRuleIsTranslated()
{
    const German german;
    QVERIFY(german.isLoaded());
    const CurrentLocale locale(QLocale::c());

    IntValidator whole;
    whole.setRange(-5, 1900);
    whole.setStep(5);
    QCOMPARE(whole.hint(), QStringLiteral("Mindestens -5\nHöchstens 1900\nIn Schritten von 5\n"));

    DoubleValidator decimal;
    decimal.setRange(-0.5, 2.5);
    decimal.setStep(0.25);
    QCOMPARE(decimal.hint(),
             QStringLiteral("Mindestens -0.5\nHöchstens 2.5\nIn Schritten von 0.25\n"));

    StringLengthValidator length;
    length.setRange(2, 3);
    QCOMPARE(length.hint(), QStringLiteral("Mindestens 2 Zeichen\nHöchstens 3 Zeichen\n"));

    DateTimeValidator date;
    date.setFormat(QStringLiteral("dd.MM.yyyy"));
    QCOMPARE(date.hint(), QStringLiteral("Datum im Format dd.MM.yyyy\n"));

    RegExpValidator pattern(false);
    pattern.setPattern(QStringLiteral("[A-Z]%1"));
    QCOMPARE(pattern.hint(), QStringLiteral("Eingabe nach dem Muster [A-Z]%1\n"));

    QCOMPARE(NotEmptyValidator().hint(), QStringLiteral("Eingabe erforderlich\n"));
}

void tst_HintTranslation::decimalsFollowTheLocale()
{
    const German german;
    QVERIFY(german.isLoaded());
    const CurrentLocale locale(QLocale(QStringLiteral("de_DE")));
    DoubleValidator decimal;
    decimal.setBottom(0.5);
    QCOMPARE(decimal.hint(), QStringLiteral("Mindestens 0,5\n"));
    IntValidator year; // is no quantity: nothing stands between its thousands
    year.setBottom(1900);
    QCOMPARE(year.hint(), QStringLiteral("Mindestens 1900\n"));
}

// a catalog of another library is installed, as every host has one
void tst_HintTranslation::anUnknownTextStaysEnglish()
{
    class Other : public QTranslator
    {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char *context, const char *, const char *, int) const override
        {
            return qstrcmp(context, "Other") == 0 ? QStringLiteral("anderes") : QString();
        }
    } other;
    QVERIFY(QCoreApplication::installTranslator(&other));
    DoubleValidator decimal;
    decimal.setBottom(0.5);
    QCOMPARE(decimal.hint(), QStringLiteral("Minimum value larger or equal 0.5\n"));
    QCoreApplication::removeTranslator(&other);
}

void tst_HintTranslation::hintOfARuleFollowsTheLanguage()
{
    NotEmptyValidator rule;
    QCOMPARE(rule.hint(), QStringLiteral("Expression can not be empty\n"));
    {
        const German german;
        QVERIFY(german.isLoaded());
        QCOMPARE(rule.hint(), QStringLiteral("Eingabe erforderlich\n"));
    }
    QCOMPARE(rule.hint(), QStringLiteral("Expression can not be empty\n"));
}

// the hints are those that the rules had when they were added
void tst_HintTranslation::combinedHintKeepsTheLanguageOfItsRules()
{
    TextValidator rules;
    rules.addValidator(TextValidator::ValidatorNotEmpty);
    const QSignalSpy hintChanges(&rules, &TextValidator::hintChanged);
    const German german;
    QVERIFY(german.isLoaded());
    QCoreApplication::sendPostedEvents(); // the change of the language
    QCOMPARE(rules.hint(), QStringLiteral("Expression can not be empty"));
    QCOMPARE(hintChanges.count(), 0);

    rules.addValidator(TextValidator::ValidatorLength, {{QStringLiteral("top"), 3}});
    QCOMPARE(rules.hint(), QStringLiteral("Expression can not be empty\nHöchstens 3 Zeichen"));

    TextValidator anew;
    anew.addValidator(TextValidator::ValidatorNotEmpty);
    QCOMPARE(anew.hint(), QStringLiteral("Eingabe erforderlich"));
}

QTEST_GUILESS_MAIN(tst_HintTranslation)

#include "tst_HintTranslation.moc"
