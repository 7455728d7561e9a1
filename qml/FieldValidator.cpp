// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/FieldValidator.h"

namespace Tavro::Qml {

using Shared::TextValidator;

FieldValidator::FieldValidator(QObject *parent)
    : QValidator(parent)
{
}

FieldValidator::~FieldValidator() = default;

void FieldValidator::setRules(TextValidator *rules)
{
    if (rules == m_rules) {
        return;
    }
    if (m_rules) {
        m_rules->disconnect(this);
    }
    m_rules = rules;
    if (m_rules) {
        connect(m_rules, &TextValidator::hintChanged, this, &QValidator::changed);
    }
    Q_EMIT rulesChanged();
    Q_EMIT changed();
}

void FieldValidator::setBlocking(bool blocking)
{
    if (blocking == m_isBlocking) {
        return;
    }
    m_isBlocking = blocking;
    Q_EMIT blockingChanged();
    Q_EMIT changed();
}

QValidator::State FieldValidator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (!m_rules || m_rules->validate(input, true)) {
        return Acceptable;
    }
    if (!m_isBlocking || m_rules->validate(input, false)) {
        return Intermediate;
    }
    return Invalid;
}

} // namespace Tavro::Qml
