// The page as one file that needs no others: for mail, or for a web site.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/files.h"
#include "formulas/formulaCatalogue.h"
#include "xml/dom.h"

namespace tavisk {

struct StandaloneParts {
    std::string_view stylesheet;
    /// The bytes of a picture file that a text names by its path, if they can be had.
    std::function<std::optional<std::string>(const std::string& file)> readPicture;
    /// Told of every picture that is not in the page because there is none.
    std::function<void(const std::string& address)> missing;
};

/// Hands over the page of `cabinet` piece by piece: what `writePage` writes, but in UTF-8, with the
/// stylesheet inside and every picture as an address that holds its data. Addresses on other
/// machines stay. Scripts in texts do not run. Error 7 beyond `maxPageSize`, 13 for the content of
/// a picture that is no base64.
void writeStandalonePage(const Files::Write& write, dom::Document& document,
                         const FormulaCatalogue& catalogue, const dom::Node& cabinet, bool evaluate,
                         const StandaloneParts& parts);

}  // namespace tavisk
