# SPDX-License-Identifier: MIT
# Installs this build and a build against the other Qt major version into one
# prefix, as a system that offers both does, and builds and runs a host
# against each: neither install may touch a file of the other.
cmake_minimum_required(VERSION 3.16)
include(${CMAKE_CURRENT_LIST_DIR}/../consumer/ConsumerSteps.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/QtNames.cmake)
file(REMOVE_RECURSE ${WORK_DIR})

# Alone, each build installs files of its own names only.
foreach(side "" OTHER_)
  install_build(${${side}BUILD_DIR} ${WORK_DIR}/alone-${${side}QT_MAJOR})
  file(GLOB_RECURSE ${side}files LIST_DIRECTORIES false
    RELATIVE ${WORK_DIR}/alone-${${side}QT_MAJOR} ${WORK_DIR}/alone-${${side}QT_MAJOR}/*)
  list(LENGTH ${side}files count)
  message(STATUS "Qt ${${side}QT_MAJOR} build: ${count} files installed")
endforeach()
set(in_both)
foreach(file ${files})
  if(file IN_LIST OTHER_files)
    list(APPEND in_both ${file})
  endif()
endforeach()
if(in_both)
  list(JOIN in_both "\n  " listed)
  message(FATAL_ERROR "both builds install these files:\n  ${listed}")
endif()

set(prefix ${WORK_DIR}/shared)
install_build(${OTHER_BUILD_DIR} ${prefix})
install_build(${BUILD_DIR} ${prefix})
foreach(side "" OTHER_)
  set(major ${${side}QT_MAJOR})
  build_cmake_consumer(${prefix} ExciterSettingsQt${major} ${major} ${WORK_DIR}/cmake-${major})
  exciter_settings_qt_names(${major} NAMES)
  build_pkgconfig_consumer(${prefix} ExciterSettings${NAMES_NAME_SUFFIX} ${major} ${EXPECTED_VERSION}
    ${WORK_DIR}/pkgconfig-${major})
  # Each tool finds the libraries of its own Qt through its RPATH.
  run_step("${${side}TOOL} check" ${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH
    ${prefix}/${BINDIR}/${${side}TOOL} check ${EXAMPLE})
  if(NOT step_output STREQUAL "${EXAMPLE}: OK\n")
    message(FATAL_ERROR "${${side}TOOL} check printed:\n${step_output}")
  endif()
endforeach()
message(STATUS "Qt ${QT_MAJOR} and Qt ${OTHER_QT_MAJOR} installs side by side: ok")
