// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/qml/export/ExportTask.h"
#include "fieldhost/qml/export/JobThread.h"

#include <QObject>
#include <QVariantList>

namespace Tavro::FieldHost {

/**
 * An export of one directory, for a screen.
 *
 * Everything that takes its time is done on other threads: no function and no property waits.
 */
class ExportModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(QString destination READ destination WRITE setDestination NOTIFY destinationChanged)
    Q_PROPERTY(bool verify READ verify WRITE setVerify NOTIFY verifyChanged)
    Q_PROPERTY(Tavro::FieldHost::ExportStates::State state READ state NOTIFY stateChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY stateChanged)
    Q_PROPERTY(QString landing READ landing NOTIFY planChanged)
    Q_PROPERTY(bool landingExists READ landingExists NOTIFY planChanged)
    Q_PROPERTY(int replacedFiles READ replacedFiles NOTIFY planChanged)
    Q_PROPERTY(qlonglong bytes READ bytes NOTIFY figuresChanged)
    Q_PROPERTY(qlonglong totalBytes READ totalBytes NOTIFY figuresChanged)
    Q_PROPERTY(double rate READ rate NOTIFY figuresChanged)
    Q_PROPERTY(QString timeLeft READ timeLeft NOTIFY figuresChanged)
    Q_PROPERTY(QString directory READ directory NOTIFY figuresChanged)
    Q_PROPERTY(QVariantList messages READ messages NOTIFY messagesChanged)
    Q_PROPERTY(bool canPull READ canPull NOTIFY stateChanged)

public:
    explicit ExportModel(QObject *parent = nullptr);
    /** Aborts an export that runs, and waits for that. */
    ~ExportModel() override;

    /** Directory to copy; a local path, or written as a file: URL. */
    QString source() const { return m_source; }
    void setSource(const QString &source);
    /** Directory that it is copied into; written the same way. */
    QString destination() const { return m_destination; }
    void setDestination(const QString &destination);
    /** Whether every copy is read back and compared. */
    bool verify() const { return m_verify; }
    void setVerify(bool verify);

    ExportStates::State state() const { return m_state; }
    /** From start() until the outcome is known. */
    bool isBusy() const;

    /** Where the copy is to be found, and an abort removes it. Known once it is planned. */
    QString landing() const { return m_summary.landing; }
    /** Whether something is there that an abort leaves as it was. */
    bool landingExists() const { return m_summary.landingExists; }
    /** How many files the copy replaces. */
    int replacedFiles() const { return m_summary.replacedFiles; }

    qlonglong bytes() const { return m_figures.bytes; }
    qlonglong totalBytes() const { return m_figures.totalBytes; }
    /** Bytes a second; 0 while it is not known. */
    double rate() const { return m_figures.rate; }
    /** "1:05"; empty while there is no forecast. */
    QString timeLeft() const;
    /** Name of the directory that is being filled. */
    QString directory() const { return m_figures.directory; }

    /** Of this export, in order: maps of "kind" (of a notice) and "text". */
    QVariantList messages() const { return m_messages; }
    /** The drive is unmounted: the user may pull it. */
    bool canPull() const { return m_canPull; }

    /** Begins, when source and destination are chosen and none runs. */
    Q_INVOKABLE void start();
    /** The answer in the state Confirming. */
    Q_INVOKABLE void confirm(bool replace);
    Q_INVOKABLE void pause();
    Q_INVOKABLE void resume();
    /** Ends the export and removes what it has copied. */
    Q_INVOKABLE void abort();
    /** Back to Choosing, when none runs. */
    Q_INVOKABLE void clear();

Q_SIGNALS:
    void sourceChanged();
    void destinationChanged();
    void verifyChanged();
    void stateChanged();
    void planChanged();
    void figuresChanged();
    void messagesChanged();

private:
    void setState(ExportStates::State state);
    void forget();

    QString m_source;
    QString m_destination;
    bool m_verify = true;
    ExportStates::State m_state = ExportStates::Choosing;
    ExportSummary m_summary;
    ExportFigures m_figures;
    QVariantList m_messages;
    bool m_canPull = false;
    ExportTask *const m_task; // which the thread owns
    JobThread m_thread;
};

} // namespace Tavro::FieldHost
