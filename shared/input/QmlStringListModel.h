#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QStringListModel>

#include <memory>

namespace Tavro::Shared {

/**
 * Short list of texts for QML: recent entries, favourites.
 *
 * The two line counts only tell QML how large to make its list. The model itself never shortens
 * its list to them, and does not look for duplicates. GUI thread only.
 *
 * Views hear of changes in two ways: push_front() and setData() reset the model, push_back() and
 * remove() announce the row.
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
    /** An empty list without a parent; belongs to the caller. */
    QmlStringListModel();
    ~QmlStringListModel() override;

    /** Puts @p str before the first row, and resets the model. */
    Q_INVOKABLE void push_front(const QString &str);
    /** Puts @p str behind the last row: rows inserted, then data changed unless it is empty. */
    Q_INVOKABLE void push_back(const QString &str);
    /** Takes the row at @p index out; false, and nothing else, when there is none. */
    Q_INVOKABLE bool remove(int index);
    /** Whether a row equals @p str as a whole. */
    Q_INVOKABLE bool contains(const QString &str, Qt::CaseSensitivity cs = Qt::CaseSensitive) const;
    /** As QStringListModel, but the model is reset, also when nothing is set and this is false. */
    Q_INVOKABLE bool setData(const QModelIndex &index, const QVariant &value,
                             int role = Qt::EditRole) override;

    /** Number of lines to show: 3 at first, at least 1, at most getMaxLineNumberAllFavorites(). */
    int getMaxLineNumber() const;
    /** Clamps @p maxLineNumber; emits its signal unless exactly this number is stored already. */
    void setMaxLineNumber(int maxLineNumber);
    /** Upper bound of getMaxLineNumber(); 14 at first. */
    int getMaxLineNumberAllFavorites() const;
    /** Only ever raises the bound; ignores anything else. */
    void setMaxLineNumberAllFavorites(int maxLineNumberAllFavorites);

Q_SIGNALS:
    /** A number was asked for that differed from the stored one; it may be the same after that. */
    void maxLineNumberChanged();
    /** The bound was raised. */
    void maxLineNumberAllFavoritesChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
