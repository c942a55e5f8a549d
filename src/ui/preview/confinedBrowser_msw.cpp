#include <wx/webview.h>

#include "ui/preview/confinedBrowser.h"

namespace tavisk {

// What a page may load there is said by the browser's site, for each browser.
wxWebView* newConfinedBrowser(wxWindow& parent, const char* name, PageReach) {
    return wxWebView::New(&parent, wxID_ANY, wxWebViewDefaultURLStr, wxDefaultPosition,
                          wxDefaultSize, wxWebViewBackendDefault, wxBORDER_NONE, name);
}

}  // namespace tavisk
