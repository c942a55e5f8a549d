#include <utility>
#include <wx/access.h>
#include <wx/dataview.h>
#include <wx/window.h>

#include "ui/toolkit/accessible.h"

namespace tavisk {
namespace {

/// Tells the name itself and leaves all the rest to `Base`.
template <class Base>
class Named : public Base {
public:
    template <class Window>
    Named(Window* window, wxString name) : Base(window), name_(std::move(name)) {}

    wxAccStatus GetName(int child, wxString* name) override {
        if (child != wxACC_SELF) return Base::GetName(child, name);
        *name = name_;
        return wxACC_OK;
    }

private:
    wxString name_;
};

class NamedPicture final : public Named<wxAccessible> {
public:
    using Named::Named;

    wxAccStatus GetRole(int child, wxAccRole* role) override {
        if (child != wxACC_SELF) return Named::GetRole(child, role);
        *role = wxROLE_SYSTEM_GRAPHIC;
        return wxACC_OK;
    }
};

}  // namespace

void setAccessibleName(wxWindow& control, const wxString& name) {
    if (auto* const rows = dynamic_cast<wxDataViewCtrl*>(&control)) {
        rows->SetAccessible(new Named<wxDataViewCtrlAccessible>(rows, name));
        // The part that has the focus is another window. What tells of the rows belongs to one
        // only.
        wxWindow* const part = rows->GetMainWindow();
        part->SetAccessible(new Named<wxAccessible>(part, name));
    } else {
        control.SetAccessible(new Named<wxAccessible>(&control, name));
    }
}

void setAccessiblePicture(wxWindow& control, const wxString& name) {
    control.SetAccessible(new NamedPicture(&control, name));
}

}  // namespace tavisk
