# The windows and the component that a host program loads.
find_package(wxWidgets 3.2 REQUIRED COMPONENTS webview core base)

file(GLOB icons CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/assets/icons/*.svg ${CMAKE_SOURCE_DIR}/assets/*.svg)
add_custom_command(
  OUTPUT ${CMAKE_BINARY_DIR}/iconData.cpp
  COMMAND ${CMAKE_COMMAND} -DOUT=${CMAKE_BINARY_DIR}/iconData.cpp
          "-DICONS=${icons}" -P ${CMAKE_SOURCE_DIR}/tools/embedIcons.cmake
  DEPENDS ${icons} ${CMAKE_SOURCE_DIR}/tools/embedIcons.cmake VERBATIM)

sources_of(ui_sources src/ui/*/*.cpp)
add_library(tavisk_ui STATIC ${ui_sources} ${CMAKE_BINARY_DIR}/iconData.cpp)
separate_arguments(wx_flags UNIX_COMMAND "${wxWidgets_CXX_FLAGS}")
target_compile_options(tavisk_ui PUBLIC ${wx_flags})
target_compile_definitions(tavisk_ui PUBLIC ${wxWidgets_DEFINITIONS})
target_include_directories(tavisk_ui SYSTEM PUBLIC ${wxWidgets_INCLUDE_DIRS})
target_link_libraries(tavisk_ui PUBLIC tavisk_core ${wxWidgets_LIBRARIES})

# What a host program loads: its public interface is all that can be seen of it.
sources_of(component_sources ${CMAKE_SOURCE_DIR}/src/component/*.cpp)
add_library(tavisk_component SHARED ${component_sources})
target_include_directories(tavisk_component PUBLIC
  $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include> $<INSTALL_INTERFACE:include>)
target_compile_definitions(tavisk_component PRIVATE TAVISK_VERSION="${PROJECT_VERSION}")
target_link_libraries(tavisk_component PRIVATE tavisk_ui)
if(WIN32)
  include(cmake/component_windows.cmake)
else()
  include(cmake/component_linux.cmake)
endif()
add_custom_command(TARGET tavisk_component POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${assets} ${CMAKE_BINARY_DIR})
