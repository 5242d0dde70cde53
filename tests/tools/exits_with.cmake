# Runs COMMAND (a list) and checks that it ends with STATUS and prints EXPECTED on standard error,
# and, when OUTPUT is given, that its standard output is that line alone (CMake reads a CR LF as
# a line feed).
execute_process(COMMAND ${COMMAND} RESULT_VARIABLE status ERROR_VARIABLE error OUTPUT_VARIABLE output)
if(NOT status STREQUAL STATUS)
  message(FATAL_ERROR "${COMMAND} ended with '${status}', not ${STATUS}: ${error}")
endif()
string(FIND "${error}" "${EXPECTED}" at)
if(at EQUAL -1)
  message(FATAL_ERROR "${COMMAND} did not say '${EXPECTED}': ${error}")
endif()
if(DEFINED OUTPUT AND NOT output STREQUAL "${OUTPUT}\n")
  message(FATAL_ERROR "${COMMAND} printed '${output}', not the line '${OUTPUT}'")
endif()
