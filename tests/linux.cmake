# What is the same for every system is tested once, and what only this one has.
add_test(NAME layers.includesAndLibraries
  COMMAND ${TAVISK_PYTHON} ${CMAKE_SOURCE_DIR}/tools/checkLayers.py ${CMAKE_SOURCE_DIR}
          --program $<TARGET_FILE:tavisk_command>)
foreach(tool checkLayers setup tour)
  add_test(NAME tools.${tool}
    COMMAND ${TAVISK_PYTHON} ${CMAKE_CURRENT_SOURCE_DIR}/tools/${tool}Test.py)
endforeach()

add_subdirectory(browser)
if(TAVISK_UI)
  add_subdirectory(ui)
  add_subdirectory(hosts)
  add_subdirectory(install)
  add_subdirectory(examples)
endif()
add_subdirectory(docs)
