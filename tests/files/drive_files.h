// What the tests of drive data share: files made by hand, and what a user sees when one has been read.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/linkage_door.h"
#include "files/drive_import.h"
#include "files/exports.h"
#include "tests/files/model_files.h"
#include "tests/files/moment.h"
#include "tests/support/drive_data.h"

namespace verlink::test {

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
    /// A calculated linkage with a table of each kind, so that there is something to lose.
    static void Have_Results() {
        Take_Full_Turn();
        Model.Delta2 = 3;
        for (int step = 0; step <= Model.NSteps; ++step) {
            Model.RunTable.DriveTheta(step) = step + 0.5;
            Model.RunTable.Omega(step, 0) = step / 4.0;
            Model.RunTable.Alpha(step, 0) = -step;
            Model.RunTable.ImportedTorque(step) = step * 2.0;
        }
        Run_Holds();
        Forces_Hold();
    }
    static void Turn_Ground(double degrees) {
        Model.Link1Angle = degrees;
        Derive_Linkage(Leading::kPolar);
    }
    static std::array<double, 3> Row(int step) {
        const auto& table = Model.RunTable;
        return {table.DriveTheta(step), table.Omega(step, 0), table.Alpha(step, 0)};
    }
    static double Stored(float value) { return static_cast<double>(value); }
};

}  // namespace verlink::test
