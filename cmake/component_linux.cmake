# libtavisk.so: the windows are GTK's.
find_package(PkgConfig REQUIRED)
pkg_check_modules(gtk REQUIRED IMPORTED_TARGET gtk+-3.0)
include(cmake/webkit.cmake)
target_link_libraries(tavisk_ui PRIVATE PkgConfig::gtk PkgConfig::webkit)

# The toolkit below cannot be unloaded, so neither can this.
set(exports ${component}/exports.map)
target_link_options(tavisk_component PRIVATE -Wl,--version-script=${exports} -Wl,-z,nodelete -Wl,-z,defs)
set_target_properties(tavisk_component PROPERTIES
  OUTPUT_NAME tavisk EXPORT_NAME tavisk VERSION ${TAVISK_ABI} SOVERSION ${TAVISK_ABI}
  LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR} LINK_DEPENDS ${exports})
if(TAVISK_SANITIZE)
  target_link_options(tavisk_component PRIVATE -Wl,-z,undefs)
endif()
