// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/Wait.h"

namespace Tavro::Shared {

class Q_DECL_HIDDEN Wait::Private
{
public:
    QString text;
};

Wait::Wait(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

Wait::~Wait() = default;

QString Wait::text() const
{
    return d->text;
}

void Wait::setText(const QString &text)
{
    d->text = text;
}

} // namespace Tavro::Shared
