// Opening and saving a model.
#include <benchmark/benchmark.h>

#include "bench/program.h"
#include "core/linkage_model.h"
#include "files/model_file.h"
#include "platform/file_system.h"
#include "shell/copy.h"

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

/// What a change of the model costs for the copy that is kept of it; with the longest tables, of a motion and a torque.
void Hand_Over_For_A_Copy(benchmark::State& state) {
    Take_Default_Linkage(361);
    if (state.range(0) != 0) {
        Model.Calctype = 4;
        Model.TorqueImported = true;
        Model.NSteps = kLastStep;
        for (int step = 0; step <= kLastStep; ++step) {
            Model.RunTable.DriveTheta(step) = step * 0.1234567;
            Model.RunTable.ImportedTorque(step) = step / 7.0;
        }
    }
    Copy_Keeper keeper(Scratch("kept.copy"));
    double length = 1;
    for (auto _ : state) {
        Model.L2 = length += 1e-3;
        keeper.Keep({"/models/press.vlk", "press", Snapshot_Of_File(), Model, std::chrono::system_clock::now()});
    }
    Model.TorqueImported = false;
    Model.Calctype = 3;
}
BENCHMARK(Hand_Over_For_A_Copy)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace verlink::bench
