#include "shared/input/RegExpValidator.h"

#include "shared/input/detail/RefusedText.h"

namespace Tavro::Shared {

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
    m_regExp.setPattern(m_parsedPattern);
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
    if (m_regExp.exactMatch(input)) {
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
