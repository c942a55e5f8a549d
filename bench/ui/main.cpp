// Starts the toolkit as in a host, and the benchmarks in it.
#include <benchmark/benchmark.h>

#include "ui/toolkit/runtime.h"

int main(int count, char** words) {
    benchmark::Initialize(&count, words);
    if (benchmark::ReportUnrecognizedArguments(count, words)) return 1;
    tavisk::startToolkit();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
