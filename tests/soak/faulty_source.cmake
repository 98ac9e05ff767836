# Copies the module's sources and puts one fault into one of them:
#   cmake -DSOURCE=... -DCOPY=... -DFILE=comm/worker.cpp -DBEFORE=text -DAFTER=text -P faulty_source.cmake
# The text must be there exactly once, or the fault would not be the one that is meant.
file(REMOVE_RECURSE "${COPY}")
file(COPY "${SOURCE}/" DESTINATION "${COPY}")
file(READ "${COPY}/${FILE}" text)
string(FIND "${text}" "${BEFORE}" first)
string(FIND "${text}" "${BEFORE}" last REVERSE)
if(first EQUAL -1 OR NOT first EQUAL last)
  message(FATAL_ERROR "'${BEFORE}' should be in ${SOURCE}/${FILE} once. "
                      "Bring the fault in tests/soak/CMakeLists.txt up to date.")
endif()
string(REPLACE "${BEFORE}" "${AFTER}" text "${text}")
file(WRITE "${COPY}/${FILE}" "${text}")
