// A window's accessible object, asked from outside.
#pragma once

#include <string>
#include <wx/defs.h>
// after that
#include <wx/msw/wrapwin.h>
// after windows.h
#include <oleacc.h>

#include "ui/toolkit/strings.h"

namespace tavisk::test {

/// What a screen reader gets when it asks the window.
struct Asked {
    explicit Asked(HWND window) {
        const HRESULT found =
            AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                       __uuidof(IAccessible), reinterpret_cast<void**>(&object));
        if (FAILED(found)) object = nullptr;
    }
    Asked(const Asked&) = delete;
    Asked& operator=(const Asked&) = delete;
    ~Asked() {
        if (object) object->Release();
    }

    static VARIANT child(LONG number) {
        VARIANT value{};
        V_VT(&value) = VT_I4;
        V_I4(&value) = number;
        return value;
    }
    std::string name(LONG number = CHILDID_SELF) const {
        BSTR text = nullptr;
        if (!object || object->get_accName(child(number), &text) != S_OK || !text) return "";
        wxString name(text, SysStringLen(text));
        SysFreeString(text);
        // The letter that the Alt key wants is no part of the name.
        name.Replace("&", "");
        return utf8Of(name);
    }
    LONG role() const {
        VARIANT value{};
        if (!object || object->get_accRole(child(CHILDID_SELF), &value) != S_OK) return 0;
        return V_VT(&value) == VT_I4 ? V_I4(&value) : 0;
    }

    LONG childCount() const {
        LONG count = 0;
        return object && object->get_accChildCount(&count) == S_OK ? count : 0;
    }

    IAccessible* object = nullptr;
};

}  // namespace tavisk::test
