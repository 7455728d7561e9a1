// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/export/DeleteModel.h"

#include "fieldhost/jobs/Paths.h"
#include "fieldhost/jobs/Text.h"
#include "fieldhost/qml/export/LocalPath.h"

#include <QFileInfo>
#include <QMetaObject>
#include <QVariantMap>

#include <algorithm>

namespace Tavro::FieldHost {

using namespace DeleteStates;

DeleteModel::DeleteModel(QObject *parent)
    : QObject(parent)
    , m_task(new DeleteTask)
    , m_thread(m_task)
{
    connect(&m_sizeFinder, &Shared::CDirectorySizeFinder::gotSizeOfPath, this,
            [this](const QString &path, qulonglong size) {
                const int index = indexOf(path);
                if (index >= 0) {
                    m_entries[index].size = static_cast<qlonglong>(size);
                    Q_EMIT entriesChanged();
                }
            });
    connect(m_task, &DeleteTask::bytesChanged, this, [this](qlonglong bytes, qlonglong total) {
        m_bytes = bytes;
        m_bytesToDelete = total;
        Q_EMIT bytesChanged();
    });
    connect(m_task, &DeleteTask::said, this, &DeleteModel::say);
    connect(m_task, &DeleteTask::deleted, this, [this](const QString &path) {
        m_entries.remove(indexOf(path));
        Q_EMIT entriesChanged();
    });
    connect(m_task, &DeleteTask::ended, this, [this](State outcome, int left) {
        if (outcome == Aborted) {
            say(QStringLiteral("info"), tr("Aborted. Not deleted: %n", nullptr, left));
        }
        setState(outcome);
    });
}

DeleteModel::~DeleteModel()
{
    QMetaObject::invokeMethod(m_task, &DeleteTask::close);
}

QVariantList DeleteModel::entries() const
{
    QVariantList list;
    for (const Entry &entry : m_entries) {
        list.append(QVariantMap{{QStringLiteral("path"), entry.path},
                                {QStringLiteral("kind"), entry.kind},
                                {QStringLiteral("size"), entry.size}});
    }
    return list;
}

qlonglong DeleteModel::totalSize() const
{
    qlonglong sum = 0;
    for (const Entry &entry : m_entries) {
        if (entry.size < 0) {
            return -1;
        }
        sum += entry.size;
    }
    return sum;
}

bool DeleteModel::isBusy() const
{
    return m_state == Deleting || m_state == Aborting;
}

void DeleteModel::add(const QString &path)
{
    if (isBusy()) {
        return;
    }
    forgetMessages();
    setState(Choosing);
    const QString added = absolutePath(localPath(path));
    const QString reason = whyNotDeleted(added);
    if (!reason.isEmpty()) {
        say(QStringLiteral("bad"), reason);
        return;
    }
    // a directory takes along what is in it
    const auto goesAlong = [](const Entry &directory, const QString &other) {
        return directory.kind == QLatin1String("directory") && isSameOrBelow(other, directory.path);
    };
    if (std::any_of(m_entries.cbegin(), m_entries.cend(), [&](const Entry &entry) {
            return entry.path == added || goesAlong(entry, added);
        })) {
        return;
    }
    const QFileInfo info(added);
    if (info.isSymLink()) {
        m_entries.append({added, QStringLiteral("link"), 0});
    } else if (info.isDir()) {
        const Entry directory{added, QStringLiteral("directory"), -1};
        m_entries.erase(
            std::remove_if(m_entries.begin(), m_entries.end(),
                           [&](const Entry &entry) { return goesAlong(directory, entry.path); }),
            m_entries.end());
        m_entries.append(directory);
        m_sizeFinder.startDirectorySizeCalculation(added);
    } else {
        m_entries.append({added, QStringLiteral("file"), info.size()});
    }
    Q_EMIT entriesChanged();
}

void DeleteModel::remove(int index)
{
    if (!isBusy() && index >= 0 && index < m_entries.size()) {
        m_entries.remove(index);
        Q_EMIT entriesChanged();
    }
}

void DeleteModel::start()
{
    if (isBusy() || m_entries.isEmpty() || totalSize() < 0) {
        return;
    }
    QStringList paths;
    for (const Entry &entry : qAsConst(m_entries)) {
        paths.append(entry.path);
    }
    forgetMessages();
    m_bytes = 0;
    m_bytesToDelete = 0;
    Q_EMIT bytesChanged();
    setState(Deleting);
    QMetaObject::invokeMethod(m_task, "begin", Q_ARG(QStringList, paths));
}

void DeleteModel::abort()
{
    if (m_state == Deleting) {
        setState(Aborting);
        QMetaObject::invokeMethod(m_task, &DeleteTask::abort);
    }
}

void DeleteModel::say(const QString &kind, const QString &sentence)
{
    m_messages.append(
        QVariantMap{{QStringLiteral("kind"), kind}, {QStringLiteral("text"), sentence}});
    Q_EMIT messagesChanged();
}

void DeleteModel::forgetMessages()
{
    m_messages.clear();
    Q_EMIT messagesChanged();
}

void DeleteModel::setState(State state)
{
    if (state != m_state) {
        m_state = state;
        Q_EMIT stateChanged();
    }
}

int DeleteModel::indexOf(const QString &path) const
{
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry &each) { return each.path == path; });
    return entry == m_entries.end() ? -1 : static_cast<int>(entry - m_entries.begin());
}

} // namespace Tavro::FieldHost
