# Tavisk.dll: what it exports is in Tavisk.def, what it says about itself in Tavisk.rc, and its
# classes are described by Tavisk.idl.
set(described ${PROJECT_BINARY_DIR}/described)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(widl_bits --win64)
else()
  set(widl_bits --win32)
endif()
find_program(TAVISK_WIDL ${TAVISK_TRIPLET}-widl REQUIRED)
# The system's own interfaces and types, which ours are built on.
find_path(TAVISK_IDL oaidl.idl PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(TAVISK_TLB stdole2.tlb PATHS /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/wine/${CMAKE_HOST_SYSTEM_PROCESSOR}-windows
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(widl ${TAVISK_WIDL} ${widl_bits} -I ${TAVISK_IDL} -L ${TAVISK_TLB})
add_custom_command(
  OUTPUT ${described}/Tavisk.tlb ${described}/TaviskTypes.h ${described}/TaviskTypes.c
  COMMAND ${CMAKE_COMMAND} -E make_directory ${described}
  COMMAND ${widl} -t -o ${described}/Tavisk.tlb ${component}/Tavisk.idl
  COMMAND ${widl} -h -o ${described}/TaviskTypes.h ${component}/Tavisk.idl
  COMMAND ${widl} -u -o ${described}/TaviskTypes.c ${component}/Tavisk.idl
  DEPENDS ${component}/Tavisk.idl VERBATIM)
# Others that include the header depend on this.
add_custom_target(tavisk_types DEPENDS ${described}/Tavisk.tlb ${described}/TaviskTypes.h)
add_dependencies(tavisk_component_core tavisk_types)
target_include_directories(tavisk_component_core SYSTEM PUBLIC ${described})
target_sources(tavisk_component_core PRIVATE ${described}/TaviskTypes.c)
set_source_files_properties(${described}/TaviskTypes.c PROPERTIES COMPILE_OPTIONS -w)
target_link_libraries(tavisk_component_core PUBLIC ole32 oleaut32 uuid shell32 advapi32)

set_target_properties(tavisk_component PROPERTIES OUTPUT_NAME Tavisk PREFIX "")
target_sources(tavisk_component PRIVATE ${component}/Tavisk.rc ${component}/Tavisk.def)
set_source_files_properties(${component}/Tavisk.rc PROPERTIES
  OBJECT_DEPENDS "${described}/Tavisk.tlb;${component}/Tavisk.dll.manifest;${PROJECT_SOURCE_DIR}/assets/Tavisk.ico"
  COMPILE_DEFINITIONS "TAVISK_VERSION_NUMBERS=${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},0;TAVISK_VERSION_TEXT=${PROJECT_VERSION}"
  INCLUDE_DIRECTORIES "${described};${component};${PROJECT_SOURCE_DIR};${wxWidgets_INCLUDE_DIRS}")
