#include <array>
#include <utility>
#include <wx/webview.h>

#include "ui/preview/browserPolicy.h"
// after those of wxWidgets
#include <wx/msw/ole/activex.h>
// after windows.h
#include <exdisp.h>
#include <exdispid.h>
#include <mshtml.h>

#include "ui/preview/browserSite_msw.h"
#include "ui/preview/fileAddress.h"
#include "ui/toolkit/strings.h"

namespace tavisk {
namespace {

/// The arguments of the browser's own event, counted from the first.
VARIANT* argument(const wxActiveXEvent& event, std::size_t index) {
    const DISPPARAMS* const all = event.GetNativeParameters()->pDispParams;
    if (index >= all->cArgs) return nullptr;
    VARIANT* found = &all->rgvarg[all->cArgs - 1 - index];
    while (V_VT(found) == (VT_VARIANT | VT_BYREF))
        found = V_VARIANTREF(found);
    return found;
}

std::string textOf(const VARIANT* value) {
    if (!value || V_VT(value) != VT_BSTR || !V_BSTR(value)) return {};
    return utf8Of(wxString(V_BSTR(value), SysStringLen(V_BSTR(value))));
}

/// For events whose argument says whether what was asked for is to be left undone.
void cancel(const VARIANT* value) {
    if (value && V_VT(value) == (VT_BOOL | VT_BYREF)) *V_BOOLREF(value) = VARIANT_TRUE;
}

struct OwnKey {
    WPARAM key;
    bool withControl;
    BrowserKey meaning;
};

constexpr std::array ownKeys{
    OwnKey{VK_ESCAPE, false, BrowserKey::close},
    OwnKey{'W', true, BrowserKey::close},
    OwnKey{VK_OEM_PLUS, true, BrowserKey::zoomIn},
    OwnKey{VK_ADD, true, BrowserKey::zoomIn},
    OwnKey{VK_OEM_MINUS, true, BrowserKey::zoomOut},
    OwnKey{VK_SUBTRACT, true, BrowserKey::zoomOut},
    OwnKey{'0', true, BrowserKey::zoomNormal},
    OwnKey{VK_NUMPAD0, true, BrowserKey::zoomNormal},
};

}  // namespace

struct BrowserPolicy::Native {
    Native(wxWebView& webView, PageReach reach, BrowserEvents browserEvents)
        : view(webView), events(std::move(browserEvents)) {
        view.Bind(wxEVT_ACTIVEX, &Native::onNative, this);
        wxGetTopLevelParent(&view)->Bind(wxEVT_CHAR_HOOK, &Native::onKey, this);
        // A file dropped on the view would ask to replace the page.
        browser()->put_RegisterAsDropTarget(VARIANT_FALSE);
        // Errors in a page are no business of its reader.
        browser()->put_Silent(VARIANT_TRUE);
        site = restrictBrowser(*browser(), static_cast<HWND>(view.GetHandle()), reach);
    }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native() {
        wxGetTopLevelParent(&view)->Unbind(wxEVT_CHAR_HOOK, &Native::onKey, this);
        view.Unbind(wxEVT_ACTIVEX, &Native::onNative, this);
    }

    IWebBrowser2* browser() const { return static_cast<IWebBrowser2*>(view.GetNativeBackend()); }

    /// An exception must not reach the engine; the window reports those of its own actions.
    template <class Action>
    static void guard(Action&& action) noexcept {
        try {
            std::forward<Action>(action)();
        } catch (...) {
        }
    }

    bool mayNavigate(const Navigation& navigation) {
        const NavigationAnswer decision = page.answer(navigation);
        if (decision == NavigationAnswer::openOutside)
            guard([&] { events.addressClicked(std::string(navigation.address)); });
        return decision == NavigationAnswer::show;
    }

    void onNative(wxActiveXEvent& event) {
        event.Skip();
        guard([&] { decide(event); });
    }

    void decide(wxActiveXEvent& event) {
        constexpr LONG hyperlink = 0x40;
        switch (event.GetDispatchId()) {
            case DISPID_BEFORENAVIGATE2: {
                const std::string address = spelledLike(page.address(), textOf(argument(event, 1)));
                const VARIANT* const flags = argument(event, 2);
                const bool clicked =
                    flags && V_VT(flags) == VT_I4 && (V_I4(flags) & hyperlink) != 0;
                // The empty page comes before the first one.
                if (address == "about:blank" && page.address().empty()) return;
                if (mayNavigate({.address = address, .linkClicked = clicked})) return;
                cancel(argument(event, 6));
                event.Skip(false);
                return;
            }
            case DISPID_NEWWINDOW3: {
                constexpr LONG userInitiated = 0x4;
                const std::string address = spelledLike(page.address(), textOf(argument(event, 4)));
                const VARIANT* const flags = argument(event, 2);
                const bool clicked =
                    flags && V_VT(flags) == VT_I4 && (V_I4(flags) & userInitiated) != 0;
                mayNavigate({.address = address, .linkClicked = clicked, .newWindow = true});
                cancel(argument(event, 1));
                event.Skip(false);
                return;
            }
            // Without an address; the newer event has come before.
            case DISPID_NEWWINDOW2:
                cancel(argument(event, 1));
                event.Skip(false);
                return;
            // What cannot be shown would become a download.
            case DISPID_FILEDOWNLOAD: {
                const VARIANT* const isDocument = argument(event, 0);
                if (isDocument && V_VT(isDocument) == VT_BOOL && !V_BOOL(isDocument))
                    cancel(argument(event, 1));
                return;
            }
            case DISPID_DOCUMENTCOMPLETE: readAsWritten(); return;
            default: return;
        }
    }

    /// A page does not name its code page, which the browser then takes to be this computer's.
    void readAsWritten() {
        using Microsoft::WRL::ComPtr;
        ComPtr<IDispatch> document;
        ComPtr<IHTMLDocument2> shown;
        if (page.address().empty() || FAILED(browser()->get_Document(document.GetAddressOf())) ||
            !document ||
            FAILED(document->QueryInterface(IID_IHTMLDocument2,
                                            reinterpret_cast<void**>(shown.GetAddressOf()))))
            return;
        const wxBasicString written("windows-1252");
        BSTR taken = nullptr;
        if (FAILED(shown->get_charset(&taken))) return;
        const bool same = taken && _wcsicmp(taken, written) == 0;
        SysFreeString(taken);
        // Once only: a browser that insists shows the page nevertheless.
        if (same || std::exchange(recoded, true)) return;
        if (SUCCEEDED(shown->put_charset(written))) browser()->Refresh();
    }

    void onKey(wxKeyEvent& event) {
        for (const OwnKey& own : ownKeys) {
            if (own.key != event.GetRawKeyCode() || event.AltDown() || event.ShiftDown() ||
                event.ControlDown() != own.withControl)
                continue;
            guard([&] { events.keyPressed(own.meaning); });
            return;
        }
        event.Skip();
    }

    wxWebView& view;
    BrowserEvents events;
    HeldPage page;
    BrowserSite site;
    bool recoded = false;
};

BrowserPolicy::BrowserPolicy(wxWebView& browser, PageReach reach, BrowserEvents events)
    : native_(std::make_unique<Native>(browser, reach, std::move(events))) {}

BrowserPolicy::~BrowserPolicy() = default;

void BrowserPolicy::load(const std::string& address) {
    native_->page.load(address);
    native_->recoded = false;
    native_->view.LoadURL(toWx(address));
}

}  // namespace tavisk
