#include "ui/toolkit/longWork.h"

#include <future>
#include <gtest/gtest.h>
#include <wx/eventfilter.h>
#include <wx/progdlg.h>
#include <wx/utils.h>

#include "base/error.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using std::chrono::milliseconds;

constexpr Patience dialogAtOnce{milliseconds(0), milliseconds(0)};

bool progressIsShown() {
    for (const wxWindow* window : wxTopLevelWindows) {
        if (dynamic_cast<const wxGenericProgressDialog*>(window) && window->IsShown()) return true;
    }
    return false;
}

/// Timers do not run meanwhile on every desktop.
class OnEveryEvent final : public wxEventFilter {
public:
    explicit OnEveryEvent(std::function<void()> action) : action_(std::move(action)) {
        wxEvtHandler::AddFilter(this);
    }
    OnEveryEvent(const OnEveryEvent&) = delete;
    OnEveryEvent& operator=(const OnEveryEvent&) = delete;
    ~OnEveryEvent() override { wxEvtHandler::RemoveFilter(this); }

    int FilterEvent(wxEvent&) override {
        action_();
        return Event_Skip;
    }

private:
    std::function<void()> action_;
};

TEST(LongWork, ShortWorkShowsNothing) {
    bool done = false;
    runLongWork(nullptr, "w", [&] { done = true; });
    EXPECT_TRUE(done);
    EXPECT_FALSE(wxIsBusy());
}

TEST(LongWork, DialogTellsOfLongWorkAndGoesWithIt) {
    std::promise<void> seen;
    bool told = false;
    const OnEveryEvent look([&] {
        if (told || !progressIsShown()) return;
        EXPECT_TRUE(wxIsBusy());
        told = true;
        seen.set_value();
    });
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
