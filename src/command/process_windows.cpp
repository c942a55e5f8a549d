#include "command/process.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <shlobj.h>

#include "base/wideText_windows.h"

namespace tavisk {
namespace {

struct FreeLocally {
    void operator()(wchar_t** words) const { ::LocalFree(words); }
};

}  // namespace

std::vector<std::string> commandArguments(int, char**) {
    int count = 0;
    const std::unique_ptr<wchar_t*, FreeLocally> words(
        ::CommandLineToArgvW(::GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int i = 1; words && i < count; ++i)
        arguments.push_back(narrow(words.get()[i]));
    return arguments;
}

bool errorOutputIsTerminal() {
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

std::string_view missingForWindows() { return {}; }

void passBytesThrough() {
    for (std::FILE* const stream : {stdin, stdout, stderr})
        ::_setmode(::_fileno(stream), _O_BINARY);
    // The terminal keeps it, but a window of its own ends with the command.
    ::SetConsoleOutputCP(CP_UTF8);
}

/// Here they are errors of the call anyway.
void reportFailedWrites() {}

/// The system's heap keeps what it will need again.
void keepFreedMemory() {}

}  // namespace tavisk
