# The windows and the component that a host program loads.
find_package(wxWidgets 3.2 REQUIRED COMPONENTS webview core base)
add_library(tavisk_wx INTERFACE)
separate_arguments(wx_flags UNIX_COMMAND "${wxWidgets_CXX_FLAGS}")
target_compile_options(tavisk_wx INTERFACE ${wx_flags})
target_compile_definitions(tavisk_wx INTERFACE ${wxWidgets_DEFINITIONS})
target_include_directories(tavisk_wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
target_link_libraries(tavisk_wx INTERFACE ${wxWidgets_LIBRARIES})

file(GLOB icons CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/assets/icons/*.svg ${PROJECT_SOURCE_DIR}/assets/*.svg)
add_custom_command(
  OUTPUT ${PROJECT_BINARY_DIR}/iconData.cpp
  COMMAND ${CMAKE_COMMAND} -DOUT=${PROJECT_BINARY_DIR}/iconData.cpp
          "-DICONS=${icons}" -P ${PROJECT_SOURCE_DIR}/tools/embedIcons.cmake
  DEPENDS ${icons} tools/embedIcons.cmake VERBATIM)

sources_of(ui_sources src/ui/*/*.cpp)
add_library(tavisk_ui STATIC ${ui_sources} ${PROJECT_BINARY_DIR}/iconData.cpp)
target_link_libraries(tavisk_ui PUBLIC tavisk_core tavisk_wx)

# The component without what it exports, so that tests can call it.
set(component ${PROJECT_SOURCE_DIR}/src/component)
set(exported ${component}/cInterface.cpp ${component}/entryPoints.cpp)
sources_of(component_sources ${component}/*.cpp)
list(REMOVE_ITEM component_sources ${exported})
add_library(tavisk_component_core STATIC ${component_sources})
target_include_directories(tavisk_component_core PUBLIC include)
target_link_libraries(tavisk_component_core PUBLIC tavisk_ui)

# What a host program loads: its public interface is all that can be seen of it.
add_library(tavisk_component SHARED ${exported})
add_library(Tavisk::tavisk ALIAS tavisk_component)
target_include_directories(tavisk_component PUBLIC
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:include>)
target_compile_definitions(tavisk_component PRIVATE TAVISK_VERSION="${PROJECT_VERSION}")
target_link_libraries(tavisk_component PRIVATE tavisk_component_core)
include(cmake/component_${system}.cmake)
add_custom_command(TARGET tavisk_component POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${assets} $<TARGET_FILE_DIR:tavisk_component>)
