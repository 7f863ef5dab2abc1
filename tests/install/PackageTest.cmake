# Run by CTest with -P. Makes the Debian packages of BUILD_DIR with CPack,
# extracts the runtime and -dev packages into a scratch root with
# dpkg-deb -x (as dpkg would place them, without installing anything), then
# builds the consumer project against that root through find_package and
# runs it. Writes only below WORK_DIR.

cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}/packages" "${WORK_DIR}/root")
run("${CPACK}" -G DEB --config "${BUILD_DIR}/CPackConfig.cmake" -B "${WORK_DIR}/packages")

file(GLOB runtime "${WORK_DIR}/packages/libvesk[0-9]*_*.deb")
file(GLOB dev "${WORK_DIR}/packages/libvesk-dev_*.deb")
if(NOT runtime OR NOT dev)
  message(FATAL_ERROR "cpack made no runtime or -dev package: '${runtime}' '${dev}'")
endif()

# The runtime package depends on the Xerces-C and ICU libraries; the -dev
# package on exactly this runtime package.
run(dpkg-deb -f "${runtime}" Package Depends)
if(NOT run_output MATCHES "libxerces-c" OR NOT run_output MATCHES "libicu")
  message(FATAL_ERROR "runtime package dependencies lack Xerces-C or ICU:\n${run_output}")
endif()
string(REGEX MATCH "Package: ([^\n]+)" _ "${run_output}")
set(runtime_name "${CMAKE_MATCH_1}")
run(dpkg-deb -f "${dev}" Depends)
if(NOT run_output MATCHES "${runtime_name} \\(= ")
  message(FATAL_ERROR "-dev package does not depend on ${runtime_name} of its version: ${run_output}")
endif()
run(dpkg-deb -c "${runtime}")
if(run_output MATCHES "\\.h\n" OR NOT run_output MATCHES "libvesk\\.so\\.[0-9]")
  message(FATAL_ERROR "runtime package holds headers or lacks the library:\n${run_output}")
endif()

run(dpkg-deb -x "${runtime}" "${WORK_DIR}/root")
run(dpkg-deb -x "${dev}" "${WORK_DIR}/root")
file(GLOB_RECURSE config "${WORK_DIR}/root/*/veskConfig.cmake")
file(GLOB_RECURSE library "${WORK_DIR}/root/*/libvesk.so.[0-9]")
if(NOT config OR NOT library)
  message(FATAL_ERROR "the extracted packages lack the CMake package or the library")
endif()
get_filename_component(libdir "${library}" DIRECTORY)

set(consumer_build "${WORK_DIR}/consumer")
run(${CMAKE_COMMAND} -S "${CONSUMER_DIR}" -B "${consumer_build}" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${WORK_DIR}/root/usr"
    "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
    "-DCMAKE_EXE_LINKER_FLAGS=${EXE_LINKER_FLAGS}")
run(${CMAKE_COMMAND} --build "${consumer_build}")
run(${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${libdir}" "${consumer_build}/consumer")
message(STATUS "consumer built from the Debian packages: ${run_output}")
