# Cross-compiling for 64-bit Windows with Debian's MinGW-w64 (POSIX thread
# model). Programs run under Wine through scripts/wine-run.sh, which finds the
# DLLs of the MinGW runtime and of the cross-built dependencies.
#
# VESK_WINDOWS_DEPS is the prefix that scripts/windows-deps.sh installed
# Xerces-C and GoogleTest into; it defaults to the current one of the cache.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(_vesk_triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${_vesk_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_vesk_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${_vesk_triple}-windres)

if(NOT VESK_WINDOWS_DEPS)
  if(DEFINED ENV{VESK_WINDOWS_DEPS})
    set(VESK_WINDOWS_DEPS "$ENV{VESK_WINDOWS_DEPS}")
  else()
    set(VESK_WINDOWS_DEPS "$ENV{HOME}/.cache/vesk/windows-deps/current")
  endif()
endif()
set(VESK_WINDOWS_DEPS "${VESK_WINDOWS_DEPS}" CACHE PATH "Cross-built Windows dependencies")
# try_compile projects see the prefix too.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VESK_WINDOWS_DEPS)

# Appended to, so that a project given -DCMAKE_FIND_ROOT_PATH=<prefix> (the
# install test's consumer) finds what is installed there too.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${_vesk_triple} ${VESK_WINDOWS_DEPS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

get_filename_component(_vesk_tree "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
set(CMAKE_CROSSCOMPILING_EMULATOR "${_vesk_tree}/scripts/wine-run.sh")
