// What is wrong inside an answer text.
#pragma once

#include <string_view>
#include <vector>

#include "check/attributeChecks.h"
#include "check/tokenNames.h"
#include "formulas/tokens.h"

namespace tavisk {

/// Tokens that lead nowhere, and an odd backquote. `text` is within the limit of length. The
/// pictures that it refers to count as used from now on.
std::vector<Problem> checkTokens(std::string_view text, TokenNames& names);
/// The same with working memory that is used again.
std::vector<Problem> checkTokens(std::string_view text, TokenNames& names,
                                 std::vector<Token>& tokens);

/// Characters that code page 1252 lacks: one problem for all of them, at the first.
std::optional<Problem> checkCharacters(std::string_view text, bool hidden);

}  // namespace tavisk
