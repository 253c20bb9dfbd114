#include <benchmark/benchmark.h>

#include "bench/Bench.h"

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    AddSpeedQueries();
    AddCompoundQueries();
    AddNamedQueries();
    AddArrays();
    AddFiles();
    AddMemory();
    AddCommand();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
