#include <benchmark/benchmark.h>

#include <string_view>

#include "bench/kernel.h"

int main(int argc, char** argv) {
    if (argc > 1 && std::string_view(argv[1]) == "kernel")
        return pixora::bench::RunKernel(argc - 2, argv + 2);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
