// The three export files: their lines, their numbers, their menu entries, and what they do to the model's path.
#include "files/exports.h"

#include <cmath>
#include <filesystem>

#include "core/model_on_screens.h"
#include "core/runs.h"
#include "files/in_hand.h"
#include "tests/files/model_files.h"

namespace verlink::test {

namespace fs = std::filesystem;
using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::MenuEntry;
using platform::Screens;

class Exports : public ModelFiles {
   protected:
    Exports() {
        fs::create_directory(Path("out"));
        Model.ModelName = "Press";
        Model.FilePath = In("press.vlk");
    }
    std::string In(const std::string& name) const { return Path("out/" + name); }
    /// A run of the default linkage over half a turn.
    static void Run() {
        Model.ThetaStartRad = 0;
        Model.ThetaEndRad = kPi;
        Model.ThetaStepRad = kPi / 6;
        Model.NSteps = 6;
        Integer result = 0;
        Crankangle(result);
        Set_Menus();
    }
    /// Texts that each start a zone of 14 columns.
    static std::string Zoned(const std::vector<std::string>& texts) {
        std::string line;
        for (std::size_t zone = 0; zone < texts.size(); ++zone) {
            line.resize(14 * zone, ' ');
            line += texts[zone];
        }
        return line;
    }
    void Expect_Lost_Folder(const std::string& procedure, const std::string& path) {
        desktop.Expect_Message("Error 76   (Path not found)  has occurred in " + procedure + "\r\n\r\n" + path +
                                   "\rcannot be written: there is no folder " + In("gone") + ".",
                               Answer::kOk, Icon::kInformation);
    }
    static std::string Link4_Words(const std::string& path) {
        return "The angular data for link 4 of this linkage has been written to " + path +
               "\rThis file can be imported to program Verlink or Corvex\r"
               "and used as input data to drive the next stage of a multibar linkage.";
    }

    platform::Screen& home = Screens::Get("frm_HomeScreen");
};

TEST_F(Exports, MotionIsWrittenInFreeFormEachNumberInAZoneOf14Columns) {
    Model.NSteps = 1;
    Model.TimeStart = -0.5;
    Model.TimeEnd = 2;
    Model.TimeStep = 0.05;
    auto& table = Model.RunTable;
    table.Theta(0, 2) = 45.5;
    table.Omega(0, 2) = -3.25;
    table.Alpha(0, 2) = 1.234568e-5;
    table.Theta(1, 2) = 359.9;
    table.Omega(1, 2) = 0;
    table.Alpha(1, 2) = -12345.6;
    table.Theta(0, 1) = 99;  // link 3 is not asked for
    EXPECT_EQ(Link4_Content(),
              " 1 \r\n"
              "-0.5 \r\n"
              " 2 \r\n"
              " 0.05 \r\n"
              "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n" +
                  Zoned({" 45.5 ", "-3.25 ", " 1.234568E-05 "}) + "\r\n" + Zoned({" 359.9 ", " 0 ", "-12345.6 "}) +
                  "\r\n");
}

TEST_F(Exports, ANumberThatFillsItsZoneLeavesTheNextOneEmpty) {
    Model.NSteps = 0;
    Model.RunTable.Theta(0, 2) = 1;
    Model.RunTable.Omega(0, 2) = -1.234568e-5;
    Model.RunTable.Alpha(0, 2) = 2;
    const std::string row = Lines(Link4_Content()).back();
    EXPECT_EQ(row, Zoned({" 1 ", "-1.234568E-05 ", "", " 2 "}));
}

TEST_F(Exports, AFileOfNStepsHasSixteenLinesAndARowForEachStep) {
    Run();
    const auto lines = Lines(Link4_Content());
    ASSERT_EQ(lines.size(), 16U + 7U);
    for (std::size_t line = 4; line < 16; ++line) EXPECT_EQ(lines[line], "") << line;
    // The rocker's angle, by the law of cosines in the triangles of the open circuit.
    for (int step = 0; step <= 6; ++step) {
        const double theta2 = step * 3.141592654 / 6;
        const double ax = 1.115 * std::cos(theta2), ay = 1.115 * std::sin(theta2);
        const double diagonal = std::hypot(2.667 - ax, ay);
        const double at_o4 = std::atan2(ay, ax - 2.667);
        const double inner = std::acos((diagonal * diagonal + 2.5 * 2.5 - 2.5 * 2.5) / (2 * diagonal * 2.5));
        const double theta4 = (at_o4 - inner) * 180 / std::acos(-1.0);
        const double written = std::stod(lines[static_cast<std::size_t>(16 + step)]);
        EXPECT_NEAR(std::remainder(written - theta4, 360), 0, 2e-4) << step;
    }
}

TEST_F(Exports, TorqueIsTheCountAndOneNumberALine) {
    Model.NSteps = 2;
    Model.RunTable.LinkTorque(0, 0) = 12.5;
    Model.RunTable.LinkTorque(1, 0) = -0.05;
    Model.RunTable.LinkTorque(2, 0) = 1.5e-7;
    Model.RunTable.LinkTorque(1, 1) = 99;  // links 3 and 4 are not asked for
    Forces_Hold();
    EXPECT_EQ(Torque_Content(), "2\r\n12.5\r\n-0.05\r\n1.5E-07\r\n");
}

TEST_F(Exports, TorqueBeforeAnySolveIsZerosAlsoWhereAnEarlierModelLeftItsOwn) {
    Model.RunTable.LinkTorque(3, 0) = 12.5;
    Run();
    EXPECT_EQ(Torque_Content(), "6\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
}

TEST_F(Exports, ThePendrixFileHas68LinesInTheirOrder) {
    Run();
    Model.UserName = "A \"quoted\" user";
    Model.DesignNumber = 3;
    Model.DateStr = "11/21/2026";
    Model.TimeStr = "10:15:00";
    Model.ThetaZero = -15;
    Model.Alpha2 = 2.5;
    Model.Calctype = 3;
    Model.CircuitIndex = 2;
    Model.TraceFlag = "Y";
    Model.FigureTitle = "";
    const auto lines = Lines(Pendrix_Content());
    ASSERT_EQ(lines.size(), 68U);
    const std::vector<std::string> head = {"\"PENDRIX\"", "\"9.0\"",        "\"Press\"",    "\"A \"quoted\" user\"",
                                           "3",           "\"11/21/2026\"", "\"10:15:00\"", "2.667",
                                           "1.697",       "1.115",          "2.5"};
    for (std::size_t i = 0; i < head.size(); ++i) EXPECT_EQ(lines[i], head[i]) << i + 1;
    const std::vector<std::string> tail = {"0",      "5",    "0.05",    "-15", "10",    "2.5",   "\"45\"", "\"405\"",
                                           "\"10\"", "2",    "3",       "1",   "\"Y\"", "\"N\"", "\"N\"",  "\"N\"",
                                           "\"\"",   "\"\"", "\"abs\"", "10",  "\"\"",  "\"Y\"", "\"\"",   "\"\""};
    EXPECT_EQ(lines[12], "1.115");
    EXPECT_EQ(lines[13], "0");
    EXPECT_EQ(lines[14], "1");
    for (std::size_t i = 0; i < tail.size(); ++i) EXPECT_EQ(lines[16 + i], tail[i]) << 17 + i;
    for (std::size_t line = 40; line < 68; ++line) EXPECT_EQ(lines[line], "0") << line + 1;
}

TEST_F(Exports, TheThirdSideAndThePhaseOfTheTriangleAreThoseOfItsPlaneGeometry) {
    Run();
    Model.Delta = 40;
    Set_Delta(Model.Delta, Model.DeltaRad, Model.DeltaStr);
    const auto lines = Lines(Pendrix_Content());
    // A at the origin, B along x, P where the coupler point is.
    const double delta = 40 * std::acos(-1.0) / 180;
    const double px = 1.697 * std::cos(delta), py = 1.697 * std::sin(delta);
    EXPECT_NEAR(std::stod(lines[11]), std::hypot(2.5 - px, py), 2e-6);
    const double at_b = std::atan2(py, 2.5 - px) * 180 / std::acos(-1.0);
    EXPECT_NEAR(std::stod(lines[15]), Model.RunTable.Theta(0, 0) - (at_b + Model.RunTable.Theta(0, 1)), 0.0051);
}

TEST_F(Exports, ThePhaseIsTheCranksAngleLessTheTrianglesInHundredthsOfADegree) {
    Run();
    Model.RunTable.Theta(0, 0) = 45.125;
    Model.RunTable.Theta(0, 1) = 30.4062;
    // An equilateral triangle has 60 degrees at B, and 60 + 30.4062 is 90.41.
    Model.Rpa = Model.L3;
    Set_Delta(60, Model.DeltaRad, Model.DeltaStr);
    EXPECT_NEAR(std::stod(Lines(Pendrix_Content())[15]), 45.125 - 90.41, 1e-5);
}

TEST_F(Exports, ThePendrixFileIsWrittenAlsoWhenTheRunHasNoResults) {
    const auto lines = Lines(Pendrix_Content());
    ASSERT_EQ(lines.size(), 68U);
    // Of step 0 there are zeros; what is left of the phase is the angle of the triangle.
    const double delta = 92.66 * std::acos(-1.0) / 180;
    const double px = 1.697 * std::cos(delta), py = 1.697 * std::sin(delta);
    EXPECT_NEAR(std::stod(lines[15]), std::atan2(py, 2.5 - px) * 180 / std::acos(-1.0), 0.0051);
}

TEST_F(Exports, WithoutACouplerPointThereIsNoTriangleWhichIsToldAndTheFileIsWrittenAllTheSame) {
    Run();
    Model.Rpa = 0;
    Set_Delta(0, Model.DeltaRad, Model.DeltaStr);
    desktop.Expect_Message("Cannot do Law of sines - bad data - zero divisor");
    const auto lines = Lines(Pendrix_Content());
    ASSERT_EQ(lines.size(), 68U);
    EXPECT_EQ(lines[8], "0");
    EXPECT_EQ(lines[11], "2.5") << "B is the pin";
    EXPECT_NEAR(std::stod(lines[15]), Model.RunTable.Theta(0, 0) - Model.RunTable.Theta(0, 1), 0.0051);
}

TEST_F(Exports, EntriesGoWithACalculatedModelAndTorqueNeedsNoSolve) {
    EXPECT_FALSE(home.Get<MenuEntry>("mnu_Export").Enabled);
    Run();
    for (const char* entry : {"mnu_Export", "mnu_Link_Data_Export", "mnu_Export_Torque", "mnu_pdx"})
        EXPECT_TRUE(home.Get<MenuEntry>(entry).Enabled) << entry;
}

TEST_F(Exports, MotionIsAskedForWrittenAndTold) {
    Run();
    const std::string path = In("stage 1.out");
    desktop.Expect_Save(path);
    desktop.Expect_Message(Link4_Words(path), Answer::kOk, Icon::kInformation, Buttons::kOk);
    Pick_Menu(home, "mnu_Link_Data_Export");
    EXPECT_EQ(desktop.Dialogs[0].title, "Export Link 4 Data");
    EXPECT_EQ(desktop.Dialogs[0].filter, "Verlink Export (*.out)|*.out|(*.*)|*.*|");
    EXPECT_EQ(desktop.Dialogs[0].filter_index, 1);
    EXPECT_EQ(desktop.Dialogs[0].file_name, "Press_vlnk.out");
    EXPECT_TRUE(desktop.Dialogs[0].warn_before_overwriting);
    EXPECT_EQ(Held(path), Link4_Content());
    EXPECT_EQ(Model.FilePath, path);
    EXPECT_TRUE(Model.SavedFlag);
    EXPECT_EQ(Model.ModelName, "Press");
    EXPECT_TRUE(home.Get<platform::Label>("lbl_Status", 8).Visible);
}

TEST_F(Exports, TorqueIsAskedForAndWrittenWithoutAWord) {
    Run();
    const std::string path = In("stage1.trq");
    desktop.Expect_Save(path);
    Pick_Menu(home, "mnu_Export_Torque");
    EXPECT_EQ(desktop.Dialogs[0].title, "Export Link 2 Driving Torque Data");
    EXPECT_EQ(desktop.Dialogs[0].filter, "Link 2 Torque Export (*.trq)|*.trq|(*.*)|*.*|");
    EXPECT_EQ(desktop.Dialogs[0].filter_index, 1);
    EXPECT_EQ(desktop.Dialogs[0].file_name, "Press_vlnk.trq");
    EXPECT_TRUE(desktop.Dialogs[0].warn_before_overwriting);
    EXPECT_EQ(Held(path), Torque_Content());
    EXPECT_EQ(Model.FilePath, path);
    EXPECT_TRUE(Model.SavedFlag);
    EXPECT_TRUE(home.Get<platform::Label>("lbl_Status", 8).Visible);
    EXPECT_EQ(Model.ModelName, "Press");
}

TEST_F(Exports, ThePendrixFileIsAskedForWrittenAndGivesTheModelItsName) {
    Run();
    const std::string path = In("geared.pdx");
    const std::string content = Pendrix_Content();
    desktop.Expect_Save(path);
    desktop.Expect_Message("File was successfully written to \r" + path, Answer::kOk, Icon::kNone, Buttons::kOk);
    Pick_Menu(home, "mnu_pdx");
    EXPECT_EQ(desktop.Dialogs[0].title, "Export the Model to Pendrix");
    EXPECT_EQ(desktop.Dialogs[0].filter, "(*.pdx)|*.pdx");
    EXPECT_EQ(desktop.Dialogs[0].filter_index, 1);
    EXPECT_EQ(desktop.Dialogs[0].file_name, "Press.pdx");
    EXPECT_TRUE(desktop.Dialogs[0].warn_before_overwriting);
    EXPECT_EQ(Held(path), content) << "written under the name that the model had";
    EXPECT_TRUE(home.Get<platform::Label>("lbl_Status", 8).Visible);
    EXPECT_EQ(Model.FilePath, path);
    EXPECT_TRUE(Model.SavedFlag);
    EXPECT_EQ(Model.ModelName, "geared");
}

TEST_F(Exports, DialogsBeginWithTheirOwnEntryWhateverWasTakenBefore) {
    auto& dialog = home.Get<platform::CommonDialog>("CommonDialog1");
    const std::pair<void (*)(platform::Screen&), const char*> menu[] = {
        {Menu_Link_Data_Export, "drive"}, {Menu_Export_Torque, "torque"}, {Menu_pdx, ""}};
    for (const auto& entry : menu) {
        dialog.FilterIndex = 2;
        desktop.Expect_Save({});
        if (entry.first == Menu_pdx) desktop.Expect_Message_With("Cancel was selected");
        entry.first(home);
        EXPECT_EQ(desktop.Dialogs.back().filter_index, 1);
        EXPECT_EQ(desktop.Dialogs.back().kind, entry.second);
    }
}

TEST_F(Exports, ASaveStraightAfterAnExportWritesTheModelInItsPlaceAndKeepsItBeside) {
    Run();
    const struct {
        void (*act)(platform::Screen&);
        const char* name;
        std::string content;
        bool told;
    } exports[] = {{Menu_Link_Data_Export, "stage 1.out", Link4_Content(), true},
                   {Menu_Export_Torque, "stage1.trq", Torque_Content(), false},
                   {Menu_pdx, "geared.pdx", Pendrix_Content(), true}};
    for (const auto& made : exports) {
        const std::string path = In(made.name);
        desktop.Expect_Save(path);
        if (made.told) desktop.Expect_Message_With("written to ");
        made.act(home);
        desktop.Expect_Message("File was successfully written to \r" + path +
                                   "\r\rThe file that was there is no model.  It is kept as \r" + path + "~",
                               Answer::kOk, Icon::kInformation, Buttons::kOk);
        Menu_Save(home);
        EXPECT_EQ(Held(path), File_Content());
        EXPECT_EQ(Held(path + "~"), made.content);
        EXPECT_TRUE(Model.SavedFlag);
    }
}

TEST_F(Exports, ACancelledDialogEndsTwoExportsSilentlyAndIsReportedByTheThird) {
    Run();
    Model_Unsaved();
    desktop.Expect_Save({});
    Menu_Link_Data_Export(home);
    desktop.Expect_Save({});
    Menu_Export_Torque(home);
    desktop.Expect_Save({});
    desktop.Expect_Message("Error 32755   (Cancel was selected)  has occurred in frm_Homescreen.mnu_pdx\r\n\r\n",
                           Answer::kOk, Icon::kInformation);
    Menu_pdx(home);
    EXPECT_EQ(Model.FilePath, In("press.vlk"));
    EXPECT_EQ(Model.ModelName, "Press");
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_TRUE(fs::is_empty(Path("out")));
}

TEST_F(Exports, AFailedExportIsReportedUnderItsWriterAndTheNextSaveAsks) {
    Run();
    Model_Saved();
    Model_Kept();
    const std::string before = Model.FilePath;
    desktop.Expect_Save(In("gone/a.out"));
    Expect_Lost_Folder("Export_Link4_to_File", In("gone/a.out"));
    Menu_Link_Data_Export(home);
    EXPECT_FALSE(Model.SavedFlag);
    desktop.Expect_Save(In("gone/a.trq"));
    Expect_Lost_Folder("Export_Torque_Data", In("gone/a.trq"));
    Menu_Export_Torque(home);
    desktop.Expect_Save(In("gone/a.pdx"));
    Expect_Lost_Folder("Write_Pend", In("gone/a.pdx"));
    Menu_pdx(home);
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_EQ(Model.ModelName, "Press");
    EXPECT_TRUE(fs::is_empty(Path("out")));
    EXPECT_EQ(Model.FilePath, before) << "where nothing was written";
}

TEST_F(Exports, ARunOfMoreStepsThanTheTableHasLeavesTheOldFileWhole) {
    Put_File(In("a.out"), "old");
    Model.NSteps = 2881;
    Model.FilePath = In("a.out");
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in Export_Link4_to_File\r\n\r\n");
    EXPECT_FALSE(Export_Link4_to_File());
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in Export_Torque_Data\r\n\r\n");
    EXPECT_FALSE(Export_Torque_Data());
    EXPECT_EQ(Held(In("a.out")), "old");
}

TEST_F(Exports, AHomeScreenWithoutADialogIsAFailureOfEachHandler) {
    platform::Screen bare("frm_HomeScreen");
    const auto expect = [&](const std::string& handler) {
        desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in frm_Homescreen." + handler +
                               "\r\n\r\n");
    };
    expect("mnu_Link_Data_Export");
    Menu_Link_Data_Export(bare);
    expect("mnu_Export_Torque");
    Menu_Export_Torque(bare);
    expect("mnu_pdx");
    Menu_pdx(bare);
}

}  // namespace verlink::test
