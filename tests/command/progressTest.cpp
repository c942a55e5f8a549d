#include "command/progress.h"

#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace tavisk {
namespace {

using namespace std::chrono_literals;

/// Tells when the first whole piece of text has come through.
class SignallingBuffer : public std::stringbuf {
public:
    std::future<void> written() { return written_.get_future(); }

protected:
    int sync() override {
        if (!std::exchange(signalled_, true)) written_.set_value();
        return 0;
    }

private:
    std::promise<void> written_;
    bool signalled_ = false;
};

TEST(Progress, SilentWithoutATerminal) {
    std::ostringstream err;
    {
        Progress progress(err, false, 0ms);
        progress.phase("reading");
    }
    EXPECT_EQ(err.str(), "");
}

TEST(Progress, SilentWhenTheWorkIsShort) {
    std::ostringstream err;
    {
        Progress progress(err, true, 1h);
        progress.phase("reading");
    }
    EXPECT_EQ(err.str(), "");
}

TEST(Progress, ShowsThePhaseAndClearsItsLine) {
    SignallingBuffer buffer;
    std::future<void> written = buffer.written();
    std::ostream err(&buffer);
    Progress progress(err, true, 0ms);
    progress.phase("reading");
    written.wait();
    progress.end();
    const std::string text = buffer.str();
    EXPECT_TRUE(text.starts_with("\r\033[Ktavisk: ")) << text;
    EXPECT_TRUE(text.ends_with("...\r\033[K")) << text;
}

TEST(Progress, EndsOnce) {
    std::ostringstream err;
    Progress progress(err, true, 1h);
    progress.end();
    progress.end();
    EXPECT_EQ(err.str(), "");
}

}  // namespace
}  // namespace tavisk
