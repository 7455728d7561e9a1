#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/base/DistanceUnit.h"

#include <QLocale>
#include <QObject>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * Locale and distance unit that the application shows: the open project's, or else the device's.
 *
 * Whichever holds is also Qt's default locale, so that every default-constructed QLocale of the
 * process follows it and writes numbers without group separators.
 *
 * One object for the process, on the GUI thread, created by the first instance() and never
 * destroyed. Nothing blocks. Before setDeviceLocale() the device's locale is the default locale
 * as it was at the time of creation, with its group separators.
 */
class OVO_SHARED_EXPORT GlobalLocaleData : public QObject
{
    Q_OBJECT

public:
    ~GlobalLocaleData() override;

    /**
     * The one object; the first call creates it, and CProjectLocaleData with it, and must come
     * from the GUI thread. Only from then on a project locale becomes the default locale.
     */
    static GlobalLocaleData *instance();

    /** The project's locale while that is valid, else the device's. */
    QLocale locale() const;
    /**
     * The project's unit; where that is not set, feet when the **default** locale is one of the
     * United States, else metres. Never DistanceUnit::Undefined.
     */
    Tavro::Base::DistanceUnit distanceUnitType() const;
    /** Unit text that the project's template gives a column; empty when it gives none. */
    QString catalogTemplateColumnUnit(const QString &columnKey) const;

    /**
     * Makes @p locale, without group separators and with all its other options, Qt's default
     * locale. locale() stays as it is; emits nothing.
     */
    void setDefaultLocale(QLocale locale);
    /**
     * Tells which locale the device is set to. While a project locale is valid the device's is
     * only kept for later; otherwise it becomes the default locale, and localeChanged() is
     * emitted.
     */
    void setDeviceLocale(QLocale locale);

Q_SIGNALS:
    /** locale() may answer something new; the default locale has changed already. */
    void localeChanged();

public Q_SLOTS:
    /** Runs whenever the project locale is set or unset; nobody else needs to call it. */
    void projectLocaleChanged();

private:
    friend class CLocaleSupport; // reads the locale without a copy

    Q_DECL_HIDDEN GlobalLocaleData();

    Q_DECL_HIDDEN const QLocale &currentLocale() const;

    Q_DECL_HIDDEN static GlobalLocaleData *m_pInstance;

    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
