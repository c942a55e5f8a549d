// The line at the end of work on several documents.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavisk {

/// "1 finding", "2 findings".
std::string counted(std::size_t count, std::string_view what);

/// "3 documents: 2 rendered, 1 failed".
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
