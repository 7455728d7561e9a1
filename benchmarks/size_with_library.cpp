// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Adds up the sizes in a directory as the size finder and the file system helper do, and prints
// the seconds it took, the bytes by which memory grew at most, and the sum.

#include "benchmarks/resident.h"
#include "shared/filesystem/CFileSystemHelper.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

using Tavro::Shared::CFileSystemHelper;

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return EXIT_FAILURE;
    }

    QElapsedTimer timer;
    const long before = peak_resident_bytes();
    timer.start();
    const qint64 bytes = CFileSystemHelper::getDirectorySize(arguments.at(1));
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    std::printf("%.9f %ld %lld\n", seconds, peak_resident_bytes() - before,
                static_cast<long long>(bytes));
    return EXIT_SUCCESS;
}
