// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Rules, their options and texts that nobody would think of, by libFuzzer. An input is a text:
//
//     1                the type of a rule, by its number
//     bottom=0         its options
//     step=-1
//                      an empty line
//     five             the text to judge
//
// An option "pattern*500=(" appends to the pattern, and that often: what is deep is long, too.
// Bytes that are not UTF-8 become halves of emojis, which no UTF-8 stands for.

#include "shared/input/RegExpValidator.h"
#include "shared/input/TextValidator.h"
#include "shared/input/ValidationDoubleValidator.h"
#include "shared/input/Validator.h"

#include <QDateTime>
#include <QScopedPointer>
#include <QThread>
#include <QtDebug>

#include <memory>

using Tavro::Shared::RegExpValidator;
using Tavro::Shared::TextValidator;
using Tavro::Shared::Validator;

namespace {

void check(bool holds, const char *what)
{
    if (!holds) {
        qFatal("does not hold: %s", what);
    }
}

QString textFrom(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes);
    bool isHigh = false;
    for (QChar &c : text) {
        if (c == QChar(QChar::ReplacementCharacter)) {
            isHigh = !isHigh;
            c = isHigh ? QChar(0xD83D) : QChar(0xDE00);
        }
    }
    return text;
}

// QRegExp copies what is repeated, so a few letters can ask for all memory there is, and it loses
// each look-ahead after the 13th. Limits of the engine, which docs/input.md names, not faults of
// the rules.
bool isTooMuchForTheEngine(const QString &pattern)
{
    if (pattern.count(QLatin1String("(?=")) + pattern.count(QLatin1String("(?!")) > 13) {
        return true;
    }
    qint64 copies = pattern.size();
    int number = -1;
    for (int i = 0; i < pattern.size() && copies < 20'000; ++i) {
        const ushort c = pattern.at(i).unicode();
        if (c >= '0' && c <= '9') {
            number = qMin(qMax(number, 0) * 10 + c - '0', 2000);
        } else {
            copies *= number > 1 && (c == '}' || c == ',') ? number : 1;
            number = -1;
        }
    }
    return copies >= 20'000;
}

struct Case
{
    TextValidator::ValidatorType type = TextValidator::ValidatorInt;
    QVariantMap options;
    QString text;
};

constexpr int s_longestPattern = 8000; // longer ones take too much time

// true when the option is one of this program, not of the rule
bool isAppended(QVariantMap &options, const QByteArray &option, const QString &value)
{
    static const QByteArray prefix = "pattern*";
    if (!option.startsWith(prefix)) {
        return false;
    }
    const QString name = QStringLiteral("pattern");
    QString pattern = options.value(name).toString();
    const int times = qBound(0, option.mid(prefix.size()).toInt(), s_longestPattern);
    pattern += value.repeated(times);
    pattern.truncate(s_longestPattern);
    options.insert(name, pattern);
    return true;
}

Case caseFrom(const QByteArray &data)
{
    Case result;
    int line = 0;
    int begin = 0;
    while (begin < data.size()) {
        const int end = data.indexOf('\n', begin);
        const QByteArray part = data.mid(begin, end < 0 ? -1 : end - begin);
        begin = end < 0 ? data.size() : end + 1;
        if (line == 0) {
            result.type = static_cast<TextValidator::ValidatorType>(part.toInt());
        } else if (part.isEmpty()) {
            break;
        } else {
            const int equals = part.indexOf('=');
            const QString value = textFrom(part.mid(equals + 1));
            if (!isAppended(result.options, part.left(equals), value)) {
                result.options.insert(textFrom(part.left(equals)), value);
            }
        }
        ++line;
    }
    result.text = textFrom(data.mid(begin));
    return result;
}

// what a rule for whole numbers has to say, counted in 64 bits
void checkWholeNumber(const Validator &rule, const QString &text, QValidator::State verdict)
{
    QString number = text;
    if (number.endsWith(QLatin1Char('%'))) {
        number.chop(1);
    }
    bool isNumber = false;
    const qint64 value = number.toInt(&isNumber);
    if (text.isEmpty() || !isNumber) {
        check(verdict == (text.isEmpty() ? QValidator::Intermediate : QValidator::Invalid),
              "no number");
        return;
    }
    const qint64 bottom = rule.property("bottom").toInt();
    const qint64 top = rule.property("top").toInt();
    const qint64 step = rule.property("step").toInt();
    qint64 distance = value - bottom;
    if (distance > 2147483647) {
        distance -= 4294967296;
    } else if (distance < -2147483648LL) {
        distance += 4294967296;
    }
    const bool isOnGrid = step == 0 || distance % step == 0;
    check((verdict == QValidator::Acceptable) == (bottom <= value && value <= top && isOnGrid),
          "verdict on a whole number");
}

// A thread of little stack: a pattern that is too deep for the engine, and is not kept from it,
// ends the process here although it is only some thousand letters long.
void askWithLittleStack(const QString &pattern, bool isMask)
{
    constexpr int enough = 1024 * 1024; // bytes, for the thousand groups that are allowed
    const std::unique_ptr<QThread> thread(QThread::create([&pattern, isMask] {
        RegExpValidator rule(isMask);
        rule.setPattern(pattern);
        QString text = QStringLiteral("a");
        int pos = 0;
        rule.validate(text, pos);
    }));
    thread->setStackSize(enough);
    thread->start();
    thread->wait();
}

void judge(const Case &tried)
{
    TextValidator field;
    field.addValidator(tried.type, tried.options);
    check(field.hasHint(), "a field with a rule has a hint");

    QString text = tried.text;
    const bool passes = field.validate(text, false);
    const bool passesFinally = field.validate(text, true);
    check(text == tried.text, "the text is left as it is");
    check(passes || !passesFinally, "what passes for good passes while it is typed");

    const QScopedPointer<Validator> rule(TextValidator::createNewValidator(tried.type));
    TextValidator::setOptionsForValidator(rule.data(), tried.options);
    const QString hint = rule->hint();
    check(hint.isEmpty() || hint.endsWith(QLatin1Char('\n')), "a hint consists of lines");
    check(field.hint() == hint.left(qMax(hint.size() - 1, 0)), "the field has the rule's hint");
    int pos = -7;
    const QValidator::State verdict = rule->validate(text, pos);
    check(pos == -7, "the position is left alone");
    check(text.size() == tried.text.size(), "separators take the place of separators");
    check((verdict != QValidator::Invalid) == passes, "the field goes by the rule");
    check((verdict == QValidator::Acceptable) == passesFinally, "the field goes by the rule");
    if (tried.type == TextValidator::ValidatorInt) {
        checkWholeNumber(*rule, tried.text, verdict);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const Case tried =
        caseFrom(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    const QString pattern = tried.options.value(QStringLiteral("pattern")).toString();
    if (isTooMuchForTheEngine(pattern)) {
        return -1; // not to be kept
    }
    constexpr int deepest = 1000; // groups, which take a letter each
    if (pattern.size() > deepest) {
        askWithLittleStack(pattern, tried.type == TextValidator::ValidatorNumericalMask);
    }
    judge(tried);

    const Tavro::Shared::Validation::DoubleValidator toolkits(-1e6, 1e6, 3, nullptr);
    QString text = tried.text;
    int pos = 0;
    toolkits.validate(text, pos);
    return 0;
}
