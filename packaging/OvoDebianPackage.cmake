# `cpack` in a build directory makes the packages: the library, what a host needs to build against
# it, and the QML module.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ovo-shared-base)
set(CPACK_PACKAGE_CONTACT "The OvoSharedBase maintainers <maintainers@ovo-shared-base.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_STRIP_FILES ON)
# whatever the umask of whoever builds the packages
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Runtime Development)
if(TARGET OvoSharedBaseQml)
    list(APPEND CPACK_COMPONENTS_ALL Qml)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# so that a package of a program built against this one depends on it
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libovosharedbase1)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libovosharedbase-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libovosharedbase1 (= ${PROJECT_VERSION}), qtbase5-dev (>= 5.15)")
# the archive of the QML module needs Qt's, and editors find its type list by the module
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS
    "qml-module-ovosharedbase (= ${PROJECT_VERSION}), qtdeclarative5-dev (>= 5.15)")
set(CPACK_DEBIAN_QML_PACKAGE_NAME qml-module-ovosharedbase)
set(CPACK_DEBIAN_QML_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_QML_PACKAGE_DEPENDS
    "libovosharedbase1 (= ${PROJECT_VERSION}), qml-module-qtqml (>= 5.15)")
# where dpkg-shlibdeps finds the library that is in another package
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/shared")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The shared library.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Headers, the host's interfaces, the CMake package and the pkg-config file.")
set(CPACK_COMPONENT_QML_DESCRIPTION "The QML module OvoSharedBase.")

include(CPack)
