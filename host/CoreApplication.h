// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace Tavro::AppLogic {

class CDistanceCounter;
class PanTiltProvider;

/** Gives the library access to the measurements of the host. Defined by the host. */
class Q_DECL_EXPORT CoreApplication
{
public:
    virtual ~CoreApplication() = default;

    /**
     * The process-wide instance. Never null in a host that uses ClipInfoHandler, its only caller.
     * The host defines this function and owns the object.
     */
    static CoreApplication *instance();

    /**
     * Distance counter of the open section. Owned by the host. Not null while a clip is recorded.
     */
    virtual CDistanceCounter *sectionDistanceCounter() const = 0;
    /** Direction of the camera. Owned by the host. Not null while a clip is recorded. */
    virtual PanTiltProvider *panTiltProvider() const = 0;
};

} // namespace Tavro::AppLogic
