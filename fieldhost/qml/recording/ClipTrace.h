// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/qml/recording/PlotCurve.h"

#include <QFutureWatcher>
#include <QObject>
#include <QStringList>

namespace Tavro::FieldHost {

/** The trace that a clip information file holds, ready to be drawn. */
class ClipTrace : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool reading READ isReading NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(QStringList doubts READ doubts NOTIFY changed)
    Q_PROPERTY(QString unit READ unit NOTIFY changed)
    Q_PROPERTY(Tavro::FieldHost::PlotCurve *distance READ distance CONSTANT)
    Q_PROPERTY(Tavro::FieldHost::PlotCurve *pan READ pan CONSTANT)
    Q_PROPERTY(Tavro::FieldHost::PlotCurve *tilt READ tilt CONSTANT)

public:
    explicit ClipTrace(QObject *parent = nullptr);
    ~ClipTrace() override;

    /**
     * Reads the file of the video @p clip, or @p clip itself when it is such a file. Returns at
     * once: the file is read in another thread, and changed() tells the end.
     */
    Q_INVOKABLE void read(const QString &clip);

    bool isReading() const { return m_isReading; }
    /** Why there is nothing to draw, as a sentence; empty when there is, and before. */
    const QString &problem() const { return m_problem; }
    /** What the file holds, in a line. Empty when it cannot be read, and before. */
    const QString &headline() const { return m_headline; }
    /** Sentences on what could not be read of the file. */
    const QStringList &doubts() const { return m_doubts; }
    /** Unit of the distances, as the file has it. */
    const QString &unit() const { return m_unit; }
    PlotCurve *distance() { return &m_curves[0]; }
    PlotCurve *pan() { return &m_curves[1]; }
    PlotCurve *tilt() { return &m_curves[2]; }

Q_SIGNALS:
    void changed();

private:
    struct Drawing
    {
        QString problem;
        QString headline;
        QStringList doubts;
        QString unit;
        double duration = 0;
        QVector<QVector<Span>> curves;
    };

    static Drawing draw(const QString &path);
    void take();

    QFutureWatcher<Drawing> m_reading;
    bool m_isReading = false; // until its end is known here
    QString m_problem;
    QString m_headline;
    QStringList m_doubts;
    QString m_unit;
    PlotCurve m_curves[3];
};

} // namespace Tavro::FieldHost
