// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// What is done to a disk on trial: makes trees, copies them through the library and notes down what
// was reported, when it was reported.

#include "shared/fileops/CFileCopyController.h"
#include "shared/fileops/CFileCopyWorker.h"
#include "tests/trial/DiskLog.h"
#include "tests/trial/Judge.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <iostream>
#include <random>
#include <string>

using Tavro::Shared::CFileCopyController;
using Tavro::Shared::CFileCopyWorker;

namespace {

constexpr qint64 s_kibibyte = 1024;
constexpr qint64 s_mebibyte = 1024 * s_kibibyte;

[[noreturn]] void fail(const QString &what)
{
    std::fprintf(stderr, "trial: %s\n", qPrintable(what));
    std::exit(EXIT_FAILURE);
}

/** Makes files whose content depends on @p edition and their path, and on nothing else. */
class TreeMaker
{
public:
    TreeMaker(const QString &root, const QString &edition)
        : m_root(root)
        , m_edition(edition)
    {
    }

    void directory(const QString &path) const
    {
        if (!QDir().mkpath(m_root.filePath(path))) {
            fail(QStringLiteral("cannot create ") + path);
        }
    }

    void file(const QString &path, qint64 size) const
    {
        directory(QFileInfo(path).path());
        std::mt19937 random(qHash(QString(m_edition + path), 1));
        QByteArray content(int(size), Qt::Uninitialized);
        for (char &byte : content) {
            byte = char(random() >> 24);
        }
        QFile file(m_root.filePath(path));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != size || !file.flush()) {
            fail(QStringLiteral("cannot write ") + path);
        }
    }

    // sizes that end in the middle of a sector, of a cluster, and on their edges
    void files(const QString &pattern, int count) const
    {
        const qint64 sizes[] = {1, 512, 700, 1024, 3000, 4096, 9000, 20000};
        for (int i = 0; i < count; ++i) {
            file(pattern.arg(i, 3, 10, QLatin1Char('0')), sizes[i % 8]);
        }
    }

private:
    const QDir m_root;
    const QString m_edition;
};

void makeTree(const QString &shape, const TreeMaker &tree)
{
    if (shape == QLatin1String("short")) { // one entry on FAT
        tree.files(QStringLiteral("F%1.DAT"), 24);
        tree.files(QStringLiteral("CLIPS/C%1.MPG"), 16);
    } else if (shape == QLatin1String("long")) { // several entries, across sectors and clusters
        tree.files(QStringLiteral("Inspection of the main sewer, section %1.data"), 24);
        tree.files(QStringLiteral("Clips of the first day/Clip with a long name %1.mpeg"), 16);
    } else if (shape == QLatin1String("accents")) {
        tree.files(QStringLiteral("Kanal Größe Übersicht %1.txt"), 12);
        tree.files(QStringLiteral("Straße/Прокладка %1.txt"), 12);
        tree.files(QStringLiteral("Straße/点検 %1 \U0001F6B0.txt"), 12);
    } else if (shape == QLatin1String("large")) { // several chunks, one of them full
        tree.file(QStringLiteral("video.mpg"), 9 * s_mebibyte + 1);
        tree.file(QStringLiteral("clips/Clip with a long name.mpeg"), 4 * s_mebibyte);
        tree.file(QStringLiteral("clips/small.txt"), 100);
    } else if (shape == QLatin1String("mixed")) {
        tree.file(QStringLiteral("a.txt"), 10);
        tree.file(QStringLiteral("nothing.txt"), 0);
        tree.file(QStringLiteral("Übersicht.pdf"), 200 * s_kibibyte);
        tree.files(QStringLiteral("section %1/clip.mpg"), 8);
        tree.files(QStringLiteral("section %1/observations of this section.csv"), 8);
        tree.file(QStringLiteral("d/e/e/p/tree of directories/ends/here.txt"), 5000);
        tree.file(QStringLiteral("d/e/e/p/video.mpg"), 5 * s_mebibyte);
        tree.file(QStringLiteral("d/e/e/p/tree of directories/ends/last/nothing.txt"), 0);
        tree.directory(QStringLiteral("empty"));
        tree.directory(QStringLiteral("d/e/e/p/tree of directories/ends/last/empty"));
    } else if (shape == QLatin1String("early")) { // "sync" alone writes what is empty
        for (int i = 0; i < 12; ++i) {
            tree.file(QStringLiteral("early/Nothing is in file %1.txt").arg(i), 0);
        }
        tree.file(QStringLiteral("last/clip.mpg"), 5000);
    } else if (shape == QLatin1String("few")) { // a bit of everything
        tree.file(QStringLiteral("a.txt"), 10);
        tree.file(QStringLiteral("nothing.txt"), 0);
        tree.file(QStringLiteral("video.mpg"), 4 * s_mebibyte + 1);
        tree.file(QStringLiteral("section/clip.mpg"), 3000);
        tree.file(QStringLiteral("section/below/observations.csv"), 700);
        tree.directory(QStringLiteral("section/empty"));
    } else if (shape == QLatin1String("other")) { // what the run does not touch
        tree.files(QStringLiteral("KEPT%1.DAT"), 4);
        tree.files(QStringLiteral("Observations of last year %1.data"), 4);
    } else if (shape == QLatin1String("database")) {
        tree.file(QStringLiteral("project.db"), 9 * s_mebibyte + 1);
    } else {
        fail(QStringLiteral("no such tree: ") + shape);
    }
}

