# SPDX-License-Identifier: MIT
# Installs the build into a staging prefix, then compiles and runs the
# one-file consumer with nothing but what pkg-config says about the package.
include(${CMAKE_CURRENT_LIST_DIR}/ConsumerSteps.cmake)
file(REMOVE_RECURSE ${WORK_DIR})
install_build(${BUILD_DIR} ${WORK_DIR}/stage)
build_pkgconfig_consumer(${WORK_DIR}/stage ${PACKAGE} ${QT_MAJOR} ${EXPECTED_VERSION}
  ${WORK_DIR}/build)
