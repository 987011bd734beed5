# Compiles with this machine's GCC for an older Debian, whose files lie in VX_SYSROOT (scripts/portable makes it).
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VX_SYSROOT)
set(CMAKE_SYSROOT ${VX_SYSROOT})
foreach(kind LIBRARY INCLUDE PACKAGE)
  set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)

# GCC would look for libraries beside itself before it looks in the other system. There it takes that system's libstdc++,
# and of its own only what that one has not yet, which stays inside: a process has one libstdc++, be it the host's.
# The libraries of a Qt that is newer than the system need symbols that only a host's system has.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-L${VX_SYSROOT}/newer -B${VX_SYSROOT}/usr/lib/x86_64-linux-gnu \
-Wl,--exclude-libs,libstdc++.a -Wl,--unresolved-symbols=ignore-in-shared-libs")
endforeach()
# Threads became a part of the C library with glibc 2.34.
set(CMAKE_CXX_STANDARD_LIBRARIES_INIT -lpthread)
