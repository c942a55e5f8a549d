// What every fuzzer shares.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

/// Returns 0; a finding leaves it as an exception, which ends the fuzzer with the input as a file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tavisk::fuzz {

/// A promise that an input breaks.
class BrokenPromise : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

inline void require(bool holds, const std::string& promise) {
    if (!holds) throw BrokenPromise(promise);
}

inline std::string_view bytesOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace tavisk::fuzz
