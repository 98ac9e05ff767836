# Runs a soak of a faulty module: it has to end with a difference, not otherwise.
#   cmake -DPROGRAM=... -P expect_difference.cmake
execute_process(COMMAND ${PROGRAM} --seconds 60 --printers 20 --seed 5 RESULT_VARIABLE code OUTPUT_VARIABLE output ERROR_VARIABLE errors)
string(REGEX MATCH "difference at printer [0-9]+:[^\n]*\n[^\n]*\n[^\n]*\n[^\n]*\n[^\n]*" found "${output}")
if(NOT code EQUAL 1 OR found STREQUAL "" OR NOT output MATCHES "repeat with --seed 5")
  message(FATAL_ERROR "exit code ${code}, expected 1 with a difference and the seed:\n${output}${errors}")
endif()
message("${found}")
