# The tests of Tavisk.dll, under Wine.
add_test(NAME windows.imports
  COMMAND ${CMAKE_SOURCE_DIR}/tools/windows/checkImports.sh $<TARGET_FILE:tavisk_command>)
if(TAVISK_WINDOWS)
  add_subdirectory(windows)
  if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/com/CMakeLists.txt)
    add_subdirectory(com)
  endif()
endif()
