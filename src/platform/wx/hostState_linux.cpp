#include <array>
#include <clocale>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <wx/app.h>

#include "platform/wx/runtime.h"

namespace tavisk {
namespace {

constexpr int lastSignal = 64;

using Handlers = std::map<int, struct sigaction>;

Handlers currentHandlers() {
    Handlers handlers;
    for (int number = 1; number <= lastSignal; ++number) {
        struct sigaction action {};
        if (sigaction(number, nullptr, &action) == 0) handlers[number] = action;
    }
    return handlers;
}

bool same(const struct sigaction& a, const struct sigaction& b) {
    return a.sa_sigaction == b.sa_sigaction && a.sa_flags == b.sa_flags &&
           std::memcmp(&a.sa_mask, &b.sa_mask, sizeof a.sa_mask) == 0;
}

/// What the toolkit's libraries installed in earlier calls; theirs again while a call runs.
Handlers& toolkitHandlers() {
    static Handlers handlers;
    return handlers;
}

}  // namespace

struct HostState::Saved {
    Handlers handlers = currentHandlers();
    std::string locale = std::setlocale(LC_ALL, nullptr);
    std::error_code error;
    std::filesystem::path folder = std::filesystem::current_path(error);
    bool exitOnFrameDelete = wxTheApp && wxTheApp->GetExitOnFrameDelete();
};

HostState::HostState() : saved_(std::make_unique<Saved>()) {
    for (const auto& [number, action] : toolkitHandlers())
        sigaction(number, &action, nullptr);
    if (wxTheApp) wxTheApp->SetExitOnFrameDelete(false);
}

HostState::~HostState() {
    for (const auto& [number, action] : currentHandlers()) {
        const struct sigaction& before = saved_->handlers[number];
        if (same(action, before)) continue;
        toolkitHandlers()[number] = action;
        sigaction(number, &before, nullptr);
    }
    if (saved_->locale != std::setlocale(LC_ALL, nullptr))
        std::setlocale(LC_ALL, saved_->locale.c_str());
    std::error_code error;
    if (!saved_->error && std::filesystem::current_path(error) != saved_->folder)
        std::filesystem::current_path(saved_->folder, error);
    if (wxTheApp) wxTheApp->SetExitOnFrameDelete(saved_->exitOnFrameDelete);
}

}  // namespace tavisk
