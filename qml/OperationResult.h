// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/base/CErrorCode.h"
#include "shared/fileops/CFileCopyController.h"
#include "shared/fileops/CFileDeleteController.h"
#include "shared/fileops/CFileOperationResult.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QtQml/qqml.h>

namespace Tavro::Qml {

// base classes are named in full: moc does not look them up for the type list

/**
 * How the last run of a controller ended, see Shared::CFileOperationResult. The signals of the
 * controllers do not tell whether everything was copied or deleted.
 *
 * The properties are already those of the new result in a handler of the signal that announces the
 * end. Before the first end, and without a controller, they are those of a run that has done
 * nothing: `whole` is true then. GUI thread only. Nothing blocks.
 */
class OperationResult : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool whole READ isWhole NOTIFY changed)
    Q_PROPERTY(bool canceled READ isCanceled NOTIFY changed)
    Q_PROPERTY(int error READ error NOTIFY changed)
    Q_PROPERTY(Tavro::Base::CErrorCode errorCode READ errorCode NOTIFY changed)
    Q_PROPERTY(int systemError READ systemError NOTIFY changed)
    Q_PROPERTY(QString reason READ reason NOTIFY changed)
    Q_PROPERTY(QString path READ path NOTIFY changed)
    Q_PROPERTY(QStringList unreadableDirectories READ unreadableDirectories NOTIFY changed)
    Q_PROPERTY(qlonglong files READ files NOTIFY changed)
    Q_PROPERTY(qlonglong bytes READ bytes NOTIFY changed)
    QML_ANONYMOUS

public:
    /** True if nothing failed, every directory was listed completely and nobody ended the run. */
    bool isWhole() const { return result().isWhole(); }
    /** True if the run was ended by abort(). */
    bool isCanceled() const { return result().canceled; }
    /** The first failure, a value of the controller's enumeration Error; 0 if nothing failed. */
    int error() const { return errorCode().detailCode(); }
    /** The same as a packed word. */
    Base::CErrorCode errorCode() const { return result().errorCode; }
    /** The errno of the call that failed; 0 if nothing failed or it is unknown. */
    int systemError() const { return result().systemError; }
    /** What the system says of systemError, in the language of the process; empty for 0. */
    QString reason() const;
    /** The file or directory that failed, as a local path; empty if nothing failed. */
    QString path() const { return result().path; }
    /** The directories that could not be listed completely. */
    QStringList unreadableDirectories() const { return result().unreadableDirectories; }
    /** Number of files that were copied completely, or deleted. */
    qlonglong files() const { return result().files; }
    /** Bytes that were copied or deleted. */
    qlonglong bytes() const { return result().bytes; }

Q_SIGNALS:
    /** Emitted when a run has ended, also with the same result, and with another controller. */
    void changed();

protected:
    explicit OperationResult(QObject *parent = nullptr);

    /** The result of the controller; a default one without a controller. */
    virtual Shared::CFileOperationResult result() const = 0;
};

/** How the last run of a CFileCopyController ended: `CopyResult { controller: copy }`. */
class CopyResult : public Tavro::Qml::OperationResult
{
    Q_OBJECT
    Q_PROPERTY(Tavro::Shared::CFileCopyController *controller READ controller WRITE setController
                   NOTIFY controllerChanged)
    QML_NAMED_ELEMENT(CopyResult)

public:
    explicit CopyResult(QObject *parent = nullptr);

    /** The controller, which belongs to somebody else. Null by default, and when it is destroyed.
     */
    Shared::CFileCopyController *controller() const { return m_controller; }
    /** Sets whose result is shown. */
    void setController(Shared::CFileCopyController *controller);

Q_SIGNALS:
    /** Emitted when controller was set to another one, before changed(). */
    void controllerChanged();

protected:
    Shared::CFileOperationResult result() const override;

private:
    QPointer<Shared::CFileCopyController> m_controller;
};

/** How the last run of a CFileDeleteController ended: `DeleteResult { controller: deletion }`. */
class DeleteResult : public Tavro::Qml::OperationResult
{
    Q_OBJECT
    Q_PROPERTY(Tavro::Shared::CFileDeleteController *controller READ controller WRITE setController
                   NOTIFY controllerChanged)
    QML_NAMED_ELEMENT(DeleteResult)

public:
    explicit DeleteResult(QObject *parent = nullptr);

    /** The controller, which belongs to somebody else. Null by default, and when it is destroyed.
     */
    Shared::CFileDeleteController *controller() const { return m_controller; }
    /** Sets whose result is shown. */
    void setController(Shared::CFileDeleteController *controller);

Q_SIGNALS:
    /** Emitted when controller was set to another one, before changed(). */
    void controllerChanged();

protected:
    Shared::CFileOperationResult result() const override;

private:
    QPointer<Shared::CFileDeleteController> m_controller;
};

} // namespace Tavro::Qml
