// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/CopyCheck.h"

#include <QFile>
#include <QObject>

#include <optional>
#include <vector>

namespace Tavro::FieldHost {

/** A job that was carried out. */
struct FinishedCopy
{
    const ExportJob &job; // outlives the verification
    QString root; // where the files are
};

/**
 * Compares copies with their sources, in steps of a few MiB between which the event loop runs. The
 * copies are taken out of the system's memory first, so that they are read from the device.
 */
class CopyVerification : public QObject
{
    Q_OBJECT

public:
    /** @p copies are at least one. */
    explicit CopyVerification(std::vector<FinishedCopy> copies, QObject *parent = nullptr);

    /** Begins; finished() follows through the event loop. */
    void start();
    /** Ends it behind the step being compared. */
    void cancel();

    /** Bytes compared so far. */
    qint64 comparedBytes() const { return m_comparedBytes; }
    /** The first copy that is not its source's equal, once it is found. */
    std::optional<CopyFault> fault() const { return m_fault; }

Q_SIGNALS:
    /** comparedBytes() has grown. */
    void progressChanged();
    /** All is compared, or the first fault found, or it was canceled. */
    void finished();

private:
    void step();
    bool hasNext();
    bool openNext();
    bool compareChunk();
    void fail(const QString &cause);

    const std::vector<FinishedCopy> m_copies;
    std::vector<FinishedCopy>::const_iterator m_copy; // the one that is compared
    SurveyedFiles::const_iterator m_next; // of its files
    QFile m_source; // open while a pair is compared
    QFile m_target;
    std::optional<CopyFault> m_fault;
    qint64 m_comparedBytes = 0;
    bool m_isCanceled = false;
};

} // namespace Tavro::FieldHost
