# Run by CTest with -P. Installs BUILD_DIR into WORK_DIR/prefix, checks what
# was installed, then builds and runs the consumer project against it via
# find_package and via pkg-config. Writes only below WORK_DIR. A cross build
# passes its TOOLCHAIN_FILE and EMULATOR (Wine): the consumer is cross-built
# the same way and run under the emulator, finding vesk.dll in prefix/bin.

cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")
set(cross_args)
set(launch)
set(exe_suffix)
if(TOOLCHAIN_FILE)
  set(cross_args "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN_FILE}" "-DCMAKE_FIND_ROOT_PATH=${prefix}")
  set(launch ${CMAKE_COMMAND} -E env "WINEPATH=Z:${prefix}/bin" ${EMULATOR})
  set(exe_suffix .exe)
endif()

run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")

# Only public headers: nothing from the internal folders, and of the file
# layer only its public headers.
file(GLOB_RECURSE installed_headers RELATIVE "${prefix}/include" "${prefix}/include/*")
if(NOT installed_headers)
  message(FATAL_ERROR "no headers installed below ${prefix}/include")
endif()
list(JOIN INTERNAL_DIRS "|" internal)
foreach(header IN LISTS installed_headers)
  if(header IN_LIST EXTRA_PUBLIC_HEADERS)
    continue()
  endif()
  if(NOT header MATCHES "^vesk/" OR header MATCHES "(^|/)(${internal})/" OR NOT header MATCHES "\\.h$")
    message(FATAL_ERROR "installed a file that is not a public header: include/${header}")
  endif()
endforeach()
if(NOT "vesk/vesk.h" IN_LIST installed_headers)
  message(FATAL_ERROR "the umbrella header vesk/vesk.h is not installed")
endif()

file(GLOB_RECURSE package_files "${prefix}/*/veskConfig.cmake")
file(GLOB_RECURSE pc_files "${prefix}/*/vesk.pc")
if(NOT package_files OR NOT pc_files)
  message(FATAL_ERROR "package files missing: config '${package_files}', pkg-config '${pc_files}'")
endif()
get_filename_component(pc_dir "${pc_files}" DIRECTORY)
get_filename_component(libdir "${pc_dir}" DIRECTORY)

# 1. CMake package: find_package(vesk CONFIG REQUIRED) + vesk::vesk.
set(consumer_build "${WORK_DIR}/consumer-cmake")
run(${CMAKE_COMMAND} -S "${CONSUMER_DIR}" -B "${consumer_build}" -G "${GENERATOR}"
    ${cross_args}
    "-DCMAKE_PREFIX_PATH=${prefix}"
    "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}"
    "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
    "-DCMAKE_EXE_LINKER_FLAGS=${EXE_LINKER_FLAGS}")
file(STRINGS "${consumer_build}/CMakeCache.txt" found_dir REGEX "^vesk_DIR:")
string(REGEX REPLACE "^[^=]*=" "" found_dir "${found_dir}")
file(REAL_PATH "${found_dir}" found_dir)
file(REAL_PATH "${prefix}" real_prefix)
string(FIND "${found_dir}/" "${real_prefix}/" at)
if(NOT at EQUAL 0)
  message(FATAL_ERROR "find_package found vesk in ${found_dir}, not in ${prefix}")
endif()
run(${CMAKE_COMMAND} --build "${consumer_build}")
run(${launch} "${consumer_build}/consumer${exe_suffix}")
message(STATUS "find_package consumer: ${run_output}")

# 2. pkg-config: the flags point into the prefix and build the same program.
set(pkg_env "PKG_CONFIG_PATH=${pc_dir}")
set(pkg_args --cflags --libs)
if(STATIC)
  list(APPEND pkg_args --static)
endif()
run(${CMAKE_COMMAND} -E env ${pkg_env} "${PKG_CONFIG}" ${pkg_args} vesk)
string(STRIP "${run_output}" pkg_flags)
message(STATUS "pkg-config --cflags --libs vesk: ${pkg_flags}")
separate_arguments(pkg_flags UNIX_COMMAND "${pkg_flags}")
set(seen_include FALSE)
set(seen_libdir FALSE)
foreach(flag IN LISTS pkg_flags)
  if(flag MATCHES "^-I(.+)")
    file(REAL_PATH "${CMAKE_MATCH_1}" path)
    if(path STREQUAL "${real_prefix}/include")
      set(seen_include TRUE)
    endif()
  elseif(flag MATCHES "^-L(.+)")
    file(REAL_PATH "${CMAKE_MATCH_1}" path)
    file(REAL_PATH "${libdir}" real_libdir)
    if(path STREQUAL real_libdir)
      set(seen_libdir TRUE)
    endif()
  endif()
endforeach()
if(NOT seen_include OR NOT seen_libdir OR NOT "-lvesk" IN_LIST pkg_flags)
  message(FATAL_ERROR "pkg-config flags do not name ${prefix}/include, ${libdir} and -lvesk: "
                      "${pkg_flags}")
endif()

separate_arguments(cxx_flags UNIX_COMMAND "${CXX_FLAGS}")
separate_arguments(link_flags UNIX_COMMAND "${EXE_LINKER_FLAGS}")
set(pc_consumer "${WORK_DIR}/consumer-pkgconfig")
run("${CXX_COMPILER}" ${cxx_flags} -std=c++17 "${CONSUMER_DIR}/main.cpp" ${pkg_flags}
    ${link_flags} -o "${pc_consumer}${exe_suffix}")
if(launch)
  run(${launch} "${pc_consumer}${exe_suffix}")
else()
  run(${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${libdir}" "${pc_consumer}")
endif()
message(STATUS "pkg-config consumer: ${run_output}")
