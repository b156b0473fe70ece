# SPDX-License-Identifier: MIT
# The licence in every install, and the Debian packages that `cpack -G DEB`
# makes from a build (configured with -DCMAKE_INSTALL_PREFIX=/usr, the
# libraries go into Debian's multiarch directory), split as distributions
# split libraries, one set per Qt build:
#
#   runtime  lib<name><soversion>   the two shared libraries
#   dev      lib<name>-dev          headers, CMake package, .pc file, schema
#   tools    exciter-settings<tool suffix>   the tool, its completion and manual page
#
# <name> is excitersettings (Qt 5) or excitersettingsqt6 (Qt 6), so that the
# two sets install side by side as the builds' files do.
string(TOLOWER "ExciterSettings${EXCITERSETTINGS_NAME_SUFFIX}" deb_name)
if(deb_name MATCHES "[0-9]$")
  set(deb_runtime lib${deb_name}-${PROJECT_VERSION_MAJOR})
else()
  set(deb_runtime lib${deb_name}${PROJECT_VERSION_MAJOR})
endif()
set(deb_dev lib${deb_name}-dev)
set(deb_tools exciter-settings${EXCITERSETTINGS_TOOL_SUFFIX})
set(deb_revision 1)
set(EXCITERSETTINGS_PACKAGE_MAINTAINER "The ExciterSettings authors <excitersettings@example.org>"
  CACHE STRING "Maintainer of the Debian packages, as \"Name <address>\"")

set(deb_components runtime dev tools)
if(NOT EXCITERSETTINGS_BUILD_TOOLS)
  list(REMOVE_ITEM deb_components tools)
endif()

# Installed into /usr (as cpack installs, whatever prefix the build was
# configured with), every package carries the licence as Debian does
# (/usr/share/doc/<package>/copyright, in the machine-readable form) and a
# changelog, and no binary keeps a RUNPATH: the system finds the libraries.
# Installed anywhere else, the licence goes once into the documentation
# folder and the $ORIGIN-relative RUNPATHs stay, so the install can move.
# Both are decided when installing, by the prefix installed into.
find_program(GZIP_EXECUTABLE gzip)
if(NOT GZIP_EXECUTABLE)
  message(FATAL_ERROR "gzip is needed for the packages' changelogs")
