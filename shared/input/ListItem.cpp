// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/ListItem.h"

namespace Tavro::Shared {

class Q_DECL_HIDDEN ListItem::Private
{
public:
    QVariant key;
    QString text;
    QString value;
};

ListItem::ListItem()
    : d(std::make_unique<Private>())
{
}

ListItem::ListItem(const QVariant &key, const QString &text, const QString &value)
    : d(new Private{key, text, value})
{
}

// not shared among copies: the readers give references that setters keep valid
ListItem::ListItem(const ListItem &other)
    : d(std::make_unique<Private>(*other.d))
{
}

ListItem &ListItem::operator=(const ListItem &other)
{
    *d = *other.d;
    return *this;
}

ListItem::~ListItem() = default;

const QVariant &ListItem::key() const
{
    return d->key;
}

void ListItem::setKey(const QVariant &key)
{
    d->key = key;
}

const QString &ListItem::text() const
{
    return d->text;
}

void ListItem::setText(const QString &text)
{
    d->text = text;
}

const QString &ListItem::value() const
{
    return d->value;
}

void ListItem::setValue(const QString &value)
{
    d->value = value;
}

} // namespace Tavro::Shared
