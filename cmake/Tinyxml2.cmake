# tinyxml2 9.0.0 from the distribution's source package. `./dev` fetches the archive into build/downloads.
include_guard()
include(SourcePackage)

if(MSVC)
  # From vcpkg, compiled so that its objects export themselves (cmake/triplets), hence linked whole. So what should be private to
  # SimulatedPrinters.dll shows among its exports too: an application that uses both names the module's import library first.
  find_package(tinyxml2 CONFIG REQUIRED)
  add_library(tinyxml2_exported INTERFACE)
  target_link_libraries(tinyxml2_exported INTERFACE $<LINK_LIBRARY:WHOLE_ARCHIVE,tinyxml2::tinyxml2>)
  add_library(tinyxml2_private INTERFACE)
  target_link_libraries(tinyxml2_private INTERFACE tinyxml2::tinyxml2)
  find_path(TINYXML2_INCLUDE_DIR tinyxml2.h REQUIRED)
  find_file(TINYXML2_LICENCE share/tinyxml2/copyright REQUIRED)
  return()
endif()

set(TINYXML2_ARCHIVE "${CMAKE_SOURCE_DIR}/build/downloads/tinyxml2_9.0.0+dfsg.orig.tar.xz"
    CACHE FILEPATH "The source archive of tinyxml2 9.0.0")
set(TINYXML2_SHA256 96510f47a5db537f70dff3e83dd71fd2180cbba4aa76c589a549467e7f34bc9b)

appcomm_unpack("${TINYXML2_ARCHIVE}" ${TINYXML2_SHA256} tinyxml2-9.0.0 tinyxml2.cpp)
set(TINYXML2_SOURCE "${CMAKE_BINARY_DIR}/third-party/tinyxml2-9.0.0")
set(TINYXML2_INCLUDE_DIR "${TINYXML2_SOURCE}")
set(TINYXML2_LICENCE "${TINYXML2_SOURCE}/LICENSE.txt")

# Exported by the module, which links the objects whole.
add_library(tinyxml2_exported OBJECT EXCLUDE_FROM_ALL "${TINYXML2_SOURCE}/tinyxml2.cpp")
target_compile_definitions(tinyxml2_exported PRIVATE TINYXML2_EXPORT)

# Private to whoever links it.
add_library(tinyxml2_private STATIC EXCLUDE_FROM_ALL "${TINYXML2_SOURCE}/tinyxml2.cpp")
target_include_directories(tinyxml2_private SYSTEM INTERFACE "${TINYXML2_INCLUDE_DIR}")

# It reads what others wrote.
appcomm_hardened(tinyxml2_exported)
appcomm_hardened(tinyxml2_private)
