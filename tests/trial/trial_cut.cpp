// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Cuts the power of a recorded disk again and again, and looks each time at what is left of what
// had been reported by then.
//
// A cut falls between two flushes. What the first one covers is durable. Of the writes since, any
// may have arrived: none, those up to some moment, or whichever the disk's own cache has got rid
// of, piece by piece where a write was torn.

#include "tests/trial/DiskLog.h"
#include "tests/trial/Judge.h"
#include "tests/trial/TestDisk.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>

using namespace Trial;

namespace {

constexpr std::size_t s_findingsShown = 3;

/** What happened between two moments at which something became durable. */
struct Interval
{
    const DiskRequest *forced = nullptr; /**< a write that was durable when it began */
    std::vector<const DiskRequest *> writes;
    std::vector<std::string> marks;
};

struct Recording
{
    std::vector<const DiskRequest *> prepared; /**< writes of before the beginning */
    std::vector<Interval> intervals;
};

Recording readRecording(const DiskLog &log)
{
    Recording recording;
    bool hasBegun = false;
    Interval current;
    for (const DiskRequest &request : log.requests()) {
        if (request.isMark()) {
            if (request.mark == "begin") { // all there is by now was written on purpose
                hasBegun = true;
                std::swap(recording.prepared, current.writes);
                current = Interval();
            } else {
                current.marks.push_back(request.mark);
            }
            continue;
        }
        if ((request.isFlush() || request.isForced()) && hasBegun) {
            recording.intervals.push_back(std::move(current));
            current = Interval();
        }
        if (request.isForced() && hasBegun) {
            current.forced = &request;
        } else if (request.isWrite()) {
            current.writes.push_back(&request);
        }
    }
    recording.intervals.push_back(std::move(current));
    return recording;
}

/** The same numbers everywhere for the same seed; the distributions of the library are not. */
class Dice
{
public:
    explicit Dice(const std::string &seed)
    {
        std::seed_seq numbers(seed.begin(), seed.end());
        m_engine.seed(numbers);
    }

    /** 0 to @p end - 1. */
    std::size_t below(std::size_t end) { return static_cast<std::size_t>(m_engine() % end); }
    bool happens(unsigned percent) { return below(100) < percent; }

private:
    std::mt19937_64 m_engine;
};

/** Which of the writes between two flushes have arrived. */
enum class Arrived {
    None,
    FirstOnes,
    AnyOfThem,
};

struct Cut
{
    std::size_t interval;
    Arrived arrived;
    std::string seed;

