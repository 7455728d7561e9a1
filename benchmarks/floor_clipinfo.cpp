// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// The least that a clip information file can cost: the same lines, formatted one after the other
// into one buffer and written by one call. Prints the same four figures as clipinfo_with_library,
// with 0 for the longest sample.

#include "benchmarks/ClipCourse.h"
#include "benchmarks/resident.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

using Tavro::Benchmarks::ClipCourse;

namespace {

constexpr int s_longestLine = 128;

/** Formats into memory that is there already; never beyond s_longestLine a line. */
class Line
{
public:
    explicit Line(char *begin)
        : m_end(begin)
    {
    }

    char *end() const { return m_end; }

    void text(const char *text)
    {
        while (*text != '\0') {
            *m_end++ = *text++;
        }
    }
    void digits(unsigned number, int width)
    {
        char digits[16];
        char *const last = std::to_chars(digits, digits + sizeof digits, number).ptr;
        for (auto length = last - digits; length < width; ++length) {
            *m_end++ = '0';
        }
        m_end = std::copy(digits, last, m_end);
    }
    // enough for a ClipCourse, and twice as fast as std::to_chars() for a double
    void number(double value)
    {
        const double rounded = std::abs(value) * 1000 + 0.5;
        const auto thousandths = static_cast<unsigned>(rounded);
        text(value < 0 ? "-" : "");
        digits(thousandths / 1000, 1);
        text(".");
        digits(thousandths % 1000, 3);
    }

private:
    char *m_end;
};

// the library's sample holds the last pan and tilt, each of which changes with every other one
char *formatSample(int number, char *begin)
{
    const ClipCourse course(number);
    const ClipCourse last(std::max(number - 1, 0));
    const bool turns = number % 2 == 0;
    Line line(begin);
    line.text("Val");
    line.digits(static_cast<unsigned>(number), 5);
    line.text("=");
    line.number(static_cast<double>(course.milliseconds) / 1000.0);
    line.text(";");
    line.number(0.0);
    line.text(";0;");
    line.number(turns ? course.pan : last.pan);
    line.text(";");
    line.number(turns ? (number == 0 ? 0.0 : last.tilt) : course.tilt);
    line.text("\n");
    return line.end();
}

} // namespace

int main(int argc, char **argv)
{
    const int samples = argc == 3 ? std::atoi(argv[2]) : 0;
    if (samples <= 0) {
        std::fprintf(stderr, "usage: %s FILE SAMPLES\n", argv[0]);
        return EXIT_FAILURE;
    }
    const long before = peak_resident_bytes();
    const double begin = processor_seconds();
    std::vector<char> buffer;
    size_t size = 0;
    for (int i = 0; i < samples; ++i) {
        if (buffer.size() - size < s_longestLine) {
            buffer.resize(std::max<size_t>(buffer.size() * 2, 1 << 20));
        }
        size = static_cast<size_t>(formatSample(i, buffer.data() + size) - buffer.data());
    }
    const double formatted = processor_seconds();
    const int file = ::open(argv[1], O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    const bool isWritten = file >= 0
        && ::write(file, buffer.data(), size) == static_cast<ssize_t>(size) && ::close(file) == 0;
    std::printf("%.9f %.9f 0 %ld\n", formatted - begin, processor_seconds() - formatted,
                peak_resident_bytes() - before);
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}
