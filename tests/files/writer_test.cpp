// What stands in a model file, and that all of it comes back.
#include "core/linkage_door.h"
#include "tests/files/model_files.h"

namespace verlink::test {

namespace {

/// A value of its own for every field, which seven digits hold.
struct Fill {
    int& next;
    void operator()(std::string* place) const { *place = "text " + std::to_string(next++); }
    void operator()(Single* place) const { *place = next++ * 1.0625 - 40; }
    void operator()(Integer* place) const { *place = next++; }
    void operator()(Long* place) const { *place = 100000 + next++; }
    void operator()(bool* place) const { *place = next++ % 3 != 0; }
};

bool Is_Own(int line) { return line == 1 || line == 2 || line == 54; }

/// Fills the fields that belong to the model; run type and units stay valid.
void Fill_Model(int seed) {
    int next = seed;
    for (const FileField& field : File_Fields())
        if (!Is_Own(field.line)) std::visit(Fill{next}, field.place);
    Model.Calctype = 1;
    Model.Units = 3;
    Model.TorqueImported = false;
    // Link 1 is at one place, told in two ways.
    Model.Link1Angle = seed % 360 + 0.5;
    Derive_Linkage(Leading::kPolar);
}

}  // namespace

TEST_F(ModelFiles, TheTableHasOneRowForEachOfTheFirst96Lines) {
    const auto fields = File_Fields();
    ASSERT_EQ(fields.size(), 96U);
    for (std::size_t i = 0; i < fields.size(); ++i) EXPECT_EQ(fields[i].line, static_cast<int>(i + 1));
    for (const FileField& field : fields) {
        int same = 0;
        for (const FileField& other : fields)
            same += field.place == other.place || std::string(field.name) == other.name;
        EXPECT_EQ(same, 1) << field.name;
    }
}

TEST_F(ModelFiles, TheDefaultLinkageAsAFile) {
    Model.UserName = "Ada";
    Model.DateStr = "11/21/2026";
    Model.TimeStr = "10:15:00";
    const auto lines = Lines(File_Content());
    ASSERT_EQ(lines.size(), 184U);
    const std::vector<std::string> head = {"\"VERLINK\"",
                                           "\"9.0\"",
                                           "\"Model_1\"",
                                           "\"Ada\"",
                                           "1",
                                           "\"11/21/2026\"",
                                           "\"10:15:00\"",
                                           "1.115",
                                           "2.5",
                                           "2.5",
                                           "2.667",
                                           "1.697",
                                           "-92.66",
                                           "-0.575",
                                           "0.803",
                                           "-1.928",
                                           "0.553",
                                           "-8.686",
                                           "-10.961",
                                           "45",
                                           "90",
                                           "3.355",
                                           "14.972",
                                           "-2.264",
                                           "-5.279",
                                           "7.111",
                                           "-5.279",
                                           "30",
                                           "120",
                                           "83",
                                           "100.77",
                                           "194.98",
                                           "#FALSE#",
                                           "0",
                                           "5",
                                           "0.05",
                                           "0",
                                           "10",
                                           "-5",
                                           "\"45\"",
                                           "\"405\"",
                                           "\"10\"",
                                           "1",
                                           "3",
                                           "1",
                                           "\"N\"",
                                           "\"N\"",
                                           "\"N\"",
                                           "\"N\"",
                                           "0",
                                           "0",
                                           "16383",
                                           "1",
                                           "\"2.2\"",
                                           "10",
                                           "\"A Grashof Crank-Rocker Linkage\"",
                                           "\"Y\"",
                                           "0.5",
                                           "0",
                                           "0.9",
                                           "-0.8726646",
                                           "1",
                                           "0",
                                           "0.003",
                                           "0.006",
                                           "0.006",
                                           "0.028",
                                           "0.22",
                                           "0.129"};
    for (std::size_t i = 0; i < head.size(); ++i) EXPECT_EQ(lines[i], head[i]) << "line " << i + 1;
    for (std::size_t i = 69; i < 80; ++i) EXPECT_EQ(lines[i], "0") << "line " << i + 1;
    const std::vector<std::string> extended = {"90", "0",       "0",       "-435",    "2.667", "0",       "0", "0",
                                               "0",  "#FALSE#", "#FALSE#", "#FALSE#", "\"\"",  "#FALSE#", "0", "1"};
    for (std::size_t i = 0; i < extended.size(); ++i) EXPECT_EQ(lines[80 + i], extended[i]) << "line " << 81 + i;
    for (std::size_t i = 96; i < 183; ++i) EXPECT_EQ(lines[i], "\"\"") << "line " << i + 1;
    EXPECT_EQ(lines[183], "\"Last Item\"");
}

TEST_F(ModelFiles, EveryFieldOfTheTableSurvivesAndASecondWritingGivesTheSameBytes) {
    for (const int seed : {1, 500}) {
        Fill_Model(seed);
        std::vector<std::string> before;
        for (const FileField& field : File_Fields()) before.push_back(Text_At(field));
        const std::string content = File_Content();
        Reset_Model();
        Set_Identity();
        ASSERT_TRUE(Load_Model(content));
        for (const FileField& field : File_Fields())
            EXPECT_EQ(Text_At(field), before[static_cast<std::size_t>(field.line - 1)]) << field.name;
        EXPECT_EQ(File_Content(), content);
    }
}

TEST_F(ModelFiles, TextsWithCommasQuotesAndLineEndsSurvive) {
    const std::string title = "A 12\" press, \"fast\"; \xc3\xbc\xe2\x82\xac\r\nsecond line \"";
    Model.FigureTitle = title;
    Model.UserName = ",";
    Model.Model5Name = "\"";
    Take_Full_Turn();
    const std::string content = File_Content();
    Reset_Model();
    Set_Identity();
    ASSERT_TRUE(Load_Model(content));
    EXPECT_EQ(Model.FigureTitle, title);
    EXPECT_EQ(Model.UserName, ",");
    EXPECT_EQ(Model.Model5Name, "\"");
    EXPECT_EQ(File_Content(), content);
}

TEST_F(ModelFiles, ADriveTableOf361RowsAndATorqueTableOf361LinesFollowTheEndMarker) {
    Model.Calctype = 4;
    Model.NSteps = 360;
    Model.TorqueImported = true;
    auto& table = Model.RunTable;
    for (int step = 0; step <= 360; ++step) {
        table.DriveTheta(step) = step * 0.5;
        table.Omega(step, 0) = 1000 - step;
        table.Alpha(step, 0) = -step / 8.0;
        table.ImportedTorque(step) = step + 0.25;
    }
    const std::string content = File_Content();
    const auto lines = Lines(content);
    ASSERT_EQ(lines.size(), 184U + 361 + 361);
    EXPECT_EQ(lines[183], "\"Last Item\"");
    EXPECT_EQ(lines[184], "0,1000,0");
    EXPECT_EQ(lines[185], "0.5,999,-0.125");
    EXPECT_EQ(lines[544], "180,640,-45");
    EXPECT_EQ(lines[545], "0.25");
    EXPECT_EQ(lines[905], "360.25");

    Reset_Model();
    Set_Identity();
    ASSERT_TRUE(Load_Model(content));
    EXPECT_EQ(Model.NSteps, 360);
    for (int step = 0; step <= 360; ++step) {
        ASSERT_EQ(table.DriveTheta(step), step * 0.5);
        ASSERT_EQ(table.Omega(step, 0), 1000 - step);
        ASSERT_EQ(table.Alpha(step, 0), -step / 8.0);
        ASSERT_EQ(table.ImportedTorque(step), step + 0.25);
    }
    EXPECT_EQ(File_Content(), content);
}

TEST_F(ModelFiles, ATorqueTableStandsAloneUnlessTheRunIsImported) {
    Model.Calctype = 1;
    Model.NSteps = 2;
    Model.TorqueImported = true;
    for (int step = 0; step <= 2; ++step) Model.RunTable.ImportedTorque(step) = step - 0.5;
    const auto lines = Lines(File_Content());
    ASSERT_EQ(lines.size(), 187U);
    EXPECT_EQ(lines[184], "-0.5");
    EXPECT_EQ(lines[186], "1.5");
}

TEST_F(ModelFiles, AFullTableOf2881StepsIsWrittenAndRead) {
    Model.Calctype = 5;
    Model.NSteps = kLastStep;
    Model.RunTable.DriveTheta(kLastStep) = 359.5;
    const std::string content = File_Content();
    EXPECT_EQ(Lines(content).size(), 184U + 2881);
    Model.RunTable.DriveTheta(kLastStep) = 0;
    ASSERT_TRUE(Load_Model(content));
    EXPECT_EQ(Model.RunTable.DriveTheta(kLastStep), 359.5);
}

TEST_F(ModelFiles, AFileSavedAfterAChangeOfUnitsHoldsConvertedNumbersAndReadingConvertsNothing) {
    Take_Full_Turn();
    Model.L2 = 12.345;
    Use_Units(2);
    Convert_Units(1, 2);
    const auto lines = Lines(File_Content());
    EXPECT_EQ(lines[7], "1.029");
    EXPECT_EQ(lines[44], "2");
    const std::string content = Joined(lines);
    Reset_Model();
    Set_Identity();
    Initialize();
    Use_Units(1);
    ASSERT_TRUE(Load_Model(content));
    EXPECT_EQ(Model.Units, 2);
    EXPECT_EQ(Model.L2, static_cast<double>(1.029F));
    EXPECT_EQ(Model.UnitLabel(6), "ft");
    EXPECT_EQ(File_Content(), content);
}

TEST_F(ModelFiles, FieldsAreSetByTheNamesThatUsersWrite) {
    EXPECT_TRUE(Set_File_Field("L2", "1.25"));
    EXPECT_EQ(Model.L2, 1.25);
    EXPECT_TRUE(Set_File_Field("CG(3,1)", "-0.5"));
    EXPECT_EQ(Model.CG(3, 1), -0.5);
    EXPECT_TRUE(Set_File_Field("CG(3, 1)", " .75 "));
    EXPECT_EQ(Model.CG(3, 1), 0.75);
    EXPECT_TRUE(Set_File_Field("LinkMass(2)", "1e-3"));
    EXPECT_EQ(Model.LinkMass(2), static_cast<double>(0.001F));
    EXPECT_TRUE(Set_File_Field("ThetaStartStr", "12.5 deg"));
    EXPECT_EQ(Model.ThetaStartStr, "12.5 deg");
    EXPECT_TRUE(Set_File_Field("Calctype", "2"));
    EXPECT_EQ(Model.Calctype, 2);
    EXPECT_TRUE(Set_File_Field("AnimateDelay", "32767"));
    EXPECT_EQ(Model.AnimateDelay, 32767);
    for (const char* yes : {"#TRUE#", "TRUE"}) {
        Model.PolarCoords = false;
        EXPECT_TRUE(Set_File_Field("PolarCoords", yes));
        EXPECT_TRUE(Model.PolarCoords);
    }
    for (const char* no : {"#FALSE#", "FALSE"}) {
        Model.PolarCoords = true;
        EXPECT_TRUE(Set_File_Field("PolarCoords", no));
        EXPECT_FALSE(Model.PolarCoords);
    }
}

TEST_F(ModelFiles, AFieldThatIsSetBehavesAsIfTheFileHadHeldIt) {
    EXPECT_TRUE(Set_File_Field("Cycles", "0"));
    EXPECT_EQ(Model.Cycles, 1);
    EXPECT_TRUE(Set_File_Field("ZoomFactor", "0"));
    EXPECT_EQ(Model.ZoomFactor, 1);
    EXPECT_TRUE(Set_File_Field("RevNumber", "7.0"));
    EXPECT_EQ(Model.FileRev, "7.0");
    EXPECT_EQ(Model.RevNumber, "9.0");
    EXPECT_TRUE(Set_File_Field("FileVersion", "4"));
    EXPECT_EQ(Model.FileFormat, "4");
    EXPECT_EQ(Model.FileVersion, "2.2");
    EXPECT_TRUE(Set_File_Field("ProgramTag", "VERLINK 2"));
    EXPECT_EQ(Model.FileTag, "VERLINK 2");
    EXPECT_EQ(Model.ProgramTag, "VERLINK");
}

TEST_F(ModelFiles, AnUnknownNameSetsNothing) {
    const std::string before = File_Content();
    for (const char* name : {"", "L5", "l2", "CG(1,0)", "CG(2,2)", "LinkMass", "LinkMass(1)", "ThetaStart", "FileRev"})
        EXPECT_FALSE(Set_File_Field(name, "1")) << name;
    EXPECT_EQ(File_Content(), before);
}

TEST_F(ModelFiles, ATextThatAFieldCannotTakeIsAFailureAndLeavesIt) {
    const auto failure_of = [](const char* name, const char* text) -> long {
        try {
            Set_File_Field(name, text);
            return 0;
        } catch (const platform::RuntimeFailure& failure) {
            return failure.Number();
        }
    };
    EXPECT_EQ(failure_of("L2", "1.5abc"), 13);
    EXPECT_EQ(failure_of("L2", ""), 13);
    EXPECT_EQ(failure_of("L2", "1,5"), 13);
    EXPECT_EQ(failure_of("L2", "1e39"), 6);
    EXPECT_EQ(failure_of("NSteps", "40000"), 6);
    EXPECT_EQ(failure_of("NSteps", "many"), 13);
    EXPECT_EQ(failure_of("AnimateDelay", "3e9"), 6);
    EXPECT_EQ(failure_of("PolarCoords", "yes"), 13);
    EXPECT_EQ(failure_of("PolarCoords", ""), 13);
    EXPECT_EQ(Model.L2, static_cast<double>(1.115F));
}

}  // namespace verlink::test
