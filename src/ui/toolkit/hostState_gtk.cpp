#include <array>
#include <clocale>
#include <csignal>
#include <filesystem>
#include <string>
#include <system_error>
#include <wx/app.h>

#include "ui/toolkit/runtime.h"

namespace tavisk {
namespace {

constexpr std::size_t signalCount = 65;  // they are numbered from 1

/// By the signals' numbers.
using Handlers = std::array<struct sigaction, signalCount>;

bool read(std::size_t number, struct sigaction& action) noexcept {
    return sigaction(static_cast<int>(number), nullptr, &action) == 0;
}

void install(std::size_t number, const struct sigaction& action) noexcept {
    sigaction(static_cast<int>(number), &action, nullptr);
}

Handlers currentHandlers() noexcept {
    Handlers handlers{};
    for (std::size_t number = 1; number < signalCount; ++number)
        read(number, handlers[number]);
    return handlers;
}

/// The mask signal by signal: what lies behind the last one is undefined.
bool same(const struct sigaction& a, const struct sigaction& b) noexcept {
    if (a.sa_sigaction != b.sa_sigaction || a.sa_flags != b.sa_flags) return false;
    for (int number = 1; number < static_cast<int>(signalCount); ++number) {
        if (sigismember(&a.sa_mask, number) != sigismember(&b.sa_mask, number)) return false;
    }
    return true;
}

/// What the toolkit's libraries installed in earlier calls; theirs again while a call runs.
struct ToolkitHandlers {
    Handlers handlers{};
    std::array<bool, signalCount> own{};
};

ToolkitHandlers& toolkitHandlers() noexcept {
    static ToolkitHandlers toolkit;
    return toolkit;
}

}  // namespace

struct HostState::Saved {
    Handlers handlers = currentHandlers();
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the locale belongs to the process, as the host has it
    std::string locale = std::setlocale(LC_ALL, nullptr);
    std::error_code error;
    std::filesystem::path folder = std::filesystem::current_path(error);
    bool exitOnFrameDelete = wxTheApp && wxTheApp->GetExitOnFrameDelete();
};

HostState::HostState() : saved_(std::make_unique<Saved>()) {
    const ToolkitHandlers& toolkit = toolkitHandlers();
    for (std::size_t number = 1; number < signalCount; ++number) {
        if (toolkit.own[number]) install(number, toolkit.handlers[number]);
    }
    if (wxTheApp) wxTheApp->SetExitOnFrameDelete(false);
}

HostState::~HostState() {
    const Handlers now = currentHandlers();
    ToolkitHandlers& toolkit = toolkitHandlers();
    for (std::size_t number = 1; number < signalCount; ++number) {
        if (same(now[number], saved_->handlers[number])) continue;
        toolkit.handlers[number] = now[number];
        toolkit.own[number] = true;
        install(number, saved_->handlers[number]);
    }
    // NOLINTBEGIN(concurrency-mt-unsafe): the same
    if (saved_->locale != std::setlocale(LC_ALL, nullptr))
        std::setlocale(LC_ALL, saved_->locale.c_str());
    // NOLINTEND(concurrency-mt-unsafe)
    std::error_code error;
    if (!saved_->error && std::filesystem::current_path(error) != saved_->folder)
        std::filesystem::current_path(saved_->folder, error);
    if (wxTheApp) wxTheApp->SetExitOnFrameDelete(saved_->exitOnFrameDelete);
}

}  // namespace tavisk
