// Runs a comparison over many random documents and says how to see a difference again.
//
// TAVISK_RANDOM_DOCUMENTS sets how many documents a test compares, TAVISK_SEED the first seed.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include "base/error.h"
#include "reference/plainText.h"
#include "reference/plainXml.h"
#include "reference/randomDocument.h"

namespace tavisk::reference {

/// A document in all the forms that comparisons need.
struct TestDocument {
    std::uint64_t seed = 0;
    std::string xml;
    PlainNode plain;  ///< as loading leaves it
};

/// What an action came to: the number of its error, or its result.
template <class Result>
struct Outcome {
    int error = 0;
    Result result{};

    bool operator==(const Outcome&) const = default;
};

template <class Action>
auto outcomeOf(Action action) -> Outcome<decltype(action())> {
    try {
        return {0, action()};
    } catch (const RunTimeError& error) {
        return {error.number(), {}};
    } catch (const Failure& failure) {
        return {static_cast<int>(failure.number), {}};
    }
}

inline std::uint64_t numberFromEnvironment(const char* name, std::uint64_t fallback) {
    const char* text = std::getenv(name);
    return text == nullptr ? fallback : std::strtoull(text, nullptr, 10);
}

inline TestDocument testDocument(std::uint64_t seed) {
    const RandomDocument made = randomDocument(seed);
    return {seed, xmlOf(made.document, made.style), asLoaded(made.document)};
}

/// Both texts around their first difference.
inline std::string firstDifference(const std::string& is, const std::string& expected) {
    const auto at = static_cast<std::size_t>(
        std::mismatch(is.begin(), is.end(), expected.begin(), expected.end()).first - is.begin());
    const std::size_t from = at < 60 ? 0 : at - 60;
    return "at byte " + std::to_string(at) + "\n is       [" + is.substr(from, 200) +
           "]\n expected [" + expected.substr(from, 200) + "]";
}

/// `compare` returns an empty text, or what is different. The first few differences end the run.
/// The few documents whose values multiply beyond the reference's patience are left out.
template <class Compare>
void forEachRandomDocument(Compare compare) {
    constexpr int enough = 3;
    const std::uint64_t count = numberFromEnvironment("TAVISK_RANDOM_DOCUMENTS", 20000);
    const std::uint64_t first = numberFromEnvironment("TAVISK_SEED", 1);
    int failures = 0;
    std::uint64_t leftOut = 0;
    for (std::uint64_t i = 0; i < count && failures < enough; ++i) {
        const TestDocument document = testDocument(first + i);
        std::string difference;
        try {
            difference = compare(document);
        } catch (const TooLong&) {
            ++leftOut;
        }
        if (difference.empty()) continue;
        ++failures;
        ADD_FAILURE() << "TAVISK_SEED=" << document.seed << " TAVISK_RANDOM_DOCUMENTS=1\n"
                      << difference << "\ndocument:\n"
                      << document.xml.substr(0, 6000);
    }
    EXPECT_LE(leftOut, 10 + count / 1000);
}

}  // namespace tavisk::reference
