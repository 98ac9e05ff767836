# Runs soaks of a faulty module until one ends with the difference that the fault makes, three at most: how the threads meet is
# not the seed's alone, and with it what shows the fault first. Each soak that finds something says how to repeat it.
#   cmake -DPROGRAM=... -DEXPECT=regex [-DSEED=...] [-DSECONDS=...] -P expect_difference.cmake
if(NOT SEED)
  set(SEED 5)
endif()
if(NOT SECONDS)
  set(SECONDS 60)
endif()
foreach(try RANGE 2)
  math(EXPR seed "${SEED} + 4 * ${try}")  # of the same kind
  set(options "--seconds ${SECONDS} --printers 20 --seed ${seed}")
  separate_arguments(arguments NATIVE_COMMAND "${options}")
  execute_process(COMMAND ${PROGRAM} ${arguments}
    RESULT_VARIABLE code OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  string(APPEND seen "exit code ${code}\n${output}${errors}")
  if(code EQUAL 0)
    continue()
  endif()
  if(NOT code EQUAL 1 OR NOT output MATCHES "repeat with ${options};")
    message(FATAL_ERROR "expected exit code 1, and how to repeat it:\n${seen}")
  endif()
  # What was expected, without what happened before, if it tells that.
  string(REGEX MATCH "difference.*what the module may have been doing before" found "${output}")
  if(NOT found)
    string(REGEX MATCH "(difference|left over|the module's threads).*repeat with" found "${output}")
  endif()
  if(found MATCHES "${EXPECT}")
    message("seed ${seed}: ${found}")
    return()
  endif()
endforeach()
message(FATAL_ERROR "none of three soaks found a difference that says '${EXPECT}':\n${seen}")
