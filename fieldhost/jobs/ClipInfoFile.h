// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVector>

namespace Tavro::FieldHost {

/** One line of the section "[Indexing]". */
struct ClipSample
{
    qint32 index;
    double time; // seconds in the video
    double distance; // in the file's unit
    double pan; // degrees
    double tilt; // degrees
};

/** What a clip information file says, as far as it can be understood. */
struct ClipInfoFile
{
    QString application;
    QString creationDate;
    QString clipName;
    QString unit;
    /** By index: beyond 99999 the lines of a file stand in another order. */
    QVector<ClipSample> samples;
    /** Lines that are neither section, entry nor sample, as a power cut leaves them. */
    int badLines = 0;
    int firstBadLine = 0; // counted from 1
    /** Samples whose index comes again further down; the later one counts. */
    int replacedSamples = 0;
    /** The last line has its line feed. */
    bool endsWhole = true;
    /** What the system says when the file cannot be read, else empty. */
    QString error;

    static ClipInfoFile read(const QString &path);
};

} // namespace Tavro::FieldHost
