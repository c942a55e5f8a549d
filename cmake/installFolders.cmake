# Where things go when they are installed, for Linux; the command has to know the library's folder.

# Debian, whose packages are made from this build, keeps libraries in a folder per architecture.
if(NOT DEFINED CMAKE_INSTALL_LIBDIR AND EXISTS /etc/debian_version AND CMAKE_LIBRARY_ARCHITECTURE)
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Libraries")
endif()
include(GNUInstallDirs)
# Pages are written beside the library where that is allowed, so it has a folder of its own.
set(TAVISK_OWN_FOLDER ${CMAKE_INSTALL_LIBDIR}/tavisk)
file(RELATIVE_PATH TAVISK_LIBRARY_FOLDER ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
