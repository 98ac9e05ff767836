# What `cmake --install` leaves: the module with the stand-ins of the maker's libraries, as a CMake package that another project
# finds with find_package(AppCommunication CONFIG). Windows only.
include_guard()
include(CMakePackageConfigHelpers)

set(APPCOMM_PACKAGE_DOCS share/doc/AppCommunication)

set_target_properties(SimulatedPrinters PROPERTIES EXPORT_NAME Simulator)
install(TARGETS AppCommunication SimulatedPrinters AppPrinterSdk AppMgr AppSdk EXPORT AppCommunicationTargets
  RUNTIME DESTINATION bin
  ARCHIVE DESTINATION lib
  INCLUDES DESTINATION include)
install(TARGETS printer-console printer-panel RUNTIME DESTINATION bin)
install(FILES ${APPCOMM_RUNTIME_LIBRARIES} DESTINATION bin)

install(DIRECTORY "${CMAKE_SOURCE_DIR}/include/" DESTINATION include)
install(
  FILES
    "${CMAKE_SOURCE_DIR}/simulator/SimulatedPrinters.h"
    "${CMAKE_SOURCE_DIR}/simulator/PrinterContents.h"
    "${CMAKE_SOURCE_DIR}/simulator/Export.h"
  DESTINATION include/simulator)
install(FILES "${TINYXML2_INCLUDE_DIR}/tinyxml2.h" DESTINATION include)
install(DIRECTORY "${CMAKE_SOURCE_DIR}/examples/scenarios" DESTINATION share/AppCommunication)

install(FILES "${CMAKE_SOURCE_DIR}/README.md" "${CMAKE_SOURCE_DIR}/CHANGELOG.md" DESTINATION ${APPCOMM_PACKAGE_DOCS})
install(DIRECTORY "${CMAKE_SOURCE_DIR}/docs" DESTINATION ${APPCOMM_PACKAGE_DOCS})
install(FILES "${TINYXML2_LICENCE}" DESTINATION ${APPCOMM_PACKAGE_DOCS}/licences RENAME tinyxml2.txt)
if(MINGW)
  # What the distribution says about the runtime libraries that are passed on.
  install(FILES /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright
    DESTINATION ${APPCOMM_PACKAGE_DOCS}/licences RENAME libstdc++-and-libgcc.txt)
  install(FILES /usr/share/doc/mingw-w64-x86-64-dev/copyright
    DESTINATION ${APPCOMM_PACKAGE_DOCS}/licences RENAME libwinpthread.txt)
endif()

# Which compilers can use it: class layouts, mangled names and the standard library's types cross the border.
if(MSVC)
  set(APPCOMM_COMPILER MSVC)
  set(APPCOMM_COMPILER_NAME "Visual C++")
else()
  set(APPCOMM_COMPILER MINGW)
  set(APPCOMM_COMPILER_NAME "mingw-w64")
endif()
set(package_folder lib/cmake/AppCommunication)
set(APPCOMM_BIN bin)
install(EXPORT AppCommunicationTargets NAMESPACE AppCommunication:: DESTINATION ${package_folder})
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/AppCommunicationConfig.cmake.in" "${CMAKE_BINARY_DIR}/AppCommunicationConfig.cmake"
  INSTALL_DESTINATION ${package_folder}
  PATH_VARS APPCOMM_BIN
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/AppCommunicationConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(
  FILES "${CMAKE_BINARY_DIR}/AppCommunicationConfig.cmake" "${CMAKE_BINARY_DIR}/AppCommunicationConfigVersion.cmake"
  DESTINATION ${package_folder})
