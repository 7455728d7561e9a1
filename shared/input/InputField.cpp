// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/InputField.h"

namespace Tavro::Shared {

class Q_DECL_HIDDEN InputField::Private
{
public:
    QString caption;
    QString boundColumn;
    QString unit;
    QString defaultValue;
    bool isMandatory = false;
    bool isReadonly = false;
    bool allowNoListItems = false;
    DataType dataType = DataTypeNone;
    int maximumTextLength = 0;
    int precission = 0;
    QString minimumValue;
    QString maximumValue;
    QList<ListItem> itemList;
    bool isVisible = false;
    QString inputFormat;
    QString displayFormat;
};

InputField::InputField()
    : d(std::make_unique<Private>())
{
}

// not shared among copies: itemList() is a reference that setters keep valid
InputField::InputField(const InputField &other)
    : m_controlType(other.m_controlType)
    , d(std::make_unique<Private>(*other.d))
{
}

InputField &InputField::operator=(const InputField &other)
{
    m_controlType = other.m_controlType;
    *d = *other.d;
    return *this;
}

InputField::~InputField() = default;

QString InputField::caption() const
{
    return d->caption;
}

void InputField::setCaption(const QString &caption)
{
    d->caption = caption;
}

QString InputField::boundColumn() const
{
    return d->boundColumn;
}

void InputField::setBoundColumn(const QString &boundColumn)
{
    d->boundColumn = boundColumn;
}

QString InputField::unit() const
{
    return d->unit;
}

void InputField::setUnit(const QString &unit)
{
    d->unit = unit;
}

QString InputField::defaultValue() const
{
    return d->defaultValue;
}

void InputField::setDefaultValue(const QString &defaultValue)
{
    d->defaultValue = defaultValue;
}

bool InputField::isMandatory() const
{
    return d->isMandatory;
}

void InputField::setIsMandatory(bool isMandatory)
{
    d->isMandatory = isMandatory;
}

bool InputField::isReadonly() const
{
    return d->isReadonly;
}

void InputField::setIsReadonly(bool isReadonly)
{
    d->isReadonly = isReadonly;
}

bool InputField::allowNoListItems() const
{
    return d->allowNoListItems;
}

void InputField::setAllowNoListItems(bool allowNoListItems)
{
    d->allowNoListItems = allowNoListItems;
}

InputField::DataType InputField::dataType() const
{
    return d->dataType;
}

void InputField::setDataType(DataType dataType)
{
    d->dataType = dataType;
}

int InputField::maximumTextLength() const
{
    return d->maximumTextLength;
}

void InputField::setMaximumTextLength(int maximumTextLength)
{
    d->maximumTextLength = maximumTextLength;
}

int InputField::precission() const
{
    return d->precission;
}

void InputField::setPrecission(int precission)
{
    d->precission = precission;
}

QString InputField::minimumValue() const
{
    return d->minimumValue;
}

void InputField::setMinimumValue(const QString &minimumValue)
{
    d->minimumValue = minimumValue;
}

QString InputField::maximumValue() const
{
    return d->maximumValue;
}

void InputField::setMaximumValue(const QString &maximumValue)
{
    d->maximumValue = maximumValue;
}

const QList<ListItem> &InputField::itemList() const
{
    return d->itemList;
}

void InputField::setItemList(const QList<ListItem> &itemList)
{
    d->itemList = itemList;
}

bool InputField::hasList() const
{
    return !d->itemList.isEmpty();
}

int InputField::controlType() const
{
    return m_controlType;
}

bool InputField::isVisible() const
{
    return d->isVisible;
}

void InputField::setIsVisible(bool isVisible)
{
    d->isVisible = isVisible;
}

QString InputField::inputFormat() const
{
    return d->inputFormat;
}

void InputField::setInputFormat(const QString &inputFormat)
{
    d->inputFormat = inputFormat;
}

QString InputField::displayFormat() const
{
    return d->displayFormat;
}

void InputField::setDisplayFormat(const QString &displayFormat)
{
    d->displayFormat = displayFormat;
}

} // namespace Tavro::Shared
