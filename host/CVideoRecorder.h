#pragma once

#include <QObject>

namespace Tavro::Multimedia {

/** The recorder of the inspection video. */
class Q_DECL_EXPORT CVideoRecorder : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** What the recorder is doing, as the host numbers it. */
    virtual int state() const = 0;
    /** Length of the video so far, in milliseconds. */
    virtual qint64 duration() const = 0;

Q_SIGNALS:
    /** state() answers something new. */
    void stateChanged();
};

} // namespace Tavro::Multimedia
