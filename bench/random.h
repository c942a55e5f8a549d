// Pseudo-random numbers that are the same on every machine and with every standard library.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tavisk::bench {

/// SplitMix64.
class Random {
public:
    explicit Random(std::uint64_t seed) noexcept : state_(seed) {}

    std::uint64_t next() noexcept {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31U);
    }

    std::size_t below(std::size_t limit) noexcept { return next() % limit; }
    std::size_t between(std::size_t least, std::size_t most) noexcept {
        return least + below(most - least + 1);
    }
    bool percent(std::size_t chance) noexcept { return below(100) < chance; }

private:
    std::uint64_t state_;
};

}  // namespace tavisk::bench
