// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFile>
#include <QString>

#include <cstdio>
#include <memory>

namespace Tavro::Shared::detail {

/** Closes a stream that was only read: an error of the close does not matter. */
struct FileCloser
{
    void operator()(std::FILE *file) const { std::fclose(file); }
};

using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

/** Opens @p path to read its bytes; null when that is not possible. */
inline FileHandle openForReading(const QString &path)
{
    return FileHandle(std::fopen(QFile::encodeName(path).constData(), "rb"));
}

} // namespace Tavro::Shared::detail
