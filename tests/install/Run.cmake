# run(<command...>): runs a command of the install and package tests; stops
# the test with its output when it fails, else leaves its standard output in
# run_output.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    list(JOIN ARGN " " cmd)
    message(FATAL_ERROR "failed (${rc}): ${cmd}\n${out}\n${err}")
  endif()
  set(run_output "${out}" PARENT_SCOPE)
endfunction()
