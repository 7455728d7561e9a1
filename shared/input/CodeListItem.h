// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * One entry of a code list, and the identifier of the object that the list belongs to. A plain
 * value: nothing is checked, and each thread may use its own copy.
 */
class OVO_SHARED_EXPORT CodeListItem
{
public:
    /** Creates an entry of three empty texts. */
    CodeListItem();
    /** Creates an entry of the given texts. */
    CodeListItem(const QString &code, const QString &text, const QString &objectId);
    /** All of @p other. */
    CodeListItem(const CodeListItem &other);
    /** All of @p other. */
    CodeListItem &operator=(const CodeListItem &other);
    ~CodeListItem();

    /** Code that is stored when the user chooses the entry. */
    const QString &code() const;
    /** Sets the code that is stored when the user chooses the entry. Default: empty. */
    void setCode(const QString &code);
    /** Text that the list shows. */
    const QString &text() const;
    /** Sets the text that the list shows. Default: empty. */
    void setText(const QString &text);
    /** Identifier, in the database, of the object that the code list belongs to. */
    const QString &objectId() const;
    /** Sets the identifier of the object that the code list belongs to. Default: empty. */
    void setObjectId(const QString &objectId);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
