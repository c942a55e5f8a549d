#include "ui/editor/editorControls.h"

#include <algorithm>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/splitter.h>

#include "ui/editor/editorParts.h"
#include "ui/editor/helpTree.h"
#include "ui/toolkit/nativeExtras.h"

namespace tavisk {
namespace {

/// In pixels at 100 %, without the frame that a desktop draws around: with it, 1024 by 700 are
/// enough everywhere.
const wxSize leastSize(1012, 660);
const wxSize roomForFrame(12, 50);
const wxSize usualSize(1200, 860);
/// In letters.
constexpr int leastTreeWidth = 20;
constexpr int usualTreeWidth = 28;
constexpr double treeShare = 0.3;  ///< of what the window grows by

wxSizer* buildButtons(wxWindow* parent, EditorControls& controls) {
    controls.cmdPreview = newButton(parent, "cmdPreview", "Previe&w Help File");
    controls.cmdRefreshButton = newButton(parent, "cmdRefreshButton", "&Refresh Formula Values");
    const auto newOK = [&] { return controls.cmdOK = newButton(parent, "cmdOK", "&OK"); };
    const auto newCancel = [&] {
        return controls.cmdCancel = newButton(parent, "cmdCancel", "&Cancel");
    };
    // In the desktop's order, with the Tab key too.
    wxButton* const first = okStandsLast() ? newCancel() : newOK();
    wxButton* const last = okStandsLast() ? newOK() : newCancel();

    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(row({controls.cmdPreview, controls.cmdRefreshButton}),
               wxSizerFlags().CentreVertical());
    sizer->AddStretchSpacer();
    sizer->Add(row({first, last}), wxSizerFlags().CentreVertical());
    return sizer;
}

/// The space between the tree and the frames can be dragged; a line in it would be one too many.
class Splitter final : public wxSplitterWindow {
public:
    explicit Splitter(wxWindow* parent)
        : wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                           wxSP_LIVE_UPDATE | wxSP_NOBORDER) {}

protected:
    void DrawSash(wxDC& dc) override {
        paintGap(dc, *GetParent(), {GetSashPosition(), 0, GetSashSize(), GetClientSize().y});
    }
};

/// Scrolls when large letters or a dragged splitter leave too little room.
class Details final : public wxScrolledWindow {
public:
    using wxScrolledWindow::wxScrolledWindow;

    /// A panel takes the focus itself where nothing on it can be used, as on a locked node.
    bool AcceptsFocusFromKeyboard() const override {
        const wxWindowList& children = GetChildren();
        return std::any_of(children.begin(), children.end(), [](const wxWindow* child) {
            return child->CanAcceptFocusFromKeyboard();
        });
    }
};

wxWindow* buildDetails(wxWindow* parent, EditorControls& controls) {
    auto* const details = new Details(parent);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(buildEditing(details, controls), wxSizerFlags(1).Expand());
    sizer->AddSpacer(groupSpacing(parent));
    sizer->Add(buildFormatting(details, controls), wxSizerFlags().Expand());
    auto* const margin = new wxBoxSizer(wxVERTICAL);
    margin->Add(sizer, wxSizerFlags(1).Expand().Border(wxLEFT, spacing(parent)));
    details->SetSizer(margin);
    details->SetScrollRate(spacing(parent), spacing(parent));
    return details;
}

/// In the middle of the screen and not larger than it.
void setSize(wxFrame& frame, wxSize size) {
    size.DecTo(wxDisplay(&frame).GetClientArea().GetSize() - frame.FromDIP(roomForFrame));
    size.IncTo(frame.FromDIP(leastSize));
    frame.SetSize(size);
    frame.CentreOnScreen();
}

/// The window grows where letters are larger than usual, and the tree gets what is left.
void splitInto(wxSplitterWindow& split, wxWindow* tree, wxWindow* details) {
    const int letter = split.GetCharWidth();
    const wxSize least = details->GetSizer()->GetMinSize() + wxSize(split.GetSashSize(), 0);
    wxSize missing = least + wxSize(usualTreeWidth * letter, 0) - split.GetSize();
    missing.IncTo(wxSize(0, 0));
    auto& frame = *static_cast<wxFrame*>(wxGetTopLevelParent(&split));
    setSize(frame, frame.GetSize() + missing);
    frame.Layout();
    split.GetParent()->Layout();

    split.SetMinimumPaneSize(leastTreeWidth * letter);
    split.SetSashGravity(treeShare);
    split.SplitVertically(
        tree, details,
        std::clamp(split.GetSize().x - least.x, leastTreeWidth * letter, usualTreeWidth * letter));
}

}  // namespace

EditorControls buildEditor(wxFrame& frame) {
    frame.SetName("frmMain");
    frame.SetTitle("Library Help XML Editor");
    // Before there is anything in it: laid out in a tiny window, controls have no room at all.
    frame.SetMinSize(frame.FromDIP(leastSize));
    setSize(frame, frame.FromDIP(usualSize));
    placeByRealSize(frame);
    EditorControls controls;
    buildMenus(frame, controls);
    buildToolbar(frame, controls);

    auto* const root = new wxPanel(&frame);
    auto* const split = new Splitter(root);
    controls.TreeXML = new HelpTree(split);
    controls.TreeXML->SetName("TreeXML");
    wxWindow* const details = buildDetails(split, controls);

    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(split, wxSizerFlags(1).Expand().Border(wxALL, groupSpacing(root)));
    sizer->Add(buildButtons(root, controls),
               wxSizerFlags().Expand().Border(wxALL & ~wxTOP, groupSpacing(root)));
    root->SetSizer(sizer);

    frame.Layout();
    root->Layout();
    splitInto(*split, controls.TreeXML, details);

    describeControls(frame);
    controls.cmdOK->SetDefault();
    setCancelButton(frame, *controls.cmdCancel);
    letMnemonicsReach(frame);
    return controls;
}

}  // namespace tavisk
