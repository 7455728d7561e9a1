// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/CFileCopyWorker.h"
#include "shared/fileops/detail/CopyRun.h"

namespace Tavro::Shared {

/** The requests and the steps of a CFileCopyWorker; its controller loads them here as well. */
class Q_DECL_HIDDEN CFileCopyWorker::Private : public detail::CopyCore
{
public:
    using WorkerCore::WorkerCore;

    static RequestPointer requestForDirectories(const QStringList &sourcePaths,
                                                const QStringList &destinationPaths);
    static RequestPointer requestForFile(const QString &sourcePath, const QString &destinationPath);

    static void enumerateFiles(detail::CopyRequest &request);
    static void prepareFile(detail::CopyRequest &request);

protected:
    bool takeStep(detail::CopyRequest &request) override;
    void close(const RequestPointer &request) override;
};

} // namespace Tavro::Shared
