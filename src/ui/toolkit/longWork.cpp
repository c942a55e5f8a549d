#include "ui/toolkit/longWork.h"

#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <wx/evtloop.h>
#include <wx/progdlg.h>
#include <wx/utils.h>

#include "base/message.h"
#include "ui/toolkit/nativeToolkit.h"

namespace tavisk {
namespace {

/// Work on a thread of its own. The end waits for it.
class Worker {
public:
    explicit Worker(const std::function<void()>& work) : thread_([this, &work] { run(work); }) {}
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    ~Worker() { thread_.join(); }

    bool waitFor(std::chrono::milliseconds time) {
        std::unique_lock lock(mutex_);
        return finished_.wait_for(lock, time, [this] { return done_; });
    }
    void waitUntilDone() {
        std::unique_lock lock(mutex_);
        finished_.wait(lock, [this] { return done_; });
    }
    /// After the end of the work.
    void rethrow() const {
        if (error_) std::rethrow_exception(error_);
    }

private:
    void run(const std::function<void()>& work) {
        std::exception_ptr error;
        try {
            work();
        } catch (...) {
            error = std::current_exception();
        }
        const std::lock_guard lock(mutex_);
        error_ = error;
        done_ = true;
        finished_.notify_one();
    }

    std::mutex mutex_;
    std::condition_variable finished_;
    std::exception_ptr error_;
    bool done_ = false;
    std::thread thread_;
};

void showProgress(wxWindow* parent, const char* what, Worker& worker) {
    constexpr std::chrono::milliseconds beat{100};
    constexpr int open = 100;  // never reached: nobody knows how long it takes
    // The dialog waits until nothing is pending, which its own loop might do for ever.
    const std::unique_ptr<wxGUIEventLoop> loop = newNestedLoop();
    const wxEventLoopActivator active(loop.get());
    // The native one, where there is one, lives on a thread of its own.
    wxGenericProgressDialog dialog(defaultTitle, what, open, parent, wxPD_APP_MODAL);
    while (!worker.waitFor(beat))
        dialog.Pulse();
}

}  // namespace

void runLongWork(wxWindow* parent, const char* what, const std::function<void()>& work,
                 Patience patience) {
    std::optional<Worker> worker;
    try {
        worker.emplace(work);
    } catch (const std::system_error&) {
        work();  // without a thread it is done here
        return;
    }
    if (!worker->waitFor(patience.beforeCursor)) {
        const wxBusyCursor waiting;
        if (!worker->waitFor(patience.beforeDialog - patience.beforeCursor)) {
            try {
                showProgress(parent, what, *worker);
            } catch (...) {
                // The work matters more than telling about it.
            }
            worker->waitUntilDone();
        }
    }
    worker->rethrow();
}

}  // namespace tavisk
