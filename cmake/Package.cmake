# What `cmake --install` puts in place: the programs, libraries and modules in one folder, where they find each other; the
# headers; what another project's find_package(KxArxBase) needs.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(programs ${CMAKE_INSTALL_LIBDIR}/kxcad)
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/kxarxbase)
set(config ${CMAKE_INSTALL_LIBDIR}/cmake/KxArxBase)
set(parts ${CMAKE_INSTALL_DATADIR}/kxarxbase)

foreach(target kxcad kxlaunch kxplatform kxdesktop KxArxBase)
  if(TARGET ${target})
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "\$ORIGIN")
    install(TARGETS ${target} RUNTIME DESTINATION ${programs} LIBRARY DESTINATION ${programs})
  endif()
endforeach()
# Modules that use the base module's classes name it as they name any library.
target_link_options(KxArxBase PRIVATE -Wl,-soname,KxArxBase.arx)
install(CODE "
  foreach(name kxcad kxlaunch)
    if(EXISTS \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${programs}/\${name}\")
      file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
      file(CREATE_LINK \"../${programs}/\${name}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/\${name}\" SYMBOLIC)
    endif()
  endforeach()")

# The umbrella of a library: every public header of its folder. Those that its own sources share stay at home.
set(KX_PRIVATE_HEADERS KxArxBase/ArxReferenceState.h KxArxBase/Finite.h KxArxBase/ResBufList.h)
function(kx_install_headers library)
  file(GLOB all RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${library}/*.h)
  list(REMOVE_ITEM all ${KX_PRIVATE_HEADERS})
  set(text "// Everything that ${library} offers.\n#pragma once\n")
  foreach(header IN LISTS all)
    string(APPEND text "#include \"${header}\"\n")
    install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${headers}/${library})
  endforeach()
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/package/${library}.h CONTENT "${text}")
  install(FILES ${CMAKE_BINARY_DIR}/package/${library}.h DESTINATION ${headers}/${library})
endfunction()
kx_install_headers(KxMfcEx)
kx_install_headers(KxArxBase)

# The host's interface: a module sees KxHost.h and what that includes.
foreach(header KxHost.h KxWin.h)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/package/${header} CONTENT "#pragma once\n#include \"platform/${header}\"\n")
  install(FILES ${CMAKE_BINARY_DIR}/package/${header} DESTINATION ${headers})
endforeach()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform DESTINATION ${headers}
  FILES_MATCHING PATTERN "*.h" PATTERN "*.inc"
  PATTERN "posix" EXCLUDE PATTERN "dxf" EXCLUDE PATTERN "dwg" EXCLUDE PATTERN "lisp" EXCLUDE)

install(FILES ${PROJECT_SOURCE_DIR}/platform/module/ApiVersion.cpp DESTINATION ${headers}/platform/module)
install(PROGRAMS ${PROJECT_SOURCE_DIR}/tools/rc2cpp.py ${PROJECT_SOURCE_DIR}/tools/rc_text.py ${PROJECT_SOURCE_DIR}/tools/rc_bytes.py
  DESTINATION ${parts})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples/hello-module DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(KX_PACKAGE_PROGRAMS ${programs})
set(KX_PACKAGE_HEADERS ${headers})
set(KX_PACKAGE_PARTS ${parts})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/KxArxBaseConfig.cmake.in ${CMAKE_BINARY_DIR}/package/KxArxBaseConfig.cmake
  INSTALL_DESTINATION ${config} PATH_VARS KX_PACKAGE_PROGRAMS KX_PACKAGE_HEADERS KX_PACKAGE_PARTS)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/package/KxArxBaseConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/package/KxArxBaseConfig.cmake ${CMAKE_BINARY_DIR}/package/KxArxBaseConfigVersion.cmake
  DESTINATION ${config})
