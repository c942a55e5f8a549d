set(TAVISK_ARCH x86)
set(TAVISK_TRIPLET i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR X86)
# The same arithmetic as on 64 bits; hosts align the stack to four bytes only.
set(TAVISK_TUNE "-march=pentium4 -mfpmath=sse -mstackrealign")
# The entry points are called by their plain names.
set(TAVISK_LINK "-Wl,--enable-stdcall-fixup,--kill-at")
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-windows.cmake)
