################################################################################
#
# ovosharedbase
#
################################################################################

OVOSHAREDBASE_VERSION = 1.0.0
# the checkout that this file is in
OVOSHAREDBASE_SITE = $(realpath $(BR2_EXTERNAL_OVOSHAREDBASE_PATH)/../..)
OVOSHAREDBASE_SITE_METHOD = local
OVOSHAREDBASE_LICENSE = MIT, CC0-1.0 (data and configuration)
OVOSHAREDBASE_LICENSE_FILES = LICENSES/MIT.txt LICENSES/CC0-1.0.txt
OVOSHAREDBASE_INSTALL_STAGING = YES
OVOSHAREDBASE_DEPENDENCIES = host-pkgconf qt5base qt5declarative udev
OVOSHAREDBASE_CONF_OPTS = \
	-DBUILD_TESTING=OFF \
	-DOVO_BUILD_BENCHMARKS=OFF \
	-DOVO_BUILD_FIELDHOST=OFF \
	-DOVO_INSTALL_QMLDIR=qml

ifeq ($(BR2_PACKAGE_QT5TOOLS_LINGUIST_TOOLS),y)
OVOSHAREDBASE_DEPENDENCIES += qt5tools
endif

$(eval $(cmake-package))
