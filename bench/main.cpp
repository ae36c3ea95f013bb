// The measuring program: runs every benchmark that the other files register.
#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
