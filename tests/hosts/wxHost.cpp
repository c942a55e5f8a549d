// A host with a wxWidgets of its own: an application, a frame, its own log and its own asserts. The
// commands are those of calls.h, and
//
//     own - -     what the host's application is like: whether its log and asserts are what they
//                 were, and how much they were told
//     quit - -    closes the frame, which ends the application because it is the last one
//
// "wxHost frameless" is an application that has no window, and no reason to end.
#include <cstring>
#include <memory>
#include <thread>
#include <utility>
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/log.h>

#include "calls.h"

namespace {

int assertsFailed = 0;

void countAssert(const wxString&, int, const wxString&, const wxString&, const wxString&) {
    ++assertsFailed;
}

class CountingLog final : public wxLog {
public:
    int lines = 0;

protected:
    void DoLogRecord(wxLogLevel, const wxString&, const wxLogRecordInfo&) override { ++lines; }
};

class HostApp final : public wxApp {
public:
    bool OnInit() override {
        wxSetAssertHandler(countAssert);
        wxLog::SetActiveTarget(log_);
        if (argc == 1) {
            frame_ = new wxFrame(nullptr, wxID_ANY, "Host window");
            frame_->Show();
        }
        std::thread([this] { readCommands(); }).detach();
        return true;
    }

private:
    void readCommands() {
        for (;;) {
            auto line = std::make_shared<Line>();
            const bool more = std::fgets(line->text, sizeof line->text, stdin) && split(line.get());
            if (more && line->threaded) {
                performElsewhere(line.get());
                continue;
            }
            CallAfter([this, line, more] {
                if (more) {
                    take(*line);
                } else {
                    quit();
                }
            });
            if (!more || std::strcmp(line->command, "quit") == 0) return;
        }
    }

    void take(const Line& line) {
        if (std::strcmp(line.command, "own") == 0) {
            describe(line.tag);
        } else if (std::strcmp(line.command, "quit") == 0) {
            answer(line.tag, 0, nullptr);
            quit();
        } else {
            perform(&line);
        }
    }

    void quit() {
        if (frame_) {
            std::exchange(frame_, nullptr)->Close();
        } else {
            ExitMainLoop();
        }
    }

    void describe(const char* tag) const {
        const wxAssertHandler_t handler = wxSetAssertHandler(countAssert);
        std::printf(
            "%s %s, %s, %s, %s, %d asserts, %d lines\n", tag,
            wxTheApp == this ? "own application" : "other application",
            wxLog::GetActiveTarget() == log_ && wxLog::IsEnabled() ? "own log" : "other log",
            handler == countAssert ? "own asserts" : "other asserts",
            GetTopWindow() == frame_ && GetExitOnFrameDelete() ? "own frame" : "other frame",
            assertsFailed, log_->lines);
        std::fflush(stdout);
    }

    CountingLog* const log_ = new CountingLog;
    wxFrame* frame_ = nullptr;
};

}  // namespace

wxIMPLEMENT_APP(HostApp);
