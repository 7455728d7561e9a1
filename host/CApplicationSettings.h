// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/** The settings of the host that the library reads. Defined by the host. */
class Q_DECL_EXPORT CApplicationSettings
{
public:
    virtual ~CApplicationSettings() = default;

    /**
     * The process-wide instance. Never null in a host that uses ClipInfoHandler, its only caller.
     * The host defines this function and owns the object.
     */
    static CApplicationSettings *instance();

    /** True when distance, pan and tilt are recorded in a file beside each video. */
    virtual bool videoIndexingEnabled() const = 0;
};
