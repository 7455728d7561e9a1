// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/DateTimeValidator.h"

#include "shared/input/detail/RefusedText.h"

#include <QDateTime>

namespace Tavro::Shared {

class Q_DECL_HIDDEN DateTimeValidator::Private
{
public:
    QString format;
};

DateTimeValidator::DateTimeValidator()
    : d(std::make_unique<Private>())
{
}

DateTimeValidator::~DateTimeValidator() = default;

QString DateTimeValidator::format() const
{
    return d->format;
}

void DateTimeValidator::setFormat(const QString &format)
{
    d->format = format;
    m_hintOutdated = true;
}

QValidator::State DateTimeValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (QDateTime::fromString(input, d->format).isValid()) {
        return QValidator::Acceptable;
    }
    detail::logRefusedText(QStringLiteral("DateTimeValidator"), input);
    return QValidator::Invalid;
}

void DateTimeValidator::updateHint()
{
    m_hint = tr("Date have to match format: %1\n").arg(d->format);
}

} // namespace Tavro::Shared
