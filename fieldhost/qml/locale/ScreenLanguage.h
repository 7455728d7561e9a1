#pragma once

#include <QObject>
#include <QTranslator>

#include <memory>
#include <vector>

class QQmlEngine;

namespace Tavro::FieldHost {

/**
 * The language of the screens' texts. Independent of the project's, which decides how numbers and
 * dates look.
 *
 * A change evaluates all bindings of the engine again. GUI thread only.
 */
class ScreenLanguage : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString current READ current WRITE setCurrent NOTIFY currentChanged)

public:
    /** Begins with English. The texts of @p engine's screens follow. */
    explicit ScreenLanguage(QQmlEngine *engine);
    ~ScreenLanguage() override;

    /** "en" or "de". */
    QString current() const { return m_current; }
    /** A language without texts of its own counts as English. */
    void setCurrent(const QString &language);

Q_SIGNALS:
    void currentChanged();

private:
    QQmlEngine *const m_engine;
    std::vector<std::unique_ptr<QTranslator>> m_translators; // a destroyed one is removed by Qt
    QString m_current = QStringLiteral("en");
};

} // namespace Tavro::FieldHost
