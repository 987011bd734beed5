# Text files as a constant of the program: vx_embed(target name header files...) adds a source to the target. It defines
# the std::string_view `name`, declared in `header`, as the texts of the files, one after the other.
# This file is also the script that writes the source: cmake -P vxEmbed.cmake SOURCE NAME HEADER FILE...
function(vx_embed target name header)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE files)
  string(REGEX REPLACE ".*::" "" shortName ${name})
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${shortName}.cpp)
  set(script ${CMAKE_SOURCE_DIR}/cmake/vxEmbed.cmake)
  add_custom_command(OUTPUT ${source} COMMAND ${CMAKE_COMMAND} -P ${script} ${source} ${name} ${header} ${files}
                     DEPENDS ${files} ${script} VERBATIM)
  target_sources(${target} PRIVATE ${source})
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
  set(text "")
  math(EXPR last "${CMAKE_ARGC} - 1")
  foreach(index RANGE 6 ${last})
    file(READ ${CMAKE_ARGV${index}} piece)
    string(APPEND text "${piece}")
  endforeach()
  file(WRITE ${CMAKE_ARGV3}
       "#include \"${CMAKE_ARGV5}\"\n\nconst std::string_view ${CMAKE_ARGV4}{R\"embedded(${text})embedded\"};\n")
endif()
