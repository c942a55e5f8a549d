# For both Windows toolchains, which set TAVISK_ARCH and TAVISK_TRIPLET: MinGW-w64 with its POSIX
# threads, and everything but the system's own DLLs linked in.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${TAVISK_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TAVISK_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${TAVISK_TRIPLET}-windres)

set(TAVISK_SOURCE ${CMAKE_CURRENT_LIST_DIR}/..)
if(NOT TAVISK_LIBRARIES)
  execute_process(COMMAND ${TAVISK_SOURCE}/tools/windows/libraries.sh --where ${TAVISK_ARCH}
    OUTPUT_VARIABLE TAVISK_LIBRARIES OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TAVISK_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH ${TAVISK_LIBRARIES} /usr/${TAVISK_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(wxWidgets_CONFIG_EXECUTABLE ${TAVISK_LIBRARIES}/bin/wx-config)

set(flags "-ffunction-sections -fdata-sections ${TAVISK_TUNE}")
set(CMAKE_C_FLAGS_INIT "${flags}")
set(CMAKE_CXX_FLAGS_INIT "${flags}")
set(links "-static -Wl,--gc-sections,--dynamicbase,--nxcompat,--no-insert-timestamp ${TAVISK_LINK}")
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "${links}")
  set(CMAKE_${kind}_LINKER_FLAGS_RELEASE_INIT "-s")
endforeach()
# No more room for depth than in most hosts.
string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT " -Wl,--stack,1048576")

# Tests run under Wine, in a prefix of this build's own.
set(CMAKE_CROSSCOMPILING_EMULATOR ${TAVISK_SOURCE}/tools/windows/wine.sh ${CMAKE_BINARY_DIR})
