// Single texts: a change of an answer, formula expansion, base64.
#include <array>
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "base/base64.h"
#include "base/text.h"
#include "editor/answerText.h"
#include "formulas/formulaparse.h"
#include "loaded.h"

namespace tavisk::bench {
namespace {

/// Exactly `units` UTF-16 code units with about two tokens per 400.
std::u16string answerOfLength(std::size_t units, bool accented) {
    Random random(7);
    std::u16string text = toUtf16(makeAnswer(random, units + 200, units / 200 + 1, false, planS));
    text.resize(units);
    for (char16_t& unit : text) {
        if (unit >= 0x80) unit = u'x';
        if (accented && unit == u'g') unit = u'\u00B0';
    }
    return text;
}

/// One keystroke: the text box's whole text is scanned for the coloured runs and stored.
void changeAnswer(benchmark::State& state) {
    LoadedSession loaded(documentOfSize(0));
    HelpSession& session = loaded.session();
    const std::u16string text =
        answerOfLength(static_cast<std::size_t>(state.range(0)), state.range(1) != 0);
    std::u16string typed = text;
    typed.back() = u'?';
    const std::array<std::u16string, 2> texts = {text, typed};
    std::size_t turn = 0;
    for (auto _ : state)
        changeAnswerText(session, texts[++turn % texts.size()]);
    state.counters["tokens"] = static_cast<double>(session.panel.tokens.size());
    if (session.panel.tokens.empty()) state.SkipWithError("no token was found");
}

FormulaCatalogue catalogueOf(std::size_t formulas) {
    FormulaCatalogue catalogue;
    for (std::size_t index = 0; index < formulas; ++index) {
        catalogue.add({formulaName(index), std::to_string(100 + index % 900) + " mm", "", true});
    }
    return catalogue;
}

void expandFormulas(benchmark::State& state) {
    const auto formulas = static_cast<std::size_t>(state.range(0));
    const FormulaCatalogue catalogue = catalogueOf(formulas);
    FormulaParser parser(catalogue);
    const DocumentPlan plan{1, formulas, 0, 0, 1};
    Random random(11);
    std::vector<std::string> answers;
    for (int count = 0; count < 1000; ++count)
        answers.push_back(makeAnswer(random, random.between(200, 485), 2, false, plan));
    std::string text;
    std::size_t at = 0;
    for (auto _ : state) {
        text = answers[++at % answers.size()];
        parser.parse(text);
        benchmark::DoNotOptimize(text.data());
    }
}

void prepareFormulas(benchmark::State& state) {
    const FormulaCatalogue catalogue = catalogueOf(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        const FormulaParser parser(catalogue);
        benchmark::DoNotOptimize(&parser);
    }
}

void decode(benchmark::State& state) {
    Random random(13);
    std::string bytes(static_cast<std::size_t>(state.range(0)), '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random.next() & 0xFFU);
    const std::string text = encodeBase64(bytes);
    std::string decoded;
    for (auto _ : state) {
        if (!decodeBase64(text, decoded)) state.SkipWithError("not base64");
        benchmark::DoNotOptimize(decoded.data());
    }
    if (decoded != bytes) state.SkipWithError("other bytes came back");
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(text.size()));
}

BENCHMARK(changeAnswer)->Args({600, 0})->Args({32'000, 0})->Args({600, 1})->Args({32'000, 1});
BENCHMARK(expandFormulas)->Arg(20)->Arg(2'000);
BENCHMARK(prepareFormulas)->Arg(20)->Arg(2'000);
BENCHMARK(decode)->Arg(10'000)->Arg(200'000);

}  // namespace
}  // namespace tavisk::bench
