#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>
#include <QVariant>

#include <memory>

namespace Tavro::Shared {

/** One entry of a field's value list. A value: copied freely, any thread its own. */
class OVO_SHARED_EXPORT ListItem
{
public:
    /** An invalid key and empty texts. */
    ListItem();
    /** All three as given. */
    ListItem(const QVariant &key, const QString &text, const QString &value);
    /** All of @p other. */
    ListItem(const ListItem &other);
    /** All of @p other. */
    ListItem &operator=(const ListItem &other);
    ~ListItem();

    /** By what the host tells entries apart; an invalid variant until it is set. */
    const QVariant &key() const;
    /** Any variant. */
    void setKey(const QVariant &key);
    /** What the list shows. */
    const QString &text() const;
    /** Any text. */
    void setText(const QString &text);
    /** What is stored when the entry is chosen. */
    const QString &value() const;
    /** Any text. */
    void setValue(const QString &value);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
