// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/forms/FormField.h"

#include "fieldhost/forms/ColumnInputType.h"
#include "fieldhost/forms/FieldRules.h"
#include "host/CColumnDefinition.h"
#include "shared/input/TextValidator.h"
#include "shared/locale/CLocaleSupport.h"

#include <utility>

namespace Tavro::FieldHost {

using Shared::CInputType;
using Shared::TextValidator;

FormField::FormField(const Templates::CColumnDefinition &column, const ColumnForm &form,
                     QObject *parent)
    : QObject(parent)
    , m_column(column)
    , m_form(form)
    , m_isMandatoryByForm(form.isMandatory)
{
    describeAgain();
}

FormField::~FormField() = default;

QString FormField::key() const
{
    return m_column.key();
}

QString FormField::caption() const
{
    return m_form.caption.isEmpty() ? key() : m_form.caption;
}

QString FormField::hint() const
{
    // a decimal without a minimum has the least of all numbers for one, which tells nobody anything
    const bool isUnbounded =
        m_type->inputType() == CInputType::InputTypeDecimal && !m_type->minimumValue().isValid();
    return isUnbounded ? m_rules->hint().section(QLatin1Char('\n'), 1) : m_rules->hint();
}

void FormField::setText(const QString &text)
{
    if (text == m_text) {
        return;
    }
    m_text = text;
    m_isTouched = true;
    m_choice = m_type->itemList().size() - 1;
    while (m_choice >= 0 && m_type->textFromListIndex(m_choice) != text) {
        --m_choice;
    }
    m_isFinished = false;
    Q_EMIT textChanged();
    judge();
}

void FormField::setChoice(int choice)
{
    if (choice != m_choice) {
        m_choice = choice;
        m_text = m_type->textFromListIndex(choice);
        Q_EMIT textChanged();
    }
    finish();
}

QString FormField::value() const
{
    return m_choice < 0 ? m_text : m_type->valueFromListIndex(m_choice).toString();
}

QString FormField::verdictText() const
{
    switch (m_verdict) {
    case Valid:
        return m_text.isEmpty() ? QString() : tr("Correct.");
    case Intermediate:
        return m_isTouched ? tr("Not complete.") : QString();
    case Invalid:
        break;
    }
    if (m_text.isEmpty()) {
        return tr("Must be filled in.");
    }
    return m_isFinished ? tr("Not correct.") : tr("Not correct yet.");
}

void FormField::finish()
{
    m_isFinished = true;
    judge();
}

void FormField::remember()
{
    m_recent.remove(m_recent.stringList().indexOf(m_text));
    if (!m_text.isEmpty()) {
        m_recent.push_front(m_text);
    }
}

void FormField::setMandatory(bool mandatory)
{
    if (mandatory != m_form.isMandatory) {
        m_form.isMandatory = mandatory;
        describeAgain();
    }
}

void FormField::describeAgain()
{
    ColumnForm form = m_form;
    if (form.dataType == QLatin1String("BOL") && form.codeList.isEmpty()) {
        form.codeList = {{QStringLiteral("1"), tr("Yes"), {}}, {QStringLiteral("0"), tr("No"), {}}};
    }
    if (form.dataType == QLatin1String("DAT") && form.displayFormat.isEmpty()) {
        form.displayFormat = Shared::CLocaleSupport::getDateFormat();
    }
    // the old ones live until everybody has heard of the new ones
    auto type = std::make_unique<ColumnInputType>(m_column, form);
    auto rules = std::make_unique<TextValidator>();
    addFieldRules(*rules, *type);
    const std::unique_ptr<CInputType> oldType = std::exchange(m_type, std::move(type));
    m_rules = std::move(rules);
    if (m_choice >= 0) {
        m_text = m_type->textFromListIndex(m_choice);
    }
    Q_EMIT typeChanged();
    Q_EMIT textChanged();
    judge();
}

void FormField::judge()
{
    m_verdict = judged();
    Q_EMIT verdictChanged(); // its sentence also depends on the text, and on whether it is finished
}

FormField::Verdict FormField::judged() const
{
    if (m_text.isEmpty()) {
        if (!m_form.isMandatory) {
            return Valid;
        }
        return m_isFinished ? Invalid : Intermediate;
    }
    if (m_type->hasList() && !m_type->editableList()) {
        return m_choice < 0 ? Invalid : Valid;
    }
    QString text = m_text;
    return m_rules->validate(text, true) ? Valid : Invalid;
}

} // namespace Tavro::FieldHost
