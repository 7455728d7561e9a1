// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Copies a file or a directory through CFileCopyController, the way a host does, and prints the
// seconds from the request to the signal that ends it.

#include "shared/fileops/CFileCopyController.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>

#include <cstdio>

using Tavro::Shared::CFileCopyController;

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: %s SOURCE DESTINATION\n", argv[0]);
        return EXIT_FAILURE;
    }
    const QString &source = arguments.at(1);
    const QString &destination = arguments.at(2);

    CFileCopyController controller;
    QElapsedTimer timer;
    double seconds = 0;
    QObject::connect(&controller, &CFileCopyController::operationCompleted, &application, [&] {
        seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
        QCoreApplication::quit();
    });
    QObject::connect(&controller, &CFileCopyController::operationCanceled, &application,
                     [] { QCoreApplication::exit(EXIT_FAILURE); });

    const bool isDirectory = QFileInfo(source).isDir();
    timer.start();
    if (isDirectory) {
        controller.copyDirectory(source, destination);
    } else {
        controller.copyDatabaseFile(source, destination);
    }
    if (QCoreApplication::exec() != 0) {
        return EXIT_FAILURE;
    }
    if (controller.processedBytes() != controller.totalBytes()) {
        std::fprintf(stderr, "Only %lld of %lld bytes were copied.\n", controller.processedBytes(),
                     controller.totalBytes());
        return EXIT_FAILURE;
    }
    std::printf("%.9f\n", seconds);
    return EXIT_SUCCESS;
}
