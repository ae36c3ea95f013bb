// Cam drive data, as the import menu reads them.
#include <cstddef>
#include <cstdint>

#include "core/linkage_model.h"
#include "files/drive_import.h"
#include "fuzz/harness.h"

using namespace verlink;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Start_Afresh();
    TextReader reader({reinterpret_cast<const char*>(data), size});
    const bool read = Read_Cam_Data(reader);
    fuzz::Check_Told({"Read_Cam_Data"},
                     {"This file contains data for a Corvex linkage.\rPlease import it to Program Corvex instead.",
                      "This file contains data for a Verlink Slider linkage.\rPlease import it to Glidex instead."});
    fuzz::Check(read == fuzz::Told().empty(), "a file is read whole, or it is told why not");
    fuzz::Check_Record();
    if (!read) {
        fuzz::Check_Run();
        return 0;
    }
    fuzz::Check(Model.CamDriven && Model.Calctype == 4, "a cam drives the linkage");
    fuzz::Check(Model.NSteps <= kLastStep, "a drive is longer than the record's table");
    fuzz::Check_Whole();
    fuzz::Check_Run();
    return 0;
}
