// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/catalog/CatalogDescriptor.h"
#include "host/CCatalogTemplate.h"

#include <QObject>
#include <QSharedPointer>
#include <QVariantList>

#include <memory>

namespace Tavro::FieldHost {

class CatalogFiles;

/**
 * The project's catalog, country and language, and the device's locale, as the user chooses them.
 * Tells the library's locale singletons of each choice.
 *
 * A project is open while one of the three is given. Lists of choices hold objects with the
 * members `text` and `value`; the value is what a property takes. GUI thread only. setCatalog()
 * reads a file, a small one of the device; nothing else blocks.
 */
class ProjectLocale : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList catalogs READ catalogs CONSTANT)
    Q_PROPERTY(QVariantList countries READ countries CONSTANT)
    Q_PROPERTY(QVariantList languages READ languages CONSTANT)
    Q_PROPERTY(QVariantList devices READ devices CONSTANT)
    Q_PROPERTY(QString catalog READ catalog WRITE setCatalog NOTIFY changed)
    Q_PROPERTY(QString country READ country WRITE setCountry NOTIFY changed)
    Q_PROPERTY(QString language READ language WRITE setLanguage NOTIFY changed)
    Q_PROPERTY(QString device READ device WRITE setDevice NOTIFY changed)
    Q_PROPERTY(QString catalogName READ catalogName NOTIFY changed)
    Q_PROPERTY(QString objection READ objection NOTIFY changed)
    Q_PROPERTY(QStringList warnings READ warnings NOTIFY changed)
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)
    Q_PROPERTY(QString distances READ distances NOTIFY changed)
    Q_PROPERTY(QVariantList columns READ columns NOTIFY changed)

public:
    /** Begins without a project, with the library's locale as it is. */
    explicit ProjectLocale(QObject *parent = nullptr);
    ~ProjectLocale() override;

    /** The catalogs that the program brings; the first one is none. */
    QVariantList catalogs() const;
    /** The countries that catalogs know, by their own names; the first one is none. */
    QVariantList countries() const;
    /** The languages that catalogs know, by their own names; the first one is none. */
    QVariantList languages() const;
    /** Locales for the device: the system's, and one of each country that catalogs know. */
    QVariantList devices() const;

    /** Path of the catalog's file; empty when there is none. */
    QString catalog() const { return m_file; }
    /**
     * Reads the catalog, and takes its country and language. One that cannot be used changes
     * nothing but objection().
     */
    void setCatalog(const QString &file);
    /** Code such as "CH"; empty when none is given. A catalog may have any. */
    QString country() const { return m_country; }
    void setCountry(const QString &code);
    /** Code such as "DEU"; empty when none is given. A catalog may have any. */
    QString language() const { return m_language; }
    void setLanguage(const QString &code);
    /** Name such as "de_CH". */
    QString device() const { return m_device; }
    void setDevice(const QString &name);

    /** What people call the catalog; empty when there is none. */
    QString catalogName() const;
    /** Why the catalog that was chosen last cannot be used, a sentence; empty when it can. */
    QString objection() const;
    /** What is not known of that which the catalog says, a sentence each. */
    QStringList warnings() const;
    /** Whether the project's locale counts, and not the device's. */
    bool isOpen() const;
    /** A sentence on the unit of distances. */
    QString distances() const;
    /** Columns of the catalog with the members `key`, `unit` and `ofCatalog`. */
    QVariantList columns() const;

    /** Closes the project: the device's locale counts again. */
    Q_INVOKABLE void close();

Q_SIGNALS:
    /** Emitted after each choice, when the library has taken it over. */
    void changed();

private:
    void apply();

    std::unique_ptr<CatalogFiles> m_files; // made anew: it refuses to read a catalog twice
    const CatalogDescriptor *m_catalog = nullptr; // of m_files
    QSharedPointer<Templates::CCatalogTemplate> m_template;
    QString m_objection; // in the language of the time: half of it would stay in that anyway
    QString m_file;
    QString m_country;
    QString m_language;
    QString m_device;
};

} // namespace Tavro::FieldHost
