# `cpack` in the build folder makes tarumine_VERSION_ARCHITECTURE.deb.
file(READ ${PROJECT_SOURCE_DIR}/LICENSE license)
string(REGEX REPLACE "^.*\n\n(Permission is)" "\\1" license "${license}")
string(REGEX REPLACE "\n+$" "" license "${license}")
string(REGEX REPLACE "\n\n" "\n.\n" license "${license}")
string(REGEX REPLACE "\n" "\n " license "${license}")
configure_file(debian/copyright.in ${made}/doc/copyright @ONLY)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarumine)
set(CPACK_PACKAGE_CONTACT "${maintainer}")
set(CPACK_PACKAGE_HOMEPAGE_URL ${TARUMINE_HELP_SITE})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "personal workbench to read texts at the size one likes")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Tarumine is a window in which to read and edit a text at the size one likes,
with a few small tools around it: it starts the web browsers of this computer,
simulates a circuit in the background, and lets a boat cross the window.

Its user interface is in Japanese.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
# These belong to a package only.
configure_file(debian/lintian-overrides ${made}/lintian/tarumine COPYONLY)
set(CPACK_INSTALLED_DIRECTORIES ${made}/doc usr/share/doc/tarumine
                                ${made}/lintian usr/share/lintian/overrides)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is loaded without being linked: fonts with the characters of the texts, the other display system,
# icons of themes, and what opens pages. The program works without each of them, less well.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk | fonts-japanese-gothic, fonts-noto-color-emoji, \
qt6-wayland, qt6-svg-plugins | libqt6svg6 (<< 6.7.2-5~), xdg-utils, default-dbus-session-bus | dbus-session-bus")
include(CPack)
