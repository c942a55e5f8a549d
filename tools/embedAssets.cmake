# Writes the files in ASSETS as byte arrays into the C++ file OUT.
function(bytes_of file result)
  file(READ ${file} hex HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," list "${hex}")
  set(${result} "${list}" PARENT_SCOPE)
endfunction()

bytes_of(${ASSETS}/cabinet.png picture)
bytes_of(${ASSETS}/style.css style)
file(WRITE ${OUT} "#include \"base/assets.h\"

namespace tavisk {
namespace {

const unsigned char pictureBytes[] = {${picture}};
const unsigned char styleBytes[] = {${style}};

template <std::size_t n>
std::string_view viewOf(const unsigned char (&bytes)[n]) {
    return {reinterpret_cast<const char*>(bytes), n};
}

}  // namespace

std::string_view cabinetPicture() { return viewOf(pictureBytes); }
std::string_view stylesheet() { return viewOf(styleBytes); }

}  // namespace tavisk
")
