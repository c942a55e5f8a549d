// Reads the document that a command works on.
#pragma once

#include <exception>
#include <iosfwd>
#include <string>
#include <utility>

#include "base/refusal.h"
#include "xml/dom.h"

namespace tavisk {

/// Why a document is none; nothing more can be done with it.
class Rejected : public std::exception {
public:
    explicit Rejected(Refusal refusal) : refusal_(std::move(refusal)) {}

    const Refusal& refusal() const noexcept { return refusal_; }

private:
    Refusal refusal_;
};

/// Whether a file may be mapped: it is then not copied, but another program that cuts it short ends
/// the whole process.
enum class Mapping { allowed, refused };

/// The file's bytes, or those of standard input for "-". UTF-16 with a byte order mark becomes
/// UTF-8; UTF-16 that is broken is rejected as a parse error is. A file that cannot be read is a
/// FileError.
dom::Source readInput(const std::string& file, std::istream& standardInput,
                      Mapping mapping = Mapping::allowed);

}  // namespace tavisk
