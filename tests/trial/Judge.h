// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Trial {

/** What somebody has been told, up to a moment. */
struct Report
{
    std::int64_t counted = 0; /**< bytes */
    std::vector<std::string> files; /**< one by one, by their path */
    bool isComplete = false; /**< all of it is there */

    /** Adds what a mark of the log says; false when it is none of a report. */
    bool add(const std::string &mark);
};

/** What a volume held, measured by what was reported. */
struct Verdict
{
    std::int64_t reported = 0; /**< files, or parts of one, that had been reported */
    std::int64_t lost = 0; /**< of them */
    std::int64_t before = 0; /**< files that were there before */
    std::int64_t beforeLost = 0; /**< of them */
    std::int64_t foundByCheck = 0; /**< none of the lost ones: found once the volume was checked */
    std::vector<std::string> findings; /**< a line for each file that is lost */

    void add(const Verdict &other);
};

/** How a file that a copy replaces is judged, of those that were there before. */
enum class Replaced {
    Ignored,
    OldOrNew, /**< under its name */
    OrInHiddenDirectory, /**< or, with its name taken, below a hidden directory of the destination
                          */
};

/** Knows what a copy has to be, and what was there before it. */
class Judge
{
public:
    /**
     * @p plan lists, in the order of the copy, "file<TAB>DESTINATION<TAB>SOURCE" and
     * "directory<TAB>DESTINATION", with destinations from the root of the volume on.
     */
    explicit Judge(const std::string &plan);

    /** Adds the files below @p directory as those that were at @p destination before. */
    void addBefore(const std::string &directory, const std::string &destination, Replaced replaced);

    /** Looks at the volume mounted at @p root. */
    Verdict judge(const std::string &root, const Report &report) const;

private:
    struct PlannedFile
    {
        std::string path;
        std::string content;
    };

    struct EarlierFile
    {
        std::string content;
        std::string replacement;
        bool isReplaced = false;
        std::string hidingPlace; // a directory whose hidden ones may hold it, if any

        bool isWhole(const std::optional<std::string> &found) const;
    };

    static bool isHidden(const std::string &root, const std::string &path, const EarlierFile &file);

    std::vector<PlannedFile> m_files;
    std::vector<std::string> m_directories;
    std::map<std::string, EarlierFile> m_before;
};

} // namespace Trial
