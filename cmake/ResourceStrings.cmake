# vesk_generate_resource_table(<rc file> <output .cpp>): turns the STRINGTABLE
# of the library's resource script into a C++ table for hosts without
# resource sections. Reruns when the script changes.
function(vesk_generate_resource_table rc out)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${rc})
  file(STRINGS ${rc} _lines)
  set(_rows "")
  set(_count 0)
  set(_inside OFF)
  foreach(_line IN LISTS _lines)
    if(_line MATCHES "^[ \t]*BEGIN[ \t]*$")
      set(_inside ON)
    elseif(_line MATCHES "^[ \t]*END[ \t]*$")
      set(_inside OFF)
    elseif(_inside AND _line MATCHES "^[ \t]*([A-Za-z_][A-Za-z0-9_]*)[ \t]+\"(.*)\"[ \t]*$")
      set(_id ${CMAKE_MATCH_1})
      set(_text "${CMAKE_MATCH_2}")
      # A doubled quote in a resource script is one quote in the text.
      string(REPLACE "\"\"" "\\\"" _text "${_text}")
      string(APPEND _rows "    {${_id}, \"${_text}\"},\n")
      math(EXPR _count "${_count} + 1")
    elseif(_inside AND NOT _line MATCHES "^[ \t]*(//.*)?$")
      message(FATAL_ERROR "${rc}: cannot read the resource line: ${_line}")
    endif()
  endforeach()
  if(_count EQUAL 0)
    message(FATAL_ERROR "${rc}: no STRINGTABLE entries")
  endif()
  set(_content "// Generated from ${rc} by cmake/ResourceStrings.cmake; do not edit.
#include \"vesk/internal/ResourceIds.h\"
#include \"vesk/platform/Resources.h\"

namespace vesk {
namespace platform {

const ResourceString kResourceStrings[] = {
${_rows}};
const unsigned int kResourceStringCount = ${_count};

}  // namespace platform
}  // namespace vesk
")
  file(CONFIGURE OUTPUT ${out} CONTENT "${_content}" @ONLY)
endfunction()
