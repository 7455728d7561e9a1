// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CCatalogTemplate.h"
#include "host/CCatalogTemplateRegistry.h"
#include "host/CColumnDefinition.h"
#include "host/CProgramView.h"
#include "host/CTemplateManager.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <utility>

// A host's catalogs as a test makes them up: values, and nothing behind them.
namespace Test {

/** A column of a view. */
class FakeColumn : public Tavro::Templates::CColumnDefinition
{
public:
    FakeColumn(QString key, QString unit)
        : m_key(std::move(key))
        , m_unit(std::move(unit))
    {
    }

    QString key() const override { return m_key; }
    QString unit() const override { return m_unit; }

private:
    QString m_key;
    QString m_unit;
};

/** A view; the columns are the test's own, and may be null. */
class FakeView : public Tavro::Templates::CProgramView
{
public:
    FakeView(QString key, QVector<const FakeColumn *> columns)
        : m_key(std::move(key))
        , m_columns(std::move(columns))
    {
    }

    QString key() const override { return m_key; }
    int columnCount() const override { return m_columns.size(); }
    const Tavro::Templates::CColumnDefinition *column(int index) const override
    {
        return m_columns.at(index);
    }

private:
    QString m_key;
    QVector<const FakeColumn *> m_columns;
};

/** A template; the views are the test's own, and may be null. */
class FakeTemplate : public Tavro::Templates::CCatalogTemplate
{
public:
    explicit FakeTemplate(QString unit, QVector<const FakeView *> views = {})
        : m_unit(std::move(unit))
        , m_views(std::move(views))
    {
    }

    QString unit() const override { return m_unit; }
    int programViewCount() const override { return m_views.size(); }
    const Tavro::Templates::CProgramView *programView(int index) const override
    {
        return m_views.at(index);
    }

private:
    QString m_unit;
    QVector<const FakeView *> m_views;
};

/** Knows the templates that the test has put in, and keeps them alive. */
class FakeTemplateManager : public Tavro::CATManagement::CTemplateManager
{
public:
    using Pointer = QSharedPointer<Tavro::Templates::CCatalogTemplate>;

    /** Makes @p catalogTemplate known under @p id, in the place of an earlier one. */
    void insert(const QString &id, const Pointer &catalogTemplate)
    {
        m_templates.insert(id, catalogTemplate);
    }
    /** Forgets the template of that id. */
    void remove(const QString &id) { m_templates.remove(id); }

    Pointer getTemplateFromCache(const QString &templateId) override
    {
        return m_templates.value(templateId);
    }

private:
    QHash<QString, Pointer> m_templates;
};

/** Knows the catalogs that the test names. */
class FakeRegistry : public Tavro::CATManagement::CCatalogTemplateRegistry
{
public:
    explicit FakeRegistry(const QStringList &known = {})
        : m_known(known.begin(), known.end())
    {
    }

    const Tavro::CATManagement::CCatalogDescriptor *catalogByUniqueId(
        const QString &catalogId) const override
    {
        return m_known.contains(catalogId) ? &m_descriptor : nullptr;
    }

private:
    QSet<QString> m_known;
    Tavro::CATManagement::CCatalogDescriptor m_descriptor;
};

} // namespace Test
