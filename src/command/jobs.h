// How many documents are worked on at a time.
#pragma once

#include <algorithm>
#include <cstddef>
#include <thread>

#include "command/commandLine.h"

namespace tavisk {

inline std::size_t jobsOf(const CommandLine& line) {
    return line.jobs.value_or(std::max(1U, std::thread::hardware_concurrency()));
}

}  // namespace tavisk
