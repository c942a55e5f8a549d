// Lines for people: about one document among several, and about all of them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/refusal.h"

namespace tavisk {

/// Texts come from documents: nothing in them may start a new line or move a terminal's cursor.
void appendPlain(std::string& line, std::string_view text);

/// "Run-time error '53': File not found".
std::string describe(const RunTimeError& error);

/// As a window would show it: "Error: No cabinet data found...", with a line for each of its own.
std::string inFull(const Refusal& refusal);

/// "a.xml: rejected: No cabinet data found..."
std::string complaint(const std::string& file, const Refusal& refusal);

/// What is said of the exception being handled: the same for a rejection, and "a.xml: Run-time
/// error '70': Permission denied (out/a/temp.html)" for an error. Call inside a catch block only;
/// another file that the error is about stands in the parentheses.
std::string currentComplaint(const std::string& file);

/// A line for each: "a.xml: warning: the picture "x.png" is missing".
std::string missingPictures(const std::string& file, const std::vector<std::string>& addresses);

/// "1 finding", "2 findings".
std::string counted(std::size_t count, std::string_view what);

/// The line at the end of work on several documents: "3 documents: 2 rendered, 1 failed".
class Summary {
public:
    explicit Summary(std::size_t documents) : text_(counted(documents, "document")) {}

    /// How many of the documents came out so; none is left out.
    void add(std::size_t count, std::string_view how);

    const std::string& text() const noexcept { return text_; }

private:
    std::string text_;
    bool isFirst_ = true;
};

}  // namespace tavisk
