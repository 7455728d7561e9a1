#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/input/ListItem.h"

#include <QList>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * All that a form needs in order to show and check one field. It checks nothing itself: setters
 * store what they are given.
 *
 * A value: copied freely, any thread its own. Subclasses can be deleted through this class.
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

    /** A field that is not visible, without texts, limits or list. */
    InputField();
    /** All of @p other, its control type included. */
    InputField(const InputField &other);
    /** All of @p other, its control type included. */
    InputField &operator=(const InputField &other);
    virtual ~InputField();

    /** Label that the user sees. */
    QString caption() const;
    /** Any text. */
    void setCaption(const QString &caption);
    /** Key of the catalog column that the field edits. */
    QString boundColumn() const;
    /** Any text. */
    void setBoundColumn(const QString &boundColumn);
    /** Unit text beside the value; empty when there is none. */
    QString unit() const;
    /** Any text. */
    void setUnit(const QString &unit);
    /** Value that a new record begins with; empty for none. */
    QString defaultValue() const;
    /** Any text. */
    void setDefaultValue(const QString &defaultValue);
    /** Whether a value is required; false at first. */
    bool isMandatory() const;
    /** Stores it. */
    void setIsMandatory(bool isMandatory);
    /** Whether the user can only look; false at first. */
    bool isReadonly() const;
    /** Stores it. */
    void setIsReadonly(bool isReadonly);
    /** Whether a field with a list may be left without one of its entries; false at first. */
    bool allowNoListItems() const;
    /** Stores it. */
    void setAllowNoListItems(bool allowNoListItems);
    /** DataTypeNone at first. */
    DataType dataType() const;
    /** Takes what DataConverter::stringToDataType() finds, cast; any other number is kept, too. */
    void setDataType(DataType dataType);
    /** Highest number of characters; 0, as at first, when it is not set. */
    int maximumTextLength() const;
    /** Any number. */
    void setMaximumTextLength(int maximumTextLength);
    /** Number of decimals shown; 0 at first. */
    int precission() const;
    /** Any number. */
    void setPrecission(int precission);
    /** Lower limit as text; empty for none. */
    QString minimumValue() const;
    /** Any text. */
    void setMinimumValue(const QString &minimumValue);
    /** Upper limit as text; empty for none. */
    QString maximumValue() const;
    /** Any text. */
    void setMaximumValue(const QString &maximumValue);
    /** The value list in the order in which it is shown; valid until the field changes or dies. */
    const QList<ListItem> &itemList() const;
    /** Shares the data of @p itemList until either of them changes. */
    void setItemList(const QList<ListItem> &itemList);
    /** Whether there is a value list: itemList() is not empty. */
    bool hasList() const;
    /** Kind of control, numbered as CInputType::BaseInputType; 0 unless a subclass has set it. */
    int controlType() const;
    /** Whether the form shows the field; **false** at first. */
    bool isVisible() const;
    /** Stores it. */
    void setIsVisible(bool isVisible);
    /** Format in which the value is typed; empty for none. */
    QString inputFormat() const;
    /** Any text. */
    void setInputFormat(const QString &inputFormat);
    /** Format in which the value is shown; empty for none. */
    QString displayFormat() const;
    /** Any text. */
    void setDisplayFormat(const QString &displayFormat);

protected:
    int m_controlType = 0; /**< What controlType() answers; for subclasses to set. */

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
