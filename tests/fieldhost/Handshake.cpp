// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/fieldhost/Handshake.h"

#include <QFile>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Test {

Handshake::Handshake()
{
    if (::mkfifo(gatePath().constData(), 0600) != 0) {
        qFatal("cannot create the gate");
    }
    // deaf to the signals that reach every process of a terminal's job; a gate that is gone
    // is open
    m_commands.add(QStringLiteral("sync"),
                   "trap '' HUP INT QUIT\necho held >>'"
                       + QFile::encodeName(m_commands.journalPath()) + "'\nread -r line <'"
                       + gatePath() + "' 2>/dev/null || exit 0");
}

Handshake::~Handshake()
{
    if (m_held) {
        letGo();
    }
}

bool Handshake::waitUntilHeld()
{
    return QTest::qWaitFor([this] { return m_commands.journal().contains(QStringLiteral("held")); },
                           30'000);
}

int Handshake::held() const
{
    return m_commands.journal().count(QStringLiteral("held"));
}

void Handshake::letGo()
{
    m_held = false;
    // opened for both ways it blocks nobody; who waits for a writer has one until it is closed
    const int gate = ::open(gatePath().constData(), O_RDWR | O_CLOEXEC);
    QFile::remove(QFile::decodeName(gatePath()));
    ::close(gate);
}

QByteArray Handshake::gatePath() const
{
    return QFile::encodeName(m_folder.filePath(QStringLiteral("gate")));
}

} // namespace Test
