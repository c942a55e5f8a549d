// The pictures kept inside a help document: taking files in and writing them out.
#pragma once

#include <string>
#include <string_view>

#include "base/files.h"
#include "xml/dom.h"

namespace tavisk {

/// The picture that loading adds and saving removes.
inline constexpr std::string_view generatedPictureName = "generated_cabinet_picture";

/// A new `image` element that holds the file's bytes and one more byte of value 0. A missing file
/// gives an empty element without a data type.
dom::OwnedNode importimage(dom::Document& document, Files& files, const std::string& imagepath);

/// Writes the element's typed value over the start of the file. Always false. `buffer` is working
/// memory, used again from call to call.
bool exportimage(const dom::Node& node, Files& files, const std::string& imagepath,
                 std::string& buffer);

/// Writes every picture into the folder `path`, which ends in "/" and is created if missing (its
/// last level only). Error 52 for a file name that leads out of the folder.
void dumpImages(const dom::Document& document, Files& files, const std::string& path);

}  // namespace tavisk
