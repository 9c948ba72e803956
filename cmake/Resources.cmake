find_package(Python3 REQUIRED COMPONENTS Interpreter)

# Compiles a resource script into the module `target`, where the platform finds it by the module's handle.
function(kx_add_resources target script)
  cmake_path(ABSOLUTE_PATH script BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
  cmake_path(GET script STEM name)
  set(output ${CMAKE_CURRENT_BINARY_DIR}/${target}.${name}.res.cpp)
  set(compiler ${PROJECT_SOURCE_DIR}/tools/rc2cpp.py)
  add_custom_command(OUTPUT ${output}
    COMMAND ${Python3_EXECUTABLE} ${compiler} ${script} ${output} ${output}.d
    DEPENDS ${script} ${compiler} ${PROJECT_SOURCE_DIR}/tools/rc_text.py ${PROJECT_SOURCE_DIR}/tools/rc_bytes.py
    DEPFILE ${output}.d
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
