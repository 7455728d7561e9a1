// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CCatalogTemplate.h"
#include "host/CColumnDefinition.h"
#include "host/CProgramView.h"

#include <QString>

#include <utility>
#include <vector>

namespace Tavro::FieldHost {

/** A column as the catalog file describes it. */
class CatalogColumn : public Templates::CColumnDefinition
{
public:
    CatalogColumn(QString key, QString unit)
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

/** A view with its columns; an index outside of them gives null. */
class CatalogView : public Templates::CProgramView
{
public:
    CatalogView(QString key, std::vector<CatalogColumn> columns)
        : m_key(std::move(key))
        , m_columns(std::move(columns))
    {
    }

    QString key() const override { return m_key; }
    int columnCount() const override { return static_cast<int>(m_columns.size()); }
    const Templates::CColumnDefinition *column(int index) const override
    {
        return index >= 0 && index < columnCount() ? &m_columns[static_cast<size_t>(index)]
                                                   : nullptr;
    }

private:
    QString m_key;
    std::vector<CatalogColumn> m_columns;
};

/** A template with its views; an index outside of them gives null. */
class CatalogTemplate : public Templates::CCatalogTemplate
{
public:
    CatalogTemplate(QString unit, std::vector<CatalogView> views)
        : m_unit(std::move(unit))
        , m_views(std::move(views))
    {
    }

    QString unit() const override { return m_unit; }
    int programViewCount() const override { return static_cast<int>(m_views.size()); }
    const Templates::CProgramView *programView(int index) const override
    {
        return index >= 0 && index < programViewCount() ? &m_views[static_cast<size_t>(index)]
                                                        : nullptr;
    }

private:
    QString m_unit;
    std::vector<CatalogView> m_views;
};

} // namespace Tavro::FieldHost
