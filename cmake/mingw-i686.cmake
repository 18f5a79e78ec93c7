# Cross-builds the 32-bit Windows component with Debian's mingw-w64 (posix threads), without any run-time DLL beside it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
set(CHARTPROJECT_WIDL i686-w64-mingw32-widl)

set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Scripts load the component into old hosts: SSE2 for exact doubles, frames that stay aligned when the host's are not.
set(CMAKE_CXX_FLAGS_INIT "-DUNICODE -D_UNICODE -DNOMINMAX -D_WIN32_WINNT=0x0601 -DWINVER=0x0601 -msse2 -mfpmath=sse -mstackrealign")
# g++ 12 takes "literal" + std::string for an overlapping copy when it inlines it in 32 bits.
string(APPEND CMAKE_CXX_FLAGS_INIT " -Wno-restrict")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -Wl,--enable-stdcall-fixup")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static -Wl,--enable-stdcall-fixup")
