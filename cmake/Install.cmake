# What `cmake --install` leaves: the module with the stand-ins of the maker's libraries, as a CMake package that another project
# finds with find_package(AppCommunication CONFIG). Windows only.
include_guard()
include(CMakePackageConfigHelpers)

set(APPCOMM_PACKAGE_DOCS share/doc/AppCommunication)

set_target_properties(SimulatedPrinters PROPERTIES EXPORT_NAME Simulator)
set_target_properties(AppCommunication_tinyxml2 PROPERTIES EXPORT_NAME tinyxml2)
# A folder of our own for headers with names that others have too.
set(headers include/AppCommunication)
install(TARGETS AppCommunication SimulatedPrinters AppPrinterSdk AppMgr AppSdk EXPORT AppCommunicationTargets
  RUNTIME DESTINATION bin
  ARCHIVE DESTINATION lib
  INCLUDES DESTINATION ${headers})
install(TARGETS AppCommunication_tinyxml2 EXPORT AppCommunicationTargets INCLUDES DESTINATION ${headers}/tinyxml2)
install(TARGETS printer-console printer-panel RUNTIME DESTINATION bin)
install(FILES ${APPCOMM_RUNTIME_LIBRARIES} DESTINATION bin)

install(DIRECTORY "${CMAKE_SOURCE_DIR}/include/" DESTINATION ${headers})
install(
  FILES
    "${CMAKE_SOURCE_DIR}/simulator/SimulatedPrinters.h"
    "${CMAKE_SOURCE_DIR}/simulator/PrinterContents.h"
    "${CMAKE_SOURCE_DIR}/simulator/Export.h"
  DESTINATION ${headers}/simulator)
install(FILES "${TINYXML2_INCLUDE_DIR}/tinyxml2.h" DESTINATION ${headers}/tinyxml2)
install(DIRECTORY "${CMAKE_SOURCE_DIR}/examples/scenarios" DESTINATION share/AppCommunication)
# What an application takes over that unloads the module.
set(common "${CMAKE_SOURCE_DIR}/examples/common")
install(
  FILES "${common}/AddedTasks.h" "${common}/Handle.h" "${common}/UnloadableLibrary.h" "${common}/unloadable_library.cpp"
  DESTINATION share/AppCommunication/examples/common)

install(FILES "${CMAKE_SOURCE_DIR}/README.md" "${CMAKE_SOURCE_DIR}/CHANGELOG.md" DESTINATION ${APPCOMM_PACKAGE_DOCS})
install(DIRECTORY "${CMAKE_SOURCE_DIR}/docs" DESTINATION ${APPCOMM_PACKAGE_DOCS})
install(FILES "${TINYXML2_LICENCE}" DESTINATION ${APPCOMM_PACKAGE_DOCS}/licences RENAME tinyxml2.txt)
if(MINGW)
  # What the distribution says about the runtime libraries that are passed on.
  install(FILES /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright
    DESTINATION ${APPCOMM_PACKAGE_DOCS}/licences RENAME libstdc++-and-libgcc.txt)
  install(FILES /usr/share/common-licenses/GPL-3 DESTINATION ${APPCOMM_PACKAGE_DOCS}/licences RENAME GPL-3.txt)
  install(FILES /usr/share/doc/mingw-w64-x86-64-dev/copyright
    DESTINATION ${APPCOMM_PACKAGE_DOCS}/licences RENAME libwinpthread.txt)
endif()

# Which compilers can use it: class layouts, mangled names and the standard library's types cross the border.
if(MSVC)
  set(APPCOMM_COMPILER "MSVC")
  set(APPCOMM_COMPILER_NAME "Visual C++")
else()
  set(APPCOMM_COMPILER "MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL GNU")
  set(APPCOMM_COMPILER_NAME "mingw-w64's g++ (posix threads)")
endif()
set(package_folder lib/cmake/AppCommunication)
set(APPCOMM_BIN bin)
install(EXPORT AppCommunicationTargets NAMESPACE AppCommunication:: DESTINATION ${package_folder})
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/AppCommunicationConfig.cmake.in" "${CMAKE_BINARY_DIR}/AppCommunicationConfig.cmake"
  INSTALL_DESTINATION ${package_folder}
  PATH_VARS APPCOMM_BIN)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/AppCommunicationConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(
  FILES "${CMAKE_BINARY_DIR}/AppCommunicationConfig.cmake" "${CMAKE_BINARY_DIR}/AppCommunicationConfigVersion.cmake"
  DESTINATION ${package_folder})
