# Installs the build into a staging prefix, then compiles and runs the
# one-file consumer with nothing but what pkg-config says about the package.
file(REMOVE_RECURSE ${WORK_DIR})
set(STAGE ${WORK_DIR}/stage)

function(run_step description)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${description} failed (${result}):\n${out}\n${err}")
  endif()
  set(step_output "${out}" PARENT_SCOPE)
endfunction()

run_step("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${STAGE})

set(ENV{PKG_CONFIG_PATH} ${STAGE}/${LIBDIR}/pkgconfig)
run_step("pkg-config --modversion" ${PKG_CONFIG} --modversion ExciterSettings)
string(STRIP "${step_output}" version)
if(NOT version STREQUAL EXPECTED_VERSION)
  message(FATAL_ERROR "pkg-config reports version '${version}', expected '${EXPECTED_VERSION}'")
endif()

run_step("pkg-config --cflags --libs" ${PKG_CONFIG} --cflags --libs ExciterSettings)
separate_arguments(flags UNIX_COMMAND "${step_output}")
separate_arguments(extra_flags UNIX_COMMAND "${CONSUMER_FLAGS}")
run_step("compile consumer" ${CXX} -std=c++17 ${extra_flags} ${SOURCE} ${flags} -o ${WORK_DIR}/consumer)

run_step("run consumer" ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${STAGE}/${LIBDIR}
  ${WORK_DIR}/consumer)
if(NOT step_output MATCHES "consumer ok")
  message(FATAL_ERROR "unexpected consumer output:\n${step_output}")
endif()
message(STATUS "pkg-config consumer: ok")
