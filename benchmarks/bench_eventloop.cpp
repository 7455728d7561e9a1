// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// How long the turns of the event loop are while the screen exports: the time between two waits, in
// which nobody's touch is looked at.

#include "benchmarks/Measurement.h"
#include "benchmarks/Tree.h"
#include "fieldhost/qml/Screens.h"
#include "fieldhost/qml/export/ExportModel.h"
#include "fieldhost/services/FieldApplication.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

#include <dlfcn.h>
#include <poll.h>

using namespace Tavro::Benchmarks;
using namespace Tavro::FieldHost;

namespace {

constexpr double s_longest = 16; // ms
constexpr double s_usual = 8; // ms, of 99 turns in 100
constexpr int s_idleTime = 5000; // ms
constexpr int s_idlePulse = 100; // ms; the export's figures come as often

/** Of one kind, in milliseconds. */
class Turns
{
public:
    void add(double wall, double processor)
    {
        m_wall.push_back(wall);
        if (wall >= m_longest) {
            m_longest = wall;
            m_processorOfLongest = processor;
        }
    }
    size_t count() const { return m_wall.size(); }
    double longest() const { return m_longest; }
    /** What the thread has worked in the longest; the rest of it, another one had the processor. */
    double processorOfLongest() const { return m_processorOfLongest; }
    /** What 99 of 100 do not exceed. */
    double usual() const
    {
        if (m_wall.empty()) {
            return 0;
        }
        std::vector<double> sorted = m_wall;
        std::sort(sorted.begin(), sorted.end());
        return sorted.at((sorted.size() * 99 + 99) / 100 - 1);
    }

private:
    std::vector<double> m_wall;
    double m_longest = 0;
    double m_processorOfLongest = 0;
};

struct Phase
{
    Turns plain;
    Turns withFrame;
};

struct Moment
{
    double wall;
    double processor;
};

double milliseconds(clockid_t clock)
{
    timespec time = {};
    ::clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

Moment momentNow()
{
    return {milliseconds(CLOCK_MONOTONIC), milliseconds(CLOCK_THREAD_CPUTIME_ID)};
}

thread_local bool t_isScreen = false; // the thread that is looked at
Phase *s_phase = nullptr; // that turns are added to
Moment s_begin = {};
bool s_hasFrame = false;

void endTurn()
{
    if (!t_isScreen || !s_phase) {
        return;
    }
    const Moment end = momentNow();
    (s_hasFrame ? s_phase->withFrame : s_phase->plain)
        .add(end.wall - s_begin.wall, end.processor - s_begin.processor);
}

void beginTurn()
{
    if (t_isScreen) {
        s_hasFrame = false;
        s_begin = momentNow();
    }
}

template<typename Function> Function next(Function, const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

// What an event loop waits in, whichever it is: these take the place of the system's.

extern "C" int poll(pollfd *files, nfds_t count, int timeout)
{
    static const auto wait = next(&poll, "poll");
    endTurn();
    const int result = wait(files, count, timeout);
    beginTurn();
    return result;
}

extern "C" int ppoll(pollfd *files, nfds_t count, const timespec *timeout, const sigset_t *signals)
{
    static const auto wait = next(&ppoll, "ppoll");
    endTurn();
    const int result = wait(files, count, timeout, signals);
    beginTurn();
    return result;
}

namespace {

// what Repeater and Loader make belongs to no object above them, but to an item
ExportModel *modelIn(const QQuickItem *item)
{
    auto *model = item->findChild<ExportModel *>();
    const QList<QQuickItem *> children = item->childItems();
    for (auto child = children.begin(); !model && child != children.end(); ++child) {
        model = modelIn(*child);
    }
    return model;
}

void addRow(Table &table, const char *name, const Turns &turns)
{
    table.addRow({name, std::to_string(turns.count()), fixed(turns.usual(), 2),
                  fixed(turns.longest(), 2), fixed(turns.processorOfLongest(), 2)});
}

void printVerdicts(const std::string &subject, const Turns &turns)
{
    printVerdict(subject + ", 99 of 100", turns.usual(), s_usual, " ms");
    printVerdict(subject + ", the longest", turns.longest(), s_longest, " ms");
}

} // namespace

int main(int argc, char **argv)
{
    const unsigned folders = argc == 7 ? std::strtoul(argv[3], nullptr, 10) : 0;
    const unsigned files = argc == 7 ? std::strtoul(argv[4], nullptr, 10) : 0;
    const unsigned long fileBytes = argc == 7 ? std::strtoul(argv[5], nullptr, 10) : 0;
    const unsigned long largeBytes = argc == 7 ? std::strtoul(argv[6], nullptr, 10) : 0;
    if (folders == 0 || files == 0 || fileBytes == 0 || largeBytes == 0) {
        fail(std::string("usage: ") + argv[0]
             + " SOURCE DESTINATION FOLDERS FILES BYTES_PER_FILE LARGE_BYTES\n"
             + "SOURCE is created and filled, and copied to DESTINATION.");
    }
    const std::filesystem::path source = argv[1];
    createTree(source, folders, files, fileBytes);
    createFile(source / "video.bin", largeBytes);

    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    const FieldApplication host;
    registerScreens();
    QQmlApplicationEngine engine;
    engine.load(QUrl(QStringLiteral("qrc:/screens/Main.qml")));
    auto *const window = engine.rootObjects().isEmpty()
        ? nullptr
        : qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    auto *model = window ? modelIn(window->contentItem()) : nullptr;
    if (!model) {
        fail("there is no screen that exports");
    }
    QObject::connect(
        window, &QQuickWindow::afterRendering, window, [] { s_hasFrame = true; },
        Qt::DirectConnection);
    t_isScreen = true;

    Phase idle;
    Phase exporting;
    QTimer pulse;
    pulse.setInterval(s_idlePulse);
    QObject::connect(&pulse, &QTimer::timeout, window, [window] { window->update(); });
    double begin = 0;
    QTimer::singleShot(1000, model, [&] { // the first frames are of the start
        s_phase = &idle;
        pulse.start();
    });
    QTimer::singleShot(1000 + s_idleTime, model, [&] {
        pulse.stop();
        s_phase = &exporting;
        model->setSource(QString::fromLocal8Bit(source.c_str()));
        model->setDestination(QString::fromLocal8Bit(argv[2]));
        model->setVerify(false); // the bytes are compared below
        begin = now();
        model->start();
    });
    QObject::connect(model, &ExportModel::stateChanged, model, [&] {
        if (!model->isBusy()) {
            s_phase = nullptr;
            QCoreApplication::quit();
        }
    });
    QGuiApplication::exec();
    if (model->state() != ExportStates::Done) {
        fail("the export has failed");
    }
    const double seconds = now() - begin;
    requireEqual(source, std::filesystem::path(argv[2]) / source.filename());

    std::printf("### Turns of the event loop while %u files and %lu MiB are exported\n\n"
                "%.1f s, the window of 1280 x 800 rendered by software\n\n",
                files, largeBytes >> 20, seconds);
    Table table({"turns", "number", "99 of 100, ms", "longest, ms", "of that at work, ms"});
    addRow(table, "idle screen", idle.plain);
    addRow(table, "idle screen, with a frame", idle.withFrame);
    addRow(table, "export", exporting.plain);
    addRow(table, "export, with a frame", exporting.withFrame);
    table.print();
    std::printf("\n");
    printVerdicts("turns without a frame", exporting.plain);
    printVerdicts("turns with a frame", exporting.withFrame);
    std::printf("\n");
    return EXIT_SUCCESS;
}
