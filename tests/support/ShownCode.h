// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFile>

namespace Test {

/** Whether @p page shows the code of @p file to the letter, but for the licence at its top. */
inline bool showsCode(const QString &page, const QString &file)
{
    QFile text(page);
    QFile code(file);
    if (!text.open(QIODevice::ReadOnly) || !code.open(QIODevice::ReadOnly)) {
        return false;
    }
    while (code.peek(2) == "//") {
        code.readLine();
    }
    code.readLine(); // empty
    return text.readAll().contains("```cpp\n" + code.readAll() + "```\n");
}

} // namespace Test
