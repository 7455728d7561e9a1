// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/input/CurrentLocale.h"

#include "shared/locale/GlobalLocaleData.h"

using Tavro::Shared::GlobalLocaleData;

namespace Test {

CurrentLocale::CurrentLocale(const QLocale &locale)
    : m_current(GlobalLocaleData::instance()->locale())
{
    GlobalLocaleData::instance()->setDeviceLocale(locale);
}

CurrentLocale::~CurrentLocale()
{
    GlobalLocaleData::instance()->setDeviceLocale(m_current);
    QLocale::setDefault(m_default);
}

} // namespace Test
