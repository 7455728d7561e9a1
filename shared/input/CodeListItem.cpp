#include "shared/input/CodeListItem.h"

namespace Tavro::Shared {

CodeListItem::CodeListItem() = default;

CodeListItem::CodeListItem(const QString &code, const QString &text, const QString &objectId)
    : m_code(code)
    , m_text(text)
    , m_objectId(objectId)
{
}

const QString &CodeListItem::code() const
{
    return m_code;
}

void CodeListItem::setCode(const QString &code)
{
    m_code = code;
}

const QString &CodeListItem::text() const
{
    return m_text;
}

void CodeListItem::setText(const QString &text)
{
    m_text = text;
}

const QString &CodeListItem::objectId() const
{
    return m_objectId;
}

void CodeListItem::setObjectId(const QString &objectId)
{
    m_objectId = objectId;
}

} // namespace Tavro::Shared
