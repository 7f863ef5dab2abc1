# The API reference: `cmake --build <build> --target docs` runs doxygen over
# the public headers (docs/Doxyfile.in) into <build>/docs/html. Not part of
# `all`. A header comment doxygen warns about (an undocumented public class or
# member among them) fails the target, and so does any public or protected
# member left without a comment that doxygen lets pass (docs/check-documented.py
# over the XML output).
find_package(Doxygen)
find_package(Python3 COMPONENTS Interpreter)
if(DOXYGEN_FOUND)
  set(VESK_DOCS_OUTPUT_DIR ${PROJECT_BINARY_DIR}/docs)
  # The same internal folders that are not installed are not documented.
  set(VESK_DOCS_EXCLUDE_PATTERNS)
  foreach(_dir IN LISTS VESK_INTERNAL_HEADER_DIRS)
    string(APPEND VESK_DOCS_EXCLUDE_PATTERNS " \"${PROJECT_SOURCE_DIR}/vesk*/${_dir}/*\"")
  endforeach()
  set(VESK_DOCS_EXTRA_INPUT)
  foreach(_header IN LISTS VESK_IO_LAYER_PUBLIC_HEADERS)
    string(APPEND VESK_DOCS_EXTRA_INPUT " \"${PROJECT_SOURCE_DIR}/${_header}\"")
  endforeach()
  configure_file(docs/Doxyfile.in ${VESK_DOCS_OUTPUT_DIR}/Doxyfile @ONLY)
  set(_vesk_docs_check)
  if(Python3_Interpreter_FOUND)
    set(_vesk_docs_check COMMAND Python3::Interpreter
      ${PROJECT_SOURCE_DIR}/docs/check-documented.py ${VESK_DOCS_OUTPUT_DIR}/xml)
  endif()
  add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${VESK_DOCS_OUTPUT_DIR}/html ${VESK_DOCS_OUTPUT_DIR}/xml
    COMMAND Doxygen::doxygen ${VESK_DOCS_OUTPUT_DIR}/Doxyfile
    ${_vesk_docs_check}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    COMMENT "API reference: ${VESK_DOCS_OUTPUT_DIR}/html/index.html"
    VERBATIM)
endif()
