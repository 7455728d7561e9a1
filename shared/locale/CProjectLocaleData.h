// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/base/DistanceUnit.h"
#include "shared/base/GUID.h"

#include <QLocale>
#include <QObject>
#include <QString>

#include <memory>

namespace Tavro::CATManagement {
class CCatalogTemplateRegistry;
class CTemplateManager;
} // namespace Tavro::CATManagement

namespace Tavro::Shared {

/**
 * Locale and distance unit of the open project.
 *
 * The host reports each catalog template that it loads to onNewTemplateLoaded() and each project
 * that it closes to unsetLocale(). All other code uses GlobalLocaleData, which also knows the
 * device's locale.
 *
 * A process-wide instance on the GUI thread. GUI thread only. Nothing blocks.
 */
class OVO_SHARED_EXPORT CProjectLocaleData : public QObject
{
    Q_OBJECT

public:
    ~CProjectLocaleData() override;

    /**
     * The process-wide instance. Never null. The first call creates it and must come from the GUI
     * thread. It is never destroyed.
     */
    static CProjectLocaleData *instance();

    /**
     * Sets the project's unit. Default: DistanceUnit::Undefined, which means that the locale
     * decides. The next template that is loaded replaces it. Emits no signal.
     */
    void setUnitType(Tavro::Base::DistanceUnit unitType);

    /**
     * The locale of the last setLocale(), which omits group separators. Use it only while
     * localeValid() is true: unsetLocale() does not reset it, and before the first setLocale() it
     * is the default locale at the time when the instance was created.
     */
    QLocale locale() const;
    /** True from setLocale() to unsetLocale(). */
    bool localeValid() const;
    /**
     * The unit of the template or of setUnitType(). If that is DistanceUnit::Undefined, the unit of
     * the project locale while it is valid: feet for the measurement system of the United States,
     * metres for that of the United Kingdom and the metric one. DistanceUnit::Undefined if there is
     * neither.
     */
    Tavro::Base::DistanceUnit distanceUnitType() const;

    /**
     * Sets the project locale from the country and language codes of a catalog, see
     * CCountryLanguageCodeConversion, and makes it valid. An unknown code counts as any country or
     * any language, so the other code decides. **If both codes are unknown, the project locale is
     * QLocale's default locale.** That is the locale of the project before, and so is its unit,
     * unless unsetLocale() was called in between; then it is the device's locale.
     *
     * Every call emits localeChanged() and then logs the locale at level Info under "Locale".
     */
    void setLocale(const QString &countryCode, const QString &langCode);
    /**
     * Makes the project locale invalid, because the project was closed. locale(), the unit and the
     * template stay as they are. Every call logs the locale as setLocale() does and then emits
     * localeChanged().
     */
    void unsetLocale();

    /**
     * Unit of the first column with the key @p columnKey in the views with the key "detail_s" of
     * the template that was loaded last. Empty when there is no template, no such column, or the
     * column has no unit.
     */
    QString requestTemplateColumnUnit(const QString &columnKey) const;

Q_SIGNALS:
    /** Emitted when the project locale was set or unset, even if it is the same as before. */
    void localeChanged();
    /** Emitted when a loaded template has changed the project's unit; before localeChanged(). */
    void projectDistanceUnitChanged();

public Q_SLOTS:
    /**
     * Takes over the template @p templateId and the codes of the catalog that the host has loaded.
     *
     * The project's unit becomes that of the template; any text but "m", "ft" and "inch" gives
     * DistanceUnit::Undefined. If @p templateManager does not know the template, the unit does not
     * change. Calls setLocale() with @p countryCode and @p langCode. If @p catTplRegistry does not
     * know @p catalogId, the locale does not change, and a message is logged at level Warning under
     * "Locale".
     *
     * @p templateManager and @p catTplRegistry are used during the call only. The template is kept,
     * in shared ownership, until the next one is loaded.
     */
    void onNewTemplateLoaded(const Tavro::Base::GUID &templateId,
                             Tavro::CATManagement::CTemplateManager &templateManager,
                             const Tavro::CATManagement::CCatalogTemplateRegistry &catTplRegistry,
                             const QString &catalogId, const QString &countryCode,
                             const QString &langCode);

private:
    friend class GlobalLocaleData; // reads the locale without a copy

    Q_DECL_HIDDEN CProjectLocaleData();

    Q_DECL_HIDDEN const QLocale *validLocale() const; // null while none is valid

    Q_DECL_HIDDEN static CProjectLocaleData *m_pInstance;

    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
