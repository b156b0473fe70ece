# Installs the build into a staging prefix, then configures, builds and runs
# the consumer project against it.
file(REMOVE_RECURSE ${WORK_DIR})
set(STAGE ${WORK_DIR}/stage)

function(run_step description)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${description} failed (${result}):\n${out}\n${err}")
  endif()
  message(STATUS "${description}: ok\n${out}")
endfunction()

run_step("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${STAGE})
set(consumer_options)
if(CONSUMER_FLAGS)
  list(APPEND consumer_options "-DCMAKE_CXX_FLAGS=${CONSUMER_FLAGS}")
endif()
run_step("configure consumer" ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build
  -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${STAGE} ${consumer_options})
run_step("build consumer" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run_step("run consumer" ${WORK_DIR}/build/consumer)
