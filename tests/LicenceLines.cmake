# SPDX-License-Identifier: MIT
# Every source, header, script and CMake file of the checkout carries the
# licence line in its first lines. Skipped (passes) outside a git checkout.
#
#   cmake -DSOURCE_DIR=<checkout> -DGIT=<git> -P LicenceLines.cmake
execute_process(COMMAND ${GIT} -C ${SOURCE_DIR} ls-files RESULT_VARIABLE result
  OUTPUT_VARIABLE files ERROR_QUIET)
if(NOT result EQUAL 0)
  message(STATUS "not a git checkout: nothing to check")
  return()
endif()
string(REPLACE "\n" ";" files "${files}")
set(missing "")
foreach(file ${files})
  if(file MATCHES "(\\.(cpp|h|in|cmake|sh|py|bash|sed|xsd)|CMakeLists\\.txt)$"
     OR file MATCHES "^\\.ci/" OR file MATCHES "^(bench|fuzz)/run$")
    file(STRINGS ${SOURCE_DIR}/${file} head LIMIT_COUNT 3)
    if(NOT head MATCHES "SPDX-License-Identifier: MIT")
      list(APPEND missing ${file})
    endif()
  endif()
endforeach()
if(missing)
  list(JOIN missing "\n  " missing)
  message(FATAL_ERROR "no SPDX-License-Identifier line in:\n  ${missing}")
endif()
