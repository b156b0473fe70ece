# SPDX-License-Identifier: MIT
# exciter_settings_qt_names(MAJOR PREFIX): the oldest Qt of that major
# version that the build accepts, and the suffixes that the build against it
# gives the names of its installed files, as PREFIX_QT_MINIMUM_VERSION,
# PREFIX_NAME_SUFFIX (libraries, header folders, CMake package, pkg-config
# file) and PREFIX_TOOL_SUFFIX (the tool). The Qt 5 build keeps the names
# it always had; the Qt 6 build's names differ, so that both builds can be
# installed into one prefix, as Qt's own libraries are.
function(exciter_settings_qt_names major prefix)
  if(major STREQUAL "5")
    set(${prefix}_QT_MINIMUM_VERSION 5.15 PARENT_SCOPE)
    set(${prefix}_NAME_SUFFIX "" PARENT_SCOPE)
    set(${prefix}_TOOL_SUFFIX "" PARENT_SCOPE)
  elseif(major STREQUAL "6")
    set(${prefix}_QT_MINIMUM_VERSION 6.4 PARENT_SCOPE)
    set(${prefix}_NAME_SUFFIX Qt6 PARENT_SCOPE)
    set(${prefix}_TOOL_SUFFIX -qt6 PARENT_SCOPE)
  else()
    message(FATAL_ERROR "The Qt major version must be 5 or 6, not '${major}'")
  endif()
endfunction()
