// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/QmlStringListModel.h"

namespace Tavro::Shared {

namespace {

constexpr int s_minLineNumber = 1;

} // namespace

class Q_DECL_HIDDEN QmlStringListModel::Private
{
public:
    int maxLineNumber = 3;
    int maxLineNumberAllFavorites = 14;
};

QmlStringListModel::QmlStringListModel()
    : d(std::make_unique<Private>())
{
}

QmlStringListModel::~QmlStringListModel() = default;

void QmlStringListModel::push_front(const QString &str)
{
    beginResetModel();
    insertRows(0, 1); // signals the row within the reset; views read all rows after it anyway
    QStringListModel::setData(index(0), str, Qt::EditRole); // clazy:exclude=skipped-base-method
    endResetModel();
}

void QmlStringListModel::push_back(const QString &str)
{
    insertRows(rowCount(), 1);
    // not the override: views must keep their position
    QStringListModel::setData(index(rowCount() - 1), str, Qt::EditRole);
}

bool QmlStringListModel::remove(int index)
{
    // removeRows() adds 1 to the row before it compares: the highest number would wrap around
    return index < rowCount() && removeRows(index, 1);
}

bool QmlStringListModel::contains(const QString &str, Qt::CaseSensitivity cs) const
{
    return stringList().contains(str, cs);
}

bool QmlStringListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    beginResetModel();
    const bool isSet = QStringListModel::setData(index, value, role);
    endResetModel();
    return isSet;
}

int QmlStringListModel::getMaxLineNumber() const
{
    return d->maxLineNumber;
}

void QmlStringListModel::setMaxLineNumber(int maxLineNumber)
{
    // the argument is compared before it is clamped, so one above the bound emits each time
    if (maxLineNumber == d->maxLineNumber) {
        return;
    }
    d->maxLineNumber = maxLineNumber < d->maxLineNumberAllFavorites
        ? qMax(maxLineNumber, s_minLineNumber)
        : d->maxLineNumberAllFavorites;
    Q_EMIT maxLineNumberChanged();
}

int QmlStringListModel::getMaxLineNumberAllFavorites() const
{
    return d->maxLineNumberAllFavorites;
}

void QmlStringListModel::setMaxLineNumberAllFavorites(int maxLineNumberAllFavorites)
{
    if (maxLineNumberAllFavorites > d->maxLineNumberAllFavorites) {
        d->maxLineNumberAllFavorites = maxLineNumberAllFavorites;
        Q_EMIT maxLineNumberAllFavoritesChanged();
    }
}

} // namespace Tavro::Shared
