# SPDX-License-Identifier: MIT
# Installs the build into a staging prefix, then configures, builds and runs
# the consumer project against it.
include(${CMAKE_CURRENT_LIST_DIR}/ConsumerSteps.cmake)
file(REMOVE_RECURSE ${WORK_DIR})
install_build(${BUILD_DIR} ${WORK_DIR}/stage)
build_cmake_consumer(${WORK_DIR}/stage ${PACKAGE} ${QT_MAJOR} ${WORK_DIR}/build)
