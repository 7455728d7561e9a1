#include "fieldhost/qml/translations/Translations.h"

#include "shared/locale/GlobalLocaleData.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QQmlEngine>

// in no namespace: the name that it refers to is in none
static void initialiseResources()
{
    Q_INIT_RESOURCE(translations); // the linker leaves it out of an archive otherwise
}

namespace Tavro::FieldHost {

using Shared::GlobalLocaleData;

Translations::Translations(QQmlEngine &engine)
    : m_engine(engine)
{
    initialiseResources();
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
    const QString ours = QStringLiteral(":/translations");
    const QString separator = QStringLiteral("_");
    auto &[qt, library, screens] = m_translators;
    for (QTranslator &translator : m_translators) {
        QCoreApplication::removeTranslator(&translator);
    }
    // one that finds no file is empty, and not installed
    qt.load(locale, QStringLiteral("qtbase"), separator,
            QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    library.load(locale, QStringLiteral("ovosharedbase"), separator, ours);
    screens.load(locale, QStringLiteral("ovo-fieldhost"), separator, ours);
    for (QTranslator &translator : m_translators) {
        QCoreApplication::installTranslator(&translator);
    }
    m_engine.retranslate();
}

} // namespace Tavro::FieldHost
