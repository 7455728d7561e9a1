#pragma once

#include <QtGlobal>

/** The part of the host's settings that the library asks for. */
class Q_DECL_EXPORT CApplicationSettings
{
public:
    virtual ~CApplicationSettings() = default;

    /** The host's settings, owned by the host; defined by the host. */
    static CApplicationSettings *instance();

    /** True when distance, pan and tilt are to be recorded beside each video. */
    virtual bool videoIndexingEnabled() const = 0;
};
