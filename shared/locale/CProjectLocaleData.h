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
 * The host tells of each catalog template that it loads, and of each project that it closes;
 * everybody else asks GlobalLocaleData, which knows the device's locale, too.
 *
 * One object for the process, on the GUI thread, created by the first instance() and never
 * destroyed. Nothing blocks.
 */
class OVO_SHARED_EXPORT CProjectLocaleData : public QObject
{
    Q_OBJECT

public:
    ~CProjectLocaleData() override;

    /** The one object; the first call creates it, and must come from the GUI thread. */
    static CProjectLocaleData *instance();

    /**
     * Sets the project's unit until the next template is loaded; DistanceUnit::Undefined leaves
     * it to the locale. Emits nothing.
     */
    void setUnitType(Tavro::Base::DistanceUnit unitType);

    /**
     * The locale set last, which omits group separators. Meaningless while localeValid() is
     * false: unsetLocale() keeps it, and before the first setLocale() it is the default locale
     * at the time of creation.
     */
    QLocale locale() const;
    /** Whether a project locale is set. */
    bool localeValid() const;
    /**
     * Unit of the template or of setUnitType(). Where there is none, the unit of a valid project
     * locale: feet for the United States, metres for the United Kingdom and all metric
     * countries. DistanceUnit::Undefined when there is neither.
     */
    Tavro::Base::DistanceUnit distanceUnitType() const;

    /**
     * Sets the locale of a catalog's country and language codes, those of
     * CCountryLanguageCodeConversion, and makes it valid. An unknown code counts as "any", so
     * that the other one decides. **Where both are unknown, it is QLocale's default locale**: the
     * one of the project before, feet included, unless unsetLocale() was called in between, and the
     * device's then.
     *
     * Emits localeChanged() on every call, and afterwards logs the locale at level Info under
     * "Locale".
     */
    void setLocale(const QString &countryCode, const QString &langCode);
    /**
     * The project is closed: the locale is valid no more; it and the unit are kept. Logs the kept
     * locale as setLocale() does, and then emits localeChanged(), on every call.
     */
    void unsetLocale();

    /**
     * Unit text of the first column with that key in the views "detail_s" of the template loaded
     * last; empty when there is no template, no such column, or the column has no unit.
     */
    QString requestTemplateColumnUnit(const QString &columnKey) const;

Q_SIGNALS:
    /** The project locale was set or unset, whether or not it differs from the one before. */
    void localeChanged();
    /** A template with another distance unit than the one before was loaded. */
    void projectDistanceUnitChanged();

public Q_SLOTS:
    /**
     * Takes template and codes of the catalog that the host has loaded.
     *
     * A template that @p templateManager does not know leaves the distance unit as it is, one
     * with another unit text than "m", "ft" and "inch" unsets it. A catalog that
     * @p catTplRegistry does not know leaves the locale as it is, and is logged at level Warning
     * under "Locale". Both are asked once and not kept; the template is shared until the next
     * one is loaded.
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
