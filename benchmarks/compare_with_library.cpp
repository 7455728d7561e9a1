// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Compares two files by CFileSystemHelper, and prints the seconds it took, the bytes by which
// memory grew at most, and the answer.

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
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: %s FILE FILE\n", argv[0]);
        return EXIT_FAILURE;
    }

    QElapsedTimer timer;
    const long before = peak_resident_bytes();
    timer.start();
    bool ok = false;
    const bool equal = CFileSystemHelper::compareFiles(arguments.at(1), arguments.at(2), ok);
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    std::printf("%.9f %ld %s\n", seconds, peak_resident_bytes() - before,
                equal ? "equal" : "different");
    return ok ? EXIT_SUCCESS : EXIT_FAILURE;
}
