#include "shared/input/ListItem.h"

namespace Tavro::Shared {

ListItem::ListItem() = default;

ListItem::ListItem(const QVariant &key, const QString &text, const QString &value)
    : m_key(key)
    , m_text(text)
    , m_value(value)
{
}

const QVariant &ListItem::key() const
{
    return m_key;
}

void ListItem::setKey(const QVariant &key)
{
    m_key = key;
}

const QString &ListItem::text() const
{
    return m_text;
}

void ListItem::setText(const QString &text)
{
    m_text = text;
}

const QString &ListItem::value() const
{
    return m_value;
}

void ListItem::setValue(const QString &value)
{
    m_value = value;
}

} // namespace Tavro::Shared
