# What is built into the static libraries for Windows, and how. A change here builds them anew.
# Read by libraries.sh, which offers with_cmake and with_configure and sets arch and prefix.

sources=(zlib libpng1.6 libjpeg-turbo libxml2 wxwidgets3.2 googletest)

# What nobody uses is dropped from the DLL, function by function.
compile_flags="-O2 -DNDEBUG -ffunction-sections -fdata-sections"
if [ "$arch" = x86 ]; then
    # The same arithmetic as on 64 bits; hosts align the stack to four bytes only.
    compile_flags="$compile_flags -march=pentium4 -mfpmath=sse -mstackrealign"
fi

build_libraries() {
    # The archive lacks what its shared twin needs.
    only=zlibstatic with_cmake zlib
    install -D -m 644 "$work/zlib/libzlibstatic.a" "$prefix/lib/libz.a"
    install -D -m 644 -t "$prefix/include" "$work/zlib/zconf.h" "$(unpack zlib)/zlib.h"

    with_cmake libpng1.6 -DPNG_SHARED=OFF -DPNG_TESTS=OFF -DZLIB_ROOT="$prefix"
    with_cmake libjpeg-turbo -DENABLE_SHARED=OFF -DWITH_SIMD=OFF -DWITH_TURBOJPEG=OFF
    # Else a DLL exports its functions.
    with_cmake libxml2 -DCMAKE_C_FLAGS="$compile_flags -DLIBXML_STATIC" \
        -DLIBXML2_WITH_CATALOG=OFF -DLIBXML2_WITH_DEBUG=OFF -DLIBXML2_WITH_FTP=OFF \
        -DLIBXML2_WITH_HTML=OFF -DLIBXML2_WITH_HTTP=OFF -DLIBXML2_WITH_ICONV=OFF \
        -DLIBXML2_WITH_LEGACY=OFF -DLIBXML2_WITH_LZMA=OFF -DLIBXML2_WITH_MODULES=OFF \
        -DLIBXML2_WITH_OUTPUT=OFF -DLIBXML2_WITH_PATTERN=OFF -DLIBXML2_WITH_PROGRAMS=OFF \
        -DLIBXML2_WITH_PYTHON=OFF -DLIBXML2_WITH_READER=OFF -DLIBXML2_WITH_REGEXPS=OFF \
        -DLIBXML2_WITH_SCHEMAS=OFF -DLIBXML2_WITH_SCHEMATRON=OFF -DLIBXML2_WITH_TESTS=OFF \
        -DLIBXML2_WITH_TREE=ON -DLIBXML2_WITH_VALID=ON -DLIBXML2_WITH_WRITER=OFF \
        -DLIBXML2_WITH_XINCLUDE=OFF -DLIBXML2_WITH_XPATH=OFF -DLIBXML2_WITH_XPTR=OFF \
        -DLIBXML2_WITH_XPTR_LOCS=OFF -DLIBXML2_WITH_ZLIB=OFF -DLIBXML2_WITH_PUSH=ON -DLIBXML2_WITH_C14N=OFF
    with_cmake googletest -DBUILD_GMOCK=OFF

    with_configure wxwidgets3.2 --enable-unicode --disable-debug_info --enable-accessibility \
        --enable-svg --with-nanosvg --enable-webview --enable-webviewie --disable-webviewedge \
        --with-zlib=sys --with-libpng=sys --with-libjpeg=sys --without-libtiff --without-expat \
        --without-regex --without-opengl --without-subdirs --disable-tests --disable-compat30 \
        --disable-aui --disable-mediactrl --disable-propgrid --disable-ribbon --disable-richtext \
        --disable-stc --disable-xrc --disable-html --disable-help --disable-mshtmlhelp \
        --disable-mdi --disable-mdidoc --disable-sockets --disable-ipc --disable-protocols \
        --disable-webrequest --disable-debugreport --disable-joystick --disable-sound \
        --disable-graphics-d2d --disable-postscript --without-libjbig --without-liblzma \
        --disable-fs_archive --disable-fs_zip --disable-zipstream --disable-tarstream \
        --disable-rpath --disable-precomp-headers
}
