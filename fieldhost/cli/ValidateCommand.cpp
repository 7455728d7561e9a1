// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandLine.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/RuleText.h"
#include "fieldhost/jobs/Text.h"
#include "shared/input/TextValidator.h"
#include "shared/input/Validator.h"

#include <memory>
#include <vector>

namespace Tavro::FieldHost {

using Shared::TextValidator;
using Shared::Validator;

namespace {

const char s_helpText[] =
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      R"(Usage: ovo-fieldhost validate [options] --rule RULE... [--] TEXT...

Tells what a form would say of each TEXT: whether it passes all rules, and the verdict and the
hint of each rule.

  RULE  TYPE, or TYPE:OPTION=VALUE,OPTION=VALUE...

        double    a number             bottom, top, step
        int       a whole number       bottom, top, step
        regexp    a pattern            pattern
        mask      digits, each a 0     pattern
        datetime  a date or a time     format, such as dd.MM.yyyy
        length    a number of letters  bottom, top
        notempty  at least a letter

        A pattern or a format reaches to the end of the RULE, commas included.
  TEXT  Behind "--" it may begin with "-".

Numbers are those of the environment's locale.

Options:
  --rule RULE  Adds a rule. May be given several times.
  --final      The user is done: what may still become right by more typing does not pass.
  -h, --help   Shows this text.

Exit codes:
  0  every TEXT passes
  1  a TEXT does not pass
  2  the command line was not understood)");

/** One rule, for its own verdict. */
struct Rule
{
    QString text;
    std::unique_ptr<Validator> validator;
};

/** What a text field would have: all rules as one, and each for itself. */
struct Field
{
    TextValidator together;
    std::vector<Rule> each;
};

void addRule(Field &field, const RuleText &rule)
{
    field.together.addValidator(rule.type, rule.options);
    std::unique_ptr<Validator> validator(TextValidator::createNewValidator(rule.type));
    TextValidator::setOptionsForValidator(validator.get(), rule.options);
    field.each.push_back({rule.text, std::move(validator)});
}

QString nameOf(QValidator::State verdict)
{
    switch (verdict) {
    case QValidator::Invalid:
        return CommandText::tr("Invalid");
    case QValidator::Intermediate:
        return CommandText::tr("Intermediate");
    case QValidator::Acceptable:
        break;
    }
    return CommandText::tr("Acceptable");
}

// a pattern in a hint may hold anything
QString withoutQuotes(const QString &text)
{
    return text.mid(1, text.size() - 2);
}

void printVerdict(Console &console, const Rule &rule, const QString &text)
{
    QString rewritten = text;
    int pos = 0;
    QString line =
        QStringLiteral("  %1  %2").arg(nameOf(rule.validator->validate(rewritten, pos)), -12);
    line = line.arg(withoutQuotes(quoted(rule.text)));
    if (rewritten != text) {
        line += CommandText::tr(", read as %1").arg(quoted(rewritten));
    }
    console.print(line);
    const QStringList hint = rule.validator->hint().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &part : hint) {
        console.print(QStringLiteral("                ") + withoutQuotes(quoted(part)));
    }
}

int judge(Console &console, const Field &field, const QStringList &texts, bool isFinal)
{
    int result = ExitDone;
    for (const QString &text : texts) {
        QString copy = text;
        const bool passes = field.together.validate(copy, isFinal);
        console.print((passes ? CommandText::tr("%1 passes") : CommandText::tr("%1 does not pass"))
                          .arg(quoted(text)));
        for (const Rule &rule : field.each) {
            printVerdict(console, rule, text);
        }
        if (!passes) {
            result = ExitFailed;
        }
    }
    return result;
}

int runValidate(const CommandLine &line, Console &console)
{
    if (!line.isSet("rule")) {
        return line.refuse(CommandText::tr("A --rule is missing."));
    }
    Field field;
    const QStringList ruleTexts = line.values("rule");
    for (const QString &text : ruleTexts) {
        const RuleText rule = parseRule(text);
        if (!rule.error.isEmpty()) {
            return line.refuse(rule.error);
        }
        addRule(field, rule);
    }
    return judge(console, field, line.arguments(), line.isSet("final"));
}

} // namespace

const Command validateCommand = {
    "validate",
    QT_TRANSLATE_NOOP("Tavro::FieldHost::CommandText",
                      "Tells whether texts pass the rules of a form, and why not."),
    s_helpText,
    "rule= final",
    "TEXT...",
    runValidate,
};

} // namespace Tavro::FieldHost
