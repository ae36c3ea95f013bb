// Tables of torque, as the load on link 4 is read.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/linkage_model.h"
#include "files/exports.h"
#include "fuzz/harness.h"
#include "platform/guard.h"

using namespace verlink;

namespace {

const std::string kOther = "This file has a different number of data than your current model and is incompatible";
const std::string kError = "An error has occurred in the Import_Torque_Data routine";

/// Reads the table into a run of so many steps; true when it was taken.
bool Taken(std::string_view content, Integer steps) {
    fuzz::Start_Afresh();
    Model.NSteps = steps;
    TextReader reader(content);
    bool failed = true;
    Import_Torque_Data(reader, failed);
    fuzz::Check_Told({"Import_Torque_Data"}, {kOther, kError});
    fuzz::Check_Record();
    fuzz::Check(Model.NSteps == steps, "a load changes no run");
    fuzz::Check(failed != fuzz::Told().empty(), "a table is taken whole, or it is told why not");
    return !failed;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view content(reinterpret_cast<const char*>(data), size);
    Integer steps;
    if (Failure_Of([&] { steps = TextReader(content).Short(); }) != 0) {
        fuzz::Check(!Taken(content, 3), "a table of no length is taken");
        return 0;
    }
    const Integer other = steps == 3 ? 4 : 3;
    fuzz::Check(!Taken(content, other), "a table of another length is taken");
    fuzz::Check(fuzz::Told().size() == 1 && fuzz::Told()[0] == kOther, "another length is told once");
    if (!Taken(content, steps)) return 0;
    fuzz::Check(steps <= kLastStep, "a table longer than the record's is taken");
    Model.TorqueImported = true;
    // One position, so that the count of steps is the file's.
    Model.Calctype = 1;
    fuzz::Check_Whole();
    // The table as it would be exported again.
    for (int step = 0; step <= steps; ++step) Model.RunTable.LinkTorque(step, 0) = Model.RunTable.ImportedTorque(step);
    const std::string written = Torque_Content();
    fuzz::Check(Taken(written, steps), "what was written is taken again");
    for (int step = 0; step <= steps; ++step) Model.RunTable.LinkTorque(step, 0) = Model.RunTable.ImportedTorque(step);
    fuzz::Check(Torque_Content() == written, "a second round changes something");
    return 0;
}
