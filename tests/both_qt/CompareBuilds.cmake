# SPDX-License-Identifier: MIT
# Compares two builds of this source, against Qt 5 and against Qt 6 (A and
# B): the documents their libraries write from the same settings, and what
# their tools make of the same files, byte for byte.
#
#  1. Both document writers (write_documents.cpp) write their documents;
#     every file must be the same in both.
#  2. Both tools check and lint all the files at once and show and format
#     each: the examples, the given texts and the written documents. Exit
#     status, standard output, standard error and the formatted file must be
#     the same.
cmake_minimum_required(VERSION 3.16)
file(REMOVE_RECURSE ${WORK_DIR})
foreach(side A B)
  if(NOT EXISTS ${WRITER_${side}} OR NOT EXISTS ${TOOL_${side}})
    message(FATAL_ERROR "build ${side} is not built: no ${WRITER_${side}} or ${TOOL_${side}}")
  endif()
  execute_process(COMMAND ${WRITER_${side}} ${EXAMPLES_DIR} ${WORK_DIR}/${side}
    RESULT_VARIABLE result ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${WRITER_${side}} failed (${result}): ${err}")
  endif()
  file(GLOB_RECURSE written_${side} LIST_DIRECTORIES false RELATIVE ${WORK_DIR}/${side}
    ${WORK_DIR}/${side}/*)
endforeach()

# Counts a difference; the first ten are shown, with the start of a unified
# diff when two text files are given (texts are written to files for it).
set(differences 0)
find_program(DIFF diff)
function(differs what)
  math(EXPR count "${differences} + 1")
  set(differences ${count} PARENT_SCOPE)
  if(count LESS_EQUAL 10 AND DIFF AND ARGN)
    execute_process(COMMAND ${DIFF} -u ${ARGN} OUTPUT_VARIABLE shown)
    string(SUBSTRING "${shown}" 0 2000 shown)
    message("DIFFERENT: ${what}\n${shown}")
  elseif(count LESS_EQUAL 10)
    message("DIFFERENT: ${what}")
  endif()
endfunction()
function(differs_in_text what text_a text_b)
  file(WRITE ${WORK_DIR}/differs-A "${text_a}")
  file(WRITE ${WORK_DIR}/differs-B "${text_b}")
  differs("${what}" ${WORK_DIR}/differs-A ${WORK_DIR}/differs-B)
  set(differences ${differences} PARENT_SCOPE)
endfunction()

if(NOT written_A STREQUAL written_B)
  string(REPLACE ";" "\n" list_A "${written_A}")
  string(REPLACE ";" "\n" list_B "${written_B}")
  differs_in_text("the names of the files written" "${list_A}\n" "${list_B}\n")
endif()
foreach(file ${written_A})
  file(SHA256 ${WORK_DIR}/A/${file} hash_A)
  file(SHA256 ${WORK_DIR}/B/${file} hash_B)
  if(NOT hash_A STREQUAL hash_B)
    if(file MATCHES "\\.xml$")
      differs("written ${file}" ${WORK_DIR}/A/${file} ${WORK_DIR}/B/${file})
    else()
      differs("written ${file}")
    endif()
  endif()
endforeach()

# The inputs of the tools, as relative paths so that messages name them alike.
file(GLOB examples RELATIVE ${WORK_DIR} ${EXAMPLES_DIR}/*.xml)
file(GLOB given RELATIVE ${WORK_DIR} ${WORK_DIR}/A/given/*.xml)
file(GLOB written RELATIVE ${WORK_DIR} ${WORK_DIR}/A/written/*.xml)
set(inputs ${examples} ${given} ${written})

# Runs the tool of each side with the arguments in the work folder; `output`
# is a file that the tool writes, compared as well.
set(formatted 0)
function(compare_runs what output)
  foreach(side A B)
    execute_process(COMMAND ${TOOL_${side}} ${ARGN} WORKING_DIRECTORY ${WORK_DIR}
      RESULT_VARIABLE status_${side} OUTPUT_VARIABLE out_${side} ERROR_VARIABLE err_${side})
    set(file_${side} "")
    if(output AND EXISTS ${WORK_DIR}/${output})
      file(READ ${WORK_DIR}/${output} file_${side})
      file(REMOVE ${WORK_DIR}/${output})
    endif()
    set(run_${side} "status ${status_${side}}\n${out_${side}}\n${err_${side}}\n${file_${side}}")
  endforeach()
  if(NOT run_A STREQUAL run_B)
    differs_in_text("${what}" "${run_A}" "${run_B}")
  elseif(output AND status_A EQUAL 0)
    math(EXPR count "${formatted} + 1")
    set(formatted ${count} PARENT_SCOPE)
  endif()
  set(differences ${differences} PARENT_SCOPE)
endfunction()

compare_runs("check of every file" "" check ${inputs})
compare_runs("lint of every file" "" lint ${inputs})
foreach(input ${inputs})
  compare_runs("show ${input}" "" show ${input})
  compare_runs("format ${input}" formatted.xml format ${input} -o formatted.xml)
endforeach()

list(LENGTH written_A written_count)
list(LENGTH inputs input_count)
message(STATUS "${written_count} files written by both, ${input_count} files shown and "
  "formatted by both (${formatted} formatted without error)")
if(differences GREATER 0)
  message(FATAL_ERROR "the builds differ in ${differences} places")
endif()
# A comparison of refusals alone would prove little.
if(formatted LESS 40)
  message(FATAL_ERROR "only ${formatted} files could be formatted: too few to compare")
endif()
