// Files of drive data made by hand, and what a user sees when one has been read.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "files/drive_import.h"
#include "files/exports.h"
#include "tests/files/model_files.h"

namespace verlink::test {

/// The lines of an .sva file: by default a cam-driven four-bar in inches with masses and four rows.
struct CamFile {
    std::string links = "4", direction = "-1", phase = "15", length1 = "3.5", diameter = "2", length2 = "0.25";
    std::vector<std::string> times = {"0.5", "2", "0.5"};
    std::string tag = "\"Fourbar\"";
    std::string units = "1";
    std::string delta2 = "7", circuit = "-1";
    std::vector<std::string> lengths = {"1.25", "4", "3", "3.75"};  ///< links 2, 3, 4, 1
    std::string ground_angle = "53.1301";
    std::vector<std::string> places = {"2.25", "3", "-6", "2.5"};  ///< of O4 and of the cam
    std::string mass_flag = "-1";
    std::vector<std::vector<std::string>> masses = {
        {"0.5", "0.75", "0.625", "0.25"}, {"1.5", "1.75", "2", "-0.5"}, {"2.5", "2.75", "1.5", "0.125"}};
    std::vector<std::string> rows = {"0,1,2", "10.5,-1.5,2.5", "20,2,-3", "30,4,0"};

    std::vector<std::string> Lines() const {
        std::vector<std::string> lines = {links, direction, phase, length1, diameter, length2};
        const auto add = [&](const std::vector<std::string>& more) {
            lines.insert(lines.end(), more.begin(), more.end());
        };
        const auto skipped = [&](int count) {
            for (int i = 0; i < count; ++i) lines.push_back("\"skipped, " + std::to_string(i) + "\"");
        };
        add(times);
        add({tag, units});
        skipped(7);
        if (std::stoi(links) >= 4) {
            add({delta2, circuit});
            add(lengths);
            lines.push_back(ground_angle);
            add(places);
            skipped(9);
            lines.push_back(mass_flag);
            for (const auto& link : masses) add(link);
            skipped(30);
        }
        lines.push_back(std::to_string(rows.size()));
        add(rows);
        return lines;
    }
    std::string Content() const { return Joined(Lines()); }
};

/// An .out file with these rows below its 16 header lines.
inline std::string LinkFile(const std::vector<std::string>& rows, const std::string& last = "") {
    std::vector<std::string> lines = {last.empty() ? std::to_string(rows.size() - 1) : last, "0", "1", "0.5"};
    lines.resize(16, "");
    lines.insert(lines.end(), rows.begin(), rows.end());
    return Joined(lines);
}

class DriveFiles : public ModelFiles {
   protected:
    /// Queues what a user sees when drive data have been read: the message without an icon, and the input screen.
    void Expect_Taken(const std::string& kind, std::function<void(platform::Screen&)> user = {}) {
        desktop.Expect_Message("File " + Model.FilePath + " of " + kind + " data successfully read.",
                               platform::Answer::kOk, platform::Icon::kNone, platform::Buttons::kOk);
        desktop.Expect_Screen("frm_Inputnew", [user](platform::Screen& screen) {
            if (user) user(screen);
            screen.Hide();
        });
    }
    bool Read_Cam(const std::string& content) {
        TextReader reader(content);
        return Read_Cam_Data(reader);
    }
    /// Reads a cam file that is in order, as a user does, and leaves the input screen again.
    void Take_Cam(const CamFile& file) {
        Expect_Taken("Lobetra S-V-A");
        EXPECT_TRUE(Read_Cam(file.Content()));
    }
    bool Read_Links(const std::string& content) {
        TextReader reader(content);
        return Import_Linkage_Data(reader);
    }
    void Expect_Failure(int number, const std::string& words, const std::string& procedure) {
        desktop.Expect_Message(
            "Error " + std::to_string(number) + "   (" + words + ")  has occurred in " + procedure + "\r\n\r\n",
            platform::Answer::kOk, platform::Icon::kInformation);
    }
    static std::array<double, 3> Row(int step) {
        const auto& table = Model.RunTable;
        return {table.DriveTheta(step), table.Omega(step, 0), table.Alpha(step, 0)};
    }
    static double Stored(float value) { return static_cast<double>(value); }
};

}  // namespace verlink::test