/**
 * Writes what a copy of @p source to @p destination has to be, for the judge: its files in the
 * order in which they are copied, then its directories.
 */
void writePlan(const QString &source, const QString &destination, QTextStream &plan)
{
    if (QFileInfo(source).isFile()) {
        plan << "file\t" << destination << '\t' << source << '\n';
        return;
    }
    const QString root = QDir(source).absolutePath();
    QStringList directories = {root};
    for (int i = 0; i < directories.size(); ++i) {
        const QDir directory(directories.at(i));
        const auto files = directory.entryInfoList(QDir::Files, QDir::NoSort);
        for (const QFileInfo &file : files) {
            const QString path = file.absoluteFilePath();
            plan << "file\t" << destination << path.mid(root.size()) << '\t' << path << '\n';
        }
        const auto below = directory.entryList(QDir::AllDirs | QDir::NoDotAndDotDot, QDir::NoSort);
        for (const QString &name : below) {
            directories.append(directory.absoluteFilePath(name));
        }
    }
    for (const QString &directory : qAsConst(directories)) {
        plan << "directory\t" << destination << directory.mid(root.size()) << '\n';
    }
}

// in one call: what has been noted is not lost with the process
void note(const QString &disk, const QString &text)
{
    if (disk == QLatin1String("-")) {
        const QByteArray line = text.toUtf8() + '\n';
        if (::write(STDOUT_FILENO, line.constData(), size_t(line.size())) != line.size()) {
            fail(QStringLiteral("cannot note ") + text);
        }
        return;
    }
    Trial::mark(disk.toStdString(), text.toStdString());
}

void noteCount(const QString &disk, qint64 bytes)
{
    note(disk, QStringLiteral("counted %1").arg(bytes));
}

// noted down by the thread that works, before it goes on: nothing lies between report and mark
void copyThroughWorker(const QString &disk, const QStringList &sources,
                       const QStringList &destinations)
{
    CFileCopyWorker worker;
    qint64 total = -1;
    qint64 processed = 0;
    QObject::connect(&worker, &CFileCopyWorker::totalBytesChanged, &worker,
                     [&](qint64 bytes) { total = bytes; });
    QObject::connect(&worker, &CFileCopyWorker::processedBytesChanged, &worker, [&](qint64 bytes) {
        processed = bytes;
        noteCount(disk, bytes);
    });
    worker.copyDirectories(sources, destinations);
    worker.doWork();
    if (processed != total) {
        fail(QStringLiteral("%1 of %2 bytes were copied").arg(processed).arg(total));
    }
    note(disk, QStringLiteral("completed"));
}

