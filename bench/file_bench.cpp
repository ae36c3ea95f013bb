// Opening and saving a model.
#include <benchmark/benchmark.h>

#include "bench/program.h"
#include "core/linkage_model.h"
#include "files/model_file.h"
#include "platform/file_system.h"

namespace verlink::bench {

namespace {

void Save_Model(benchmark::State& state) {
    Take_Default_Linkage(361);
    Model.FilePath = Scratch("saved.vlk");
    for (auto _ : state)
        if (!Writefile()) state.SkipWithError("not saved");
}
BENCHMARK(Save_Model)->Unit(benchmark::kMicrosecond);

void Open_Model(benchmark::State& state) {
    Take_Default_Linkage(361);
    const std::string path = Scratch("opened.vlk");
    platform::Write_File(path, File_Content());
    for (auto _ : state) {
        Model.L2 = 0;
        Readfile(platform::Read_File(path));
        if (Model.L2 == 0) state.SkipWithError("not read");
    }
}
BENCHMARK(Open_Model)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace verlink::bench
