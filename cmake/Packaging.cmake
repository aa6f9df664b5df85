# SPDX-License-Identifier: MIT
#
# `cpack -G DEB` (or `make package`) makes the Debian package "stagewright":
# the programs and their desktop integration, the component "StageWright",
# installed under /usr. The library's headers and CMake package are for
# building games and stay out of it; `cmake --install --component Tessaro`
# installs them.
set(CPACK_PACKAGE_NAME stagewright)
set(CPACK_PACKAGE_VENDOR "The StageWright developers")
set(CPACK_PACKAGE_CONTACT "The StageWright developers <developers@stagewright.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Level editor for 2D scrolling games built on Tessaro")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
  "StageWright opens a workspace of property-list files, keeps each project (a list of levels) in a tab, "
  "draws the selected level on a canvas and edits every element per device, with undo. "
  "stagewright-cli checks, converts and renders project files headless, and tessaro-play plays a level.")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://stagewright.org")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# Debugging information stays in the build tree; the package gets lean programs.
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL StageWright)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# What the programs need to run, from the packages scripts/install-deps.sh
# installs to build them: the shared libraries they link (Qt, Box2D,
# libplist, pugixml, SQLite, the C and C++ runtimes), the SVG plug-ins (the
# icons), and the GStreamer plug-ins that Qt Multimedia plays sounds with (it
# fails without them). The package test checks that every library the
# programs link is named here. dpkg-shlibdeps would find the libraries itself
# but takes half a minute over sanitized programs, longer than the rest of the
# package.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "libqt6core6 (>= 6.4)" "libqt6gui6 (>= 6.4)" "libqt6widgets6 (>= 6.4)" "libqt6svg6 (>= 6.4)"
  "libqt6multimedia6 (>= 6.4)" "libqt6network6 (>= 6.4)" "libqt6dbus6 (>= 6.4)" "libqt6concurrent6 (>= 6.4)"
  libbox2d2 libplist3 libpugixml1v5 libsqlite3-0 libstdc++6 libgcc-s1 libc6
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good)
if(STAGEWRIGHT_SANITIZE)
  # The sanitizers' runtime; their link options also keep every library Qt
  # names on the link line.
  list(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS libasan8 libubsan1 libglx0 libopengl0)
endif()
list(JOIN CPACK_DEBIAN_PACKAGE_DEPENDS ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
# Further platforms (Wayland) and image formats of the workspaces' images.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-qpa-plugins, qt6-image-formats-plugins")

# The package's copyright file, in Debian's machine-readable form, made from
# LICENSE: the licence text follows its "License:" line, each line indented
# by a blank and each empty line written as " .".
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence_text)
string(REGEX REPLACE "^.*\n(Permission is hereby granted)" "\\1" licence_terms "${licence_text}")
string(REGEX MATCH "Copyright \\(c\\) ([^\n]*)" licence_holder "${licence_text}")
set(licence_holder "${CMAKE_MATCH_1}")
string(STRIP "${licence_terms}" licence_terms)
string(REPLACE "\n\n" "\n.\n" licence_terms "${licence_terms}")
string(REPLACE "\n" "\n " licence_terms "${licence_terms}")
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/debian/copyright CONTENT
"Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: StageWright
Upstream-Contact: ${CPACK_PACKAGE_CONTACT}
Source: ${CPACK_PACKAGE_HOMEPAGE_URL}

Files: *
Copyright: ${licence_holder}
License: MIT
 ${licence_terms}
")
install(FILES ${PROJECT_BINARY_DIR}/debian/copyright COMPONENT StageWright
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_PACKAGE_NAME})

include(CPack)
