# Writes the SVG files of the list ICONS as strings into the C++ file OUT.
set(entries "")
foreach(file ${ICONS})
  get_filename_component(name ${file} NAME_WE)
  file(READ ${file} svg)
  string(APPEND entries "    {\"${name}\", R\"svg(${svg})svg\"},\n")
endforeach()
file(WRITE ${OUT} "#include \"ui/toolkit/iconSvg.h\"

namespace tavisk {
namespace {

struct Icon {
    std::string_view name;
    std::string_view svg;
};

const Icon icons[] = {
${entries}    {\"\", \"\"},
};

}  // namespace

std::string_view iconSvg(std::string_view name) {
    for (const Icon& icon : icons) {
        if (icon.name == name) return icon.svg;
    }
    return {};
}

}  // namespace tavisk
")