    bool operator<(const Cut &other) const { return interval < other.interval; }
};

std::vector<Cut> chooseCuts(const Recording &recording, std::size_t count, Dice &dice)
{
    std::vector<Cut> cuts;
    const std::size_t intervals = recording.intervals.size();
    const std::size_t plain = std::min(intervals, count / 2);
    for (std::size_t i = 1; i <= plain; ++i) { // right after a flush, evenly, the last one always
        cuts.push_back({i * intervals / plain - 1, Arrived::None, {}});
    }
    // half of the rest by intervals, half by writes: much is at stake where a flush covers much
    std::vector<std::size_t> withWrites;
    std::vector<std::size_t> ofEachWrite;
    for (std::size_t i = 0; i < intervals; ++i) {
        const std::size_t writes = recording.intervals[i].writes.size();
        withWrites.insert(withWrites.end(), writes > 0 ? 1 : 0, i);
        ofEachWrite.insert(ofEachWrite.end(), writes, i);
    }
    while (cuts.size() < count && !withWrites.empty()) {
        const std::vector<std::size_t> &choices = dice.happens(50) ? withWrites : ofEachWrite;
        const Arrived arrived = dice.happens(30) ? Arrived::FirstOnes : Arrived::AnyOfThem;
        cuts.push_back(
            {choices[dice.below(choices.size())], arrived, std::to_string(dice.below(SIZE_MAX))});
    }
    std::stable_sort(cuts.begin(), cuts.end());
    return cuts;
}

void applyFor(const Cut &cut, const Interval &interval, const DiskLog &log, std::size_t atomicSize,
              TestDisk &disk)
{
    if (cut.arrived == Arrived::None) {
        return;
    }
    Dice dice(cut.seed);
    const std::size_t arrivedFirst = dice.below(interval.writes.size() + 1);
    const unsigned likely = std::array<unsigned, 4>{10, 50, 80, 95}[dice.below(4)];
    for (std::size_t i = 0; i < interval.writes.size(); ++i) {
        const DiskRequest &request = *interval.writes[i];
        if (cut.arrived == Arrived::FirstOnes ? i >= arrivedFirst : !dice.happens(likely)) {
            continue;
        }
        const std::vector<char> data = log.dataOf(request);
        const std::uint64_t offset = request.sector * s_sectorSize;
        if (data.size() <= atomicSize || cut.arrived == Arrived::FirstOnes || !dice.happens(25)) {
            disk.writeForNow(offset, data.data(), data.size());
            continue;
        }
        std::size_t size = 0;
        for (std::size_t begin = 0; begin < data.size(); begin += size) {
            size = std::min<std::size_t>(atomicSize - (offset + begin) % atomicSize,
                                         data.size() - begin);
            if (dice.happens(50)) {
                disk.writeForNow(offset + begin, data.data() + begin, size);
            }
        }
    }
}

void applyAll(const std::vector<const DiskRequest *> &writes, const DiskLog &log, TestDisk &disk)
{
    for (const DiskRequest *request : writes) {
        const std::vector<char> data = log.dataOf(*request);
        disk.write(request->sector * s_sectorSize, data.data(), data.size());
    }
}

/** A volume, and how it is mounted. */
struct Volume
{
    std::string device;
    std::string mountPoint;
    std::string type;
    std::string options;
};

Volume volumeAt(const std::string &device, const std::string &mountPoint,
                const std::string &typeAndOptions)
{
    const std::size_t end = std::min(typeAndOptions.find(','), typeAndOptions.size());
    const std::size_t next = std::min(end + 1, typeAndOptions.size());
    return {device, mountPoint, typeAndOptions.substr(0, end), typeAndOptions.substr(next)};
}

Verdict judgeMounted(const Volume &volume, const Judge &judge, const Report &report)
{
    const Mount mount(volume.device, volume.mountPoint, volume.type, volume.options);
    // what cannot be mounted holds nothing
    return judge.judge(mount.isMounted() ? volume.mountPoint : std::string("/nowhere"), report);
}

/**
 * Judges the volume and takes all back.
 *
 * A directory on FAT that was growing has a chain of clusters whose last link may have arrived
 * without the cluster's own entry, in another sector. The kernel does not open such a directory
 * before the volume has been checked. What lacks is looked for once more then.
 */
Verdict judgeVolume(TestDisk &disk, const Volume &volume, const Judge &judge, const Report &report)
{
    Verdict verdict = judgeMounted(volume, judge, report);
    if (!verdict.findings.empty() && volume.type == "vfat") {
        std::system(("fsck.fat -a " + volume.device + " >/dev/null 2>&1").c_str());
        const std::int64_t lacking = verdict.lost + verdict.beforeLost;
        verdict = judgeMounted(volume, judge, report);
        verdict.foundByCheck = lacking - verdict.lost - verdict.beforeLost;
    }
    disk.takeBack();
    return verdict;
}

Replaced replacedBy(const std::string &word)
{
    return word == "all"   ? Replaced::OldOrNew
        : word == "hidden" ? Replaced::OrInHiddenDirectory
                           : Replaced::Ignored;
}

const char *nameOf(Arrived arrived)
{
    switch (arrived) {
    case Arrived::None:
        return "none";
    case Arrived::FirstOnes:
        return "the first";
    case Arrived::AnyOfThem:
        break;
    }
    return "any";
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() < 10) {
        std::fputs(
            "usage: trial_cut NAME LOG IMAGE DEVICE MOUNT_POINT TYPE[,OPTION]... PLAN SEED COUNT "
            "ATOMIC_SIZE"
            " [BEFORE DESTINATION rest|all|hidden]...\n"
            "Prints NAME, and the numbers of cuts, of reported files, of lost ones, of files of\n"
            "before, of lost ones, of those that a check of the volume has found; what was lost "
            "to\n"
            "stderr.\n",
            stderr);
        return 2;
    }
    const std::string &name = arguments[0];
    const DiskLog log(arguments[1]);
    TestDisk disk(arguments[2], arguments[3]);
    const Volume volume = volumeAt(arguments[3], arguments[4], arguments[5]);
    Judge judge(arguments[6]);
    Dice dice(arguments[7] + name);
    const std::size_t count = std::stoull(arguments[8]);
    const std::size_t atomicSize = std::stoull(arguments[9]); // what a disk writes whole or not
    for (std::size_t i = 10; i + 2 < arguments.size(); i += 3) {
        judge.addBefore(arguments[i], arguments[i + 1], replacedBy(arguments[i + 2]));
    }

    const Recording recording = readRecording(log);
    applyAll(recording.prepared, log, disk);
    const std::vector<Cut> cuts = chooseCuts(recording, count, dice);

    Verdict total;
    Report report;
    auto cut = cuts.begin();
    for (std::size_t i = 0; i < recording.intervals.size(); ++i) {
        const Interval &interval = recording.intervals[i];
        if (interval.forced) {
            applyAll({interval.forced}, log, disk);
        }
        for (const std::string &mark : interval.marks) {
            report.add(mark);
        }
        for (; cut != cuts.end() && cut->interval == i; ++cut) {
            applyFor(*cut, interval, log, atomicSize, disk);
            const Verdict verdict = judgeVolume(disk, volume, judge, report);
            if (total.findings.size() < s_findingsShown && !verdict.findings.empty()) {
                std::fprintf(stderr, "%s: cut after flush %zu of %zu, %s of %zu writes arrived:\n",
                             name.c_str(), i, recording.intervals.size() - 1, nameOf(cut->arrived),
                             interval.writes.size());
                for (std::size_t f = 0; f < std::min(s_findingsShown, verdict.findings.size());
                     ++f) {
                    std::fprintf(stderr, "    %s\n", verdict.findings[f].c_str());
                }
            }
            total.add(verdict);
        }
        applyAll(interval.writes, log, disk);
    }
    report.isComplete = true; // whatever was lost before: here, everything has arrived
    const Verdict end = judgeVolume(disk, volume, judge, report);
    if (end.lost + end.beforeLost > 0) {
        std::fprintf(stderr, "%s: the recording is not whole: %s\n", name.c_str(),
                     end.findings.front().c_str());
        return EXIT_FAILURE;
    }
    std::printf("%s\t%zu\t%lld\t%lld\t%lld\t%lld\t%lld\n", name.c_str(), cuts.size(),
                static_cast<long long>(total.reported), static_cast<long long>(total.lost),
                static_cast<long long>(total.before), static_cast<long long>(total.beforeLost),
                static_cast<long long>(total.foundByCheck));
    return EXIT_SUCCESS;
}
