// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/CodeListItem.h"

namespace Tavro::Shared {

class Q_DECL_HIDDEN CodeListItem::Private
{
public:
    QString code;
    QString text;
    QString objectId;
};

CodeListItem::CodeListItem()
    : d(std::make_unique<Private>())
{
}

CodeListItem::CodeListItem(const QString &code, const QString &text, const QString &objectId)
    : d(new Private{code, text, objectId})
{
}

// not shared among copies: the readers give references that setters keep valid
CodeListItem::CodeListItem(const CodeListItem &other)
    : d(std::make_unique<Private>(*other.d))
{
}

CodeListItem &CodeListItem::operator=(const CodeListItem &other)
{
    *d = *other.d;
    return *this;
}

CodeListItem::~CodeListItem() = default;

const QString &CodeListItem::code() const
{
    return d->code;
}

void CodeListItem::setCode(const QString &code)
{
    d->code = code;
}

const QString &CodeListItem::text() const
{
    return d->text;
}

void CodeListItem::setText(const QString &text)
{
    d->text = text;
}

const QString &CodeListItem::objectId() const
{
    return d->objectId;
}

void CodeListItem::setObjectId(const QString &objectId)
{
    d->objectId = objectId;
}

} // namespace Tavro::Shared
