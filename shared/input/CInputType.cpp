// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/CInputType.h"

#include <utility>

namespace Tavro::Shared {

class Q_DECL_HIDDEN CInputType::Private
{
public:
    QString valuesToHide;
};

CInputType::CInputType(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

CInputType::~CInputType() = default;

QString CInputType::valuesToHide() const
{
    return d->valuesToHide;
}

void CInputType::setValuesToHide(QString values)
{
    d->valuesToHide = std::move(values);
}

} // namespace Tavro::Shared
