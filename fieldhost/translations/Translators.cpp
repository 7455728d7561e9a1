// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/translations/Translators.h"

#include <QCoreApplication>
#include <QLibraryInfo>

// in no namespace: the name that it refers to is in none
static void initialiseResources()
{
    Q_INIT_RESOURCE(translations); // the linker leaves it out of an archive otherwise
}

namespace Tavro::FieldHost {

namespace {

// what LC_ALL, LC_MESSAGES and LANG say of the language of messages, as POSIX orders them
QByteArray messageLocale()
{
    for (const char *variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (!qEnvironmentVariableIsEmpty(variable)) {
            return qgetenv(variable);
        }
    }
    return {};
}

} // namespace

Translators::Translators()
{
    initialiseResources();
}

bool Translators::load(const QLocale &locale)
{
    // the system's would offer all of the user's languages, and be taken for one of them
    const QLocale plain(locale.name());
    const QString ours = QStringLiteral(":/translations");
    const QString separator = QStringLiteral("_");
    auto &[qt, library, programs] = m_translators;
    for (QTranslator &translator : m_translators) {
        QCoreApplication::removeTranslator(&translator);
    }
    // one that finds no file is empty, and not installed
    qt.load(plain, QStringLiteral("qtbase"), separator,
            QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    library.load(plain, QStringLiteral("ovosharedbase"), separator, ours);
    const bool isLoaded = programs.load(plain, QStringLiteral("ovo-fieldhost"), separator, ours);
    for (QTranslator &translator : m_translators) {
        QCoreApplication::installTranslator(&translator);
    }
    return isLoaded;
}

void Translators::loadFromEnvironment()
{
    // a script's choice, which LANGUAGE does not change; it may name an encoding
    const QByteArray messages = messageLocale();
    if (messages.isEmpty() || messages == "C" || messages.startsWith("C.") || messages == "POSIX") {
        return;
    }
    const QStringList languages = QLocale::system().uiLanguages();
    for (const QString &language : languages) {
        const QLocale locale(language);
        if (locale.language() == QLocale::English || load(locale)) {
            return; // the sources are English
        }
    }
}

} // namespace Tavro::FieldHost
