// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>

class QObject;

namespace Tavro::Shared::detail {

/** Delivers the events of a worker's thread while the worker keeps that thread busy. */
class EventPoll
{
public:
    /**
     * Delivers what is pending for @p worker's thread, when called there; when somebody works in
     * its stead, there is nothing to deliver.
     */
    void processEvents(const QObject &worker);

private:
    QElapsedTimer m_sincePoll; // of the thread that works
};

} // namespace Tavro::Shared::detail
