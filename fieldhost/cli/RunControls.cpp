// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/RunControls.h"

#include "fieldhost/cli/Console.h"

namespace Tavro::FieldHost {

namespace {

constexpr int s_liveInterval = 100; // ms
constexpr int s_plainInterval = 1000; // ms

} // namespace

RunControls::RunControls(Console &console)
    : m_console(console)
{
    connect(&m_signals, &SignalWatcher::endSignal, this, &RunControls::endRequested);
    connect(&m_signals, &SignalWatcher::aboutToSuspend, this, [this] {
        m_console.clearLiveLine();
        m_keys.close();
    });
    connect(&m_signals, &SignalWatcher::continued, this, [this] {
        if (m_wantsKeys) {
            m_keys.open();
        }
    });
    connect(&m_keys, &KeyInput::keyPressed, this, &RunControls::keyPressed);
    connect(&m_timer, &QTimer::timeout, this, &RunControls::refresh);
}

bool RunControls::openKeys()
{
    m_wantsKeys = m_console.isLive();
    return m_wantsKeys && m_keys.open();
}

void RunControls::showProgress(Line line)
{
    m_line = std::move(line);
    m_timer.start(m_console.isLive() ? s_liveInterval : s_plainInterval);
}

void RunControls::refresh()
{
    if (!m_timer.isActive()) {
        return;
    }
    const bool isLive = m_console.isLive();
    const QString line = m_line(isLive ? Console::columns() - 1 : 0); // the last column stays free
    if (isLive && !line.isEmpty()) {
        m_console.setLiveLine(line);
    } else if (!line.isEmpty()) {
        m_console.print(line);
    }
}

void RunControls::endProgress()
{
    m_timer.stop();
    m_console.clearLiveLine();
}

} // namespace Tavro::FieldHost
