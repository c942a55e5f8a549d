// Texts of documents inside the lines and the JSON of a report.
#pragma once

#include <string>
#include <string_view>

namespace tavisk {

/// Texts come from documents: nothing in them may start a new line or move a terminal's cursor.
void appendPlain(std::string& line, std::string_view text);

/// In quotation marks. File names need not be UTF-8; JSON is.
void appendJson(std::string& json, std::string_view text);

}  // namespace tavisk
