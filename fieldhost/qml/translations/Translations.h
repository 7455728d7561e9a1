// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/translations/Translators.h"

#include <QLocale>
#include <QObject>

class QQmlEngine;

namespace Tavro::FieldHost {

/**
 * Has the process speak the language of the current locale, the library's texts and Qt's own among
 * them; English where there is no translation.
 *
 * A change of the language has the engine evaluate every binding again. What C++ has kept of texts
 * stays as it is. One object for a process; GUI thread only.
 */
class Translations : public QObject
{
    Q_OBJECT

public:
    /** To be created before the first screen is. @p engine must outlive it. */
    explicit Translations(QQmlEngine &engine);
    ~Translations() override;

private:
    void speak(const QLocale &locale);

    QQmlEngine &m_engine;
    QLocale::Language m_language = QLocale::C;
    Translators m_translators;
};

} // namespace Tavro::FieldHost
