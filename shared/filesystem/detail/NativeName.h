// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <array>

namespace Tavro::Shared::detail {

/** False for the name of an entry that is not UTF-8: no QString means it. */
bool isAddressable(const char *name);

/** True when the system takes @p path as it is: it would end at a NUL, and so mean another. */
bool isNameable(const QString &path);

/**
 * @p path as QFile takes it: a prefix of QDir::addSearchPath() is replaced by that of its
 * directories in which the rest is found. Any other path is returned as it is.
 */
QString resolvedPath(const QString &path);

/** True for a resource of the program, ":/name": only QFile and QDir know what it is. */
bool isResource(const QString &path);

/** What the system calls an entry of a directory; a plain name costs no allocation. */
class NativeName
{
    Q_DISABLE_COPY(NativeName)

public:
    /** The name is @p path, which isNameable(), behind position @p begin. */
    NativeName(const QString &path, int begin);

    const char *get() const { return m_encoded.isNull() ? m_plain.data() : m_encoded.constData(); }

private:
    std::array<char, 256> m_plain; // as many bytes as a name may have, and a NUL
    QByteArray m_encoded; // null when it stands in m_plain
};

} // namespace Tavro::Shared::detail
