#include "ui/preview/browserSite_msw.h"

#include <atomic>
#include <mshtmdid.h>
#include <mshtmhst.h>
#include <servprov.h>
#include <urlmon.h>

namespace tavisk {
namespace {

using Microsoft::WRL::ComPtr;

/// Pictures of the page and nothing that runs.
constexpr LONG pageMay = DLCTL_DLIMAGES | DLCTL_NO_SCRIPTS | DLCTL_NO_JAVA |
                         DLCTL_NO_DLACTIVEXCTLS | DLCTL_NO_RUNACTIVEXCTLS | DLCTL_NO_BEHAVIORS |
                         DLCTL_NO_FRAMEDOWNLOAD | DLCTL_NO_CLIENTPULL | DLCTL_SILENT;

/// Begins with one reference, its creator's, and ends with the last.
template <class... Interfaces>
class Counted : public Interfaces... {
public:
    STDMETHODIMP_(ULONG) AddRef() final { return ++references_; }
    STDMETHODIMP_(ULONG) Release() final {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    virtual ~Counted() = default;

private:
    std::atomic<ULONG> references_{1};
};

/// Says no to everything that a page without programs does not need, whichever zone it is from.
class SecurityManager final : public Counted<IInternetSecurityManager> {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IInternetSecurityManager) return E_NOINTERFACE;
        *object = this;
        AddRef();
        return S_OK;
    }

    STDMETHODIMP SetSecuritySite(IInternetSecurityMgrSite*) override {
        return INET_E_DEFAULT_ACTION;
    }
    STDMETHODIMP GetSecuritySite(IInternetSecurityMgrSite**) override {
        return INET_E_DEFAULT_ACTION;
    }
    STDMETHODIMP MapUrlToZone(LPCWSTR, DWORD*, DWORD) override { return INET_E_DEFAULT_ACTION; }
    STDMETHODIMP GetSecurityId(LPCWSTR, BYTE*, DWORD*, DWORD_PTR) override {
        return INET_E_DEFAULT_ACTION;
    }
    STDMETHODIMP ProcessUrlAction(LPCWSTR, DWORD action, BYTE* policy, DWORD size, BYTE*, DWORD,
                                  DWORD, DWORD) override {
        if (!isForbidden(action)) return INET_E_DEFAULT_ACTION;
        if (policy && size >= sizeof(DWORD)) *reinterpret_cast<DWORD*>(policy) = URLPOLICY_DISALLOW;
        return S_FALSE;
    }
    STDMETHODIMP QueryCustomPolicy(LPCWSTR, REFGUID, BYTE**, DWORD*, BYTE*, DWORD, DWORD) override {
        return INET_E_DEFAULT_ACTION;
    }
    STDMETHODIMP SetZoneMapping(DWORD, LPCWSTR, DWORD) override { return INET_E_DEFAULT_ACTION; }
    STDMETHODIMP GetZoneMappings(DWORD, IEnumString**, DWORD) override {
        return INET_E_DEFAULT_ACTION;
    }

private:
    static bool isForbidden(DWORD action) {
        const auto between = [action](DWORD first, DWORD last) {
            return action >= first && action <= last;
        };
        return between(URLACTION_DOWNLOAD_MIN, URLACTION_DOWNLOAD_MAX) ||
               between(URLACTION_ACTIVEX_MIN, URLACTION_ACTIVEX_MAX) ||
               between(URLACTION_SCRIPT_MIN, URLACTION_SCRIPT_MAX) ||
               between(URLACTION_JAVA_MIN, URLACTION_JAVA_MAX) ||
               action == URLACTION_HTML_META_REFRESH || action == URLACTION_HTML_SUBMIT_FORMS ||
               action == URLACTION_HTML_FONT_DOWNLOAD;
    }
};

class Site final : public Counted<IOleClientSite, IDispatch, IDocHostUIHandler, IServiceProvider> {
public:
    Site(IOleClientSite* own, PageReach reach) : own_(own), reach_(reach) {
        own_->QueryInterface(IID_IDispatch,
                             reinterpret_cast<void**>(ownProperties_.GetAddressOf()));
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
            *object = static_cast<IOleClientSite*>(this);
        } else if (iid == IID_IDispatch) {
            *object = static_cast<IDispatch*>(this);
        } else if (iid == IID_IDocHostUIHandler) {
            *object = static_cast<IDocHostUIHandler*>(this);
        } else if (iid == IID_IServiceProvider) {
            *object = static_cast<IServiceProvider*>(this);
        } else {
            return own_->QueryInterface(iid, object);
        }
        AddRef();
        return S_OK;
    }

