// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QStringListModel>

#include <memory>

namespace Tavro::Shared {

/**
 * A short list of texts for QML: recent entries, favourites.
 *
 * The two line counts tell QML how many lines to show. The model neither shortens its list to them
 * nor looks for duplicates. GUI thread only. No function blocks.
 *
 * push_front() and setData() reset the model. push_back() and remove() insert and remove one row
 * without a reset.
 */
class OVO_SHARED_EXPORT QmlStringListModel : public QStringListModel
{
    Q_OBJECT
    // all lower case: screens bind to it by this name
    Q_PROPERTY(
        int maxlinenumber READ getMaxLineNumber WRITE setMaxLineNumber NOTIFY maxLineNumberChanged)
    Q_PROPERTY(int maxLineNumberAllFavorites READ getMaxLineNumberAllFavorites WRITE
                   setMaxLineNumberAllFavorites NOTIFY maxLineNumberAllFavoritesChanged)

public:
    /** Creates an empty list without a parent. The caller owns it. */
    QmlStringListModel();
    ~QmlStringListModel() override;

    /** Inserts @p str before the first row and resets the model. */
    Q_INVOKABLE void push_front(const QString &str);
    /**
     * Appends @p str after the last row. Emits rowsInserted(), and then dataChanged() unless @p str
     * is empty.
     */
    Q_INVOKABLE void push_back(const QString &str);
    /** Removes the row at @p index. Returns false and does nothing when there is no such row. */
    Q_INVOKABLE bool remove(int index);
    /** Returns true when a row equals @p str, compared as a whole with @p cs. */
    Q_INVOKABLE bool contains(const QString &str, Qt::CaseSensitivity cs = Qt::CaseSensitive) const;
    /**
     * Sets the text of a row as QStringListModel::setData() does, and resets the model. The model
     * is reset also when nothing was set and the result is false.
     */
    Q_INVOKABLE bool setData(const QModelIndex &index, const QVariant &value,
                             int role = Qt::EditRole) override;

    /** Number of lines to show, 1 to getMaxLineNumberAllFavorites(). */
    int getMaxLineNumber() const;
    /**
     * Sets the number of lines to show. Default: 3. Values outside 1 to
     * getMaxLineNumberAllFavorites() are clamped. Emits maxLineNumberChanged() unless
     * @p maxLineNumber equals the stored number; the comparison comes before the clamping.
     */
    void setMaxLineNumber(int maxLineNumber);
    /** Upper bound of getMaxLineNumber(). */
    int getMaxLineNumberAllFavorites() const;
    /**
     * Raises the upper bound of getMaxLineNumber(). Default: 14. A number that is not greater than
     * the present bound is ignored. getMaxLineNumber() does not change.
     */
    void setMaxLineNumberAllFavorites(int maxLineNumberAllFavorites);

Q_SIGNALS:
    /**
     * Emitted when setMaxLineNumber() was called with another number than the stored one. Due to
     * the clamping, the stored number may be the same as before.
     */
    void maxLineNumberChanged();
    /** Emitted when the upper bound was raised. */
    void maxLineNumberAllFavoritesChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
