// Keys of whole trees, by number of nodes and by depth.
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "document/nodeKeys.h"
#include "loaded.h"
#include "xml/xmlReader.h"

namespace tavisk::bench {
namespace {

/// A depth of 0 stands for a document like real ones.
ParseResult treeOf(const benchmark::State& state) {
    const auto nodes = static_cast<std::size_t>(state.range(0));
    const auto depth = static_cast<std::size_t>(state.range(1));
    return readXml(depth == 0 ? makeDocument({nodes, 1, 0, 0, 1}) : makeDeepDocument(nodes, depth));
}

dom::Node& cabinetOf(const ParseResult& tree) {
    return *tree.document->elementsByTagName("cabinet").front();
}

void keysOfTree(benchmark::State& state) {
    const ParseResult tree = treeOf(state);
    const dom::Node& cabinet = cabinetOf(tree);
    std::size_t bytes = 0;
    for (const std::string& key : allKeys(cabinet))
        bytes += key.size();
    for (auto _ : state)
        benchmark::DoNotOptimize(allKeys(cabinet));
    state.counters["nodes"] = static_cast<double>(state.range(0));
    state.counters["keyBytes"] = static_cast<double>(bytes);
}

/// What building the tree does: every node's key against the one to select, here the last.
void findLastKey(benchmark::State& state) {
    const ParseResult tree = treeOf(state);
    dom::Node& cabinet = cabinetOf(tree);
    const std::string key = allKeys(cabinet).back();
    for (auto _ : state) {
        const dom::Node* found = findStartNode(cabinet, key);
        if (found == nullptr) state.SkipWithError("the last key was not found");
    }
    state.counters["nodes"] = static_cast<double>(state.range(0));
}

void sizesAndDepths(benchmark::internal::Benchmark* benchmark) {
    for (const int nodes : {1'000, 10'000, 30'000})
        benchmark->Args({nodes, 0});
    for (const int depth : {10, 100, 900})
        benchmark->Args({10'000, depth});
    benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(keysOfTree)->Apply(sizesAndDepths);
BENCHMARK(findLastKey)->Apply(sizesAndDepths);

}  // namespace
}  // namespace tavisk::bench
