# The tests of Tavisk.dll, under Wine.
add_test(NAME windows.importsOfCommand
  COMMAND ${CMAKE_SOURCE_DIR}/tools/windows/checkImports.sh $<TARGET_FILE:tavisk_command>)
if(TAVISK_UI)
  add_test(NAME windows.importsOfLibrary
    COMMAND ${CMAKE_SOURCE_DIR}/tools/windows/checkImports.sh $<TARGET_FILE:tavisk_component>)
  add_test(NAME windows.exportsOfLibrary
    COMMAND ${CMAKE_SOURCE_DIR}/tools/windows/checkExports.sh
            ${CMAKE_SOURCE_DIR}/src/component/Tavisk.def $<TARGET_FILE:tavisk_component>)
  add_subdirectory(ui)
  if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/com/CMakeLists.txt)
    add_subdirectory(com)
  endif()
endif()
