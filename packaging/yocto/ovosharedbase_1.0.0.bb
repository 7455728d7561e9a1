SUMMARY = "Shared base library of a field application for pipe inspection"
DESCRIPTION = "Durable copies to USB drives, numbers and units, rules for forms and clip information for \
applications on an embedded device."
LICENSE = "MIT & CC0-1.0"
LIC_FILES_CHKSUM = "file://LICENSES/CC0-1.0.txt;md5=65d3616852dbf7b1a6d4b53b00626032 \
                    file://LICENSES/MIT.txt;md5=48b7dab217f887ebc9bebaffb59df535"

DEPENDS = "qtbase qtdeclarative qtdeclarative-native qttools-native udev"

inherit cmake_qt5 externalsrc pkgconfig

# the checkout that this file is in
EXTERNALSRC = "${@os.path.normpath(os.path.join(d.getVar('THISDIR'), '../..'))}"

EXTRA_OECMAKE += "\
    -DBUILD_TESTING=OFF \
    -DOVO_BUILD_BENCHMARKS=OFF \
    -DOVO_BUILD_FIELDHOST=OFF \
    -DOVO_INSTALL_QMLDIR=${@os.path.relpath(d.getVar('OE_QMAKE_PATH_QML'), d.getVar('prefix'))} \
"

PACKAGES =+ "${PN}-qmlplugins"

FILES:${PN} += "${datadir}/OvoSharedBase"
FILES:${PN}-qmlplugins = "${OE_QMAKE_PATH_QML}/OvoSharedBase"
