// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/support/FakeCommands.h"

#include <QFile>
#include <QtDebug>

namespace Test {

FakeCommands::FakeCommands()
    : m_path(qgetenv("PATH"))
{
    qputenv("PATH", QFile::encodeName(m_folder.path()) + ':' + m_path);
}

FakeCommands::~FakeCommands()
{
    qputenv("PATH", m_path);
}

void FakeCommands::add(const QString &name, const QByteArray &body)
{
    QFile script(m_folder.filePath(name));
    // absolute paths in the script only: PATH may hold nothing but the fakes
    if (!script.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || script.write("#!/bin/sh\necho \"" + name.toUtf8() + "${*:+ $*}\" >> '"
                        + QFile::encodeName(journalPath()) + "'\n" + body + '\n')
            < 0
        || !script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)) {
        qFatal("cannot write the fake command %s", qPrintable(script.fileName()));
    }
}

void FakeCommands::addHeld(const QString &name, const QString &gate, const QByteArray &body)
{
    add(name, "until [ -e '" + QFile::encodeName(gate) + "' ]; do /bin/sleep 0.01; done\n" + body);
}

void FakeCommands::addProgram(const QString &name, const QString &program)
{
    if (!QFile::link(program, m_folder.filePath(name))) {
        qFatal("cannot link %s to %s", qPrintable(name), qPrintable(program));
    }
}

void FakeCommands::hideOthers()
{
    qputenv("PATH", QFile::encodeName(m_folder.path()));
}

QString FakeCommands::journalPath() const
{
    return m_folder.filePath(QStringLiteral("journal"));
}

QStringList FakeCommands::journal() const
{
    QFile file(journalPath());
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace Test
