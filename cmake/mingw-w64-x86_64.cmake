# Cross build for 64-bit Windows.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The win32 thread model: with the posix one, whose thread library is linked in, each load of the DLL installs a
# vectored exception handler, which takes exceptions from the host.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-win32)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-win32)
set(CMAKE_OBJCOPY x86_64-w64-mingw32-objcopy)
set(CMAKE_STRIP x86_64-w64-mingw32-strip)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The same tree gives the same file: no time stamp. Address space layout randomisation over 64 bits, and no
# executable data.
set(VESK_WINDOWS_LINK_FLAGS
    "-static -Wl,--no-insert-timestamp -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${VESK_WINDOWS_LINK_FLAGS}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${VESK_WINDOWS_LINK_FLAGS}")
