// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/CommandLine.h"

#include "fieldhost/cli/Command.h"
#include "fieldhost/cli/CommandText.h"
#include "fieldhost/cli/Console.h"
#include "fieldhost/cli/ExitCode.h"
#include "fieldhost/cli/NearestWord.h"
#include "fieldhost/jobs/Text.h"

namespace Tavro::FieldHost {

namespace {

// the parser's own, which are not translated where Qt's translations are not installed
[[maybe_unused]] const char *const s_parserTexts[] = {
    QT_TRANSLATE_NOOP("QCommandLineParser", "Unknown option '%1'."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Unknown options: %1."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Unexpected value after '%1'."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Missing value after '%1'."),
};

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool isNegativeNumber(const QString &text)
{
    return text.size() > 1 && text.startsWith(QLatin1Char('-'))
        && (text.at(1).isDigit() || text.at(1) == QLatin1Char('.')
            || text.at(1) == QLatin1Char(','));
}

} // namespace

CommandLine::CommandLine(const Command &command, Console &console)
    : m_command(command)
    , m_console(console)
{
    m_parser.addOption(
        QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help")}));
    const QStringList options = words(command.options);
    for (const QString &option : options) {
        const bool hasValue = option.endsWith(QLatin1Char('='));
        m_parser.addOption(
            hasValue ? QCommandLineOption(option.chopped(1), QString(), QStringLiteral("value"))
                     : QCommandLineOption(option));
    }
}

std::optional<int> CommandLine::parse(const QStringList &typed)
{
    QStringList line = typed;
    if (words(m_command.arguments).value(0) == QLatin1String("VALUE")
        && isNegativeNumber(line.value(0))) {
        line.prepend(QStringLiteral("--")); // or it would be taken for an option
    }
    line.prepend(QString::fromLatin1(m_command.name)); // in place of the program's
    if (!m_parser.parse(line)) {
        return refuse(m_parser.errorText());
    }
    if (isSet("help")) {
        m_console.print(CommandText::tr(m_command.help));
        return ExitDone;
    }
    const QString reason = objection();
    return reason.isEmpty() ? std::optional<int>() : refuse(reason);
}

// what is wrong with the arguments, as a sentence
QString CommandLine::objection() const
{
    const QStringList given = arguments();
    QStringList names = words(m_command.arguments);
    int needed = 0;
    bool isRepeated = false;
    for (QString &name : names) {
        if (name.endsWith(QLatin1String("..."))) {
            name.chop(3);
            isRepeated = true;
        }
        needed += name.startsWith(QLatin1Char('[')) ? 0 : 1;
    }
    if (given.size() < needed) {
        return CommandText::tr("A %1 is missing.").arg(names.at(given.size()));
    }
    if (given.size() > names.size() && !isRepeated) {
        return CommandText::tr("There is an argument too many: %1.")
            .arg(quoted(given.at(names.size())));
    }
    // a path never is; what else may be empty, its command knows
    const bool isPath = needed > 0 && names.first() != QLatin1String("TEXT")
        && names.first() != QLatin1String("VALUE");
    if (isPath && given.contains(QString())) {
        names.removeDuplicates();
        return CommandText::tr("A %1 is empty.").arg(names.join(CommandText::tr(" or ")));
    }
    return {};
}

int CommandLine::runAction(const std::vector<Action> &actions) const
{
    QStringList typed = arguments();
    const QString name =
        typed.isEmpty() ? QString::fromLatin1(actions.front().name) : typed.takeFirst();
    QStringList names;
    for (const Action &action : actions) {
        names.append(QLatin1String(action.name));
        if (name != names.constLast()) {
            continue;
        }
        const int most = action.argument ? 1 : 0;
        if (typed.size() > most) {
            return refuse(CommandText::tr("\"%1 %2\" takes no %3.")
                              .arg(QLatin1String(m_command.name), name, quoted(typed.at(most))));
        }
        if (action.argument && typed.value(0).isEmpty()) {
            return refuse(CommandText::tr("A %1 is missing.").arg(QLatin1String(action.argument)));
        }
        return action.run(*this, m_console, typed.value(0));
    }
    return refuse(CommandText::tr("\"%1\" knows no %2.%3")
                      .arg(QLatin1String(m_command.name), quoted(name), suggestion(name, names)));
}

int CommandLine::refuse(const QString &reason) const
{
    m_console.printError(reason);
    m_console.printError(
        CommandText::tr("Try: ovo-fieldhost %1 --help").arg(QLatin1String(m_command.name)));
    return ExitUsage;
}

} // namespace Tavro::FieldHost
