# What every target shares: language level, warnings, visibility, the Qt in use, output folders.

set(VX_QT_MAJOR 6 CACHE STRING "Qt to build with: 6, or 5 for Qt 5.15")
option(VX_BUILD_BENCHMARKS "Build the benchmarks in bench/" OFF)
option(VX_BUILD_FUZZERS "Build the fuzz targets in fuzz/, with clang" OFF)
option(VX_PRECOMPILE "Parse Qt's headers once for all sources; scripts/tidy tells whether all include what they use" ON)
# Off for users and packagers: a newer compiler's new warning must not break their build.
option(VX_WERROR "A compiler's warning fails the build, as in the developers' presets and in CI" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# One folder for everything that runs: vxscene finds the plug-in beside itself.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

if(VX_QT_MAJOR EQUAL 5)
  find_package(Qt5 5.15 REQUIRED COMPONENTS Core)
else()
  find_package(Qt6 6.2 REQUIRED COMPONENTS Core)
endif()

# Warnings of C and C++ alike.
add_library(vxWarnings INTERFACE)
target_compile_options(vxWarnings INTERFACE -Wall -Wextra -Wconversion -Wshadow $<$<BOOL:${VX_WERROR}>:-Werror>)

add_library(vxBuild INTERFACE)
target_compile_definitions(vxBuild INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
target_link_libraries(vxBuild INTERFACE vxWarnings Qt${VX_QT_MAJOR}::Core)
# Unique symbols would keep a closed plug-in loaded. Qt's CMake files ask for -fPIC themselves.
target_compile_options(vxBuild INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fno-gnu-unique>)

# What a host loads: all references are bound and sealed at load time, no code is written to, no stack executable.
# A note in the file tells one build from another (host/access/ownPlugin).
add_library(vxLoaded INTERFACE)
target_link_options(vxLoaded INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack,-z,text
                    -Wl,--no-undefined,--as-needed,--build-id=sha1)
if(VX_BUILD_FUZZERS)
  # Clang links the sanitizers into the programs alone.
  target_link_options(vxLoaded INTERFACE -Wl,-z,undefs)
endif()

# Lets all targets below a folder that are compiled alike share the same parsed headers. Not the tests: GCC 12 then
# warns that copies of texts in them have no end.
function(vx_precompile folder)
  if(folder STREQUAL "${CMAKE_SOURCE_DIR}/tests")
    return()
  endif()
  if(NOT TARGET vxPrecompiled)
    add_library(vxPrecompiled OBJECT ${CMAKE_SOURCE_DIR}/cmake/precompiled.cpp)
    target_link_libraries(vxPrecompiled PRIVATE vxBuild)
    target_precompile_headers(vxPrecompiled PRIVATE <QJsonArray> <QJsonObject> <QList> <QMap> <QString> <QTextStream>
                              <algorithm> <array> <functional> <map> <string> <vector>)
  endif()
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target ${targets})
    get_target_property(type ${target} TYPE)
    get_target_property(sources ${target} SOURCES)
    get_target_property(options ${target} COMPILE_OPTIONS)
    if(type MATCHES "LIBRARY|EXECUTABLE" AND sources MATCHES "\\.cpp" AND NOT options MATCHES "-O" AND
       NOT target STREQUAL vxPrecompiled)
      target_precompile_headers(${target} REUSE_FROM vxPrecompiled)
    endif()
  endforeach()
  get_property(below DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(next ${below})
    vx_precompile(${next})
  endforeach()
endfunction()
