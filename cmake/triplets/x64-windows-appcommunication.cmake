# tinyxml2 as a static library whose objects carry their own export directives: linked whole into AppCommunication.dll, its
# classes become part of that DLL's exports. The C++ runtime is the shared one, as everywhere at this border.
set(VCPKG_TARGET_ARCHITECTURE x64)
set(VCPKG_CRT_LINKAGE dynamic)
set(VCPKG_LIBRARY_LINKAGE static)
set(VCPKG_C_FLAGS "/DTINYXML2_EXPORT")
set(VCPKG_CXX_FLAGS "/DTINYXML2_EXPORT")
