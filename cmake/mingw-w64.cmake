# Cross compiler for the Windows program: 64-bit, POSIX threads, everything linked statically, so that the
# executable needs no library beside the ones Windows 7 brings.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

# Libraries and headers come from the cross tree or our own prefix; a Linux header would break the build silently.
set(CMAKE_FIND_ROOT_PATH /usr/${triplet})
if(TREVANDIX_WINDOWS_PREFIX)
  list(APPEND CMAKE_FIND_ROOT_PATH ${TREVANDIX_WINDOWS_PREFIX})
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TREVANDIX_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# 0x0601 is Windows 7: what came later must be looked up at run time.
set(windows7 "-D_WIN32_WINNT=0x0601 -DWINVER=0x0601")
# Messages of failed assertions name files; they need not tell where the sources lay on the builder's machine.
set(short_paths "\"-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=\"")
if(TREVANDIX_WINDOWS_PREFIX)
  string(APPEND short_paths " \"-ffile-prefix-map=${TREVANDIX_WINDOWS_PREFIX}/=\"")
endif()
set(CMAKE_C_FLAGS_INIT "${windows7} ${short_paths}")
set(CMAKE_CXX_FLAGS_INIT "${windows7} ${short_paths}")
# No time stamp: the same sources give the same bytes.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
set(CMAKE_EXE_LINKER_FLAGS_RELEASE_INIT "-s")
