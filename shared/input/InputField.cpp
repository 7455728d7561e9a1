#include "shared/input/InputField.h"

namespace Tavro::Shared {

InputField::InputField() = default;

InputField::InputField(const InputField &other) = default;

InputField &InputField::operator=(const InputField &other) = default;

InputField::~InputField() = default;

QString InputField::caption() const
{
    return m_caption;
}

void InputField::setCaption(const QString &caption)
{
    m_caption = caption;
}

QString InputField::boundColumn() const
{
    return m_boundColumn;
}

void InputField::setBoundColumn(const QString &boundColumn)
{
    m_boundColumn = boundColumn;
}

QString InputField::unit() const
{
    return m_unit;
}

void InputField::setUnit(const QString &unit)
{
    m_unit = unit;
}

QString InputField::defaultValue() const
{
    return m_defaultValue;
}

void InputField::setDefaultValue(const QString &defaultValue)
{
    m_defaultValue = defaultValue;
}

bool InputField::isMandatory() const
{
    return m_isMandatory;
}

void InputField::setIsMandatory(bool isMandatory)
{
    m_isMandatory = isMandatory;
}

bool InputField::isReadonly() const
{
    return m_isReadonly;
}

void InputField::setIsReadonly(bool isReadonly)
{
    m_isReadonly = isReadonly;
}

bool InputField::allowNoListItems() const
{
    return m_allowNoListItems;
}

void InputField::setAllowNoListItems(bool allowNoListItems)
{
    m_allowNoListItems = allowNoListItems;
}

InputField::DataType InputField::dataType() const
{
    return m_dataType;
}

void InputField::setDataType(DataType dataType)
{
    m_dataType = dataType;
}

int InputField::maximumTextLength() const
{
    return m_maximumTextLength;
}

void InputField::setMaximumTextLength(int maximumTextLength)
{
    m_maximumTextLength = maximumTextLength;
}

int InputField::precission() const
{
    return m_precission;
}

void InputField::setPrecission(int precission)
{
    m_precission = precission;
}

QString InputField::minimumValue() const
{
    return m_minimumValue;
}

void InputField::setMinimumValue(const QString &minimumValue)
{
    m_minimumValue = minimumValue;
}

QString InputField::maximumValue() const
{
    return m_maximumValue;
}

void InputField::setMaximumValue(const QString &maximumValue)
{
    m_maximumValue = maximumValue;
}

const QList<ListItem> &InputField::itemList() const
{
    return m_itemList;
}

void InputField::setItemList(const QList<ListItem> &itemList)
{
    m_itemList = itemList;
}

bool InputField::hasList() const
{
    return !m_itemList.isEmpty();
}

int InputField::controlType() const
{
    return m_controlType;
}

bool InputField::isVisible() const
{
    return m_isVisible;
}

void InputField::setIsVisible(bool isVisible)
{
    m_isVisible = isVisible;
}

QString InputField::inputFormat() const
{
    return m_inputFormat;
}

void InputField::setInputFormat(const QString &inputFormat)
{
    m_inputFormat = inputFormat;
}

QString InputField::displayFormat() const
{
    return m_displayFormat;
}

void InputField::setDisplayFormat(const QString &displayFormat)
{
    m_displayFormat = displayFormat;
}

} // namespace Tavro::Shared
