#include "shared/input/DateTimeValidator.h"

#include "shared/input/detail/RefusedText.h"

#include <QDateTime>

namespace Tavro::Shared {

DateTimeValidator::DateTimeValidator() = default;

DateTimeValidator::~DateTimeValidator() = default;

QString DateTimeValidator::format() const
{
    return m_format;
}

void DateTimeValidator::setFormat(const QString &format)
{
    m_format = format;
    m_hintOutdated = true;
}

QValidator::State DateTimeValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (QDateTime::fromString(input, m_format).isValid()) {
        return QValidator::Acceptable;
    }
    detail::logRefusedText(QStringLiteral("DateTimeValidator"), input);
    return QValidator::Invalid;
}

void DateTimeValidator::updateHint()
{
    m_hint = QStringLiteral("Date have to match format: %1\n").arg(m_format);
}

} // namespace Tavro::Shared
