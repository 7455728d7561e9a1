// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/FakeCommands.h"
#include "tests/support/UdevTestBed.h"

namespace Test {

/**
 * A hardware clock that stands still, and a "hwclock" that sets it to the time of the system. The
 * "date" does nothing: what can be set is the time that it is.
 */
class TestClock
{
public:
    /** What the hardware clock shows at first: 1970-01-02 00:00:00 UTC. */
    static constexpr int beginning = 24 * 3600;

    TestClock();

    /** Gives it the range of a clock that ends on 2036-02-07. */
    void endEarly();
    /** Takes the hardware clock away. */
    void remove();

    /** The fake commands, with their journal. */
    FakeCommands commands;

private:
    void add(const QByteArray &range);

    UdevTestBed m_bed;
    QByteArray m_clock;
};

} // namespace Test
