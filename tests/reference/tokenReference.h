// Tokens of answer texts by the literal procedures: one entry after the other, one character after
// the other, positions counted from 1.
#pragma once

#include <string>
#include <vector>

#include "reference/plainTree.h"

namespace tavisk::reference {

struct PlainFormula {
    std::u16string name;
    std::u16string value;
    std::u16string description;
    bool standard = false;

    bool operator==(const PlainFormula&) const = default;
};

enum class PlainColour { olive, blueImage, green, blueExternal };

struct PlainRun {
    int start = 0;  ///< counted from 0
    int length = 0;
    PlainColour colour = PlainColour::olive;
};

/// The formulas of a document, in document order.
std::vector<PlainFormula> loadFormulas(const PlainNode& document);

std::vector<PlainRun> colourRuns(const std::u16string& text);

std::u16string formulaparse(std::u16string text, const std::vector<PlainFormula>& catalogue);

std::u16string imageparse(std::u16string text, const PlainNode& document,
                          const std::u16string& imagefolder);

std::u16string overlayparse(std::u16string text, const PlainNode& document,
                            const std::u16string& imagefolder, double scale);

}  // namespace tavisk::reference
