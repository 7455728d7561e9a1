// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/support/TestClock.h"

namespace Test {

TestClock::TestClock()
{
    commands.hideOthers();
    commands.add(QStringLiteral("date"));
    // not on the test bed itself
    commands.add(QStringLiteral("hwclock"),
                 "/bin/date +%s > \"$UMOCKDEV_DIR/sys/class/rtc/rtc0/since_epoch\"");
    add({});
}

void TestClock::add(const QByteArray &range)
{
    m_clock =
        m_bed.add("rtc", "rtc0", {},
                  {{"since_epoch", QByteArray::number(beginning) + '\n'}, {"range", range}}, {});
}

void TestClock::endEarly()
{
    remove();
    add("[43200,2085978495]\n");
}

void TestClock::remove()
{
    m_bed.remove(m_clock);
}

} // namespace Test
