// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/ListItem.h"

#include <QList>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * Everything that a form needs to show and check one field.
 *
 * A plain value. Setters store their argument unchanged: no trimming, no range check, no signal.
 * Each thread may use its own copy. Subclasses can be deleted through this class.
 */
class OVO_SHARED_EXPORT InputField
{
public:
    /** Kind of the field's data, numbered as CInputType::InputType. */
    enum DataType : int {
        DataTypeNone = 0, /**< not known */
        DataTypeText = 1, /**< a text */
        DataTypeInteger = 2, /**< a whole number */
        DataTypeDecimal = 3, /**< a number with decimals */
        DataTypeBoolean = 4, /**< yes or no */
        DataTypeDate = 5, /**< a date */
    };

    /** Creates an invisible field without texts, limits and list. */
    InputField();
    /** Copies all members of @p other, its control type included. */
    InputField(const InputField &other);
    /** Copies all members of @p other, its control type included. */
    InputField &operator=(const InputField &other);
    virtual ~InputField();

    /** Label of the field. */
    QString caption() const;
    /** Sets the label that the user sees. Default: empty. */
    void setCaption(const QString &caption);
    /** Key of the catalog column that the field edits. */
    QString boundColumn() const;
    /** Sets the key of the catalog column that the field edits. Default: empty. */
    void setBoundColumn(const QString &boundColumn);
    /** Unit shown beside the value; empty when there is none. */
    QString unit() const;
    /** Sets the unit shown beside the value, such as "mm". Default: empty, no unit. */
    void setUnit(const QString &unit);
    /** Value proposed for a new record; empty when there is none. */
    QString defaultValue() const;
    /** Sets the value proposed for a new record. Default: empty, no value. */
    void setDefaultValue(const QString &defaultValue);
    /** True when a value is required. */
    bool isMandatory() const;
    /** Sets whether a value is required. Default: false. */
    void setIsMandatory(bool isMandatory);
    /** True when the user cannot edit the field. */
    bool isReadonly() const;
    /** Sets whether the field cannot be edited. Default: false. */
    void setIsReadonly(bool isReadonly);
    /** True when a field with a list may be left without an entry of the list. */
    bool allowNoListItems() const;
    /** Sets whether the field may be left without an entry of its list. Default: false. */
    void setAllowNoListItems(bool allowNoListItems);
    /** Kind of the field's data. */
    DataType dataType() const;
    /**
     * Sets the kind of data. Default: DataTypeNone. A result of DataConverter::stringToDataType()
     * may be cast to DataType. Any other number is stored, too.
     */
    void setDataType(DataType dataType);
    /** Highest number of characters; 0 when it is not set. */
    int maximumTextLength() const;
    /** Sets the highest number of characters. Any int is stored. Default: 0, not set. */
    void setMaximumTextLength(int maximumTextLength);
    /** Number of decimals shown. */
    int precission() const;
    /** Sets the number of decimals shown. Any int is stored. Default: 0. */
    void setPrecission(int precission);
    /** Lower limit, as text; empty when there is none. */
    QString minimumValue() const;
    /** Sets the lower limit, as text. Default: empty, no limit. */
    void setMinimumValue(const QString &minimumValue);
    /** Upper limit, as text; empty when there is none. */
    QString maximumValue() const;
    /** Sets the upper limit, as text. Default: empty, no limit. */
    void setMaximumValue(const QString &maximumValue);
    /**
     * The value list, in the order in which it is shown. The reference is valid until the list is
     * set again or the field is destroyed.
     */
    const QList<ListItem> &itemList() const;
    /** Sets the value list. Default: empty. The data is implicitly shared with @p itemList. */
    void setItemList(const QList<ListItem> &itemList);
    /** True when itemList() is not empty. */
    bool hasList() const;
    /**
     * Kind of control, a value of CInputType::BaseInputType. Default: 0. Only a subclass can change
     * it.
     */
    int controlType() const;
    /** True when the form shows the field. */
    bool isVisible() const;
    /** Sets whether the form shows the field. **Default: false.** */
    void setIsVisible(bool isVisible);
    /** Format in which the value is typed; empty when there is none. */
    QString inputFormat() const;
    /** Sets the format in which the value is typed. Default: empty, no format. */
    void setInputFormat(const QString &inputFormat);
    /** Format in which the value is shown; empty when there is none. */
    QString displayFormat() const;
    /** Sets the format in which the value is shown. Default: empty, no format. */
    void setDisplayFormat(const QString &displayFormat);

protected:
    int m_controlType = 0; /**< The value of controlType(); set by subclasses. */

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
