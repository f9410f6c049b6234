# SPDX-License-Identifier: MIT
# The Debian packages: tessit-control and, for trying it without hardware, zephon-emulator. ./package makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "${maintainer}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_HOMEPAGE_URL "https://tessit.example/control")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL program emulator)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME tessit-control)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS fonts-liberation) # its widths are the windows' and the page's
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS qt6-wayland)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS zephon-emulator)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION "desktop control program of the Zephon II
The Zephon II is a programmable frequency generator with 40 memory banks of
50 levels on a serial line. With Tessit Control one types protocols (tables
of levels) or composes them from lists of frequencies, saves, prints and
exports them, loads them into a bank of the generator and reads a bank back.")
set(CPACK_DEBIAN_EMULATOR_PACKAGE_NAME zephon-emulator)
set(CPACK_DEBIAN_EMULATOR_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_EMULATOR_PACKAGE_ENHANCES tessit-control)
set(CPACK_DEBIAN_EMULATOR_DESCRIPTION "emulated Zephon II frequency generator
The emulator plays a Zephon II on a pseudo-terminal, with its keypad on
standard input, so that Tessit Control can be tried without the hardware.
Its memory can be looked into, and it can be told to fail.")
include(CPack)
