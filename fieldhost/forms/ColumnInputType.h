// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/forms/ColumnForm.h"
#include "shared/input/CInputType.h"

namespace Tavro::Templates {
class CColumnDefinition;
}

namespace Tavro::FieldHost {

/**
 * Describes one column of a catalog for a form: key and unit as the catalog has them, the rest from
 * the form. Both are copied.
 *
 * Entries of the list are objects with "text" and "value". Outside of the list a text is empty, a
 * value invalid and an index -1.
 */
class ColumnInputType : public Shared::CInputType
{
    Q_OBJECT

public:
    ColumnInputType(const Templates::CColumnDefinition &column, const ColumnForm &form,
                    QObject *parent = nullptr);
    ~ColumnInputType() override;

    /** Replaces the list, as when another project is opened; emits itemListChanged(). */
    void setCodeList(const QList<Shared::CodeListItem> &codeList);

    QString caption() const override { return m_form.caption; }
    QString boundColumn() const override { return m_key; }
    QString unit() const override { return m_unit; }
    QString displayFormat() const override { return m_form.displayFormat; }
    bool mandatory() const override { return m_form.isMandatory; }
    bool hasList() const override { return !m_form.codeList.isEmpty(); }
    bool editableList() const override { return hasList() && m_form.isListEditable; }
    InputType inputType() const override;
    int maximumTextLength() const override { return m_form.maximumTextLength; }
    int controlType() const override;
    QVariant minimumValue() const override { return m_form.minimumValue; }
    QVariant maximumValue() const override { return m_form.maximumValue; }
    QVariantList itemList() const override;
    QString textFromListIndex(int index) const override;
    QVariant valueFromListIndex(int index) const override;
    /** Values are compared as texts: 3 is the entry of code "3". */
    int listIndexFromValue(const QVariant &value) const override;

private:
    QString m_key;
    QString m_unit;
    ColumnForm m_form;
};

} // namespace Tavro::FieldHost
