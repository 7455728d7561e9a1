// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/qml/export/DeleteTask.h"
#include "fieldhost/qml/export/JobThread.h"
#include "shared/fileops/CDirectorySizeFinder.h"

#include <QObject>
#include <QVariantList>
#include <QVector>

namespace Tavro::FieldHost {

/** A deletion of directories, files and links, for a screen. Nothing of it waits. */
class DeleteModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList entries READ entries NOTIFY entriesChanged)
    Q_PROPERTY(qlonglong totalSize READ totalSize NOTIFY entriesChanged)
    Q_PROPERTY(Tavro::FieldHost::DeleteStates::State state READ state NOTIFY stateChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY stateChanged)
    Q_PROPERTY(qlonglong bytes READ bytes NOTIFY bytesChanged)
    Q_PROPERTY(qlonglong bytesToDelete READ bytesToDelete NOTIFY bytesChanged)
    Q_PROPERTY(QVariantList messages READ messages NOTIFY messagesChanged)

public:
    explicit DeleteModel(QObject *parent = nullptr);
    /** Aborts a deletion that runs, and waits for that. */
    ~DeleteModel() override;

    /**
     * What is to be deleted: maps of "path", "kind" ("directory", "file" or "link") and "size" in
     * bytes, -1 while it is being counted.
     */
    QVariantList entries() const;
    /** Size of all entries; -1 while one is being counted. */
    qlonglong totalSize() const;

    DeleteStates::State state() const { return m_state; }
    /** From start() until the outcome is known. */
    bool isBusy() const;

    /** Of the directory that is being deleted. */
    qlonglong bytes() const { return m_bytes; }
    /** The same in all; 0 while it is being looked through. */
    qlonglong bytesToDelete() const { return m_bytesToDelete; }

    /** In order: maps of "kind" (of a notice) and "text". */
    QVariantList messages() const { return m_messages; }

    /** Adds what is to be deleted, a path or a "file:" URL, or says why it must not be. */
    Q_INVOKABLE void add(const QString &path);
    /** Takes the entry @p index off the list. */
    Q_INVOKABLE void remove(int index);
    /** Deletes the entries, once all sizes are known. */
    Q_INVOKABLE void start();
    /** Ends it behind the directory that is being deleted, which goes whole. */
    Q_INVOKABLE void abort();

Q_SIGNALS:
    void entriesChanged();
    void stateChanged();
    void bytesChanged();
    void messagesChanged();

private:
    struct Entry
    {
        QString path;
        QString kind;
        qlonglong size;
    };

    void say(const QString &kind, const QString &sentence);
    void forgetMessages();
    void setState(DeleteStates::State state);
    int indexOf(const QString &path) const;

    QVector<Entry> m_entries;
    Shared::CDirectorySizeFinder m_sizeFinder;
    DeleteStates::State m_state = DeleteStates::Choosing;
    qlonglong m_bytes = 0;
    qlonglong m_bytesToDelete = 0;
    QVariantList m_messages;
    DeleteTask *const m_task; // which the thread owns
    JobThread m_thread;
};

} // namespace Tavro::FieldHost
