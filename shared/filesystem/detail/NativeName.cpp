// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/detail/NativeName.h"

#include <QFile>
#include <QFileInfo>

namespace Tavro::Shared::detail {

bool isAddressable(const char *name)
{
    bool isAscii = true;
    for (const char *c = name; *c != '\0'; ++c) {
        isAscii = isAscii && static_cast<unsigned char>(*c) < 0x80;
    }
    if (isAscii) {
        return true;
    }
    // behind a "/": decoding would take a byte order mark at the very beginning off
    const QByteArray bytes = QByteArray("/") + name;
    return QFile::encodeName(QFile::decodeName(bytes)) == bytes;
}

bool isNameable(const QString &path)
{
    return !path.isEmpty() && !path.contains(QLatin1Char('\0'));
}

QString resolvedPath(const QString &path)
{
    // the file information has looked for it already; without a prefix it does not look at all
    const int colon = path.indexOf(QLatin1Char(':'));
    return colon > 1 ? QFileInfo(path).filePath() : path;
}

bool isResource(const QString &path)
{
    return path.startsWith(QLatin1Char(':'));
}

NativeName::NativeName(const QString &path, int begin)
{
    const int length = path.size() - begin;
    bool isPlain = length < static_cast<int>(m_plain.size());
    if (isPlain) {
        const QChar *text = path.constData() + begin;
        for (int i = 0; i < length; ++i) {
            const ushort c = text[i].unicode();
            isPlain = isPlain && c < 0x80;
            m_plain[static_cast<size_t>(i)] = static_cast<char>(c);
        }
        m_plain[static_cast<size_t>(length)] = '\0';
    }
    if (!isPlain) {
        m_encoded = QFile::encodeName(path.mid(begin));
    }
}

} // namespace Tavro::Shared::detail
