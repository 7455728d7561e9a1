// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Deletes a directory by the controller, with a listener for every signal, and prints the seconds
// from the request to the end of the run.

#include "shared/fileops/CFileDeleteController.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

using Tavro::Shared::CFileDeleteController;

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return EXIT_FAILURE;
    }

    CFileDeleteController controller;
    long long signalCount = 0;
    bool hasBegun = false;
    QObject::connect(&controller, &CFileDeleteController::processedBytesChanged, &controller,
                     [&] { ++signalCount; });
    QObject::connect(&controller, &CFileDeleteController::stateChanged, &controller, [&] {
        if (controller.state() != CFileDeleteController::StateIdle) {
            hasBegun = true;
        } else if (hasBegun) {
            QCoreApplication::quit();
        }
    });
    QElapsedTimer timer;
    timer.start();
    controller.deleteDirectory(arguments.at(1));
    QCoreApplication::exec();
    std::printf("%.9f %lld\n", static_cast<double>(timer.nsecsElapsed()) / 1e9, signalCount);
    return EXIT_SUCCESS;
}
