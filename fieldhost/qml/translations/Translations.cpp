// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/translations/Translations.h"

#include "shared/locale/GlobalLocaleData.h"

#include <QQmlEngine>

namespace Tavro::FieldHost {

using Shared::GlobalLocaleData;

Translations::Translations(QQmlEngine &engine)
    : m_engine(engine)
{
    auto *const current = GlobalLocaleData::instance();
    connect(current, &GlobalLocaleData::localeChanged, this,
            [this, current] { speak(current->locale()); });
    speak(current->locale());
}

Translations::~Translations() = default;

void Translations::speak(const QLocale &locale)
{
    if (locale.language() == m_language) {
        return;
    }
    m_language = locale.language();
    m_translators.load(locale);
    m_engine.retranslate();
}

} // namespace Tavro::FieldHost