endif()
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
string(REGEX REPLACE "^MIT License\n\n[^\n]*\n\n" "" licence "${licence}")
string(REGEX REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REGEX REPLACE "\n([^\n])" "\n \\1" licence "${licence}")
set(copyright ${PROJECT_BINARY_DIR}/debian/copyright)
file(WRITE ${copyright} "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: ExciterSettings

Files: *
Copyright: 2026 The ExciterSettings authors
License: Expat
 ${licence}")
# Qt 5 is built with reduced relocations, and its headers refuse code that
# is not compiled with -fPIC, which Qt5Core.pc does not say; the Qt 5 .pc
# file says it for its hosts (see CMakeLists.txt), against lintian's rule
# that a .pc file carries no code generation flags.
set(deb_files_dev "")
if(EXCITERSETTINGS_QT_MAJOR_VERSION STREQUAL "5")
  set(overrides ${PROJECT_BINARY_DIR}/debian/${deb_dev}/${deb_dev})
  file(WRITE ${overrides} "# Qt 5's headers demand -fPIC of every program that includes them.
${deb_dev}: pkg-config-bad-directive -fPIC [usr/${CMAKE_INSTALL_LIBDIR}/pkgconfig/${EXCITERSETTINGS_PACKAGE}.pc]
")
  set(deb_files_dev "share/lintian/overrides:${overrides}")
endif()
set(deb_binaries_runtime ${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:KelmoraBase>
  ${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:ExciterSettings>)
set(deb_binaries_tools "")
if(TARGET exciter-settings)
  set(deb_binaries_tools ${CMAKE_INSTALL_BINDIR}/$<TARGET_FILE_NAME:exciter-settings>)
endif()
foreach(component ${deb_components})
  set(package ${deb_${component}})
  set(changelog ${PROJECT_BINARY_DIR}/debian/${package}/changelog.Debian)
  file(WRITE ${changelog} "${package} (${PROJECT_VERSION}-${deb_revision}) unstable; urgency=medium

  * Packages of ExciterSettings ${PROJECT_VERSION}, made with CPack.

 -- ${EXCITERSETTINGS_PACKAGE_MAINTAINER}  Mon, 23 Nov 2026 12:00:00 +0000
")
  execute_process(COMMAND ${GZIP_EXECUTABLE} -9nf ${changelog})
  install(CODE "
    if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
      # file(INSTALL) adds DESTDIR itself; file(RPATH_REMOVE) does not.
      file(INSTALL DESTINATION /usr/share/doc/${package} TYPE FILE
        FILES \"${copyright}\" \"${changelog}.gz\")
      foreach(entry ${deb_files_${component}})
        string(REPLACE \":\" \";\" entry \"\${entry}\")
        list(GET entry 0 directory)
        list(GET entry 1 file)
        file(INSTALL DESTINATION \"/usr/\${directory}\" TYPE FILE FILES \"\${file}\")
      endforeach()
      foreach(binary ${deb_binaries_${component}})
        file(RPATH_REMOVE FILE \"\$ENV{DESTDIR}/usr/\${binary}\")
      endforeach()
    endif()" COMPONENT ${component})
endforeach()
install(CODE "
  if(NOT CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
    file(INSTALL DESTINATION
      \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/doc/ExciterSettings${EXCITERSETTINGS_NAME_SUFFIX}\"
      TYPE FILE FILES \"${PROJECT_SOURCE_DIR}/LICENSE\")
  endif()" COMPONENT runtime)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${deb_name})
set(CPACK_PACKAGE_VENDOR "The ExciterSettings authors")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_CONTACT "${EXCITERSETTINGS_PACKAGE_MAINTAINER}")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL ${deb_components})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${deb_revision})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# Dependencies from the libraries and the tool (dpkg-shlibdeps), and the
# packages' dependencies on each other with the exact version.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  ${PROJECT_BINARY_DIR}/kelmorabase ${PROJECT_BINARY_DIR}/framework)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# The runtime package's shlibs file (what packages built against it depend
# on) and an ldconfig trigger, which Debian uses instead of the ldconfig
# calls that CPack writes into maintainer scripts for every package with
# libraries under /usr/lib.
set(deb_control ${PROJECT_BINARY_DIR}/debian/${deb_runtime}-control)
file(WRITE ${deb_control}/shlibs
  "libExciterSettings${EXCITERSETTINGS_NAME_SUFFIX} ${PROJECT_VERSION_MAJOR} ${deb_runtime} (>= ${PROJECT_VERSION})
libKelmoraBase${EXCITERSETTINGS_NAME_SUFFIX} ${PROJECT_VERSION_MAJOR} ${deb_runtime} (>= ${PROJECT_VERSION})
")
file(WRITE ${deb_control}/triggers "activate-noawait ldconfig\n")
# Maintainer scripts of our own keep CPack from adding its ldconfig calls.
foreach(script postinst postrm)
  file(WRITE ${deb_control}/scripts/${script} "#!/bin/sh
set -e
# The linker cache is updated by the ldconfig trigger (see triggers).
exit 0
")
  file(COPY ${deb_control}/scripts/${script} DESTINATION ${deb_control}
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
endforeach()
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${deb_control}/shlibs ${deb_control}/triggers
  ${deb_control}/postinst ${deb_control}/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_COMPONENT_DEV_DEPENDS runtime)
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime)

if(EXCITERSETTINGS_QT_MAJOR_VERSION STREQUAL "5")
  set(qt_dev qtbase5-dev)
else()
  set(qt_dev qt6-base-dev)
endif()
set(qt_text "Qt ${EXCITERSETTINGS_QT_MAJOR_VERSION}")
# CPack indents the lines after the first; "." stands for an empty line.
set(about "ExciterSettings holds the settings of an RF exciter installation as a tree
of typed records and moves them to and from XML files.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${deb_runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "settings records of an RF exciter, as XML (${qt_text})
${about}
.
This package holds the shared libraries, built against ${qt_text}.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME ${deb_dev})
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS ${qt_dev})
set(CPACK_COMPONENT_DEV_DESCRIPTION "settings records of an RF exciter, as XML (${qt_text}, development)
${about}
.
This package holds the headers, the CMake package
${EXCITERSETTINGS_PACKAGE}, the pkg-config file and the XML Schema of the
settings files, for programs built against ${qt_text}.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${deb_tools})
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "check, show, lint and change RF exciter settings files (${qt_text})
${about}
.
This package holds the command-line tool ${deb_tools}, its bash
completion and its manual page.")

include(CPack)
