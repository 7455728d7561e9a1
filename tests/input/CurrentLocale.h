// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>

namespace Test {

/** Makes a locale the current one, and Qt's default one, for as long as the object lives. */
class CurrentLocale
{
    Q_DISABLE_COPY(CurrentLocale)

public:
    explicit CurrentLocale(const QLocale &locale);
    ~CurrentLocale();

private:
    const QLocale m_current;
    const QLocale m_default;
};

} // namespace Test
