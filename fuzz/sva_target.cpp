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
    fuzz::Check(!read || Model.CamDriven, "what was read drives the linkage");
    fuzz::Check_Drive(read, 4);
    return 0;
}
