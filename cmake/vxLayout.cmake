# Where things are once they are installed. Every path from one to another is relative, so that the whole may be moved.

# Debian's folder of libraries under every prefix, so that what is built for one prefix can be packaged as well.
if(CMAKE_LIBRARY_ARCHITECTURE)
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Folder of libraries")
endif()
include(GNUInstallDirs)

set(VX_PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/vxscene)
set(VX_HEADER_DIR ${CMAKE_INSTALL_INCLUDEDIR}/vxSceneParser)
set(VX_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/vxSceneParser)
set(VX_DOC_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc)

# The folders again, in full, seen from one another.
set(binFolder ${CMAKE_INSTALL_FULL_BINDIR})
set(libFolder ${CMAKE_INSTALL_FULL_LIBDIR})
set(pluginFolder ${libFolder}/vxscene)
cmake_path(RELATIVE_PATH pluginFolder BASE_DIRECTORY ${binFolder} OUTPUT_VARIABLE VX_PLUGIN_FROM_PROGRAM)

# vx_find_libraries_from(target folder): the target, installed in the folder, finds libvxShared.so beside itself, as in
# the build and where a host keeps all in one folder, or in the folder of libraries; and Qt, where the system does not.
function(vx_find_libraries_from target folder)
  cmake_path(RELATIVE_PATH libFolder BASE_DIRECTORY ${folder} OUTPUT_VARIABLE way)
  # The same in the build: CMake would pad a list that it changes later with empty names, which mean the current folder.
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN;$ORIGIN/${way}" INSTALL_RPATH_USE_LINK_PATH ON
                        BUILD_WITH_INSTALL_RPATH ON)
endfunction()

# Two components, each a package: what it takes to run vxscene and hosts, and what it takes to build hosts. A third one,
# "local", is in no package.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME runtime)

# vx_install_library(target headers...): a library for hosts, found by find_package(vxSceneParser), with its headers.
# The target is a room (vxRooms.cmake) and shows no more of the project than that.
function(vx_install_library target)
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE room)
  set(root ${CMAKE_BINARY_DIR}/rooms/${target})
  list(TRANSFORM ARGN PREPEND ${root}/${room}/ OUTPUT_VARIABLE headers)
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${root} FILES ${headers})
  install(TARGETS ${target} EXPORT vxSceneParser
          LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev
          ARCHIVE COMPONENT dev
          INCLUDES DESTINATION ${VX_HEADER_DIR}
          FILE_SET HEADERS DESTINATION ${VX_HEADER_DIR} COMPONENT dev)
endfunction()
