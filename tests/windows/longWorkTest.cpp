#include "platform/wx/longWork.h"

#include <future>
#include <gtest/gtest.h>
#include <wx/progdlg.h>
#include <wx/timer.h>
#include <wx/utils.h>

#include "platform/error.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using std::chrono::milliseconds;

constexpr Patience dialogAtOnce{milliseconds(0), milliseconds(0)};

bool progressIsShown() {
    for (const wxWindow* window : wxTopLevelWindows) {
        if (dynamic_cast<const wxProgressDialog*>(window) && window->IsShown()) return true;
    }
    return false;
}

TEST(LongWork, ShortWorkShowsNothing) {
    bool done = false;
    runLongWork(nullptr, "w", [&] { done = true; });
    EXPECT_TRUE(done);
    EXPECT_FALSE(wxIsBusy());
}

TEST(LongWork, DialogTellsOfLongWorkAndGoesWithIt) {
    std::promise<void> seen;
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        if (!progressIsShown()) return;
        EXPECT_TRUE(wxIsBusy());
        timer.Stop();
        seen.set_value();
    });
    timer.Start(1);
    runLongWork(
        nullptr, "Opening the document", [&] { seen.get_future().wait(); }, dialogAtOnce);
    EXPECT_FALSE(progressIsShown());
    EXPECT_FALSE(wxIsBusy());
}

TEST(LongWork, ErrorsTravel) {
    EXPECT_EQ(
        test::errorOf([] { runLongWork(nullptr, "w", [] { raise(ErrorNumber::diskFull); }); }), 61);
    EXPECT_EQ(test::errorOf([] {
                  runLongWork(
                      nullptr, "w", [] { raise(ErrorNumber::overflow); }, dialogAtOnce);
              }),
              6);
    EXPECT_FALSE(wxIsBusy());
}

}  // namespace
}  // namespace tavisk
