// Random choices that are the same on every platform for one seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tavisk::reference {

class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31);
    }

    /// 0 to `count` - 1.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(next() % count); }
    bool chance(std::size_t percent) { return below(100) < percent; }

    template <class T>
    const T& pick(const std::vector<T>& from) {
        return from[below(from.size())];
    }

    template <class T>
    void shuffle(std::vector<T>& items) {
        for (std::size_t i = items.size(); i > 1; --i)
            std::swap(items[i - 1], items[below(i)]);
    }

private:
    std::uint64_t state_;
};

}  // namespace tavisk::reference