    STDMETHODIMP SaveObject() override { return own_->SaveObject(); }
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override {
        return own_->GetMoniker(assign, which, moniker);
    }
    STDMETHODIMP GetContainer(IOleContainer** container) override {
        return own_->GetContainer(container);
    }
    STDMETHODIMP ShowObject() override { return own_->ShowObject(); }
    STDMETHODIMP OnShowWindow(BOOL show) override { return own_->OnShowWindow(show); }
    STDMETHODIMP RequestNewObjectLayout() override { return own_->RequestNewObjectLayout(); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
        if (member == DISPID_AMBIENT_DLCONTROL && result) {
            V_VT(result) = VT_I4;
            V_I4(result) = reach_ == PageReach::files ? pageMay | DLCTL_FORCEOFFLINE : pageMay;
            return S_OK;
        }
        return ownProperties_ ? ownProperties_->Invoke(member, iid, locale, flags, parameters,
                                                       result, exception, wrong)
                              : DISP_E_MEMBERNOTFOUND;
    }

    /// Every entry of the browser's own menu that is worth having leaves the page.
    STDMETHODIMP ShowContextMenu(DWORD kind, POINT*, IUnknown*, IDispatch*) override {
        return kind == CONTEXT_MENU_TEXTSELECT ? S_FALSE : S_OK;
    }
    STDMETHODIMP GetHostInfo(DOCHOSTUIINFO* info) override {
        // Sharp letters at every scale, no border within the window's, and no help for forms.
        info->dwFlags = DOCHOSTUIFLAG_DPI_AWARE | DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_THEME |
                        DOCHOSTUIFLAG_DISABLE_HELP_MENU | DOCHOSTUIFLAG_DISABLE_SCRIPT_INACTIVE |
                        DOCHOSTUIFLAG_OVERRIDEBEHAVIORFACTORY | DOCHOSTUIFLAG_CODEPAGELINKEDFONTS;
        info->dwDoubleClick = DOCHOSTUIDBLCLK_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP ShowUI(DWORD, IOleInPlaceActiveObject*, IOleCommandTarget*, IOleInPlaceFrame*,
                        IOleInPlaceUIWindow*) override {
        return S_FALSE;
    }
    STDMETHODIMP HideUI() override { return S_OK; }
    STDMETHODIMP UpdateUI() override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    /// Copying, selecting and moving about are all that the keys are for.
    STDMETHODIMP TranslateAccelerator(LPMSG message, const GUID*, DWORD) override {
        if (message->message != WM_KEYDOWN) return S_FALSE;
        if (message->wParam == VK_F5 || message->wParam == VK_BACK) return S_OK;
        const bool control = GetKeyState(VK_CONTROL) < 0;
        return control && message->wParam != 'A' && message->wParam != 'C' &&
                       message->wParam != VK_HOME && message->wParam != VK_END &&
                       message->wParam != VK_INSERT
                   ? S_OK
                   : S_FALSE;
    }
    STDMETHODIMP GetOptionKeyPath(LPOLESTR*, DWORD) override { return S_FALSE; }
    STDMETHODIMP GetDropTarget(IDropTarget*, IDropTarget**) override { return E_NOTIMPL; }
    STDMETHODIMP GetExternal(IDispatch** external) override {
        *external = nullptr;
        return S_FALSE;
    }
    STDMETHODIMP TranslateUrl(DWORD, LPWSTR, LPWSTR*) override { return S_FALSE; }
    STDMETHODIMP FilterDataObject(IDataObject*, IDataObject** changed) override {
        *changed = nullptr;
        return S_FALSE;
    }

    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** object) override {
        *object = nullptr;
        if (service == IID_IInternetSecurityManager) return security_->QueryInterface(iid, object);
        ComPtr<IServiceProvider> others;
        own_->QueryInterface(IID_IServiceProvider, reinterpret_cast<void**>(others.GetAddressOf()));
        return others ? others->QueryService(service, iid, object) : E_NOINTERFACE;
    }

private:
    ~Site() override { security_->Release(); }

    ComPtr<IOleClientSite> own_;
    PageReach reach_;
    ComPtr<IDispatch> ownProperties_;
    SecurityManager* security_ = new SecurityManager;
};

}  // namespace

BrowserSite restrictBrowser(IWebBrowser2& browser, HWND parent, PageReach reach) {
    ComPtr<IOleObject> object;
    ComPtr<IOleClientSite> own;
    browser.QueryInterface(IID_IOleObject, reinterpret_cast<void**>(object.GetAddressOf()));
    if (object) object->GetClientSite(own.GetAddressOf());
    if (!own) return {};
    BrowserSite site;
    site.Attach(new Site(own.Get(), reach));
    // An object takes another site while it is not active only.
    ComPtr<IOleInPlaceObject> place;
    browser.QueryInterface(IID_IOleInPlaceObject, reinterpret_cast<void**>(place.GetAddressOf()));
    if (place) place->InPlaceDeactivate();
    object->SetClientSite(site.Get());
    RECT client;
    GetClientRect(parent, &client);
    object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, parent, &client);
    return site;
}

}  // namespace tavisk
