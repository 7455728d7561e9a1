#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>
#include <QVariant>

namespace Tavro::Shared {

/** One entry of a field's value list. A value: copied freely, any thread its own. */
class OVO_SHARED_EXPORT ListItem
{
public:
    /** An invalid key and empty texts. */
    ListItem();
    /** All three as given. */
    ListItem(const QVariant &key, const QString &text, const QString &value);

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
    QVariant m_key;
    QString m_text;
    QString m_value;
};

} // namespace Tavro::Shared
