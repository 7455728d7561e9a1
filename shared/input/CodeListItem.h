#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * One entry of a code list, and the object that it belongs to. A value: copied freely, any thread
 * its own.
 */
class OVO_SHARED_EXPORT CodeListItem
{
public:
    /** Three empty texts. */
    CodeListItem();
    /** All three as given. */
    CodeListItem(const QString &code, const QString &text, const QString &objectId);
    /** All of @p other. */
    CodeListItem(const CodeListItem &other);
    /** All of @p other. */
    CodeListItem &operator=(const CodeListItem &other);
    ~CodeListItem();

    /** What is stored when the entry is chosen. */
    const QString &code() const;
    /** Any text. */
    void setCode(const QString &code);
    /** What the list shows. */
    const QString &text() const;
    /** Any text. */
    void setText(const QString &text);
    /** Identifier of the object that the code list belongs to, as the database has it. */
    const QString &objectId() const;
    /** Any text. */
    void setObjectId(const QString &objectId);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
