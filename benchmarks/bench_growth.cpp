// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Measures one kind of work at one size by the library and by Qt in turn, round after round. Each
// runs in a process of its own, because the most memory that a process had does not go down again.

#include "benchmarks/Measurement.h"
#include "benchmarks/Participant.h"
#include "benchmarks/resident.h"
#include "shared/input/TextValidator.h"
#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/GlobalLocaleData.h"

#include <QDoubleValidator>
#include <QRegExp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace Tavro::Benchmarks;
using Tavro::Shared::CLocaleSupport;
using Tavro::Shared::CProjectLocaleData;
using Tavro::Shared::GlobalLocaleData;
using Tavro::Shared::TextValidator;

namespace {

// by each process, for its time to be long enough
constexpr int s_charactersToCheck = 5000000;

// seconds for a verdict on a text of @p length characters
template<typename Check> double secondsOfVerdict(int length, const Check &check)
{
    const QString text = QStringLiteral("1,") + QString(length, QLatin1Char('5'));
    const int checks = std::clamp(s_charactersToCheck / length, 3, 10000);
    const double began = processor_seconds();
    for (int i = 0; i < checks; ++i) {
        QString input = text;
        if (!check(input)) {
            fail("a text that is right was refused");
        }
    }
    return (processor_seconds() - began) / checks;
}

double checkByLibrary(int length)
{
    TextValidator field;
    field.addValidator(TextValidator::ValidatorLength, {{QStringLiteral("bottom"), 1}});
    field.addValidator(TextValidator::ValidatorDouble);
    field.addValidator(TextValidator::ValidatorRegExp,
                       {{QStringLiteral("pattern"), QStringLiteral("[0-9]+,[0-9]*")}});
    return secondsOfVerdict(length, [&](QString &input) { return field.validate(input, true); });
}

double checkByQt(int length)
{
    const QDoubleValidator number(0, 5000, -1);
    const QRegExp pattern(QStringLiteral("[0-9]+,[0-9]*"));
    return secondsOfVerdict(length, [&](QString &input) {
        int position = 0;
        return input.size() >= 1 && number.validate(input, position) == QValidator::Acceptable
            && pattern.exactMatch(input);
    });
}

// seconds for @p switches between two locales, each followed by a look at what is then shown
template<typename Switch> double secondsOfSwitches(int switches, const Switch &switchAndShow)
{
    const double began = processor_seconds();
    for (int i = 0; i < switches; ++i) {
        if (switchAndShow(i % 2 == 0)
            != (i % 2 == 0 ? QStringLiteral("12,50") : QStringLiteral("12.50"))) {
            fail("a locale was switched without effect");
        }
    }
    return processor_seconds() - began;
}

double switchByLibrary(int switches)
{
    return secondsOfSwitches(switches, [](bool isGerman) {
        CProjectLocaleData::instance()->setLocale(
            isGerman ? QStringLiteral("D") : QStringLiteral("USA"),
            isGerman ? QStringLiteral("DEU") : QStringLiteral("ENG"));
        return CLocaleSupport::distanceValueToLocalizedString(12.5, false, true);
    });
}

double switchByQt(int switches)
{
    return secondsOfSwitches(switches, [](bool isGerman) {
        QLocale locale = isGerman ? QLocale(QLocale::German, QLocale::Germany)
                                  : QLocale(QLocale::English, QLocale::UnitedStates);
        locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
        QLocale::setDefault(locale);
        return QLocale().toString(12.5, 'f', 2);
    });
}

struct Worker
{
    const char *work;
    const char *name;
    double (*run)(int size);
    Series seconds = {};
    Series memory = {};
};

Worker s_workers[] = {
    {"rules", "QDoubleValidator and QRegExp", checkByQt},
    {"rules", "library", checkByLibrary},
    {"locale", "QLocale", switchByQt},
    {"locale", "library", switchByLibrary},
};

// in a process of its own
int work(const Worker &worker, int size)
{
    // the host's log: a switch leaves a line there
    if (std::freopen("/dev/null", "w", stderr) == nullptr) {
        return EXIT_FAILURE;
    }
    GlobalLocaleData::instance()->setDeviceLocale(QLocale(QLocale::German, QLocale::Germany));
    std::printf("%.9f\n", worker.run(size));
    return EXIT_SUCCESS;
}

void measure(const std::vector<Worker *> &workers, const std::string &size, unsigned long rounds)
{
    const std::string program = siblingProgram("bench_growth");
    for (unsigned long round = 0; round < rounds; ++round) {
        // by turns, so that nobody always gains by its place
        for (size_t i = 0; i < workers.size(); ++i) {
            Worker &worker = *workers[(i + round) % workers.size()];
            const Outcome outcome = runParticipant({program, worker.work, size, worker.name});
            worker.seconds.add(std::strtod(outcome.output.c_str(), nullptr));
            worker.memory.add(outcome.memory);
        }
    }
    for (const Worker *worker : workers) {
        recordCost(worker->name, std::stod(size), worker->seconds.median(),
                   worker->memory.median());
    }
}

} // namespace

int main(int argc, char **argv)
{
    const int size = argc == 4 ? std::atoi(argv[2]) : 0;
    const unsigned long rounds = argc == 4 ? std::strtoul(argv[3], nullptr, 10) : 0;
    std::vector<Worker *> workers;
    for (Worker &worker : s_workers) {
        if (size > 0 && std::strcmp(worker.work, argv[1]) == 0) {
            if (std::strcmp(worker.name, argv[3]) == 0) {
                return work(worker, size);
            }
            workers.push_back(&worker);
        }
    }
    if (workers.empty() || rounds == 0) {
        fail(std::string("usage: ") + argv[0] + " rules|locale SIZE ROUNDS\n"
             + "SIZE is the characters of a text, or the switches of the locale.");
    }
    measure(workers, argv[2], rounds);
    return EXIT_SUCCESS;
}
