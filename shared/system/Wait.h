// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * A text and a signal, by which one part of the host tells another that a wait is over.
 *
 * The class itself does nothing. The host decides who emits the signal, on which thread, and what
 * the text is for. text() and setText() are not thread-safe.
 */
class OVO_SHARED_EXPORT Wait : public QObject
{
    Q_OBJECT

public:
    explicit Wait(QObject *parent = nullptr);
    ~Wait() override;

    /** The text that the host has set. */
    QString text() const;
    /** Sets the text. Default: empty. Emits no signal. */
    void setText(const QString &text);

Q_SIGNALS:
    /** Emitted by the host; never by this class. */
    void waitFinished();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
