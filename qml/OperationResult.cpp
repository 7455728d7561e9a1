// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/OperationResult.h"

namespace Tavro::Qml {

using Shared::CFileCopyController;
using Shared::CFileDeleteController;
using Shared::CFileOperationResult;

OperationResult::OperationResult(QObject *parent)
    : QObject(parent)
{
}

QString OperationResult::reason() const
{
    const int error = systemError();
    return error == 0 ? QString() : qt_error_string(error);
}

CopyResult::CopyResult(QObject *parent)
    : OperationResult(parent)
{
}

void CopyResult::setController(CFileCopyController *controller)
{
    if (controller == m_controller) {
        return;
    }
    if (m_controller) {
        m_controller->disconnect(this);
    }
    m_controller = controller;
    if (m_controller) {
        connect(m_controller, &CFileCopyController::operationCompleted, this,
                &OperationResult::changed);
        connect(m_controller, &CFileCopyController::operationCanceled, this,
                &OperationResult::changed);
    }
    Q_EMIT controllerChanged();
    Q_EMIT changed();
}

CFileOperationResult CopyResult::result() const
{
    return m_controller ? m_controller->lastResult() : CFileOperationResult();
}

DeleteResult::DeleteResult(QObject *parent)
    : OperationResult(parent)
{
}

void DeleteResult::setController(CFileDeleteController *controller)
{
    if (controller == m_controller) {
        return;
    }
    if (m_controller) {
        m_controller->disconnect(this);
    }
    m_controller = controller;
    if (m_controller) {
        connect(m_controller, &CFileDeleteController::stateChanged, this, [this] {
            if (m_controller->state() == CFileDeleteController::StateIdle) {
                Q_EMIT changed();
            }
        });
    }
    Q_EMIT controllerChanged();
    Q_EMIT changed();
}

CFileOperationResult DeleteResult::result() const
{
    return m_controller ? m_controller->lastResult() : CFileOperationResult();
}

} // namespace Tavro::Qml
