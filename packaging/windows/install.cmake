# What is delivered for Windows: the target tavisk_package makes one zip file with everything in it.
set(packaging ${PROJECT_SOURCE_DIR}/packaging/windows)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(TAVISK_BITS 64)
  set(TAVISK_ASSEMBLY_ARCHITECTURE amd64)
  # Where a 32-bit program finds the system's 64-bit programs.
  set(TAVISK_SYSTEM_FOLDER Sysnative)
else()
  set(TAVISK_BITS 32)
  set(TAVISK_ASSEMBLY_ARCHITECTURE x86)
  set(TAVISK_SYSTEM_FOLDER SysWOW64)
endif()
# Beside the library, as in the package.
configure_file(${packaging}/Tavisk.X.manifest.in ${PROJECT_BINARY_DIR}/Tavisk.X.manifest @ONLY)
foreach(name install.cmd uninstall.cmd README.txt)
  configure_file(${packaging}/${name}.in ${PROJECT_BINARY_DIR}/package/${name} @ONLY
    NEWLINE_STYLE WIN32)
endforeach()

set(package ${PROJECT_BINARY_DIR}/Tavisk-${PROJECT_VERSION}-windows-${TAVISK_ARCH}.zip)
file(GLOB packaged CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/examples/door.xml ${PROJECT_SOURCE_DIR}/examples/windows/* ${packaging}/* ${TAVISK_LIBRARIES}/licences/*)
add_custom_command(OUTPUT ${package}
  COMMAND ${TAVISK_PYTHON} ${packaging}/package.py ${package} --build ${PROJECT_BINARY_DIR}
          --libraries ${TAVISK_LIBRARIES}
  DEPENDS tavisk_component tavisk_types ${assets} ${packaged} VERBATIM)
add_custom_target(tavisk_package DEPENDS ${package})
