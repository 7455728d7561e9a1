// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "benchmarks/Measurement.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace Tavro::Benchmarks {

void fail(const std::string &message)
{
    std::fflush(stdout);
    std::fprintf(stderr, "%s\n", message.c_str());
    std::exit(EXIT_FAILURE);
}

double now()
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(time).count();
}

double Series::median() const
{
    if (m_seconds.empty()) {
        return 0;
    }
    std::vector<double> sorted = m_seconds;
    std::sort(sorted.begin(), sorted.end());
    const size_t middle = sorted.size() / 2;
    return sorted.size() % 2 == 1 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2;
}

double Series::minimum() const
{
    return m_seconds.empty() ? 0 : *std::min_element(m_seconds.begin(), m_seconds.end());
}

double Series::spread() const
{
    if (m_seconds.empty() || median() <= 0) {
        return 0;
    }
    const auto [least, most] = std::minmax_element(m_seconds.begin(), m_seconds.end());
    return (*most - *least) / median();
}

Table::Table(std::vector<std::string> header)
    : m_rows{std::move(header)}
{
}

void Table::addRow(std::vector<std::string> row)
{
    row.resize(m_rows.front().size());
    m_rows.push_back(std::move(row));
}

void Table::print() const
{
    std::vector<size_t> widths(m_rows.front().size(), 0);
    for (const std::vector<std::string> &row : m_rows) {
        for (size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], row[column].size());
        }
    }

    for (size_t line = 0; line < m_rows.size(); ++line) {
        for (size_t column = 0; column < widths.size(); ++column) {
            // names to the left, figures to the right
            const int width = static_cast<int>(widths[column]) * (column == 0 ? -1 : 1);
            std::printf("| %*s ", width, m_rows[line][column].c_str());
        }
        std::printf("|\n");
        if (line > 0) {
            continue;
        }
        for (size_t column = 0; column < widths.size(); ++column) {
            const std::string dashes(widths[column] + 1, '-');
            std::printf(column == 0 ? "|%s-" : "|%s:", dashes.c_str());
        }
        std::printf("|\n");
    }
}

std::string fixed(double value, int digits)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

std::string ratio(double value, double base)
{
    return base > 0 ? fixed(value / base, 2) : std::string("-");
}

void recordCost(const std::string &participant, double size, double seconds, double bytes)
{
    const char *const path = std::getenv("COSTS");
    if (path == nullptr) {
        return;
    }
    std::ofstream costs(path, std::ios::app);
    costs << participant << '\t' << fixed(size, 0) << '\t' << fixed(seconds, 9) << '\t'
          << fixed(bytes, 0) << std::endl;
    if (!costs) {
        fail(std::string("Cannot write ") + path);
    }
}

void printVerdict(const std::string &subject, double value, double target, const char *unit)
{
    const double rounded = std::round(value * 100) / 100;
    std::printf("- %s: %s: %.2f%s, target %.2f%s\n", rounded <= target ? "met" : "**not met**",
                subject.c_str(), rounded, unit, target, unit);
}

} // namespace Tavro::Benchmarks
