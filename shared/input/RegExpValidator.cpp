#include "shared/input/RegExpValidator.h"

#include "shared/input/detail/RefusedText.h"

namespace Tavro::Shared {

namespace {

// QRegExp calls itself for each group within a group, and some ten thousand of them end the
// process; patterns that people write have a handful
constexpr int s_deepestGroup = 1000;

bool isTooDeep(const QString &pattern)
{
    int depth = 0;
    for (int i = 0; i < pattern.size(); ++i) {
        const QChar sign = pattern.at(i);
        if (sign == QLatin1Char('\\')) {
            ++i; // whatever follows means itself
        } else if (sign == QLatin1Char('(')) {
            if (++depth > s_deepestGroup) {
                return true;
            }
        } else if (sign == QLatin1Char(')')) {
            --depth;
        }
    }
    return false;
}

} // namespace

RegExpValidator::RegExpValidator(bool numericalMask)
    : m_numericalMask(numericalMask)
{
}

RegExpValidator::~RegExpValidator() = default;

QString RegExpValidator::pattern() const
{
    return m_regExp.pattern();
}

void RegExpValidator::setPattern(const QString &pattern)
{
    m_pattern = pattern;
    parsePattern();
    m_regExp.setPattern(m_parsedPattern); // compiles nothing before the first match
    m_isTooDeep = isTooDeep(m_parsedPattern);
    m_hintOutdated = true;
}

void RegExpValidator::parsePattern()
{
    if (!m_numericalMask) {
        m_parsedPattern = m_pattern;
        return;
    }
    int digits = 0;
    const auto closeRun = [this, &digits] {
        if (digits > 0) {
            m_parsedPattern += QStringLiteral("[0-9]{%1}").arg(digits);
            digits = 0;
        }
    };
    m_parsedPattern = QLatin1Char('^');
    const QByteArray mask = m_pattern.toLatin1();
    for (const char sign : mask) {
        if (sign == '0') {
            ++digits;
            continue;
        }
        closeRun();
        if (sign == '.') {
            m_parsedPattern += QLatin1Char('\\');
        }
        // any other sign keeps the meaning that it has in a pattern
        m_parsedPattern += QLatin1Char(sign);
    }
    closeRun();
    m_parsedPattern += QLatin1Char('$');
}

QValidator::State RegExpValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (!m_isTooDeep && m_regExp.exactMatch(input)) {
        return QValidator::Acceptable;
    }
    detail::logRefusedText(QStringLiteral("RegExpValidator"), input);
    return QValidator::Invalid;
}

void RegExpValidator::updateHint()
{
    m_hint = QStringLiteral("Expression have to match pattern: %1\n").arg(m_pattern);
}

} // namespace Tavro::Shared
