// The page of a document by the literal procedures: rendered copy, rows, layout, page file.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "reference/plainTree.h"
#include "reference/tokenReference.h"

namespace tavisk::reference {

struct PlainLayout {
    std::u16string code;
    std::u16string type;
    std::u16string html;
};

/// Written files by path.
using PlainFiles = std::map<std::string, std::string>;

std::u16string capitalizeWords(const std::u16string& name);

PlainNode nodeparse(const PlainNode& node, const PlainNode& document,
                    const std::vector<PlainFormula>& catalogue, const std::u16string& imageTemp);

std::u16string renderNodeRow(const PlainNode& node);

PlainLayout layoutNode(const PlainNode& node, bool nested);

/// The bytes of the page file.
std::string pageBytes(const std::u16string& html);

/// Writes every picture below `path`.
void dumpImages(const PlainNode& document, const std::u16string& path, PlainFiles& files);

/// What a preview of the document leaves in the component's folder.
PlainFiles preview(const PlainNode& document, const std::vector<PlainFormula>& catalogue,
                   const std::u16string& folder, bool evaluateFormula);

}  // namespace tavisk::reference
