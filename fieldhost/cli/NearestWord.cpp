#include "fieldhost/cli/NearestWord.h"

#include <algorithm>
#include <vector>

namespace Tavro::FieldHost {

namespace {

int distance(const QString &a, const QString &b)
{
    std::vector<int> row(static_cast<size_t>(b.size()) + 1);
    for (size_t j = 0; j < row.size(); ++j) {
        row[j] = static_cast<int>(j);
    }
    for (const QChar letter : a) {
        int diagonal = row[0]++;
        for (size_t j = 1; j < row.size(); ++j) {
            const bool same = letter == b.at(static_cast<int>(j) - 1);
            const int replaced = diagonal + (same ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

QString nearest(const QString &word, const QStringList &words)
{
    const auto nearest =
        std::min_element(words.begin(), words.end(), [&word](const QString &a, const QString &b) {
            return distance(word, a) < distance(word, b);
        });
    return nearest == words.end() ? QString() : *nearest;
}

} // namespace Tavro::FieldHost
