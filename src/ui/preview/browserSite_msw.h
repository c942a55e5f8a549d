// The place where the browser control is embedded: what it may do with a page is asked here.
#pragma once

#include <wx/defs.h>
// after that
#include <wx/msw/wrapwin.h>
// after windows.h
#include <exdisp.h>
#include <oleidl.h>
#include <wrl/client.h>

#include "ui/preview/confinedBrowser.h"

namespace tavisk {

using BrowserSite = Microsoft::WRL::ComPtr<IOleClientSite>;

/// Puts a site of ours before the browser's own, to which it passes on all that it does not decide
/// itself: no scripts, no programs in the page, no windows, no menu entries that leave it. `parent`
/// is the window in which the browser is shown.
BrowserSite restrictBrowser(IWebBrowser2& browser, HWND parent, PageReach reach);

}  // namespace tavisk
