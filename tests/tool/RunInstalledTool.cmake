# SPDX-License-Identifier: MIT
# Installs the build into a staging prefix, checks that it holds the XML Schema,
# and runs the command-line tests against the installed exciter-settings,
# which finds the staged libraries through its install RPATH.
file(REMOVE_RECURSE ${WORK_DIR})
set(STAGE ${WORK_DIR}/stage)

execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${STAGE}
  RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE err)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "install failed (${result}):\n${err}")
endif()

execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${SCHEMA} ${STAGE}/${INSTALLED_SCHEMA}
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the install holds no copy of ${SCHEMA} as ${INSTALLED_SCHEMA}")
endif()

set(TOOL ${STAGE}/${BINDIR}/${TOOL_NAME})
if(NOT EXISTS ${TOOL})
  message(FATAL_ERROR "the install holds no ${TOOL}")
endif()

execute_process(
  COMMAND ${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH EXCITER_SETTINGS_TOOL=${TOOL}
          ${TEST_PROGRAM} --gtest_filter=ToolCommandLine.*
  RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "installed tool failed its tests (${result}):\n${out}\n${err}")
endif()
message(STATUS "${out}")
