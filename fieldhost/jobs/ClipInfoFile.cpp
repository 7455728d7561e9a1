// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/ClipInfoFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace Tavro::FieldHost {

namespace {

// a line of the format has some 50 bytes; what is far longer is no text
constexpr int s_longestLine = 4096;

std::optional<ClipSample> sampleIn(const QByteArray &line)
{
    const int equals = line.indexOf('=');
    if (!line.startsWith("Val") || equals < 0) {
        return {};
    }
    bool isNumber = false;
    ClipSample sample{};
    sample.index = line.mid(3, equals - 3).toInt(&isNumber);
    const QList<QByteArray> fields = line.mid(equals + 1).split(';');
    if (!isNumber || fields.size() != 5) {
        return {};
    }
    double *const values[] = {&sample.time, &sample.distance, nullptr, &sample.pan, &sample.tilt};
    for (int i = 0; i < fields.size(); ++i) {
        const double value = fields.at(i).toDouble(&isNumber);
        if (!isNumber || !qIsFinite(value)) {
            return {};
        }
        if (values[i]) {
            *values[i] = value;
        }
    }
    return sample;
}

// false when the line says nothing that is known
bool readEntry(const QByteArray &line, ClipInfoFile &info)
{
    const int equals = line.indexOf('=');
    if (equals <= 0) {
        return line.startsWith('[') && line.endsWith(']');
    }
    struct Entry
    {
        const char *key;
        QString ClipInfoFile::*value;
    };
    static const Entry entries[] = {
        {"Application", &ClipInfoFile::application},
        {"CreationDate", &ClipInfoFile::creationDate},
        {"OriginalClipName", &ClipInfoFile::clipName},
        {"DistanceUnit", &ClipInfoFile::unit},
    };
    for (const Entry &entry : entries) {
        if (line.left(equals) == entry.key) {
            info.*entry.value = QString::fromLocal8Bit(line.mid(equals + 1));
        }
    }
    return true;
}

void readLine(const QByteArray &line, int number, ClipInfoFile &info)
{
    if (line.isEmpty()) {
        return;
    }
    if (const auto sample = sampleIn(line)) {
        info.samples.append(*sample);
    } else if (line.startsWith("Val") || !readEntry(line, info)) {
        if (info.badLines == 0) {
            info.firstBadLine = number;
        }
        ++info.badLines;
    }
}

void sortSamples(ClipInfoFile &info)
{
    QVector<ClipSample> &samples = info.samples;
    std::stable_sort(samples.begin(), samples.end(),
                     [](const ClipSample &a, const ClipSample &b) { return a.index < b.index; });
    QVector<ClipSample> lastOfEach;
    lastOfEach.reserve(samples.size());
    for (const ClipSample &sample : qAsConst(samples)) {
        if (!lastOfEach.isEmpty() && lastOfEach.last().index == sample.index) {
            lastOfEach.last() = sample;
            ++info.replacedSamples;
        } else {
            lastOfEach.append(sample);
        }
    }
    samples.swap(lastOfEach);
}

} // namespace

ClipInfoFile ClipInfoFile::read(const QString &path)
{
    ClipInfoFile info;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        info.error = file.errorString();
        return info;
    }
    for (int number = 1; !file.atEnd(); ++number) {
        QByteArray line = file.readLine(s_longestLine);
        bool isTooLong = false;
        while (!line.endsWith('\n') && !file.atEnd()) {
            isTooLong = true;
            line = file.readLine(s_longestLine);
        }
        info.endsWhole = line.endsWith('\n');
        readLine(isTooLong ? QByteArrayLiteral("too long") : line.trimmed(), number, info);
    }
    if (file.error() != QFileDevice::NoError) {
        info.error = file.errorString();
    }
    sortSamples(info);
    return info;
}

} // namespace Tavro::FieldHost
