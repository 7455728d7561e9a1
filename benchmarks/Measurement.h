// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

namespace Tavro::Benchmarks {

/** Prints @p message and ends the program. */
[[noreturn]] void fail(const std::string &message);

/** Seconds of a clock that only moves forward. */
double now();

/** Seconds that one participant took, round by round. */
class Series
{
public:
    void add(double seconds) { m_seconds.push_back(seconds); }

    /** 0 as long as nothing was added; so do the others. */
    double median() const;
    double minimum() const;
    /** How far the rounds lie apart, as a share of the median: what a difference has to exceed. */
    double spread() const;

private:
    std::vector<double> m_seconds;
};

/** A table in Markdown whose columns line up in a terminal as well. */
class Table
{
public:
    explicit Table(std::vector<std::string> header);
    void addRow(std::vector<std::string> row);
    /** To standard output. */
    void print() const;

private:
    std::vector<std::vector<std::string>> m_rows; // the header first
};

/** @p value with @p digits decimal places. */
std::string fixed(double value, int digits);
/** @p value as a share of @p base, "1.04"; "-" where there is no base. */
std::string ratio(double value, double base);

/**
 * Adds to the file that the environment variable COSTS names, if it is set, what one participant
 * needs for work of @p size: a line of its name, @p size, seconds and bytes, parted by tabs.
 */
void recordCost(const std::string &participant, double size, double seconds, double bytes);

/** Prints one line that says whether @p value, rounded to two places, is within @p target. */
void printVerdict(const std::string &subject, double value, double target, const char *unit);

} // namespace Tavro::Benchmarks
