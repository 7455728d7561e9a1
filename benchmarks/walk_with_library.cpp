// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Enumerates a directory as the copy worker does for a copy, and prints the seconds it took, the
// bytes by which memory grew at most, and the bytes that it found.

#include "benchmarks/resident.h"
#include "shared/fileops/CFileCopyWorker.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

using Tavro::Shared::CFileCopyWorker;

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return EXIT_FAILURE;
    }

    CFileCopyWorker worker;
    worker.copyDirectory(arguments.at(1), QStringLiteral("/nowhere"));
    QElapsedTimer timer;
    const long before = peak_resident_bytes();
    timer.start();
    worker.enumerateFiles();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    std::printf("%.9f %ld\n", seconds, peak_resident_bytes() - before);
    return EXIT_SUCCESS;
}
