# The Debian packages, by CPack: libtavisk0, libtavisk-dev and tavisk, from the components lib, dev
# and command.
set(debian ${PROJECT_SOURCE_DIR}/packaging/debian)
set(library_package libtavisk${TAVISK_ABI})
set(TAVISK_PACKAGE_VERSION ${PROJECT_VERSION}-1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(TAVISK_MAINTAINER "Tavisk contributors <maintainers@tavisk.invalid>" CACHE STRING
  "Who answers for the packages")
set(CPACK_PACKAGE_CONTACT ${TAVISK_MAINTAINER})
set(CPACK_PACKAGE_VENDOR Tavisk)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL lib dev command)
# Whatever the umask of the one who makes them.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(what "A cabinet-design or product-library program lets its users write and
preview the help of one item: headings and answers with their formatting,
formulas whose values the program computes, and pictures.
.")

set(CPACK_DEBIAN_LIB_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIB_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIB_DESCRIPTION "editor and preview for the help of product libraries - library
${what}
This package has the library with the editor and the preview window.")
set(CPACK_DEBIAN_LIB_PACKAGE_SHLIBDEPS ON)
# The toolkit's ticks in check boxes are pictures that it reads with this.
set(CPACK_DEBIAN_LIB_PACKAGE_DEPENDS librsvg2-common)
configure_file(${debian}/postrm.in ${made}/lib/postrm @ONLY)
set(CPACK_DEBIAN_LIB_PACKAGE_CONTROL_EXTRA
  ${made}/lib/postrm ${debian}/symbols ${debian}/triggers)

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libtavisk-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_DESCRIPTION "editor and preview for the help of product libraries - headers
${what}
This package has the headers for C and C++, and what CMake and pkg-config
have to know.")
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${library_package} (= ${TAVISK_PACKAGE_VERSION})")

# A build server renders and checks without the windows and their toolkit.
set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME tavisk)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION text)
set(CPACK_DEBIAN_COMMAND_DESCRIPTION "editor and preview for the help of product libraries - command
${what}
This package has the command, which edits, previews, renders and checks help
documents. The windows that it opens are in ${library_package}.")
set(CPACK_DEBIAN_COMMAND_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COMMAND_PACKAGE_RECOMMENDS "${library_package} (>= ${PROJECT_VERSION})")

# What Debian wants to have beside the files themselves.
configure_file(${debian}/changelog.in ${made}/changelog.Debian @ONLY)
configure_file(${debian}/documents.cmake.in ${made}/documents.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${made}/documents.cmake)
include(CPack)

find_program(TAVISK_CPACK cpack REQUIRED)
add_custom_target(tavisk_package
  COMMAND ${debian}/make.sh ${PROJECT_BINARY_DIR} ${TAVISK_CPACK}
  DEPENDS tavisk_component tavisk_command USES_TERMINAL VERBATIM)
