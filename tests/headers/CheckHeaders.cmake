# Run by CTest with -P.
#   MODE=umbrella: installs BUILD_DIR below WORK_DIR and compares the headers
#     it installed with the #include lines of the installed vesk/vesk.h.
#   MODE=includes: every public header below SOURCE_DIR/vesk (outside
#     INTERNAL_DIRS), and each of EXTRA_PUBLIC_HEADERS (the file layer's
#     installed headers), includes only standard headers, public vesk/
#     headers and EXTRA_PUBLIC_HEADERS.

cmake_minimum_required(VERSION 3.25)

set(fix_hint "run scripts/update-umbrella.sh to regenerate vesk/vesk.h")

if(MODE STREQUAL "umbrella")
  set(prefix "${WORK_DIR}/prefix")
  file(REMOVE_RECURSE "${WORK_DIR}")
  execute_process(COMMAND ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}"
    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "cmake --install failed:\n${out}")
  endif()

  set(umbrella "${prefix}/include/vesk/vesk.h")
  if(NOT EXISTS "${umbrella}")
    message(FATAL_ERROR "vesk/vesk.h was not installed; ${fix_hint}")
  endif()
  file(GLOB_RECURSE installed RELATIVE "${prefix}/include" "${prefix}/include/*.h")
  list(REMOVE_ITEM installed "vesk/vesk.h")

  file(STRINGS "${umbrella}" lines REGEX "^[ \t]*#[ \t]*include")
  set(listed)
  foreach(line IN LISTS lines)
    if(line MATCHES "#[ \t]*include[ \t]*[<\"]([^>\"]+)[>\"]")
      list(APPEND listed "${CMAKE_MATCH_1}")
    endif()
  endforeach()

  set(problems "")
  set(seen)
  foreach(header IN LISTS listed)
    if(header IN_LIST seen)
      string(APPEND problems "  listed twice: ${header}\n")
    endif()
    list(APPEND seen "${header}")
    if(NOT header IN_LIST installed)
      string(APPEND problems "  listed but not an installed header: ${header}\n")
    endif()
  endforeach()
  foreach(header IN LISTS installed)
    if(NOT header IN_LIST listed)
      string(APPEND problems "  installed but missing from vesk/vesk.h: ${header}\n")
    endif()
  endforeach()
  if(problems)
    message(FATAL_ERROR "vesk/vesk.h does not match the installed headers:\n${problems}${fix_hint}")
  endif()
  list(LENGTH installed count)
  message(STATUS "vesk/vesk.h lists all ${count} installed headers")

elseif(MODE STREQUAL "includes")
  # C headers a public header may still use; everything else in <> must be a
  # C++ standard header (a plain lower-case name) or a public vesk/ header.
  set(c_headers stddef.h stdint.h stdarg.h stdio.h stdlib.h string.h wchar.h limits.h float.h)
  list(JOIN INTERNAL_DIRS "|" internal)
  file(GLOB_RECURSE headers RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/vesk/*.h")
  list(FILTER headers EXCLUDE REGEX "(^|/)(${internal})/")
  list(APPEND headers ${EXTRA_PUBLIC_HEADERS})
  set(problems "")
  foreach(header IN LISTS headers)
    file(STRINGS "${SOURCE_DIR}/${header}" lines REGEX "^[ \t]*#[ \t]*include")
    foreach(line IN LISTS lines)
      if(line MATCHES "#[ \t]*include[ \t]*<([^>]+)>")
        set(name "${CMAKE_MATCH_1}")
        if(name MATCHES "^[a-z_]+$" OR name IN_LIST c_headers)
          continue()
        endif()
      elseif(line MATCHES "#[ \t]*include[ \t]*\"([^\"]+)\"")
        set(name "${CMAKE_MATCH_1}")
      else()
        string(APPEND problems "  ${header}: unreadable include: ${line}\n")
        continue()
      endif()
      if(name IN_LIST EXTRA_PUBLIC_HEADERS)
        continue()
      endif()
      if(NOT name MATCHES "^vesk/" OR name MATCHES "(^|/)(${internal})/")
        string(APPEND problems "  ${header}: includes ${name}\n")
      endif()
    endforeach()
  endforeach()
  if(problems)
    message(FATAL_ERROR "public headers must include only standard headers and public vesk/ "
                        "headers (host and dependency code stays behind the Impl "
                        "interfaces):\n${problems}")
  endif()
  list(LENGTH headers count)
  message(STATUS "${count} public headers include no host or dependency headers")

else()
  message(FATAL_ERROR "unknown MODE '${MODE}'")
endif()
