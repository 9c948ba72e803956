# The Windows build: KxMfcEx and its tests over the system's own calls, nothing else of the system.
add_compile_definitions(UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601)
# Calls found by name are cast from the one type that they all come in.
add_compile_options(-Wno-cast-function-type)
add_link_options(-static)
link_libraries(version psapi)

function(kx_module_code target)
  target_include_directories(${target} BEFORE PRIVATE ${KX_SEAM_DIR})
endfunction()

add_subdirectory(platform/mingw)
add_subdirectory(KxMfcEx)
if(KX_TESTS)
  add_subdirectory(tests/windows)
endif()
