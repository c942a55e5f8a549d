// Whole documents: parse, serialise, load, save, and from the tree to the page.
#include <benchmark/benchmark.h>
#include <string>
#include <utility>

#include "loaded.h"
#include "platform/codePage1252.h"
#include "platform/xmlReader.h"
#include "platform/xmlWriter.h"
#include "render/nodeParse.h"
#include "render/pageLayout.h"

namespace tavisk::bench {
namespace {

void countBytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(bytes));
    state.counters["bytes"] = static_cast<double>(bytes);
}

void parse(benchmark::State& state) {
    const std::string& xml = documentOfSize(state.range(0));
    for (auto _ : state) {
        ParseResult result = readXml(dom::Source::copy(xml));
        if (result.document == nullptr) state.SkipWithError(result.reason.c_str());
        benchmark::DoNotOptimize(result);
    }
    countBytes(state, xml.size());
}

void serialise(benchmark::State& state) {
    const ParseResult result = readXml(documentOfSize(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string xml = writeXml(*result.document);
        bytes = xml.size();
        benchmark::DoNotOptimize(xml.data());
    }
    countBytes(state, bytes);
}

void load(benchmark::State& state) {
    const std::string& xml = documentOfSize(state.range(0));
    LoadedSession loaded(xml);
    for (auto _ : state)
        loaded.load(xml, HelpSession::Keep::savedText);
    countBytes(state, xml.size());
}

void save(benchmark::State& state) {
    LoadedSession loaded(documentOfSize(state.range(0)));
    for (auto _ : state)
        loaded.session().saveDocument();
    countBytes(state, loaded.session().xmlText.size());
}

/// Everything between a loaded session and the bytes of the finished page.
void treeToPage(benchmark::State& state) {
    LoadedSession loaded(documentOfSize(state.range(0)));
    HelpSession& session = loaded.session();
    std::size_t bytes = 0;
    for (auto _ : state) {
        NodeParser parser(*session.articledoc, session.formulaCatalogue, session.imageTemp());
        const dom::OwnedNode copy = parser.nodeparse(session.baseXMLNode);
        std::string page = layoutPage(*copy);
        encodeCodePage1252(page);
        bytes = page.size();
        benchmark::DoNotOptimize(page.data());
    }
    countBytes(state, bytes);
}

BENCHMARK(parse)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(serialise)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(load)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(treeToPage)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavisk::bench
