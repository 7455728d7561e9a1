// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/SimulatedDrive.h"

#include "fieldhost/services/SimulatedCrawler.h"

#include <cmath>

namespace Tavro::FieldHost {

namespace {

constexpr double s_speed = 0.2; // metres a second: an inspector wants to see something
constexpr qint64 s_driving = 7000; // ms
constexpr qint64 s_looking = 3000; // ms
constexpr double s_widestPan = 60; // degrees
constexpr double s_highestTilt = 20;
const double s_pi = std::acos(-1.0);

// the head reports tenths of a degree
double tenths(double angle)
{
    return std::round(angle * 10) / 10;
}

} // namespace

SimulatedDrive::SimulatedDrive(SimulatedCrawler &crawler)
    : m_crawler(crawler)
{
}

void SimulatedDrive::step(qint64 milliseconds)
{
    m_time += milliseconds;
    const qint64 inCycle = m_time % (s_driving + s_looking);
    const bool isDriving = inCycle < s_driving;
    m_crawler.setSpeed(isDriving ? s_speed : 0);
    m_crawler.tick(milliseconds);
    // once to each side, and once up
    const double look =
        isDriving ? 0 : static_cast<double>(inCycle - s_driving) / static_cast<double>(s_looking);
    m_crawler.panTilt()->setPan(tenths(s_widestPan * std::sin(2 * s_pi * look)));
    m_crawler.panTilt()->setTilt(tenths(s_highestTilt * std::sin(s_pi * look)));
}

void SimulatedDrive::rest(qint64 milliseconds)
{
    m_crawler.setSpeed(0);
    m_crawler.tick(milliseconds);
}

} // namespace Tavro::FieldHost
