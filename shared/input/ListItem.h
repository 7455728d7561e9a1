// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>
#include <QVariant>

#include <memory>

namespace Tavro::Shared {

/**
 * One entry of a field's value list. A plain value: nothing is checked, and each thread may use its
 * own copy.
 */
class OVO_SHARED_EXPORT ListItem
{
public:
    /** Creates an entry of an invalid key and two empty texts. */
    ListItem();
    /** Creates an entry of the given key, text and value. */
    ListItem(const QVariant &key, const QString &text, const QString &value);
    /** All of @p other. */
    ListItem(const ListItem &other);
    /** All of @p other. */
    ListItem &operator=(const ListItem &other);
    ~ListItem();

    /** Key by which the host identifies the entry. */
    const QVariant &key() const;
    /** Sets the key, a variant of any type. Default: an invalid variant. */
    void setKey(const QVariant &key);
    /** Text that the list shows. */
    const QString &text() const;
    /** Sets the text that the list shows. Default: empty. */
    void setText(const QString &text);
    /** Value that is stored when the user chooses the entry. */
    const QString &value() const;
    /** Sets the value that is stored when the user chooses the entry. Default: empty. */
    void setValue(const QString &value);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
