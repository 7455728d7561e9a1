// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Tavro {

/**
 * The type of the open project, for QML and for Mandatory3dDef.
 *
 * A process-wide instance. The host sets the type, on the GUI thread, when a project is opened and
 * when its catalog changes. Any thread may read it while no other thread sets it. Nothing blocks.
 */
class OVO_SHARED_EXPORT ProjectTypeGlobal : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool is3d READ is3d NOTIFY is3dChanged)
    Q_PROPERTY(bool isPlumberCatalog READ isPlumberCatalog NOTIFY isPlumberCatalogChanged)

public:
    ~ProjectTypeGlobal() override;

    /**
     * The process-wide instance. The first call creates it; it is destroyed when the process exits.
     * It has no parent: before the host passes it to a QML engine, it calls
     * QQmlEngine::setObjectOwnership() with QQmlEngine::CppOwnership.
     */
    static ProjectTypeGlobal &instance()
    {
        static ProjectTypeGlobal theOne;
        return theOne;
    }

    /** True when projectType() is exactly "PRO3D". */
    bool is3d() const;
    /** True when the catalog of the project is one for plumbers. */
    bool isPlumberCatalog() const;
    /** The type of the project, as it was set. */
    QString projectType() const;

    /** Sets the type, any text. Default: empty. Emits is3dChanged() if is3d changes. */
    void setProjectType(const QString &projectType)
    {
        const bool before = is3d();
        storeProjectType(projectType);
        if (is3d() != before) {
            Q_EMIT is3dChanged();
        }
    }
    /**
     * Sets whether the catalog is one for plumbers. Default: false. Emits isPlumberCatalogChanged()
     * if the value changes.
     */
    void setIsPlumberCatalog(bool isPlumberCatalog)
    {
        if (this->isPlumberCatalog() != isPlumberCatalog) {
            storeIsPlumberCatalog(isPlumberCatalog);
            Q_EMIT isPlumberCatalogChanged();
        }
    }

Q_SIGNALS:
    /** Emitted when is3d has changed. */
    void is3dChanged();
    /** Emitted when isPlumberCatalog has changed. */
    void isPlumberCatalogChanged();

private:
    // not hidden: what is inline above calls them from the code of the host
    ProjectTypeGlobal();
    void storeProjectType(const QString &projectType);
    void storeIsPlumberCatalog(bool isPlumberCatalog);

    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro
