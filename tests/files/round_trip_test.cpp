// Any model that is written and read again is the same model to seven digits, and a second round changes nothing.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <random>
#include <regex>
#include <utility>

#include "files/drive_import.h"
#include "files/exports.h"
#include "files/in_hand.h"
#include "tests/files/model_files.h"
#include "tests/files/moment.h"

namespace verlink::test {

namespace fs = std::filesystem;

namespace {

constexpr int kModels = 250;

/// Seven digits by the standard library's own printing.
std::string Seven_Digits(Single value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6e", value == 0 ? 0.0 : static_cast<double>(value));
    return text;
}

Single Seven(Single value) { return std::stod(Seven_Digits(value)); }

/// What a file makes of a string: a quote that would end it becomes two apostrophes.
std::string In_A_File(const std::string& text) {
    static const std::regex ending("\"(?=[ \t]*[,\r\n])");
    return std::regex_replace(text, ending, "''");
}

/// A value as it must come back.
struct Kept {
    std::string operator()(const std::string* place) const { return In_A_File(*place); }
    std::string operator()(const Single* place) const { return Seven_Digits(*place); }
    std::string operator()(const Integer* place) const { return std::to_string(int{*place}); }
    std::string operator()(const Long* place) const { return std::to_string(std::int32_t{*place}); }
    std::string operator()(const bool* place) const { return *place ? "true" : "false"; }
};

/// Models that nobody would draw: any bits in the numbers, any bytes in the texts.
class Dice {
   public:
    explicit Dice(unsigned seed) : engine_(seed) {}

    int To(int last) { return std::uniform_int_distribution<int>(0, last)(engine_); }

    double Number() {
        static const std::array<float, 8> edges = {0.0F,     -0.0F,           3.4028235e38F, -3.4028235e38F,
                                                   1.4e-45F, 1.17549435e-38F, 9999999.5F,    0.000099999995F};
        switch (To(3)) {
            case 0: return To(20000) / 8.0 - 1000;
            case 1: return static_cast<double>(edges[static_cast<std::size_t>(To(7))]);
            default: break;
        }
        for (;;) {
            const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(engine_()));
            if (std::isfinite(value)) return static_cast<double>(value);
        }
    }

    std::string Text() {
        static const std::vector<std::string> pieces = {
            "a",  "Z",  "7",    " ",    "\t",       "\"",           ",",    "\r",  "\n",          "\r\n",
            "#",  "'",  ".",    "\" ,", "\xc3\xa4", "\xe6\x9b\xb2", "\xff", "\\n", "Last Item\"", "#TRUE#",
            "\"", "\"", "12\"", "3,5",  ";",        "\xef\xbb\xbf", "-",    "E+5", "\x1a",        std::string(1, '\0')};
        std::string text;
        for (int left = To(1) * To(24); left > 0; --left)
            text += pieces[static_cast<std::size_t>(To(static_cast<int>(pieces.size()) - 1))];
        return text;
    }

    void operator()(std::string* place) { *place = Text(); }
    void operator()(Single* place) { *place = Number(); }
    void operator()(Integer* place) { *place = To(65535) - 32768; }
    void operator()(Long* place) { *place = static_cast<std::int32_t>(engine_()); }
    void operator()(bool* place) { *place = To(1) == 1; }

   private:
    std::mt19937 engine_;
};

/// Limits that count the steps that the model has, where its run type counts them anew.
void Set_Limits(Dice& dice, int steps) {
    static const std::vector<std::string> limits = {"", "none", "12.5 deg", " 7", "2,5", "1e3", "-.5", "10\"", "3d2x"};
    for (std::string* limit : {&Model.ThetaStartStr, &Model.ThetaEndStr, &Model.ThetaStepStr})
        *limit = limits[static_cast<std::size_t>(dice.To(static_cast<int>(limits.size()) - 1))];
    if (Model.Calctype == 2) {
        Model.TimeStart = dice.To(400) / 8.0 - 25;
        Model.TimeStep = 0.125;
        Model.TimeEnd = Model.TimeStart + steps * 0.125;
    }
    if (Model.Calctype == 3) {
        Model.ThetaStartStr = "-20";
        Model.ThetaStepStr = "2.5";
        Model.ThetaEndStr = Text_Of(-20 + steps * 2.5);
    }
}

/// Both forms of link 1, of any length whose place has a number with the digits of a file.
void Set_Ground(Dice& dice) {
    Model.Link1Angle = dice.To(1440000) / 1000.0 - 720;
    Model.Link1AngleRad = Model.Link1Angle * kDegToRad;
    Model.L1 = std::clamp<double>(Seven(Model.L1), -3e38, 3e38);
    Model.Link1X = Model.L1 * std::cos(Model.Link1AngleRad);
    Model.Link1Y = Model.L1 * std::sin(Model.Link1AngleRad);
}

void Roll_Model(Dice& dice) {
    for (const FileField& field : File_Fields())
        if (field.line > 2 && field.line != 54) std::visit(dice, field.place);
    Set_Ground(dice);
    Model.Calctype = 1 + dice.To(4);
    Model.Units = 1 + dice.To(4);
    Model.Cycles = 1 + dice.To(32766);
    if (Model.ZoomFactor == 0) Model.ZoomFactor = 1.5;
    const int steps = dice.To(40) == 0 ? kLastStep : dice.To(30);
    Model.NSteps = steps;
    Set_Limits(dice, steps);
    auto& table = Model.RunTable;
    for (int step = 0; step <= steps; ++step) {
        table.DriveTheta(step) = dice.Number();
        table.Omega(step, 0) = dice.Number();
        table.Alpha(step, 0) = dice.Number();
        table.ImportedTorque(step) = dice.Number();
    }
}

/// Everything that a file is to keep, a line each.
std::vector<std::string> All_Kept() {
    std::vector<std::string> kept;
    for (const FileField& field : File_Fields())
        kept.push_back(std::string(field.name) + " " + std::visit(Kept{}, field.place));
    const auto& table = Model.RunTable;
    for (int step = 0; step <= Model.NSteps; ++step) {
        if (Model.Calctype > 3)
            kept.push_back("drive " + std::to_string(step) + " " + Seven_Digits(table.DriveTheta(step)) + " " +
                           Seven_Digits(table.Omega(step, 0)) + " " + Seven_Digits(table.Alpha(step, 0)));
        if (Model.TorqueImported)
            kept.push_back("torque " + std::to_string(step) + " " + Seven_Digits(table.ImportedTorque(step)));
    }
    return kept;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// A file as other programs would have saved it again, by what they are in the habit of.
std::vector<std::pair<std::string, std::string>> Saved_By_Others(const std::string& content) {
    return {
        {"nothing changed", content},
        {"lone line feeds", Replaced(content, "\r\n", "\n")},
        {"no final line end", content.substr(0, content.size() - 2)},
        {"a byte order mark", "\xef\xbb\xbf" + content},
        {"blank lines at the end", content + "\r\n\r\n\n"},
        {"blanks at the ends of lines", Replaced(content, "\r\n", " \r\n")},
        {"all values on one line", Replaced(content, "\r\n", ",")},
        {"one value to a line, rows too", Replaced(content, ",", "\n")},
    };
}

}  // namespace

class RoundTrip : public ModelFiles {
   protected:
    /// Each run of the tests has models of its own; this runs those of a failure again.
    static std::string Again() {
        return "run again with --gtest_random_seed=" + std::to_string(testing::UnitTest::GetInstance()->random_seed());
    }
    static Dice New_Dice() { return Dice(static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed())); }

    std::string Folder_Of_Any_Letters() const {
        return Path("Entw\xc3\xbcrfe f\xc3\xbcr Z\xc3\xbcrich, neu/\xe6\x9b\xb2\xe6\x9f\x84  1/ ");
    }

    static void Forget() {
        Reset_Model();
        Set_Identity();
        Initialize();
        Use_Units(1);
    }

    /// Reads a content into a fresh model, as it is and as other programs would have changed it.
    template <class Reading>
    static void By_Way_Of_Others(int roll, const std::string& content, Reading read) {
        for (const auto& [habit, changed] : Saved_By_Others(content)) {
            SCOPED_TRACE("roll " + std::to_string(roll) + ", " + habit);
            Forget();
            read(changed);
            if (HasFatalFailure()) return;
        }
    }
};

TEST_F(RoundTrip, AnyModelIsTheSameToSevenDigitsAndASecondRoundChangesNothing) {
    SCOPED_TRACE(Again());
    Dice dice = New_Dice();
    for (int i = 0; i < kModels; ++i) {
        SCOPED_TRACE("model " + std::to_string(i));
        Roll_Model(dice);
        const auto kept = All_Kept();
        const std::string content = File_Content();
        Forget();
        ASSERT_TRUE(Load_Model(content));
        ASSERT_EQ(All_Kept(), kept);
        ASSERT_EQ(File_Content(), content);
    }
}

TEST_F(RoundTrip, AnyModelThatOtherProgramsHaveSavedAgainIsTheSame) {
    SCOPED_TRACE(Again());
    Dice dice = New_Dice();
    const std::vector<std::string> plain = {"",   " ", "press",   "A 12\" press", "\"Stroke\" no. 5",
                                            "\"", "'", "\xc3\xa4"};
    for (int i = 0; i < kModels / 10; ++i) {
        Roll_Model(dice);
        // Texts of one line: a program that changes line ends or commas changes those within texts too.
        for (const FileField& field : File_Fields())
            if (auto* const* text = std::get_if<std::string*>(&field.place); text && field.line > 2 && field.line != 54)
                **text = plain[static_cast<std::size_t>(dice.To(static_cast<int>(plain.size()) - 1))];
        Set_Limits(dice, Model.NSteps);
        for (std::string* limit : {&Model.ThetaStartStr, &Model.ThetaEndStr, &Model.ThetaStepStr})
            std::erase(*limit, ',');
        const std::string content = File_Content();
        ASSERT_NO_FATAL_FAILURE(By_Way_Of_Others(i, content, [&](const std::string& changed) {
            ASSERT_TRUE(Load_Model(changed));
            ASSERT_EQ(File_Content(), content);
        }));
    }
}

// What another program, or a hand, has put together: the form in force leads, and from then on nothing changes.
TEST_F(RoundTrip, AModelWhoseFormsOfTheGroundLinkDisagreeIsDerivedFromTheOneInForceOnce) {
    SCOPED_TRACE(Again());
    Dice dice = New_Dice();
    for (int i = 0; i < kModels / 5; ++i) {
        SCOPED_TRACE("model " + std::to_string(i));
        Roll_Model(dice);
        Model.L1 = 1 + dice.To(20000) / 8.0;
        Model.Link1X = -2 - dice.To(20000) / 8.0;
        Model.Link1Y = dice.To(20000) / 8.0;
        Model.Link1Angle = dice.To(100) - 50;  // never towards O4
        Model.Link1AngleRad = dice.To(6);
        const Geometry made = Model;
        Forget();
        static_cast<Geometry&>(Model) = made;
        const std::string content = File_Content();
        Forget();
        ASSERT_TRUE(Load_Model(content));
        const Single angle = Seven(made.Link1Angle), L1 = Seven(made.L1), x = Seven(made.Link1X),
                     y = Seven(made.Link1Y);
        const double far = std::hypot(x, y);
        if (made.PolarCoords) {
            ASSERT_EQ(Model.L1, L1);
            ASSERT_EQ(Model.Link1Angle, angle);
            ASSERT_NEAR(Model.Link1X, L1 * std::cos(angle * kDegToRad), 1e-6 * L1);
            ASSERT_NEAR(Model.Link1Y, L1 * std::sin(angle * kDegToRad), 1e-6 * L1);
        } else {
            ASSERT_EQ(Model.Link1X, x);
            ASSERT_EQ(Model.Link1Y, y);
            ASSERT_NEAR(Model.L1, far, 1e-6 * far);
            ASSERT_NEAR(Model.Link1Angle, std::atan2(y, x) * kRadToDeg, 1e-4);
        }
        ASSERT_NEAR(Model.Link1AngleRad, Model.Link1Angle * kDegToRad, 1e-6);
        const std::string derived = File_Content();
        ASSERT_TRUE(Load_Model(derived));
        ASSERT_EQ(File_Content(), derived);
    }
}

TEST_F(RoundTrip, FilesInFoldersWithBlanksAndLettersOfAnyScriptAreSavedAndOpened) {
    SCOPED_TRACE(Again());
    Dice dice = New_Dice();
    auto& home = platform::Screens::Get("frm_HomeScreen");
    const std::string folder = Folder_Of_Any_Letters();
    fs::create_directories(folder);
    for (const char* name : {"Kurbel schwinge \xc3\xa4\xe2\x82\xac.vlk", "two\nlines.vlk", "a \"b\", c.vlk", ".vlk"}) {
        const std::string path = folder + "/" + name;
        Roll_Model(dice);
        Model.Calctype = 1;
        desktop.Expect_Save(path);
        desktop.Expect_Message("File was successfully written to \r" + path);
        Menu_Saveas(home);
        const std::string base = Model.ModelName;
        const std::string content = File_Content();
        Forget();
        Model_Saved();
        Model_Kept();
        Model.JustStarted = true;
        desktop.Expect_Open(path);
        Menu_Open(home);
        EXPECT_EQ(Model.FilePath, path);
        EXPECT_EQ(Model.ModelName, base);
        EXPECT_EQ(File_Content(), content);
    }
}

TEST_F(RoundTrip, AnyMotionOfLink4ComesInAgainAsADriveAlsoByWayOfOtherPrograms) {
    SCOPED_TRACE(Again());
    Dice dice = New_Dice();
    auto& table = Model.RunTable;
    for (int i = 0; i < kModels / 20; ++i) {
        const int steps = i == 0 ? kLastStep : dice.To(30);
        Model.NSteps = steps;
        for (Single* time : {&Model.TimeStart, &Model.TimeEnd, &Model.TimeStep}) *time = dice.Number();
        std::vector<std::string> motion;
        for (int step = 0; step <= steps; ++step) {
            table.Theta(step, 2) = dice.Number();
            table.Omega(step, 2) = dice.Number();
            table.Alpha(step, 2) = dice.Number();
            motion.push_back(Seven_Digits(table.Theta(step, 2)) + " " + Seven_Digits(table.Omega(step, 2)) + " " +
                             Seven_Digits(table.Alpha(step, 2)));
        }
        const std::string content = Link4_Content();
        ASSERT_NO_FATAL_FAILURE(By_Way_Of_Others(i, content, [&](const std::string& changed) {
            Model.JustStarted = true;
            TextReader reader(changed);
            ASSERT_TRUE(Import_Linkage_Data(reader));
            ASSERT_EQ(Model.NSteps, steps);
            std::vector<std::string> drive;
            for (int step = 0; step <= steps; ++step) {
                drive.push_back(Seven_Digits(table.DriveTheta(step)) + " " + Seven_Digits(table.Omega(step, 0)) + " " +
                                Seven_Digits(table.Alpha(step, 0)));
                table.Theta(step, 2) = table.DriveTheta(step);
                table.Omega(step, 2) = table.Omega(step, 0);
                table.Alpha(step, 2) = table.Alpha(step, 0);
            }
            ASSERT_EQ(drive, motion);
            ASSERT_EQ(Link4_Content(), content) << "a second round changes something";
        }));
    }
}

