// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/CFileCopyController.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringList>
#include <QTimer>

namespace Test {

/** Writes down what a controller says in the slots of its signals, from the first run on. */
class CopyOutcomes
{
public:
    using Controller = Tavro::Shared::CFileCopyController;
    using Result = Tavro::Shared::CFileOperationResult;

    explicit CopyOutcomes(Controller &controller)
    {
        QObject::connect(&controller, &Controller::operationCompleted, &controller,
                         [this, &controller] { add(QStringLiteral("completed"), controller); });
        QObject::connect(&controller, &Controller::operationCanceled, &controller,
                         [this, &controller] { add(QStringLiteral("canceled"), controller); });
        QObject::connect(&controller, &Controller::errorOccurred, &controller,
                         [this] { ++m_errorCount; });
        QObject::connect(&controller, &Controller::stateChanged, &controller, [this, &controller] {
            m_states.append(controller.state());
            if (controller.state() == Controller::StateIdle) {
                m_resultAtIdle = controller.lastResult();
            }
        });
    }

    /** Processes events until that many runs have ended; false after 30 s. */
    bool waitFor(int ends) const
    {
        QTimer timer; // wakes the loop when nothing else does
        timer.start(10);
        QElapsedTimer elapsed;
        elapsed.start();
        while (m_ends.size() < ends && elapsed.elapsed() < 30000) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return m_ends.size() >= ends;
    }

    /** "completed" and "canceled", in order. */
    QString ends() const { return m_ends.join(QLatin1Char(' ')); }
    /** lastResult() in the slot that heard of the end, for each of them. */
    const QList<Result> &results() const { return m_results; }
    /** state() at these moments. */
    const QList<int> &statesAtEnds() const { return m_statesAtEnds; }
    /** lastResult() when the state became idle last. */
    const Result &resultAtIdle() const { return m_resultAtIdle; }
    /** How often errorOccurred() came. */
    int errorCount() const { return m_errorCount; }
    /** state() in each slot of stateChanged(). */
    const QList<int> &states() const { return m_states; }

private:
    void add(const QString &end, const Controller &controller)
    {
        m_ends.append(end);
        m_results.append(controller.lastResult());
        m_statesAtEnds.append(controller.state());
    }

    QStringList m_ends;
    QList<Result> m_results;
    QList<int> m_statesAtEnds;
    QList<int> m_states;
    Result m_resultAtIdle;
    int m_errorCount = 0;
};

/** Makes a request with a controller of its own, and returns the result that its end announces. */
template<typename Request> CopyOutcomes::Result resultOfCopy(Request request)
{
    CopyOutcomes::Controller controller;
    const CopyOutcomes outcomes(controller);
    request(controller);
    if (!outcomes.waitFor(1)) {
        qFatal("the copy does not end");
    }
    return outcomes.results().constFirst();
}

} // namespace Test
