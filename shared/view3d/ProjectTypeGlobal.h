#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Tavro {

/**
 * What kind of project is open, for QML and for Mandatory3dDef.
 *
 * There is one in the process, made at first use and destroyed at the process's exit. The host
 * sets it when a project is opened, and when its catalog changes, on the GUI thread; it may be
 * read from any thread while nobody sets it.
 */
class OVO_SHARED_EXPORT ProjectTypeGlobal : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool is3d READ is3d NOTIFY is3dChanged)
    Q_PROPERTY(bool isPlumberCatalog READ isPlumberCatalog NOTIFY isPlumberCatalogChanged)

public:
    ~ProjectTypeGlobal() override;

    /**
     * The one of the process. Has no parent: a host that hands it to a QML engine says that C++
     * owns it.
     */
    static ProjectTypeGlobal &instance()
    {
        static ProjectTypeGlobal theOne;
        return theOne;
    }

    /** True when the project's type is "PRO3D", in capitals. */
    bool is3d() const;
    /** Whether the project's catalog is one for plumbers; false until it is set. */
    bool isPlumberCatalog() const;
    /** The type as it was set; empty until then. */
    QString projectType() const;

    /** Sets the type, any text; announces it only if is3d answers something new. */
    void setProjectType(const QString &projectType)
    {
        const bool before = is3d();
        storeProjectType(projectType);
        if (is3d() != before) {
            Q_EMIT is3dChanged();
        }
    }
    /** Sets whether the catalog is one for plumbers; announces it only if that is new. */
    void setIsPlumberCatalog(bool isPlumberCatalog)
    {
        if (this->isPlumberCatalog() != isPlumberCatalog) {
            storeIsPlumberCatalog(isPlumberCatalog);
            Q_EMIT isPlumberCatalogChanged();
        }
    }

Q_SIGNALS:
    /** is3d answers something new. */
    void is3dChanged();
    /** isPlumberCatalog answers something new. */
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
