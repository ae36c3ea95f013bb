// What lies in the user's folder.
#include "tests/walk/places.h"

#include <unistd.h>

#include <filesystem>

#include "tests/support/drive_data.h"
#include "tests/support/files.h"

namespace verlink::walk {

namespace fs = std::filesystem;
using test::Held;
using test::Put_File;

namespace {

std::string With_Line(const std::string& content, int line, const std::string& text) {
    std::size_t from = 0;
    for (int i = 1; i < line && from != std::string::npos; ++i) from = content.find('\n', from) + 1;
    const std::size_t to = content.find('\n', from);
    return content.substr(0, from) + text + "\r" + content.substr(to);
}

}  // namespace

Places::Places() {
    std::string pattern = (fs::temp_directory_path() / "verlink-walk-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
}

Places::~Places() {
    std::error_code ignored;
    fs::current_path(fs::temp_directory_path(), ignored);
    fs::remove_all(folder_, ignored);
}

void Places::Prepare() const {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
    fs::create_directories(folder_ + "/a folder.vlk");
    fs::current_path(folder_);  // a name typed without a folder stays in it, too
    const std::string model = Held(std::string(VERLINK_SAMPLES) + "/crank_rocker.vlk");
    Put_File(folder_ + "/short.vlk", model.substr(0, model.size() / 3));
    Put_File(folder_ + "/word.vlk", With_Line(model, 10, "abc"));
    Put_File(folder_ + "/huge.vlk", With_Line(model, 9, "1e39"));
    Put_File(folder_ + "/mode.vlk", With_Line(model, 44, "7"));
    Put_File(folder_ + "/letter.vlk", "Dear Sir,\r\nhere is the linkage that you asked for.\r\n");
    Put_File(folder_ + "/empty.vlk", "");
    Put_File(folder_ + "/bytes.vlk", std::string("\x7f\x45\x4c\x46\0\0\1\2\3", 9));
    test::CamFile cam;
    cam.rows.clear();
    for (int step = 0; step <= 36; ++step)
        cam.rows.push_back(std::to_string(10 * step) + "," + (step % 2 == 0 ? "5" : "5.5") + ",0.25");
    Put_File(folder_ + "/cam.sva", cam.Content());
    test::CamFile alone = cam;
    alone.links = "3";
    alone.mass_flag = "0";
    Put_File(folder_ + "/cam_alone.sva", alone.Content());
    test::CamFile metric = cam;
    metric.units = "5";
    Put_File(folder_ + "/cam_mm.sva", metric.Content());
    Put_File(folder_ + "/short.sva", cam.Content().substr(0, 200));
    std::vector<std::string> rows;
    for (int step = 0; step <= 24; ++step) rows.push_back(std::to_string(15 * step) + ",10,0");
    Put_File(folder_ + "/drive.out", test::LinkFile(rows));
    Put_File(folder_ + "/short.out", test::LinkFile(rows).substr(0, 60));
    Put_File(folder_ + "/short.trq", Held(std::string(VERLINK_SAMPLES) + "/second_stage.trq").substr(0, 100));
}

std::string Places::Path(const std::string& written) const {
    const auto in = [&](const char* token, const std::string& place) {
        return written.starts_with(token) ? place + written.substr(std::string(token).size()) : std::string();
    };
    for (const std::string& path : {in("<folder>", folder_), in("<samples>", VERLINK_SAMPLES),
                                    in("<fixtures>", std::string(VERLINK_TESTS) + "/fixtures")})
        if (!path.empty()) return path;
    return written;
}

std::vector<std::string> Places::Good(const std::string& extension) {
    if (extension == ".sva") return {"<folder>/cam.sva", "<folder>/cam_alone.sva", "<folder>/cam_mm.sva"};
    if (extension == ".out") return {"<samples>/first_stage.out", "<folder>/drive.out", "<folder>/mine.out"};
    if (extension == ".trq") return {"<samples>/second_stage.trq", "<folder>/mine.trq"};
    return {"<samples>/crank_rocker.vlk",  "<samples>/non_grashof.vlk",   "<samples>/parallelogram.vlk",
            "<samples>/straight_line.vlk", "<samples>/time_steps.vlk",    "<samples>/cam_driven.vlk",
            "<samples>/second_stage.vlk",  "<samples>/first_stage.vlk",   "<fixtures>/rev6.vlk",
            "<fixtures>/rev8.vlk",         "<fixtures>/drive_table.vlk",  "<fixtures>/torque_table.vlk",
            "<fixtures>/rev10.vlk",        "<fixtures>/rev7_format2.vlk", "<folder>/mine.vlk",
            "<folder>/other.vlk",          "<folder>/mine.vlk",           "<folder>/other.vlk"};
}

std::vector<std::string> Places::Broken(const std::string& extension) {
    if (extension == ".sva") return {"<folder>/short.sva"};
    if (extension == ".out") return {"<folder>/short.out"};
    if (extension == ".trq") return {"<folder>/short.trq"};
    return {"<folder>/short.vlk", "<folder>/word.vlk", "<folder>/huge.vlk", "<folder>/mode.vlk"};
}

std::vector<std::string> Places::Foreign() {
    return {"<folder>/letter.vlk", "<folder>/bytes.vlk",     "<folder>/empty.vlk",
            "<folder>/nobody.vlk", "<folder>/no/such.place", "<folder>/a folder.vlk"};
}

std::vector<std::string> Places::Writable(const std::string& extension) {
    return {"<folder>/mine" + extension, "<folder>/other" + extension};
}

std::vector<std::string> Places::Unwritable() {
    return {"<folder>/no/such/place.vlk", "<folder>/a folder.vlk", "/dev/full/model.vlk"};
}

}  // namespace verlink::walk
