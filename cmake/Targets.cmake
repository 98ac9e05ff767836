# What all our own targets share. Third-party code is built without it.
include_guard()

option(APPCOMM_ANNOTATIONS_ONLY "Build the module without tests, to let clang check the lock annotations" OFF)

# Functions with arrays notice when their stack was written over, and end the process. Visual C++ does that unasked; mingw-w64's
# compiler is told to, and finds what it then refers to in src/platform/stack_protector.cpp. The other three are the linker's
# defaults today: addresses that differ from run to run, in the whole 64-bit address space, and no execution of data.
# tools/check-hardening looks at what came of it.
function(appcomm_hardened target)
  if(NOT MINGW OR target STREQUAL "AppCommunicationStackProtector")
    return()
  endif()
  target_compile_options(${target} PRIVATE -fstack-protector-strong)
  target_link_libraries(${target} PRIVATE AppCommunicationStackProtector)
  get_target_property(type ${target} TYPE)
  if(type MATCHES "SHARED_LIBRARY|EXECUTABLE")
    target_link_options(${target} PRIVATE -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
  endif()
endfunction()

# Warnings are errors. Interfaces fixed by contract return `const` values, hence the one exception.
function(appcomm_own_target target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PRIVATE Threads::Threads)
  if(MSVC)
    # Without /WX: nobody here can see this compiler's warnings. The unmangled functions throw (/EHs, and CMake's own /EHsc taken
    # back), the border has members of the standard library's types (4251), and environment variables are read (4996).
    target_compile_options(${target} PRIVATE /W4 /wd4251 /EHs /EHc- /utf-8)
    target_compile_definitions(${target} PRIVATE _CRT_SECURE_NO_WARNINGS)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -Wno-ignored-qualifiers)
  endif()
  appcomm_hardened(${target})
  if(APPCOMM_ANNOTATIONS_ONLY)
    target_compile_options(${target} PRIVATE -Wthread-safety -Werror=thread-safety)
    target_compile_definitions(${target} PRIVATE _LIBCPP_ENABLE_THREAD_SAFETY_ANNOTATIONS)
  endif()
  if(NOT WIN32)
    # The host has no windows.h of its own: ours scripts every call.
    target_include_directories(${target} SYSTEM PRIVATE "${CMAKE_SOURCE_DIR}/tests/fakes/platform")
  endif()
endfunction()

# The shared C++ runtime goes beside the programs. Shared pointers, exceptions and std::any cross the border between the
# application, the module and the maker's libraries, so all of them must run on one runtime.
function(appcomm_copy_runtime)
  if(NOT MINGW)
    return()
  endif()
  foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(
      COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
      OUTPUT_VARIABLE path
      OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    if(NOT IS_ABSOLUTE "${path}")
      message(FATAL_ERROR "The compiler does not know where its ${name} is. Install g++-mingw-w64-x86-64-posix.")
    endif()
    file(COPY "${path}" DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    list(APPEND copied "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}")
  endforeach()
  set(APPCOMM_RUNTIME_LIBRARIES ${copied} PARENT_SCOPE)
endfunction()

# Exports are what the sources mark, nothing else.
function(appcomm_windows_library target)
  set_target_properties(${target} PROPERTIES PREFIX "")
  if(MINGW)
    target_link_options(${target} PRIVATE -Wl,--exclude-all-symbols -Wl,--no-undefined)
  endif()
endfunction()

# What the system tells of the DLL: the project's version, and a line about it.
function(appcomm_version_resource target description)
  if(WIN32)
    configure_file("${CMAKE_SOURCE_DIR}/cmake/version.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc" @ONLY)
    target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  endif()
endfunction()
