// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/forms/ColumnInputType.h"

#include "host/CColumnDefinition.h"
#include "shared/locale/DataConverter.h"

namespace Tavro::FieldHost {

using Shared::CInputType;
using Shared::CodeListItem;

namespace {

// what suits values of that type which are not chosen from a list
CInputType::BaseInputType controlFor(CInputType::InputType type)
{
    switch (type) {
    case CInputType::InputTypeText:
    case CInputType::InputTypeAutocomplete:
    case CInputType::InputTypeParticipant:
        return CInputType::TextBox;
    case CInputType::InputTypeInteger:
    case CInputType::InputTypeDecimal:
        return CInputType::NumericUpDn;
    case CInputType::InputTypeBoolean:
        return CInputType::CheckBox;
    case CInputType::InputTypeDate:
        return CInputType::DatePicker;
    case CInputType::InputTypeTime:
        return CInputType::TimePicker;
    case CInputType::InputTypeTextModal:
        return CInputType::MultiLineTextBox;
    case CInputType::InputTypeInvalid:
        break;
    }
    return CInputType::Unknown;
}

} // namespace

ColumnInputType::ColumnInputType(const Templates::CColumnDefinition &column, const ColumnForm &form,
                                 QObject *parent)
    : CInputType(parent)
    , m_key(column.key())
    , m_unit(column.unit())
    , m_form(form)
{
}

ColumnInputType::~ColumnInputType() = default;

void ColumnInputType::setCodeList(const QList<CodeListItem> &codeList)
{
    m_form.codeList = codeList;
    Q_EMIT itemListChanged();
}

CInputType::InputType ColumnInputType::inputType() const
{
    return Shared::DataConverter::stringToDataType(QStringRef(&m_form.dataType));
}

int ColumnInputType::controlType() const
{
    if (m_form.control != Unknown) {
        return m_form.control;
    }
    if (hasList()) {
        return editableList() ? ComboText : ComboBox;
    }
    return controlFor(inputType());
}

QVariantList ColumnInputType::itemList() const
{
    QVariantList items;
    for (const CodeListItem &item : m_form.codeList) {
        items += QVariantMap{{QStringLiteral("text"), item.text()},
                             {QStringLiteral("value"), item.code()}};
    }
    return items;
}

QString ColumnInputType::textFromListIndex(int index) const
{
    return m_form.codeList.value(index).text();
}

QVariant ColumnInputType::valueFromListIndex(int index) const
{
    const bool isThere = index >= 0 && index < m_form.codeList.size();
    return isThere ? QVariant(m_form.codeList.at(index).code()) : QVariant();
}

int ColumnInputType::listIndexFromValue(const QVariant &value) const
{
    const QString code = value.toString();
    for (int i = 0; value.isValid() && i < m_form.codeList.size(); ++i) {
        if (m_form.codeList.at(i).code() == code) {
            return i;
        }
    }
    return -1;
}

} // namespace Tavro::FieldHost
