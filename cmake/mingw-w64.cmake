# Cross compiler for the Windows program: 64-bit, POSIX threads, statically linked, so that the program needs only DLLs
# that Windows 7 has.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

# Headers and libraries come only from the cross tree and our prefix: Linux headers could compile unnoticed.
set(CMAKE_FIND_ROOT_PATH /usr/${triplet})
if(TREVANDIX_WINDOWS_PREFIX)
  list(APPEND CMAKE_FIND_ROOT_PATH ${TREVANDIX_WINDOWS_PREFIX})
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TREVANDIX_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# 0x0601 is Windows 7; newer functions must be looked up at run time.
set(windows7 "-D_WIN32_WINNT=0x0601 -DWINVER=0x0601")
# Assertion messages contain file names; this removes the build machine's folders from them.
set(short_paths "\"-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=\"")
if(TREVANDIX_WINDOWS_PREFIX)
  string(APPEND short_paths " \"-ffile-prefix-map=${TREVANDIX_WINDOWS_PREFIX}/=\"")
endif()
set(CMAKE_C_FLAGS_INIT "${windows7} ${short_paths}")
set(CMAKE_CXX_FLAGS_INIT "${windows7} ${short_paths}")
# No time stamp, so that equal sources give equal files.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
set(CMAKE_EXE_LINKER_FLAGS_RELEASE_INIT "-s")
