// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/OvoSharedBaseTypes.h"

#include <QQmlExtensionPlugin>

/** Loaded by the engine for `import OvoSharedBase 1.0`, in a host that has the host's interfaces.
 */
class OvoSharedBasePlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    void registerTypes(const char *) override { registerOvoSharedBaseTypes(); }
};

#include "OvoSharedBasePlugin.moc"
