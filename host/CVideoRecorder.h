// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace Tavro::Multimedia {

/** Records the inspection video. The host implements it, on the thread of its services. */
class Q_DECL_EXPORT CVideoRecorder : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** State of the recorder. The library uses 0 idle, 2 recording and 3 paused. */
    virtual int state() const = 0;
    /** Duration of the video so far, in milliseconds. */
    virtual qint64 duration() const = 0;

Q_SIGNALS:
    /** Emitted when state() has changed. */
    void stateChanged();
};

} // namespace Tavro::Multimedia
