#include "fieldhost/catalog/CatalogTemplate.h"

#include <utility>

namespace Tavro::FieldHost {

namespace {

template<typename T> const T *at(const std::vector<T> &items, int index)
{
    // a negative index becomes one far beyond the end
    const auto i = static_cast<size_t>(index);
    return i < items.size() ? &items[i] : nullptr;
}

} // namespace

CatalogColumn::CatalogColumn(const QString &key, const QString &unit)
    : m_key(key)
    , m_unit(unit)
{
}

CatalogView::CatalogView(const QString &key, std::vector<CatalogColumn> columns)
    : m_key(key)
    , m_columns(std::move(columns))
{
}

const Templates::CColumnDefinition *CatalogView::column(int index) const
{
    return at(m_columns, index);
}

CatalogTemplate::CatalogTemplate(const QString &unit, std::vector<CatalogView> views)
    : m_unit(unit)
    , m_views(std::move(views))
{
}

const Templates::CProgramView *CatalogTemplate::programView(int index) const
{
    return at(m_views, index);
}

} // namespace Tavro::FieldHost
