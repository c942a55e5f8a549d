# What is the same for every system is tested once, and what only this one has.
add_python_test(layers.includesAndLibraries ${PROJECT_SOURCE_DIR}/tools/checkLayers.py
  ${PROJECT_SOURCE_DIR} --program $<TARGET_FILE:tavisk_command>)
foreach(tool checkLayers setup tour)
  add_python_test(tools.${tool} tools/${tool}Test.py)
endforeach()

add_subdirectory(browser)
if(TAVISK_UI)
  add_subdirectory(ui)
  add_subdirectory(hosts)
  add_subdirectory(examples)
endif()
if(TAVISK_UI AND TAVISK_INSTALL)
  # What `cmake --install` leaves, and a folder for what is built with it.
  set(tree ${CMAKE_CURRENT_BINARY_DIR}/install/tree)
  set(installed TAVISK_TREE=${tree} TAVISK_LIBRARY_FOLDER=${tree}/${CMAKE_INSTALL_LIBDIR}
    TAVISK_EXAMPLES=${CMAKE_CURRENT_BINARY_DIR}/install/examples)
  add_subdirectory(install)
endif()
add_subdirectory(docs)
