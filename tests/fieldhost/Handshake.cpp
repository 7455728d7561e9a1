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
    letGo();
    ::close(m_openGate);
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
    if (m_openGate >= 0) {
        return;
    }
    // Opened for both ways it blocks nobody. It stays open, with a line for each copy: one that is
    // on its way through it would else wait for a writer that has been.
    m_openGate = ::open(gatePath().constData(), O_RDWR | O_CLOEXEC);
    const QByteArray lines(64, '\n');
    if (::write(m_openGate, lines.constData(), static_cast<size_t>(lines.size())) != lines.size()) {
        qFatal("cannot open the gate");
    }
    QFile::remove(QFile::decodeName(gatePath()));
}

QByteArray Handshake::gatePath() const
{
    return QFile::encodeName(m_folder.filePath(QStringLiteral("gate")));
}

} // namespace Test
