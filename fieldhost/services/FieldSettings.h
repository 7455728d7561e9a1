// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CApplicationSettings.h"

namespace Tavro::FieldHost {

/** Settings of the field host. Not stored: they last as long as the application. */
class FieldSettings : public CApplicationSettings
{
public:
    bool videoIndexingEnabled() const override { return m_videoIndexingEnabled; }
    /** Turns the recording of distance, pan and tilt beside the videos on or off. */
    void setVideoIndexingEnabled(bool enabled) { m_videoIndexingEnabled = enabled; }

private:
    bool m_videoIndexingEnabled = true;
};

} // namespace Tavro::FieldHost
