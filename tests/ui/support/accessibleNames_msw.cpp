#include "ui/support/accessibleNames.h"
#include "ui/support/asked_msw.h"
#include "ui/support/pump.h"

namespace tavisk::test {
namespace {

HWND handleOf(const wxWindow& window) { return static_cast<HWND>(window.GetHandle()); }

}  // namespace

std::string accessibleName(const wxWindow& control) { return Asked(handleOf(control)).name(); }

std::string focusedName(wxWindow& control) {
    control.SetFocus();
    const auto focus = [&] {
        const HWND window = GetFocus();
        return window && (window == handleOf(control) || IsChild(handleOf(control), window))
                   ? window
                   : nullptr;
    };
    return pumpUntil([&] { return focus() != nullptr; }) ? Asked(focus()).name() : "(no focus)";
}

std::vector<std::string> toolNames(const wxToolBar& toolbar) {
    std::vector<std::string> names;
    const Asked asked(handleOf(toolbar));
    for (std::size_t i = 0; i < toolbar.GetToolsCount(); ++i) {
        if (!toolbar.GetToolByPos(static_cast<int>(i))->IsSeparator())
            names.push_back(asked.name(static_cast<LONG>(i) + 1));
    }
    return names;
}

bool isToldAsPicture(const wxWindow& control) {
    return Asked(handleOf(control)).role() == ROLE_SYSTEM_GRAPHIC;
}

}  // namespace tavisk::test
