# Archives of the distribution's source packages, which `./dev` fetches into build/downloads.
include_guard()

# appcomm_unpack(ARCHIVE SHA256 FOLDER PROBE): unpacks the archive's one folder FOLDER to ${CMAKE_BINARY_DIR}/third-party/FOLDER.
# PROBE is a file in it that tells the right contents.
function(appcomm_unpack archive sha256 folder probe)
  if(NOT EXISTS "${archive}")
    message(FATAL_ERROR "${archive} is missing. Run ./dev setup, or ./dev bench for the benchmarks; they fetch it.")
  endif()
  file(SHA256 "${archive}" actual)
  if(NOT actual STREQUAL sha256)
    message(FATAL_ERROR "${archive} is not the expected file (SHA-256 ${actual}). Remove it and run ./dev again, which fetches it.")
  endif()
  set(place "${CMAKE_BINARY_DIR}/third-party/${folder}")
  if(EXISTS "${place}")
    return()
  endif()
  # Unpacked beside its place and then moved there: a run that is interrupted leaves no half of it behind.
  set(unpacked "${CMAKE_BINARY_DIR}/third-party/unpacked")
  file(REMOVE_RECURSE "${unpacked}")
  file(ARCHIVE_EXTRACT INPUT "${archive}" DESTINATION "${unpacked}")
  if(NOT EXISTS "${unpacked}/${folder}/${probe}")
    message(FATAL_ERROR "${archive} does not contain ${folder}/${probe}.")
  endif()
  file(RENAME "${unpacked}/${folder}" "${place}")
  file(REMOVE_RECURSE "${unpacked}")
endfunction()
