// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>
#include <QTranslator>

#include <array>

namespace Tavro::FieldHost {

/**
 * Has the process speak a language: the programs, the library and Qt itself. English until then,
 * and again when the object is gone. One object for a process.
 */
class Translators
{
    Q_DISABLE_COPY(Translators)

public:
    Translators();

    /** Speaks the language of @p locale; where there is no translation, returns false and is
     * English. */
    bool load(const QLocale &locale);
    /** Speaks the first language of the user's environment that there is a translation for. */
    void loadFromEnvironment();

private:
    std::array<QTranslator, 3> m_translators; // of Qt, the library and the programs
};

} // namespace Tavro::FieldHost
