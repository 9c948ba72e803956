# The layers of the platform, from the lowest to the highest. Each is one folder and one object library;
# together they are the one shared library kxplatform.
set(KX_LAYERS win ui mfc rx ge gi db dxf dwg gs ap ed)

# The object libraries of all layers up to and including `layer`, for tests that must not need the ones above.
function(kx_layers_up_to layer out)
  set(objects)
  foreach(name IN LISTS KX_LAYERS)
    list(APPEND objects kx_${name})
    if(name STREQUAL layer)
      break()
    endif()
  endforeach()
  set(${out} ${objects} PARENT_SCOPE)
endfunction()

# Code of a module: hidden symbols, no unique ones (they would keep the module loaded), and an include path that
# holds KxHost.h and KxWin.h and nothing else of the host.
function(kx_module_code target)
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_compile_options(${target} PRIVATE -fno-gnu-unique)
  target_include_directories(${target} BEFORE PRIVATE ${KX_SEAM_DIR})
endfunction()

# A module of the family: an ELF shared object named NAME.arx that unloads completely.
function(kx_add_module name)
  add_library(${name} MODULE ${ARGN} ${PROJECT_SOURCE_DIR}/platform/module/ApiVersion.cpp)
  kx_module_code(${name})
  set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX ".arx")
  target_link_options(${name} PRIVATE -Wl,-Bsymbolic)
  if(NOT KX_SANITIZE)
    target_link_options(${name} PRIVATE -Wl,-z,defs)
  endif()
endfunction()
