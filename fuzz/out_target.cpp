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
    fuzz::Check(!read || Model.LinkDriven, "what was read drives the linkage");
    fuzz::Check_Drive(read, 5);
    return 0;
}
