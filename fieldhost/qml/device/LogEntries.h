// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>

namespace Tavro::FieldHost {

/**
 * What was logged last, for a screen. Entries are still written to standard error.
 *
 * A process-wide instance. The first call of instance() comes from the GUI thread, to which it
 * belongs; entries may come from any.
 */
class LogEntries : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QStringList lines READ lines NOTIFY linesChanged)
    Q_PROPERTY(int threshold READ threshold WRITE setThreshold NOTIFY thresholdChanged)

public:
    /** The first call begins to keep the entries. */
    static LogEntries *instance();

    /** The last 200 entries, the latest first. */
    QStringList lines() const { return m_lines; }
    /** The least important level that is kept: 1 errors, 2 warnings, 3 information, 4 all. */
    int threshold() const;
    /** Counts for the whole host, from now on. */
    void setThreshold(int level);

    /** Forgets the entries. */
    Q_INVOKABLE void clear();

Q_SIGNALS:
    void linesChanged();
    void thresholdChanged();

private:
    LogEntries();
    void add(const QString &line);

    QStringList m_lines;
};

} // namespace Tavro::FieldHost
