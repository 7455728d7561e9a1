#pragma once

#include <QtGlobal>

namespace Tavro::AppLogic {

class CDistanceCounter;
class PanTiltProvider;

/** Way from the library to the host's running measurements. */
class Q_DECL_EXPORT CoreApplication
{
public:
    virtual ~CoreApplication() = default;

    /** The host's application object, owned by the host; defined by the host. */
    static CoreApplication *instance();

    /** Distance counter of the open section, owned by the host. */
    virtual CDistanceCounter *sectionDistanceCounter() const = 0;
    /** Source of the camera's direction, owned by the host. */
    virtual PanTiltProvider *panTiltProvider() const = 0;
};

} // namespace Tavro::AppLogic
