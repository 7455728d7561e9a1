#pragma once

#include "host/CDomainObject.h"

#include <QObject>

namespace Tavro {

/** What happens in the host as a whole. */
class Q_DECL_EXPORT AppState : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** The host's state object, owned by the host; defined by the host. */
    static AppState *instance();

Q_SIGNALS:
    /** The inspector has entered an observation; @p object is already stored. */
    void observationCreated(Tavro::Database::CDomainObjectPointer object);
};

} // namespace Tavro
