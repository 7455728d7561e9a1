// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/base/DistanceUnit.h"

#include <QLocale>
#include <QObject>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * Locale and distance unit of the application: the open project's, or else the device's.
 *
 * Each change also sets Qt's default locale, so that every default-constructed QLocale of the
 * process follows and writes numbers without group separators. Until setDeviceLocale() is called,
 * the device's locale is the default locale at the time when the instance was created, with its
 * group separators.
 *
 * A process-wide instance on the GUI thread. GUI thread only. Nothing blocks and nothing is logged.
 */
class OVO_SHARED_EXPORT GlobalLocaleData : public QObject
{
    Q_OBJECT

public:
    ~GlobalLocaleData() override;

    /**
     * The process-wide instance. Never null. The first call creates it, and the one of
     * CProjectLocaleData if needed, and must come from the GUI thread. It is never destroyed.
     * Project locales become the default locale from this first call on, not before it.
     */
    static GlobalLocaleData *instance();

    /** The project's locale while that is valid, else the device's. */
    QLocale locale() const;
    /**
     * The project's unit, see CProjectLocaleData::distanceUnitType(). If that is
     * DistanceUnit::Undefined: feet when QLocale's **default** locale has the measurement system of
     * the United States, else metres. Never DistanceUnit::Undefined.
     */
    Tavro::Base::DistanceUnit distanceUnitType() const;
    /** Unit of a column in the project's template. Empty when it has none. */
    QString catalogTemplateColumnUnit(const QString &columnKey) const;

    /**
     * Sets Qt's default locale to @p locale with the option QLocale::OmitGroupSeparator in addition
     * to its own. Does not change locale(). Emits no signal.
     */
    void setDefaultLocale(QLocale locale);
    /**
     * Sets the device's locale, with the option QLocale::OmitGroupSeparator in addition to its own.
     * While no project locale is valid, it also becomes the default locale, and localeChanged() is
     * emitted. While one is valid, nothing else happens.
     */
    void setDeviceLocale(QLocale locale);

Q_SIGNALS:
    /**
     * Emitted when the project's locale was set or unset, and when the device's was set while no
     * project's is valid, even if locale() is the same as before. The default locale is already
     * set.
     */
    void localeChanged();

public Q_SLOTS:
    /** Sets the default locale and emits localeChanged(). Connected to CProjectLocaleData. */
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
