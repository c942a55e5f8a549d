// Whole documents: parse, serialise, load, save, and from the tree to the page.
#include <benchmark/benchmark.h>
#include <functional>
#include <string>
#include <string_view>

#include "base/files.h"
#include "loaded.h"
#include "page/nodeParse.h"
#include "page/pageLayout.h"
#include "xml/xmlReader.h"
#include "xml/xmlWriter.h"

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
        if (result.document == nullptr) state.SkipWithError(result.refusal.reason.c_str());
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
        loaded.load(xml);
    countBytes(state, xml.size());
}

void save(benchmark::State& state) {
    LoadedSession loaded(documentOfSize(state.range(0)));
    for (auto _ : state)
        loaded.session().file.save();
    countBytes(state, loaded.session().xmlText.size());
}

/// Takes the page's bytes and counts them.
class PageSink final : public Files {
public:
    std::size_t bytes = 0;

    void replaceBy(const std::string& /*path*/,
                   const std::function<void(const Write& write)>& produce) override {
        bytes = 0;
        produce([this](std::string_view part) {
            bytes += part.size();
            benchmark::DoNotOptimize(part.data());
        });
    }

    bool fileExists(const std::string& /*path*/) override { return false; }
    bool folderExists(const std::string& /*path*/) override { return true; }
    void createFolder(const std::string& /*path*/) override {}
    std::string read(const std::string& /*path*/) override { return {}; }
    void overwrite(const std::string& /*path*/, std::string_view /*bytes*/) override {}
};

/// Everything between a loaded session and the bytes of the finished page.
void treeToPage(benchmark::State& state) {
    LoadedSession loaded(documentOfSize(state.range(0)));
    HelpFile& file = loaded.session().file;
    PageSink sink;
    for (auto _ : state) {
        NodeParser parser(*file.articledoc, file.formulaCatalogue, file.imageTemp());
        writePage(sink, "/page", *file.baseXMLNode, &parser);
    }
    countBytes(state, sink.bytes);
}

BENCHMARK(parse)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(serialise)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(load)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(treeToPage)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavisk::bench
