// The two calls of a host, on the one editor of the process.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"

namespace tavisk {

/// How an edit ended. `text` is the document, or the host's own text when there was an error, of
/// which the user has been told if there was a display to tell it on.
struct EditResult {
    std::string text;
    std::optional<RunTimeError> error;
};

/// Nothing but a failed allocation of the result is thrown.
EditResult editXML(std::string_view xml);

/// Throws RunTimeError and std::bad_alloc.
void previewXML(std::string_view xml, bool evaluateFormula);

/// Whether a call is running, or a preview has left its document loaded. On any thread.
bool isFormInUse() noexcept;

}  // namespace tavisk
