// Model files, as File, Open reads them.
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/linkage_model.h"
#include "files/model_file.h"
#include "fuzz/harness.h"

using namespace verlink;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string kForeign = "This data file is not compatible with VERLINK. ";
    fuzz::Start_Afresh();
    const bool came_in = Readfile(std::string(reinterpret_cast<const char*>(data), size));
    fuzz::Check_Told({"Readfile", "Read_Newfile"}, {kForeign});
    fuzz::Check_Record();
    fuzz::Check(Model.DiskFile == came_in && came_in == fuzz::Told().empty(),
                "a file comes in, or is refused in words");
    if (came_in) {
        fuzz::Check_Whole();
    } else {
        fuzz::Check(fuzz::Told().size() == 1, "a file is refused once");
        const std::string after = File_Content();
        fuzz::Start_Afresh();
        fuzz::Check(File_Content() == after, "a file that is refused leaves the model alone");
    }
    fuzz::Check_Run();
    return 0;
}
