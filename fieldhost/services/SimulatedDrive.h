// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace Tavro::FieldHost {

class SimulatedCrawler;

/**
 * Steers a crawler through a pipe as an inspector would: it drives on for seven seconds, then
 * stands for three and looks around.
 *
 * What happens when depends on the time of the drive alone, so that every drive is the same.
 */
class SimulatedDrive
{
public:
    /** Time between two steps, in milliseconds: that of a frame of the video. */
    static constexpr qint64 frame = 40;

    /** Steers @p crawler, which must outlive this object. */
    explicit SimulatedDrive(SimulatedCrawler &crawler);

    /** Lets @p milliseconds pass in which the crawler drives and looks; usually a frame. */
    void step(qint64 milliseconds = frame);
    /** Lets @p milliseconds pass in which it stands still. */
    void rest(qint64 milliseconds = frame);

private:
    SimulatedCrawler &m_crawler;
    qint64 m_time = 0; // of the drive, rests left out
};

} // namespace Tavro::FieldHost
