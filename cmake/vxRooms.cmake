# A room is a folder of sources with a library of its own. A target finds the headers of a room only when it links the
# room's library: an include that runs the wrong way does not compile.

# vx_room(target folder): the library's sources lie in this folder, which includes name from the project's root. Each
# room is found through a folder in the build that holds a link to that room and nothing else.
function(vx_room target)
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE room)
  set(root ${CMAKE_BINARY_DIR}/rooms/${target})
  cmake_path(GET room PARENT_PATH above)
  file(MAKE_DIRECTORY ${root}/${above})
  if(NOT EXISTS ${root}/${room})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${room} SYMBOLIC)
  endif()
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${root}>)
endfunction()
