# What `cmake --install` puts where, for Linux. lib: what a host loads; dev: what a host is built
# with; command: tavisk and what a desktop has to know of it.
include(CMakePackageConfigHelpers)
set(linux ${PROJECT_SOURCE_DIR}/packaging/linux)
set(made ${PROJECT_BINARY_DIR}/install)

# The library is in a folder of its own; those where libraries are looked for have links to it.
install(TARGETS tavisk_component EXPORT TaviskTargets
  LIBRARY DESTINATION ${TAVISK_OWN_FOLDER} COMPONENT lib NAMELINK_SKIP)
install(FILES ${assets} DESTINATION ${TAVISK_OWN_FOLDER} COMPONENT lib)
file(MAKE_DIRECTORY ${made})
foreach(link libtavisk.so.${TAVISK_ABI} libtavisk.so)
  file(CREATE_LINK tavisk/libtavisk.so.${TAVISK_ABI} ${made}/${link} SYMBOLIC)
endforeach()
install(FILES ${made}/libtavisk.so.${TAVISK_ABI} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT lib)
install(FILES ${made}/libtavisk.so DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)

file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/tavisk/*.h)
install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tavisk COMPONENT dev)
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Tavisk)
install(EXPORT TaviskTargets NAMESPACE Tavisk:: DESTINATION ${config_folder} COMPONENT dev)
configure_package_config_file(${linux}/TaviskConfig.cmake.in ${made}/TaviskConfig.cmake
  INSTALL_DESTINATION ${config_folder})
write_basic_package_version_file(${made}/TaviskConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${made}/TaviskConfig.cmake ${made}/TaviskConfigVersion.cmake
  DESTINATION ${config_folder} COMPONENT dev)
# From the file itself to the prefix, so that the tree may be moved.
file(RELATIVE_PATH TAVISK_PREFIX
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" TAVISK_PREFIX ${TAVISK_PREFIX})
configure_file(${linux}/tavisk.pc.in ${made}/tavisk.pc @ONLY)
install(FILES ${made}/tavisk.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

install(TARGETS tavisk_command RUNTIME COMPONENT command)
# The manual page and the completion are made from what the command says of itself.
if(TAVISK_PYTHON AND NOT CMAKE_CROSSCOMPILING)
  find_program(TAVISK_GZIP gzip REQUIRED)
  set(describe ${TAVISK_PYTHON} ${linux}/describe.py $<TARGET_FILE:tavisk_command>)
  add_custom_command(TARGET tavisk_command POST_BUILD
    COMMAND ${describe} ${linux}/tavisk.1.in ${made}/tavisk.1
            PROJECT_VERSION=${PROJECT_VERSION} TAVISK_ABI=${TAVISK_ABI}
    COMMAND ${TAVISK_GZIP} -9 -n -f ${made}/tavisk.1
    COMMAND ${describe} ${linux}/completion.bash.in ${made}/completion.bash
    VERBATIM)
  set_property(TARGET tavisk_command APPEND PROPERTY LINK_DEPENDS
    ${linux}/describe.py ${linux}/tavisk.1.in ${linux}/completion.bash.in)
  install(FILES ${made}/tavisk.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT command)
  install(FILES ${made}/completion.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME tavisk COMPONENT command)
endif()
set(data ${CMAKE_INSTALL_DATADIR})
install(FILES ${linux}/mime.xml DESTINATION ${data}/mime/packages
  RENAME tavisk.xml COMPONENT command)
install(FILES ${linux}/tavisk.desktop DESTINATION ${data}/applications COMPONENT command)
install(FILES ${PROJECT_SOURCE_DIR}/assets/tavisk.svg
  DESTINATION ${data}/icons/hicolor/scalable/apps COMPONENT command)

# Debian's packages bring these in their own form.
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc)

include(packaging/debian/package.cmake)
