#include <iostream>
#include <string>
#include <vector>

#include "command/commands.h"
#include "command/mappedInput.h"
#include "command/process.h"

int main(int count, char** words) {
    try {
        tavisk::passBytesThrough();
        tavisk::reportFailedWrites();
        tavisk::reportShrunkInput();
        const std::vector<std::string> arguments = tavisk::commandArguments(count, words);
        const tavisk::Streams streams{std::cin, std::cout, std::cerr,
                                      tavisk::errorOutputIsTerminal()};
        return static_cast<int>(tavisk::runCommand(arguments, streams));
    } catch (...) {
        return static_cast<int>(tavisk::ExitCode::runTimeError);
    }
}
