# SPDX-License-Identifier: MIT
# Runs the README's snippets on a copy of an example: any qWarning (a failure
# the host snippet catches, a lint finding) ends the program, and the saved
# file must hold the changes the host snippet makes.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
configure_file(${EXAMPLE} ${WORK_DIR}/exciter.xml COPYONLY)
execute_process(COMMAND ${CMAKE_COMMAND} -E env QT_FATAL_WARNINGS=1 ${PROGRAM}
  WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the README snippets failed (${result}):\n${out}${err}")
endif()
file(READ ${WORK_DIR}/exciter.xml saved)
foreach(expected "<Power>-10.00</Power>" "<Level>-3.5</Level>" "<ExciterMode>Look Through<")
  string(FIND "${saved}" "${expected}" found)
  if(found EQUAL -1)
    message(FATAL_ERROR "the saved file lacks ${expected}:\n${saved}")
  endif()
endforeach()
