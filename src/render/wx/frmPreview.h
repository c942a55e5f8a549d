// The preview window: an embedded browser that shows the page.
#pragma once

#include <functional>
#include <string>

#include "platform/wx/runtime.h"

class wxWebView;

namespace tavisk {

/// Runs no scripts of the page, opens no windows for it and leaves it for no link; a clicked link to
/// another address goes to `openAddress`.
class frmPreview final : public ModalFrame {
public:
    explicit frmPreview(wxWindow* parent);

    /// `path` is that of the page file, UTF-8.
    void navigate(const std::string& path);

    wxWebView* browserPreview = nullptr;

    /// Opens an address in the user's own browser.
    std::function<void(const wxString& address)> openAddress;

private:
    std::string page_;
};

/// Shows the page modally, over `parent` or on its own.
void showPreview(wxWindow* parent, const std::string& path);

}  // namespace tavisk
