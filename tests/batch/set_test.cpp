// Fields replaced on the command line: every name, as if the file had held the value, and what is refused.
#include <gtest/gtest.h>

#include "files/model_file.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

struct Set : BatchFixture {
    static void Expect_Wrong_Usage(const Outcome& outcome, const std::string& words) {
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n') + 1), "verlink-batch: " + words + "\n");
        EXPECT_NE(outcome.err.find("usage: verlink-batch MODEL.vlk"), std::string::npos);
    }
};

struct Replacement {
    int line;
    const char* field;
    const char* value;    ///< on the command line
    const char* in_file;  ///< as the file would hold it
};

/// A value for every field that is not the file's own tag or revision.
constexpr Replacement kReplacements[] = {
    {3, "ModelName", "press 2", "\"press 2\""},
    {4, "UserName", "a, b", "\"a, b\""},
    {5, "DesignNumber", "17", "17"},
    {6, "DateStr", "1/2/1999", "\"1/2/1999\""},
    {7, "TimeStr", "", "\"\""},
    {8, "L2", "1.2", "1.2"},
    {9, "L3", "2.75", "2.75"},
    {10, "L4", "2.25", "2.25"},
    {11, "L1", "2.5", "2.5"},
    {12, "Rpa", ".5", ".5"},
    {13, "Delta", "-1e1", "-1e1"},
    {14, "P21x", "1", "1"},
    {15, "P21y", "2", "2"},
    {16, "P31x", "3", "3"},
    {17, "P31y", "4", "4"},
    {18, "SynAlpha2", "5", "5"},
    {19, "SynAlpha3", "6", "6"},
    {20, "SynBeta2", "7", "7"},
    {21, "SynBeta3", "8", "8"},
    {22, "SynGamma2", "9", "9"},
    {23, "SynGamma3", "10", "10"},
    {24, "O2x", "11", "11"},
    {25, "O2y", "12", "12"},
    {26, "O4x", "13", "13"},
    {27, "O4y", "14", "14"},
    {28, "SynTheta", "15", "15"},
    {29, "SynTheta2", "16", "16"},
    {30, "SynPhi", "17", "17"},
    {31, "SynSigma", "18", "18"},
    {32, "SynXi", "19", "19"},
    {33, "Synthesized", "TRUE", "#TRUE#"},
    {34, "TimeStart", "1", "1"},
    {35, "TimeEnd", "9", "9"},
    {36, "TimeStep", "0.5", "0.5"},
    {37, "ThetaZero", "33", "33"},
    {38, "Omega2Input", "-3", "-3"},
    {39, "Alpha2", "4", "4"},
    {40, "ThetaStartStr", "10", "\"10\""},
    {41, "ThetaEndStr", "100", "\"100\""},
    {42, "ThetaStepStr", "3", "\"3\""},
    {43, "CircuitIndex", "2", "2"},
    {44, "Calctype", "2", "2"},
    {45, "Units", "5", "5"},
    {46, "TraceFlag", "Y", "\"Y\""},
    {47, "RedrawFlag", "Y", "\"Y\""},
    {48, "HideLinksFlag", "Y", "\"Y\""},
    {49, "ShowCentrodesFlag", "Y", "\"Y\""},
    {50, "P1x", "1", "1"},
    {51, "P1y", "2", "2"},
    {52, "AnimateDelay", "32768", "32768"},
    {53, "Cycles", "0", "0"},
    {55, "PrintStep", "4", "4"},
    {56, "FigureTitle", "say \"so\"", "\"say \"so\"\""},
    {57, "Grashof_Code", "N", "\"N\""},
    {58, "CG(2,0)", "1", "1"},
    {59, "CG(2,1)", "2", "2"},
    {60, "CG(3,0)", "3", "3"},
    {61, "CG(3,1)", "0.5", "0.5"},
    {62, "CG(4,0)", "5", "5"},
    {63, "CG(4,1)", "6", "6"},
    {64, "LinkMass(2)", "7", "7"},
    {65, "LinkMass(3)", "8", "8"},
    {66, "LinkMass(4)", "9", "9"},
    {67, "LinkInertia(2)", "10", "10"},
    {68, "LinkInertia(3)", "11", "11"},
    {69, "LinkInertia(4)", "12", "12"},
    {70, "ExtForceMag(3)", "13", "13"},
    {71, "ExtForceAng(3)", "14", "14"},
    {72, "ForceDist3", "15", "15"},
    {73, "ForceAng3", "16", "16"},
    {74, "ExtTorque(3)", "17", "17"},
    {75, "FrictionForce", "18", "18"},
    {76, "ExtForceMag(4)", "19", "19"},
    {77, "ExtForceAng(4)", "20", "20"},
    {78, "ForceDist4", "21", "21"},
    {79, "ForceAng4", "22", "22"},
    {80, "ExtTorque(4)", "23", "23"},
    {81, "LineAngle", "45", "45"},
    {82, "Link1Angle", "20", "20"},
    {83, "Link1AngleRad", "0.3", "0.3"},
    {84, "NSteps", "7", "7"},
    {85, "Link1X", "2", "2"},
    {86, "Link1Y", "1", "1"},
    {87, "CamDirection", "-1", "-1"},
    {88, "CamDataLength1", "1", "1"},
    {89, "CamPhase", "2", "2"},
    {90, "CamDriven", "#TRUE#", "#TRUE#"},
    {91, "LinkDriven", "TRUE", "#TRUE#"},
    {92, "PolarCoords", "TRUE", "#TRUE#"},
    {93, "Model5Name", "cam.sva", "\"cam.sva\""},
    {94, "TorqueImported", "FALSE", "#FALSE#"},
    {95, "Delta2", "3", "3"},
    {96, "ZoomFactor", "0", "0"},
};

}  // namespace

