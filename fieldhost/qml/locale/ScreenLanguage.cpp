#include "fieldhost/qml/locale/ScreenLanguage.h"

#include <QCoreApplication>
#include <QQmlEngine>

namespace Tavro::FieldHost {

ScreenLanguage::ScreenLanguage(QQmlEngine *engine)
    : m_engine(engine)
{
}

ScreenLanguage::~ScreenLanguage() = default;

void ScreenLanguage::setCurrent(const QString &language)
{
    std::vector<std::unique_ptr<QTranslator>> translators;
    for (const char *name : {"ovo-fieldhost", "ovosharedbase"}) {
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(QStringLiteral(":/translations/%1_%2.qm")
                                 .arg(QLatin1String(name), language))) {
            translators.push_back(std::move(translator));
        }
    }
    const QString found = translators.empty() ? QStringLiteral("en") : language;
    if (found == m_current) {
        return;
    }
    m_translators = std::move(translators);
    for (const auto &translator : m_translators) {
        QCoreApplication::installTranslator(translator.get());
    }
    m_current = found;
    m_engine->retranslate();
    Q_EMIT currentChanged();
}

} // namespace Tavro::FieldHost
