// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

class QTextStream;

namespace Tavro::Shared::detail {

/**
 * The samples of a clip as they stand in the file: "Val00007=12.480;3.215;0;-45.000;10.500".
 *
 * The number has at least five characters; seconds, distance and angles have three decimals. All
 * are written as QString writes them, in every locale.
 */
class SampleLines
{
public:
    void append(qint32 number, double time, double distance, int code, double pan, double tilt);
    /** Writes the lines in the order of their keys as texts; of equal keys, the last one only. */
    void write(QTextStream &out) const;
    void clear() { m_text.clear(); }

private:
    QByteArray m_text; // as they came; one allocation for all is several times as fast as a map
};

} // namespace Tavro::Shared::detail
