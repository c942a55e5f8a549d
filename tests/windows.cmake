# The tests of Tavisk.dll, under Wine.
set(check ${PROJECT_SOURCE_DIR}/tools/windows)
add_test(NAME windows.importsOfCommand
  COMMAND ${check}/checkImports.sh $<TARGET_FILE:tavisk_command>)
if(TAVISK_UI)
  add_test(NAME windows.importsOfLibrary
    COMMAND ${check}/checkImports.sh $<TARGET_FILE:tavisk_component>)
  add_test(NAME windows.exportsOfLibrary
    COMMAND ${check}/checkExports.sh ${component}/Tavisk.def $<TARGET_FILE:tavisk_component>)
  add_subdirectory(ui)
  add_subdirectory(com)
endif()
