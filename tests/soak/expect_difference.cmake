# Runs soaks of a faulty module until one ends with a difference, three at most: how the threads meet is not the seed's alone.
# The difference has to be the one that the fault makes, and the last line of its report says how to repeat it.
#   cmake -DPROGRAM=... -DEXPECT=regex [-DSEED=...] -P expect_difference.cmake
if(NOT SEED)
  set(SEED 5)
endif()
foreach(try RANGE 2)
  math(EXPR seed "${SEED} + 4 * ${try}")  # of the same kind
  set(options "--seconds 60 --printers 20 --seed ${seed}")
  separate_arguments(arguments NATIVE_COMMAND "${options}")
  execute_process(COMMAND ${PROGRAM} ${arguments}
    RESULT_VARIABLE code OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT code EQUAL 0)
    break()
  endif()
endforeach()
# What was expected, without what happened before, if it tells that.
string(REGEX MATCH "difference.*what the module may have been doing before" found "${output}")
if(NOT found)
  string(REGEX MATCH "difference.*repeat with" found "${output}")
endif()
if(NOT code EQUAL 1 OR NOT found MATCHES "${EXPECT}" OR NOT output MATCHES "repeat with ${options};")
  message(FATAL_ERROR "exit code ${code}, expected 1 with a difference that says '${EXPECT}', and how to repeat it:\n"
                      "${output}${errors}")
endif()
message("seed ${seed}: ${found}")