TEST_F(Set, EveryFieldOfTheFileIsCovered) {
    std::size_t next = 0;
    for (const FileField& field : File_Fields()) {
        if (field.line == kTag || field.line == kRev || field.line == kFormat) continue;
        ASSERT_LT(next, std::size(kReplacements));
        EXPECT_EQ(kReplacements[next].line, field.line);
        EXPECT_STREQ(kReplacements[next].field, field.name);
        ++next;
    }
    EXPECT_EQ(next, std::size(kReplacements));
}

TEST_F(Set, ReplacesEachFieldAsIfTheFileHadHeldIt) {
    for (const Replacement& r : kReplacements) {
        SCOPED_TRACE(r.field);
        const std::string replacement = r.field + std::string("=") + r.value;
        const ModelText holding = ModelText().Set(r.line, r.in_file);
        const Outcome replaced = Run(ModelText(), {"--set", replacement}), held = Run(holding);
        EXPECT_EQ(replaced.status, 0) << replaced.err;
        EXPECT_EQ(held.status, 0) << held.err;
        EXPECT_EQ(replaced.out, held.out);
        Run(ModelText(), {"--set", replacement, "--save", Path("replaced")});
        Run(holding, {"--save", Path("held")});
        EXPECT_EQ(Read(Path("replaced")), Read(Path("held")));
    }
}

TEST_F(Set, ChangesWhatTheFieldIsForAndNothingElse) {
    const std::string plain = Run(ModelText()).out;
    EXPECT_NE(Run(ModelText(), {"--set", "L2=1.2"}).out, plain);
    EXPECT_NE(Run(ModelText(), {"--set", "ThetaStartStr=0"}).out, plain);
    EXPECT_EQ(Run(ModelText(), {"--set", "CG(3,1)=0.5"}).out, plain);
    EXPECT_EQ(Run(ModelText(), {"--set", "L2=1.115"}).out, plain);
}

TEST_F(Set, TheLastOfTwoWins) {
    EXPECT_EQ(Run(ModelText(), {"--set", "L2=9", "--set", "L2=1.2"}).out, Run(ModelText(), {"--set", "L2=1.2"}).out);
}

TEST_F(Set, LimitsDeriveTheNumberOfStepsAgain) {
    const Outcome outcome = Run(ModelText(), {"--set", "ThetaEndStr=65", "--set", "ThetaStepStr=5"});
    EXPECT_EQ(outcome.Table().Rows(), 5);
}

