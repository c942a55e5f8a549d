# The windows and the component that a host program loads.
find_package(wxWidgets 3.2 REQUIRED COMPONENTS webview core base)
find_package(PkgConfig REQUIRED)

file(GLOB icons CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/assets/icons/*.svg)
add_custom_command(
  OUTPUT ${CMAKE_BINARY_DIR}/iconData.cpp
  COMMAND ${CMAKE_COMMAND} -DOUT=${CMAKE_BINARY_DIR}/iconData.cpp
          -DICONS=${CMAKE_SOURCE_DIR}/assets/icons -P ${CMAKE_SOURCE_DIR}/tools/embedIcons.cmake
  DEPENDS ${icons} ${CMAKE_SOURCE_DIR}/tools/embedIcons.cmake)

# What is special to one toolkit has its own file.
file(GLOB window_sources CONFIGURE_DEPENDS
  src/platform/wx/*.cpp src/render/wx/*.cpp src/editor/wx/*.cpp)
list(FILTER window_sources EXCLUDE REGEX "_msw\\.cpp$")
add_library(tavisk_windows STATIC ${window_sources} ${CMAKE_BINARY_DIR}/iconData.cpp)
separate_arguments(wx_flags UNIX_COMMAND "${wxWidgets_CXX_FLAGS}")
target_compile_options(tavisk_windows PUBLIC ${wx_flags})
target_compile_definitions(tavisk_windows PUBLIC ${wxWidgets_DEFINITIONS})
target_include_directories(tavisk_windows SYSTEM PUBLIC ${wxWidgets_INCLUDE_DIRS})
target_link_libraries(tavisk_windows PUBLIC tavisk_core ${wxWidgets_LIBRARIES})
pkg_check_modules(gtk REQUIRED IMPORTED_TARGET gtk+-3.0)
# The engine that wxWidgets is built on; another version of it in one process would end the process.
pkg_check_modules(webkit REQUIRED IMPORTED_TARGET webkit2gtk-4.0)
target_link_libraries(tavisk_windows PRIVATE PkgConfig::gtk PkgConfig::webkit)

# What a host program loads: its public interface is all that can be seen of it.
file(GLOB component_sources CONFIGURE_DEPENDS src/component/*.cpp)
list(FILTER component_sources EXCLUDE REGEX "_windows\\.cpp$")
add_library(tavisk_component SHARED ${component_sources})
set_target_properties(tavisk_component PROPERTIES OUTPUT_NAME tavisk LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
target_include_directories(tavisk_component PUBLIC ${CMAKE_SOURCE_DIR}/include)
target_compile_definitions(tavisk_component PRIVATE TAVISK_VERSION="${PROJECT_VERSION}")
target_link_libraries(tavisk_component PRIVATE tavisk_windows)
# The toolkit below cannot be unloaded, so neither can this.
set(exports ${CMAKE_SOURCE_DIR}/src/component/exports.map)
target_link_options(tavisk_component PRIVATE -Wl,--version-script=${exports} -Wl,-z,nodelete -Wl,-z,defs)
set_target_properties(tavisk_component PROPERTIES LINK_DEPENDS ${exports})
if(TAVISK_SANITIZE)
  target_link_options(tavisk_component PRIVATE -Wl,-z,undefs)
endif()
add_custom_command(TARGET tavisk_component POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${assets} ${CMAKE_BINARY_DIR})
