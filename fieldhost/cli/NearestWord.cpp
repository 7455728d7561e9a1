// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/NearestWord.h"

#include "fieldhost/cli/CommandText.h"
#include "fieldhost/jobs/Text.h"

#include <QVector>

#include <algorithm>

namespace Tavro::FieldHost {

namespace {

int distance(const QString &a, const QString &b)
{
    // of the beginnings of both, by their lengths
    QVector<QVector<int>> table(a.size() + 1, QVector<int>(b.size() + 1));
    for (int i = 0; i <= a.size(); ++i) {
        for (int j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                table[i][j] = i + j;
                continue;
            }
            const int replaced = table[i - 1][j - 1] + (a.at(i - 1) == b.at(j - 1) ? 0 : 1);
            int &least = table[i][j];
            least = std::min({replaced, table[i - 1][j] + 1, table[i][j - 1] + 1});
            if (i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1)) {
                least = qMin(least, table[i - 2][j - 2] + 1);
            }
        }
    }
    return table.last().last();
}

} // namespace

QString nearest(const QString &word, const QStringList &words, int most)
{
    int least = most < 0 ? qMax(word.size() / 3, 1) : most;
    QString found;
    for (const QString &candidate : words) {
        const int changes = distance(word, candidate);
        if (changes < least || (changes == least && found.isNull())) {
            least = changes;
            found = candidate;
        }
    }
    return word.isEmpty() ? QString() : found;
}

QString suggestion(const QString &word, const QStringList &words)
{
    const QString found = nearest(word, words);
    return found.isEmpty() ? QString()
                           : CommandText::tr(" The nearest one is %1.").arg(quoted(found));
}

} // namespace Tavro::FieldHost
