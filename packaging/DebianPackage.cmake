# The Debian package, made by `cpack` in the build folder; packaging/make-deb does all of it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarvel)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${TARVEL_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "published schedules of ice rinks, by week and by day")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Tarvel shows which sessions take place on which sheet of ice, a week of one
sheet or a day of several side by side, with each rink's notices, photos and
address. A Today window serves as a display on a rink's wall.
.
The package also holds tarvel-publish, which turns descriptions in JSON into
the files that a rink's web server hands out.")
set(CPACK_PACKAGE_HOMEPAGE_URL ${TARVEL_WEBSITE_URL})
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# What the programs and the module are linked with comes from the system's own tables. The toolkit's plugins for X11,
# TLS, JPEG, sound, the network's state and printing lie in the packages of its libraries. The zones of the rinks'
# clocks are files that nothing links.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "tzdata")
# Wayland's plugin, the system's certificates for https, the font that the windows are drawn for, and the bus.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "qt6-wayland, ca-certificates, fonts-inter, hicolor-icon-theme, default-dbus-session-bus | dbus-session-bus")
# A display on the wall.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cage, seatd, xwayland")

# What a Debian package has beyond the installed files.
set(debian ${CMAKE_CURRENT_BINARY_DIR}/debian)
file(WRITE ${debian}/changelog "${TARVEL_DEBIAN_CHANGELOG}")
configure_file(debian/FinishTree.cmake.in ${debian}/FinishTree.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${debian}/FinishTree.cmake)
include(CPack)
