# Runs COMMAND (a list) and checks that it ends with STATUS and prints EXPECTED on standard error.
execute_process(COMMAND ${COMMAND} RESULT_VARIABLE status ERROR_VARIABLE error OUTPUT_QUIET)
if(NOT status STREQUAL STATUS)
  message(FATAL_ERROR "${COMMAND} ended with '${status}', not ${STATUS}: ${error}")
endif()
string(FIND "${error}" "${EXPECTED}" at)
if(at EQUAL -1)
  message(FATAL_ERROR "${COMMAND} did not say '${EXPECTED}': ${error}")
endif()
