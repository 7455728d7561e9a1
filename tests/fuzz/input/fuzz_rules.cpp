// Rules, their options and texts that nobody would think of, by libFuzzer. An input is a text:
//
//     1                the type of a rule, by its number
//     bottom=0         its options
//     step=-1
//                      an empty line
//     five             the text to judge
//
// Bytes that are not UTF-8 become halves of emojis, which no UTF-8 stands for.

#include "shared/input/TextValidator.h"
#include "shared/input/ValidationDoubleValidator.h"
#include "shared/input/Validator.h"

#include <QDateTime>
#include <QScopedPointer>
#include <QtDebug>

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
    if (pattern.count(QLatin1String("(?")) > 13) {
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
            result.options.insert(textFrom(part.left(equals)), textFrom(part.mid(equals + 1)));
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
    if (isTooMuchForTheEngine(tried.options.value(QStringLiteral("pattern")).toString())) {
        return -1; // not to be kept
    }
    judge(tried);

    const Tavro::Shared::Validation::DoubleValidator toolkits(-1e6, 1e6, 3, nullptr);
    QString text = tried.text;
    int pos = 0;
    toolkits.validate(text, pos);
    return 0;
}
