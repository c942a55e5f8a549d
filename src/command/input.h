// Reads the document that a command works on.
#pragma once

#include <iosfwd>
#include <string>
#include <variant>

#include "base/message.h"
#include "xml/dom.h"

namespace tavisk {

/// Whether a file may be mapped: it is then not copied, but another program that cuts it short ends
/// the whole process.
enum class Mapping { allowed, refused };

/// The file's bytes, or those of standard input for "-". UTF-16 with a byte order mark becomes
/// UTF-8; UTF-16 that is broken gives the message that a parse error gives. A file that cannot be
/// read is a FileError.
std::variant<dom::Source, Message> readInput(const std::string& file, std::istream& standardInput,
                                             Mapping mapping = Mapping::allowed);

}  // namespace tavisk
