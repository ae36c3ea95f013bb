// Link drive data, as the import menu reads them.
#include <cstddef>
#include <cstdint>

#include "core/linkage_model.h"
#include "files/drive_import.h"
#include "fuzz/harness.h"

using namespace verlink;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Start_Afresh();
    TextReader reader({reinterpret_cast<const char*>(data), size});
    const bool read = Import_Linkage_Data(reader);
    fuzz::Check_Told({"Import_Linkage_Data"}, {});
    fuzz::Check(read == fuzz::Told().empty(), "a file is read whole, or it is told why not");
    fuzz::Check_Record();
    if (!read) {
        fuzz::Check_Run();
        return 0;
    }
    fuzz::Check(Model.LinkDriven && Model.Calctype == 5, "a link drives the linkage");
    fuzz::Check(Model.NSteps <= kLastStep, "a drive is longer than the record's table");
    fuzz::Check_Whole();
    fuzz::Check_Run();
    return 0;
}
