// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QtQml/qqml.h>

#include <array>

namespace Tavro::Qml {

/**
 * Shows values in the locale and the units that are current at the time of the call.
 *
 * Read from Formats::current, so that a binding is evaluated again when they change. See
 * Shared::CLocaleSupport for what decides which unit is shown. GUI thread only. Nothing blocks.
 */
class LocaleFormats : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(LocaleFormats)
    QML_UNCREATABLE("Read Formats.current.")

public:
    explicit LocaleFormats(QObject *parent = nullptr);

    /** A length given in metres, converted to the unit of distances: "12.50 m" or "41.01 ft". */
    Q_INVOKABLE static QString length(double meters);
    /** A distance that is in the unit of distances already, as the counter's: "12.50 m". */
    Q_INVOKABLE static QString distance(double value);
    /** The number that is typed in @p text; 0 if it is none. "nan" and "inf" are numbers. */
    Q_INVOKABLE static double distanceFrom(const QString &text);
    /** The size of a pipe given in millimetres: "300 mm", or "11.81 inch" with feet or inches. */
    Q_INVOKABLE static QString size(double millimeters);
    /** A number with that many decimals, without group separators. */
    Q_INVOKABLE static QString number(double value, int decimals = 2);
    /** A number of bytes with one decimal, in units of 1024: "1.5 MB". */
    Q_INVOKABLE static QString bytes(qlonglong count);
    /** Any value as Shared::CLocaleSupport::variantToLocalizedString() shows it. */
    Q_INVOKABLE static QString text(const QVariant &value, const QString &format = QString());

    /** The day of a QDate property. For a moment, such as `new Date()`, there is dateOf(). */
    Q_INVOKABLE static QString date(const QDateTime &day);
    /** The local day of a moment. */
    Q_INVOKABLE static QString dateOf(const QDateTime &moment);
    /** The time of a QTime property, or the local time of a moment, with seconds. */
    Q_INVOKABLE static QString time(const QDateTime &time);
    /** Local day and time of a moment, without seconds. */
    Q_INVOKABLE static QString dateTime(const QDateTime &moment);

    /** The unit of distances: "m" or "ft". */
    Q_INVOKABLE static QString distanceUnit();
    /** The unit of pipe sizes: "mm" or "inch". */
    Q_INVOKABLE static QString sizeUnit();
    /** The unit of speeds: "m/min" or "ft/min". */
    Q_INVOKABLE static QString speedUnit();
    /** The unit of temperatures: "°C" or "°F". */
    Q_INVOKABLE static QString temperatureUnit();
    /** The unit of angles: "°". */
    Q_INVOKABLE static QString angleUnit();
    /** The unit of pressures: "mbar". */
    Q_INVOKABLE static QString pressureUnit();
    /** The unit of a column in the project's template; that of distances if it has none. */
    Q_INVOKABLE static QString columnUnit(const QString &columnKey);

    /** Language and country, as "de_CH". */
    Q_INVOKABLE static QString localeName();
    /** True when the language is written from right to left: `LayoutMirroring.enabled`. */
    Q_INVOKABLE static bool isRightToLeft();
};

/**
 * The formats of the current locale: `text: Formats.current.length(meters)`.
 *
 * GUI thread only. Nothing blocks. The first use creates Shared::GlobalLocaleData.
 */
class Formats : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Tavro::Qml::LocaleFormats *current READ current NOTIFY currentChanged)
    QML_NAMED_ELEMENT(Formats)
    QML_SINGLETON

public:
    explicit Formats(QObject *parent = nullptr);

    /** Never null. Another object after each change, so that properties that hold it change, too.
     */
    LocaleFormats *current() { return &m_formats[m_current]; }

Q_SIGNALS:
    /** Emitted when the locale or the project's unit of distances may have changed. */
    void currentChanged();

private:
    void renew();

    std::array<LocaleFormats, 2> m_formats; // current in turn; neither has a state
    std::size_t m_current = 0;
};

} // namespace Tavro::Qml
