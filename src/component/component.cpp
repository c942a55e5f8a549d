#include "component/component.h"

#include <atomic>

#include "base/files.h"
#include "base/folder.h"
#include "component/oneCall.h"
#include "editor/helpSession.h"
#include "ui/editor/frmMain.h"
#include "ui/preview/frmPreview.h"
#include "ui/toolkit/longWork.h"
#include "ui/toolkit/runtime.h"
#include "ui/toolkit/wxDialogs.h"

namespace tavisk {
namespace {

/// The one form of the process. After a preview it stays loaded, hidden; the next call loads it
/// again.
struct Form {
    DiskFiles files;
    HelpSession session{files, componentFolder(files)};
};

Form& defaultInstance() {
    // Never freed: what it refers to may be gone before static objects are.
    static Form* const form = new Form;
    return *form;
}

std::atomic<bool> formLoaded;

/// The form for one call, which tells other threads at its end whether it stays loaded.
class FormOfCall {
public:
    FormOfCall() : session(defaultInstance().session) {}
    FormOfCall(const FormOfCall&) = delete;
    FormOfCall& operator=(const FormOfCall&) = delete;
    ~FormOfCall() { formLoaded = session.loaded(); }

    HelpSession& session;
};

/// Error 364 for a document that is rejected, of which the user is told here.
void load(HelpSession& session, std::string_view xml) {
    std::optional<Refusal> refusal;
    runLongWork(nullptr, "Opening the document",
                [&] { refusal = session.load(dom::Source::copy(xml)); });
    if (!refusal) return;
    WxDialogs(nullptr).messageBox(refusal->message());
    raise(ErrorNumber::objectUnloaded);
}

std::string edit(std::string_view xml) {
    yieldOnce();
    const FormOfCall form;
    HelpSession& session = form.session;
    yieldOnce();
    load(session, xml);
    yieldOnce();
    frmMain(session).showModal();
    session.unload();
    yieldOnce();
    std::string text = session.xmlText;
    yieldOnce();
    return text;
}

void tellError() noexcept {
    try {
        WxDialogs(nullptr).messageBox({"DLL call returned due to error."});
    } catch (...) {
        // There is nobody left to tell.
    }
}

EditResult failed(std::string_view xml, const RunTimeError& error) {
    return {std::string(xml), error};
}

}  // namespace

EditResult editXML(std::string_view xml) {
    const OneCall call;
    if (!call.admitted()) {
        if (call.isNested()) tellError();
        return failed(xml, RunTimeError(ErrorNumber::invalidArgument));
    }
    const HostState host;
    try {
        startToolkit();
    } catch (...) {
        return failed(xml, currentRunTimeError());
    }
    try {
        return {edit(xml), std::nullopt};
    } catch (...) {
        const RunTimeError error = currentRunTimeError();
        tellError();
        return failed(xml, error);
    }
}

void previewXML(std::string_view xml, bool evaluateFormula) {
    const OneCall call;
    if (!call.admitted()) raise(ErrorNumber::invalidArgument);
    const HostState host;
    startToolkit();
    yieldOnce();
    const FormOfCall form;
    HelpSession& session = form.session;
    yieldOnce();
    load(session, xml);
    yieldOnce();
    std::string page;
    runLongWork(nullptr, "Writing the page",
                [&] { page = session.file.generatepreview(evaluateFormula); });
    showPreview(nullptr, page);
    yieldOnce();
}

bool isFormInUse() noexcept { return formLoaded || OneCall::isRunning(); }

}  // namespace tavisk
