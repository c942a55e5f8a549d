# The browser engine below the preview, in PkgConfig::webkit: the one that wxWidgets' own web view
# is linked with (4.0 on Debian 12, 4.1 on newer systems). Two of them in one process would end it.
find_library(TAVISK_WEB_VIEW NAMES wx_gtk3u_webview-3.2 REQUIRED)
find_program(TAVISK_READELF NAMES ${CMAKE_READELF} readelf REQUIRED)
execute_process(COMMAND ${TAVISK_READELF} -d ${TAVISK_WEB_VIEW}
  OUTPUT_VARIABLE needed COMMAND_ERROR_IS_FATAL ANY)
if(NOT needed MATCHES "libwebkit2gtk-(4\\.[01])\\.so")
  message(FATAL_ERROR "${TAVISK_WEB_VIEW} is linked with no WebKitGTK 4.0 or 4.1")
endif()
pkg_check_modules(webkit REQUIRED IMPORTED_TARGET webkit2gtk-${CMAKE_MATCH_1})
