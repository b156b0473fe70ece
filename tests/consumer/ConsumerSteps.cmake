# SPDX-License-Identifier: MIT
# Steps of the tests that build a host outside this tree against an install:
# included by RunConsumer.cmake, RunPkgConfigConsumer.cmake and
# ../both_qt/RunSideBySide.cmake.
#
# Expects GENERATOR, CXX, PKG_CONFIG, LIBDIR and CONSUMER_FLAGS (extra
# compiler flags, possibly empty) where the steps need them.
set(CONSUMER_DIR ${CMAKE_CURRENT_LIST_DIR})

# Runs a command; fails the test with its output when it fails. The output
# is left in step_output.
function(run_step description)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${description} failed (${result}):\n${out}\n${err}")
  endif()
  set(step_output "${out}" PARENT_SCOPE)
endfunction()

function(install_build build_dir prefix)
  run_step("install ${build_dir}" ${CMAKE_COMMAND} --install ${build_dir} --prefix ${prefix})
endfunction()

# Configures, builds and runs consumer/ as a CMake host of Qt `qt_major`
# that finds `package` in `prefix`.
function(build_cmake_consumer prefix package qt_major work_dir)
  set(options -DCMAKE_PREFIX_PATH=${prefix} -DEXCITERSETTINGS_PACKAGE=${package}
              -DQT_VERSION_MAJOR=${qt_major})
  if(CONSUMER_FLAGS)
    list(APPEND options "-DCMAKE_CXX_FLAGS=${CONSUMER_FLAGS}")
  endif()
  run_step("configure consumer of ${package}" ${CMAKE_COMMAND} -S ${CONSUMER_DIR}
    -B ${work_dir} -G ${GENERATOR} ${options})
  run_step("build consumer of ${package}" ${CMAKE_COMMAND} --build ${work_dir})
  run_step("run consumer of ${package}" ${work_dir}/consumer)
  message(STATUS "consumer of ${package}: ${step_output}")
endfunction()

# Compiles and runs consumer/main.cpp with nothing but what pkg-config says
# about `package` in `prefix`, and checks its version.
function(build_pkgconfig_consumer prefix package qt_major expected_version work_dir)
  set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
  run_step("pkg-config --modversion ${package}" ${PKG_CONFIG} --modversion ${package})
  string(STRIP "${step_output}" version)
  if(NOT version STREQUAL expected_version)
    message(FATAL_ERROR "pkg-config reports version '${version}', expected '${expected_version}'")
  endif()
  run_step("pkg-config --cflags --libs ${package}" ${PKG_CONFIG} --cflags --libs ${package})
  separate_arguments(flags UNIX_COMMAND "${step_output}")
  separate_arguments(extra_flags UNIX_COMMAND "${CONSUMER_FLAGS}")
  file(MAKE_DIRECTORY ${work_dir})
  run_step("compile consumer of ${package}" ${CXX} -std=c++17 ${extra_flags}
    -DEXPECTED_QT_MAJOR=${qt_major} ${CONSUMER_DIR}/main.cpp ${flags}
    -o ${work_dir}/consumer)
  run_step("run consumer of ${package}" ${CMAKE_COMMAND} -E env
    LD_LIBRARY_PATH=${prefix}/${LIBDIR} ${work_dir}/consumer)
  if(NOT step_output MATCHES "consumer ok")
    message(FATAL_ERROR "unexpected consumer output:\n${step_output}")
  endif()
  message(STATUS "pkg-config consumer of ${package}: ${step_output}")
endfunction()