void copyThroughController(const QString &disk, const QStringList &sources,
                           const QStringList &destinations)
{
    CFileCopyController controller;
    QObject::connect(&controller, &CFileCopyController::processedBytesChanged, &controller,
                     [&] { noteCount(disk, controller.processedBytes()); });
    QObject::connect(&controller, &CFileCopyController::operationCompleted, &controller, [&] {
        if (controller.lastResult().isWhole()) {
            note(disk, QStringLiteral("completed"));
        }
        QCoreApplication::quit();
    });
    if (QFileInfo(sources.constFirst()).isFile()) {
        controller.copyDatabaseFile(sources.constFirst(), destinations.constFirst());
    } else if (sources.size() == 1) {
        controller.copyDirectory(sources.constFirst(), destinations.constFirst());
    } else {
        controller.copyDirectories(sources, destinations);
    }
    QCoreApplication::exec();
    const Tavro::Shared::CFileOperationResult result = controller.lastResult();
    if (!result.isWhole() || controller.processedBytes() != controller.totalBytes()) {
        fail(QStringLiteral("%1 of %2 bytes were copied: %3, %4")
                 .arg(controller.processedBytes())
                 .arg(controller.totalBytes())
                 .arg(result.path, QString::fromLocal8Bit(std::strerror(result.systemError))));
    }
}

/** Looks at the copy below @p root, with the report from standard input. */
void judge(const std::string &plan, const std::string &root)
{
    Trial::Report report;
    for (std::string line; std::getline(std::cin, line);) {
        if (!report.add(line)) {
            fail(QStringLiteral("no line of a report: ") + QString::fromStdString(line));
        }
    }
    const Trial::Verdict verdict = Trial::Judge(plan).judge(root, report);
    std::printf("%lld %lld\n", static_cast<long long>(verdict.reported),
                static_cast<long long>(verdict.lost));
    for (const std::string &finding : verdict.findings) {
        std::printf("%s\n", finding.c_str());
    }
}

[[noreturn]] void usage()
{
    std::fputs("usage: trial_workload tree SHAPE EDITION DIRECTORY\n"
               "       trial_workload plan SOURCE DESTINATION...\n"
               "       trial_workload note DISK <LINES\n"
               "       trial_workload worker|controller DISK SOURCE DESTINATION...\n"
               "       trial_workload judge PLAN DIRECTORY <REPORT\n"
               "DISK is the name of one that records, or \"-\" for standard output.\n",
               stderr);
    std::exit(2);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() < 2) {
        usage();
    }
    const QString command = arguments.takeFirst();
    if (command == QLatin1String("tree") && arguments.size() == 3) {
        makeTree(arguments.at(0), TreeMaker(arguments.at(2), arguments.at(1)));
        return EXIT_SUCCESS;
    }
    if (command == QLatin1String("note") && arguments.size() == 1) {
        for (std::string line; std::getline(std::cin, line);) {
            Trial::mark(arguments.constFirst().toStdString(), line);
        }
        return EXIT_SUCCESS;
    }
    if (command == QLatin1String("judge") && arguments.size() == 2) {
        judge(QFile::encodeName(arguments.at(0)).toStdString(),
              QFile::encodeName(arguments.at(1)).toStdString());
        return EXIT_SUCCESS;
    }
    const QString disk = command == QLatin1String("plan") ? QString() : arguments.takeFirst();
    QStringList sources;
    QStringList destinations;
    while (arguments.size() >= 2) {
        sources.append(arguments.takeFirst());
        destinations.append(arguments.takeFirst());
    }
    if (sources.isEmpty() || !arguments.isEmpty()) {
        usage();
    }
    if (command == QLatin1String("plan")) {
        QTextStream plan(stdout);
        plan.setCodec("UTF-8");
        for (int i = 0; i < sources.size(); ++i) {
            writePlan(sources.at(i), destinations.at(i), plan);
        }
    } else if (command == QLatin1String("worker")) {
        copyThroughWorker(disk, sources, destinations);
    } else if (command == QLatin1String("controller")) {
        copyThroughController(disk, sources, destinations);
    } else {
        usage();
    }
    return EXIT_SUCCESS;
}
