// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/RegExpValidator.h"

#include "shared/input/detail/RefusedText.h"

#include <QRegExp>

namespace Tavro::Shared {

namespace {

// QRegExp recurses for each nested group, and some ten thousand levels overflow the stack;
// patterns that people write have a handful
constexpr int s_deepestGroup = 1000;

/**
 * The deepest nesting of groups in a pattern, counted as QRegExp reads it: to the end, even after a
 * mistake.
 */
class GroupDepth
{
public:
    explicit GroupDepth(const QString &pattern)
        : m_pattern(pattern)
    {
        while (m_at < m_pattern.size()) {
            readToken();
        }
    }

    int deepest() const { return m_deepest; }

private:
    bool isNext(char sign) const
    {
        return m_at < m_pattern.size() && m_pattern.at(m_at) == QLatin1Char(sign);
    }

    void readToken()
    {
        if (isNext('(')) {
            // "(?" also consumes the next character, whatever it is
            ++m_at;
            m_at += isNext('?') ? 2 : 0;
            m_deepest = qMax(m_deepest, ++m_depth);
        } else if (isNext(')')) {
            ++m_at;
            m_depth = qMax(m_depth - 1, 0);
        } else if (isNext('[')) {
            readClass();
        } else if (isNext('{')) {
            readRepetition();
        } else {
            readLetter();
        }
    }

    void readLetter()
    {
        m_at += isNext('\\') ? 2 : 1; // a backslash makes the next character literal
    }

    // the first character of a class belongs to it, even if it is "]"
    void readClass()
    {
        ++m_at;
        m_at += isNext('^') ? 1 : 0;
        do {
            readLetter();
        } while (m_at < m_pattern.size() && !isNext(']'));
        ++m_at;
    }

    // it also consumes the character after its numbers, which should be "}"
    void readRepetition()
    {
        ++m_at;
        readDigits();
        if (isNext(',')) {
            ++m_at;
            readDigits();
        }
        ++m_at;
    }

    void readDigits()
    {
        while (m_at < m_pattern.size() && m_pattern.at(m_at) >= QLatin1Char('0')
               && m_pattern.at(m_at) <= QLatin1Char('9')) {
            ++m_at;
        }
    }

    const QString &m_pattern;
    int m_at = 0;
    int m_depth = 0;
    int m_deepest = 0;
};

} // namespace

class Q_DECL_HIDDEN RegExpValidator::Private
{
public:
    explicit Private(bool isMask)
        : numericalMask(isMask)
    {
    }

    void parsePattern()
    {
        if (!numericalMask) {
            parsedPattern = pattern;
            return;
        }
        int digits = 0;
        const auto closeRun = [this, &digits] {
            if (digits > 0) {
                parsedPattern += QStringLiteral("[0-9]{%1}").arg(digits);
                digits = 0;
            }
        };
        parsedPattern = QLatin1Char('^');
        const QByteArray mask = pattern.toLatin1();
        for (const char sign : mask) {
            if (sign == '0') {
                ++digits;
                continue;
            }
            closeRun();
            if (sign == '.') {
                parsedPattern += QLatin1Char('\\');
            }
            // any other character keeps its meaning in a pattern
            parsedPattern += QLatin1Char(sign);
        }
        closeRun();
        parsedPattern += QLatin1Char('$');
    }

    QString pattern;
    QString parsedPattern;
    QRegExp regExp;
    bool isTooDeep = false; // for the engine, which then is not asked
    const bool numericalMask;
};

RegExpValidator::RegExpValidator(bool numericalMask)
    : d(std::make_unique<Private>(numericalMask))
{
}

RegExpValidator::~RegExpValidator() = default;

QString RegExpValidator::pattern() const
{
    return d->regExp.pattern();
}

void RegExpValidator::setPattern(const QString &pattern)
{
    d->pattern = pattern;
    d->parsePattern();
    d->regExp.setPattern(d->parsedPattern); // compiles nothing before the first match
    d->isTooDeep = GroupDepth(d->parsedPattern).deepest() > s_deepestGroup;
    m_hintOutdated = true;
}

QValidator::State RegExpValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (!d->isTooDeep && d->regExp.exactMatch(input)) {
        return QValidator::Acceptable;
    }
    detail::logRefusedText(QStringLiteral("RegExpValidator"), input);
    return QValidator::Invalid;
}

void RegExpValidator::updateHint()
{
    m_hint = tr("Expression have to match pattern: %1\n").arg(d->pattern);
}

} // namespace Tavro::Shared