TEST_F(RoundTrip, AnyDrivingTorqueComesInAgainAsALoadAlsoByWayOfOtherPrograms) {
    SCOPED_TRACE(Again());
    Dice dice = New_Dice();
    auto& table = Model.RunTable;
    for (int i = 0; i < kModels / 20; ++i) {
        const int steps = i == 0 ? kLastStep : dice.To(30);
        Model.NSteps = steps;
        std::vector<std::string> driving;
        Forces_Hold();
        for (int step = 0; step <= steps; ++step) {
            table.LinkTorque(step, 0) = dice.Number();
            driving.push_back(Seven_Digits(table.LinkTorque(step, 0)));
        }
        const std::string content = Torque_Content();
        ASSERT_NO_FATAL_FAILURE(By_Way_Of_Others(i, content, [&](const std::string& changed) {
            Model.NSteps = steps;
            Forces_Hold();
            TextReader reader(changed);
            bool Failed = true;
            Import_Torque_Data(reader, Failed);
            ASSERT_FALSE(Failed);
            std::vector<std::string> load;
            for (int step = 0; step <= steps; ++step) {
                load.push_back(Seven_Digits(table.ImportedTorque(step)));
                table.LinkTorque(step, 0) = table.ImportedTorque(step);
            }
            ASSERT_EQ(load, driving);
            ASSERT_EQ(Torque_Content(), content) << "a second round changes something";
        }));
    }
}

TEST_F(RoundTrip, ADriveGoesThroughAFolderWithBlanksAndLettersOfAnyScript) {
    auto& home = platform::Screens::Get("frm_HomeScreen");
    fs::create_directories(Folder_Of_Any_Letters());
    const std::string path = Folder_Of_Any_Letters() + "/Stufe 1 \xe2\x86\x92 2.out";
    Model.NSteps = 1;
    Model.RunTable.Theta(1, 2) = 12.5;
    desktop.Expect_Save(path);
    desktop.Expect_Message_With("has been written to " + path + "\r");
    Menu_Link_Data_Export(home);
    Model.JustStarted = true;
    desktop.Expect_Open(path);
    Menu_Link_Data_Import(home);
    EXPECT_EQ(Model.RunTable.DriveTheta(1), 12.5);
    EXPECT_EQ(Model.FilePath, path);
    EXPECT_EQ(Model.Model5Name, "Stufe 1 \xe2\x86\x92 2.out");
}

// A comma ends a value, so that a file written with decimal commas has values too many.
TEST_F(RoundTrip, AFileWithDecimalCommasIsReportedAndLeavesTheModelAsItWas) {
    for (const char* sample : {"crank_rocker", "straight_line", "time_steps", "cam_driven"}) {
        std::string content = Held(std::string(VERLINK_SAMPLES) + "/" + sample + ".vlk");
        content = std::regex_replace(content, std::regex("([0-9])\\.([0-9])"), "$1,$2");
        Forget();
        const Moment before;
        desktop.Expect_Message("Error 13   (Type mismatch)  has occurred in Read_Newfile\r\n\r\n");
        EXPECT_FALSE(Load_Model(content)) << sample;
        EXPECT_EQ(before.Changed(), "") << sample;
    }
}

TEST_F(RoundTrip, LimitsTypedWithDecimalCommasComeBackAsTyped) {
    Model.ThetaStartStr = "0";
    Model.ThetaStepStr = "2,5";
    Model.ThetaEndStr = "90,0";
    const std::string content = File_Content();
    Forget();
    ASSERT_TRUE(Load_Model(content));
    EXPECT_EQ(Model.ThetaStepStr, "2,5");
    EXPECT_EQ(Model.ThetaStep, 2) << "the value of the leading part";
    EXPECT_EQ(Model.NSteps, 45);
}

}  // namespace verlink::test