TEST_F(Set, BlanksInAFieldsNameDoNotCount) { EXPECT_EQ(Run(ModelText(), {"--set", "CG(3, 1)=0.5"}).status, 0); }

TEST_F(Set, AnUnknownFieldIsWrongUsage) {
    for (const char* name : {"L5", "l2", "ThetaStart", "CG(1,0)", "DeltaRad"})
        Expect_Wrong_Usage(Run(ModelText(), {"--set", name + std::string("=1")}),
                           "a model file has no field \"" + std::string(name) + "\"");
}

TEST_F(Set, AValueThatTheFieldCannotHoldIsWrongUsage) {
    const auto refused = [this](const std::string& field, const std::string& value, const std::string& why) {
        Expect_Wrong_Usage(Run(ModelText(), {"--set", field + "=" + value}),
                           "the field " + field + " cannot hold \"" + value + "\": " + why);
    };
    refused("L2", "long", "Type mismatch");
    refused("L2", "", "Type mismatch");
    refused("L2", "1.5 in", "Type mismatch");
    refused("L2", "1e60", "Overflow");
    refused("Units", "40000", "Overflow");
    refused("AnimateDelay", "3000000000", "Overflow");
    refused("PolarCoords", "yes", "Type mismatch");
}

TEST_F(Set, WrongUsageIsFoundBeforeTheModelIsOpened) {
    Expect_Wrong_Usage(Run({Path("nowhere.vlk"), "--set", "L2=long"}),
                       "the field L2 cannot hold \"long\": Type mismatch");
}

TEST_F(Set, ARunTypeThatWantsADriveTableTheFileLacksCannotBeRead) {
    const Outcome outcome = Run(ModelText(), {"--set", "Calctype=4"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "Error 62   (Input past end of file)  has occurred in Readfile\n\nverlink-batch: " +
                               Path("model.vlk") + " cannot be read\n");
    EXPECT_EQ(Run(ModelText(), {"--set", "Calctype=4", "--set", "NSteps=0"}).err, outcome.err) << "nor has it one row";
}

TEST_F(Set, TorquesThatTheFileLacksCannotBeReadForOnePositionEither) {
    const ModelText one = ModelText().Set(kCalctype, "1").Set(kNSteps, "0");
    EXPECT_EQ(Run(one).status, 0);
    const Outcome outcome = Run(one, {"--set", "TorqueImported=TRUE"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "Error 62   (Input past end of file)  has occurred in Readfile\n\nverlink-batch: " +
                               Path("model.vlk") + " cannot be read\n");
}

TEST_F(Set, MoreStepsThanTheDriveTableHasRowsCannotBeRead) {
    ModelText model;
    model.Drive(5, {"30,1,0", "40,1,0", "50,1,0"});
    EXPECT_EQ(Run(model, {"--set", "NSteps=3"}).status, 1);
    EXPECT_EQ(Run(model, {"--set", "TorqueImported=TRUE"}).status, 1);
    const Outcome fewer = Run(model, {"--set", "NSteps=1"});
    EXPECT_EQ(fewer.status, 0);
    EXPECT_EQ(fewer.Table().Rows(), 2);
}

TEST_F(Set, FieldsThatAnOlderLayoutDoesNotHaveCanBeReplacedToo) {
    // Revision 6 ends behind line 80 and has a polar ground link.
    const std::string whole = ModelText().Quote(kRev, "6.0").Content();
    std::size_t end = 0;
    for (int line = 0; line < 80; ++line) end = whole.find("\r\n", end) + 2;
    const std::string path = Write("old.vlk", whole.substr(0, end));
    const ModelText turned = ModelText().Set(kPolar, "#TRUE#").Set(kLink1Angle, "30");
    EXPECT_EQ(Run({path}).out, Run(ModelText()).out);
    EXPECT_EQ(Run({path, "--set", "Link1Angle=30"}).out, Run(turned).out);
}

TEST_F(Set, ADrivenModelCanBeRunByAngleInstead) {
    ModelText model;
    model.Drive(5, {"30,1,0", "40,1,0", "50,1,0"});
    EXPECT_EQ(Run(model, {"--set", "Calctype=3"}).out, Run(ModelText()).out);
}

}  // namespace verlink::test
