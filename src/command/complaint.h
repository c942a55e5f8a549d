// What is said of one document among several that went wrong: one line each.
#pragma once

#include <string>
#include <vector>

#include "base/error.h"
#include "base/message.h"

namespace tavisk {

/// "a.xml: rejected: No cabinet data found..."
std::string complaint(const std::string& file, const Message& rejection);

/// "a.xml: Run-time error '70': Permission denied (out/a/temp.html)". Call inside a catch block
/// only; another file that the error is about stands in the parentheses.
std::string currentComplaint(const std::string& file);

/// A line for each: "a.xml: warning: the picture "x.png" is missing".
std::string missingPictures(const std::string& file, const std::vector<std::string>& addresses);

}  // namespace tavisk
