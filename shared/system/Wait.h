#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Tavro::Shared {

/**
 * A text and a signal, by which a part of the host tells another that what it waits for is over.
 *
 * Does nothing by itself: who emits the signal, on which thread, and what the text says is the
 * host's.
 */
class OVO_SHARED_EXPORT Wait : public QObject
{
    Q_OBJECT

public:
    explicit Wait(QObject *parent = nullptr);
    ~Wait() override;

    /** The host's text; empty until it is set. */
    QString text() const;
    /** Keeps @p text; tells nobody. */
    void setText(const QString &text);

Q_SIGNALS:
    /** Emitted by the host. */
    void waitFinished();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
