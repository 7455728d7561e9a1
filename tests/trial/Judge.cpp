// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/trial/Judge.h"

#include "tests/trial/DiskLog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

namespace Trial {

namespace {

// a volume after a cut may hold anything: what cannot be opened is not there, and a file ends where
// it cannot be read any further
std::optional<std::string> contentOf(const std::string &path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0) {
        return std::nullopt;
    }
    struct stat info = {};
    std::optional<std::string> content;
    if (::fstat(file, &info) == 0 && S_ISREG(info.st_mode)) {
        content.emplace(static_cast<std::size_t>(info.st_size), '\0');
        std::size_t done = 0;
        while (done < content->size()) {
            const ssize_t count = ::read(file, &(*content)[done], content->size() - done);
            if (count <= 0) { // on FAT, where the entry tells of clusters that did not arrive
                content->resize(done);
                break;
            }
            done += static_cast<std::size_t>(count);
        }
    }
    ::close(file);
    return content;
}

bool isDirectory(const std::string &path)
{
    struct stat info = {};
    return ::lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::string requiredContentOf(const std::string &path)
{
    auto content = contentOf(path);
    if (!content) {
        fail(path);
    }
    return *std::move(content);
}

/** What became of a file whose first @p expected bytes are promised, or null when it is whole. */
const char *lossOf(const std::optional<std::string> &found, const std::string &content,
                   std::size_t expected)
{
    if (!found) {
        return " is missing";
    }
    if (found->size() < expected) {
        return " is cut off";
    }
    if (expected == content.size() && found->size() > expected) {
        return " is too long";
    }
    return found->compare(0, expected, content, 0, expected) == 0 ? nullptr : " has other content";
}

} // namespace

bool Report::add(const std::string &mark)
{
    const std::string countMark = "counted ";
    const std::string fileMark = "file ";
    if (mark.compare(0, countMark.size(), countMark) == 0) {
        counted =
            std::max(counted, static_cast<std::int64_t>(std::stoll(mark.substr(countMark.size()))));
    } else if (mark.compare(0, fileMark.size(), fileMark) == 0) {
        files.push_back(mark.substr(fileMark.size()));
    } else if (mark == "completed") {
        isComplete = true;
    } else {
        return false;
    }
    return true;
}

void Verdict::add(const Verdict &other)
{
    reported += other.reported;
    lost += other.lost;
    before += other.before;
    beforeLost += other.beforeLost;
    foundByCheck += other.foundByCheck;
    findings.insert(findings.end(), other.findings.begin(), other.findings.end());
}

Judge::Judge(const std::string &plan)
{
    std::ifstream lines(plan);
    if (!lines) {
        fail(plan);
    }
    for (std::string line; std::getline(lines, line);) {
        const std::size_t first = line.find('\t');
        const std::size_t second = line.find('\t', first + 1);
        const std::string path = line.substr(first + 1, second - first - 1);
        if (line.compare(0, first, "file") == 0) {
            m_files.push_back({path, requiredContentOf(line.substr(second + 1))});
        } else {
            m_directories.push_back(path);
        }
    }
}

void Judge::addBefore(const std::string &directory, const std::string &destination,
                      Replaced replaced)
{
    for (const auto &entry : std::filesystem::recursive_directory_iterator(directory)) {
        if (!entry.is_regular_file()) {
            continue;
        }
        const std::string path = destination + entry.path().string().substr(directory.size());
        const auto planned =
            std::find_if(m_files.begin(), m_files.end(),
                         [&path](const PlannedFile &file) { return file.path == path; });
        const bool isReplaced = planned != m_files.end();
        if (isReplaced && replaced == Replaced::Ignored) {
            continue;
        }
        m_before[path] = {requiredContentOf(entry.path()),
                          isReplaced ? planned->content : std::string(), isReplaced,
                          replaced == Replaced::OrInHiddenDirectory ? destination : std::string()};
    }
}

bool Judge::EarlierFile::isWhole(const std::optional<std::string> &found) const
{
    return found && (*found == content || (isReplaced && *found == replacement));
}

bool Judge::isHidden(const std::string &root, const std::string &path, const EarlierFile &file)
{
    namespace fs = std::filesystem;
    const fs::path name = fs::path(path).filename();
    const fs::path place = root + file.hidingPlace;
    std::error_code error; // ends the iteration: what cannot be listed holds nothing
    for (fs::recursive_directory_iterator entry(place, error); !error && entry != end(entry);
         entry.increment(error)) {
        const std::string below = entry->path().lexically_relative(place).string();
        if (below.front() == '.' && entry->path().filename() == name
            && file.isWhole(contentOf(entry->path().string()))) {
            return true;
        }
    }
    return false;
}

Verdict Judge::judge(const std::string &root, const Report &report) const
{
    Verdict verdict;
    const std::string top = root + '/';
    std::int64_t ahead = report.counted;
    for (const PlannedFile &file : m_files) {
        const auto size = static_cast<std::int64_t>(file.content.size());
        std::int64_t expected = std::min(std::max<std::int64_t>(ahead, 0), size);
        ahead -= size;
        const bool isReported = report.isComplete
            || std::find(report.files.begin(), report.files.end(), file.path) != report.files.end();
        if (isReported) {
            expected = size;
        }
        if (expected == 0 && !isReported) { // an empty file counts nothing before the end
            continue;
        }
        ++verdict.reported;
        const char *loss =
            lossOf(contentOf(top + file.path), file.content, static_cast<std::size_t>(expected));
        if (loss) {
            ++verdict.lost;
            verdict.findings.push_back(file.path + loss);
        }
    }
    if (report.isComplete) {
        for (const std::string &directory : m_directories) {
            ++verdict.reported;
            if (!isDirectory(top + directory)) {
                ++verdict.lost;
                verdict.findings.push_back(directory + "/ is missing");
            }
        }
    }
    for (const auto &[path, file] : m_before) {
        ++verdict.before;
        const auto found = contentOf(top + path);
        if (file.isWhole(found)
            || (!found && !file.hidingPlace.empty() && isHidden(top, path, file))) {
            continue;
        }
        ++verdict.beforeLost;
        verdict.findings.push_back(
            path + (found ? " of before is neither old nor new" : " of before is missing"));
    }
    return verdict;
}

} // namespace Trial
