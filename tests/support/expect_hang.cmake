# cmake -D PROBE=command;... -D STEP=step -D ALSO=regex;... -P expect_hang.cmake
# Runs a program that hangs on purpose. Passes when the watchdog ended it with its own code, named the step, and the output
# matches every expression in ALSO.
execute_process(COMMAND ${PROBE} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output TIMEOUT 100)
message("${output}")
if(NOT result STREQUAL "3")
  message(FATAL_ERROR "The probe ended with \"${result}\", not with the watchdog's code 3.")
endif()
foreach(expression "hung: ${STEP} after [0-9]+ ms" ${ALSO})
  if(NOT output MATCHES "${expression}")
    message(FATAL_ERROR "The output does not match: ${expression}")
  endif()
endforeach()
