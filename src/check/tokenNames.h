// The names that tokens may refer to, and which pictures they do refer to.
#pragma once

#include <string_view>
#include <unordered_set>
#include <vector>

#include "xml/dom.h"

namespace tavisk {

/// Holds views of the document, which must stay as it is meanwhile.
class TokenNames {
public:
    explicit TokenNames(const dom::Document& document);

    const std::vector<dom::Node*>& formulas() const noexcept { return formulas_; }
    const std::vector<dom::Node*>& pictures() const noexcept { return pictures_; }

    bool hasFormula(std::string_view name) const { return formulaNames_.contains(name); }
    /// Of the catalogue, or one of the two that every saved document has.
    bool knowsFormula(std::string_view name) const;
    bool hasPicture(std::string_view name) const { return pictureNames_.contains(name); }

    void usePicture(std::string_view name) { used_.insert(name); }
    bool isUsed(std::string_view picture) const { return used_.contains(picture); }

private:
    void usePicturesIn(std::string_view text);

    std::vector<dom::Node*> formulas_;
    std::vector<dom::Node*> pictures_;
    std::unordered_set<std::string_view> formulaNames_;
    std::unordered_set<std::string_view> pictureNames_;
    std::unordered_set<std::string_view> used_;
};

}  // namespace tavisk
