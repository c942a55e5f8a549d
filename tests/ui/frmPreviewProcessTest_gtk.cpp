// The preview window and the process that shows its page.
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <wx/stattext.h>

#include "ui/support/previewNative_gtk.h"
#include "ui/support/whileModal.h"

namespace tavisk {
namespace {

using test::PageFolder;
using test::pageProcesses;
using test::PreviewWindow;
using test::pumpUntil;
using test::WhileModal;

int thePageProcess() {
    if (!pumpUntil([] { return pageProcesses().size() == 1; }))
        throw std::runtime_error("not one process for one page");
    return pageProcesses().front();
}

TEST(FrmPreviewProcess, EscapeClosesItWhileThePageIsBusy) {
    PreviewWindow preview;
    preview.openBody("page");
    const int busy = thePageProcess();
    kill(busy, SIGSTOP);
    preview.press(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return !preview.window->IsShown(); }));
    kill(busy, SIGCONT);
}

TEST(FrmPreviewProcess, LeavesNoPageProcessBehind) {
    const PageFolder pages;
    const std::string page = pages.write("temp.html", "<html><body>page</body></html>");
    WhileModal modal([](frmPreview&) { EXPECT_EQ(pageProcesses().size(), 1U); });
    showPreview(nullptr, page);
    ASSERT_TRUE(modal.ran());
    EXPECT_TRUE(pumpUntil([] { return pageProcesses().empty(); }));
}

TEST(FrmPreviewProcess, SaysSoWhenTheEngineEnds) {
    PreviewWindow preview;
    preview.openBody("page");
    kill(thePageProcess(), SIGKILL);
    ASSERT_TRUE(pumpUntil([&] { return preview.window->lblEnded != nullptr; }));
    EXPECT_EQ(preview.window->lblEnded->GetLabel(),
              "The page can no longer be shown, because the browser engine has ended.\n"
              "Close this window and preview again.");
    EXPECT_EQ(preview.window->lblEnded->GetSize(), preview.window->GetClientSize());
    EXPECT_FALSE(preview.browser().IsShown());
    EXPECT_FALSE(preview.window->pageLoaded());
    preview.press(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return !preview.window->IsShown(); }));
}

TEST(FrmPreviewProcess, LeavesTheSignalsForUsersAlone) {
    PreviewWindow preview;
    preview.openBody("page");
    for (const int number : {SIGUSR1, SIGUSR2}) {
        struct sigaction action {};
        ASSERT_EQ(sigaction(number, nullptr, &action), 0);
        EXPECT_EQ(action.sa_handler, SIG_DFL) << number;
    }
    EXPECT_EQ(std::getenv("JSC_SIGNAL_FOR_GC"), nullptr);
}

TEST(FrmPreviewProcess, EndsWhenTheWindowIsClosedBeforeThePageIsThere) {
    const PageFolder pages;
    const std::string page = pages.write("temp.html", "<html><body>page</body></html>");
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [](wxTimerEvent&) { test::shownPreview()->Close(); });
    timer.StartOnce(1);
    showPreview(nullptr, page);
    EXPECT_TRUE(pumpUntil([] { return pageProcesses().empty(); }));
}

}  // namespace
}  // namespace tavisk
