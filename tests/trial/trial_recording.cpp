// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Records a clip in real time and says how late its frames were: each is due when the one before it
// has lasted.

#include "fieldhost/jobs/RecordRun.h"
#include "fieldhost/services/FieldApplication.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using Tavro::FieldHost::FieldApplication;
using Tavro::FieldHost::RecordPlan;
using Tavro::FieldHost::RecordRun;

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: trial_recording CLIP SECONDS\n", stderr);
        return 2;
    }
    FieldApplication host;
    RecordPlan plan;
    plan.clip = arguments.at(1);
    plan.duration = arguments.at(2).toLongLong() * 1000;
    RecordRun run(plan, host);

    QElapsedTimer sinceStart;
    qint64 due = 0; // ms, of the first frame that has not been passed
    qint64 latest = 0; // ms
    QObject::connect(&run, &RecordRun::progressChanged, [&] {
        latest = std::max(latest, sinceStart.elapsed() - due);
        due = run.recorded();
    });
    // no look there: before it, the file is written and read again
    QObject::connect(&run, &RecordRun::finished, &application, &QCoreApplication::quit);
    run.start();
    sinceStart.start();
    QCoreApplication::exec();
    if (!run.result().problem.isEmpty()) {
        std::fprintf(stderr, "trial: %s\n", qPrintable(run.result().problem));
        return EXIT_FAILURE;
    }
    std::printf("%d samples, late by %lld ms at the most\n", run.result().samples,
                static_cast<long long>(latest));
    return EXIT_SUCCESS;
}
