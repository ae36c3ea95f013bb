// The models to try: each opens, holds what the program would write, and runs without a message.
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "core/parameters.h"
#include "core/runs.h"
#include "dynamics/dynacalc.h"
#include "files/drive_import.h"
#include "files/exports.h"
#include "tests/files/model_files.h"

namespace verlink::test {

namespace fs = std::filesystem;

namespace {

std::vector<std::string> Samples() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(VERLINK_SAMPLES))
        if (entry.path().extension() == ".vlk") names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

std::string Sample(const std::string& name) { return std::string(VERLINK_SAMPLES) + "/" + name + ".vlk"; }

}  // namespace

class SampleModels : public ModelFiles {
   protected:
    /// Opens a sample and runs it from its own values.
    static void Run(const std::string& name) {
        ASSERT_TRUE(Load_Model(Held(Sample(name)))) << name;
        Derive_Linkage(Leading::kInForce);
        Model.ModuloMode = "abs";
        Integer result = 0;
        if (Model.Calctype > 3) {
            // An imported run neither classifies nor clears.
            Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
            Imported_Run(result);
        } else {
            const std::string code = Model.Grashof_Code;
            Calc_Setup(Model.Calctype, result);
            EXPECT_EQ(Model.Grashof_Code, code) << name;
        }
    }
    static bool Closes_Everywhere() {
        for (int step = 0; step <= Model.NSteps; ++step)
            if (!Model.RunTable.Assembled(step)) return false;
        return true;
    }
};

TEST_F(SampleModels, ThereAreEightAndTheReadmeNamesEach) {
    const auto names = Samples();
    EXPECT_EQ(names.size(), 8U);
    const std::string readme = Held(std::string(VERLINK_SAMPLES) + "/README.md");
    for (const auto& name : names) EXPECT_NE(readme.find("`" + name + ".vlk`"), std::string::npos) << name;
}

TEST_F(SampleModels, EachHoldsWhatTheProgramWouldWrite) {
    for (const auto& name : Samples()) {
        const std::string content = Held(Sample(name));
        ASSERT_TRUE(Load_Model(content)) << name;
        EXPECT_EQ(File_Content(), content) << name;
        EXPECT_EQ(Model.ModelName, name);
        EXPECT_FALSE(Model.FigureTitle.empty());
    }
}

TEST_F(SampleModels, EachClosesAtEveryStepOfItsRun) {
    for (const auto& name : Samples()) {
        Run(name);
        EXPECT_GE(Model.NSteps, 60) << name;
        EXPECT_TRUE(Closes_Everywhere()) << name;
    }
}

TEST_F(SampleModels, TheStraightLineIsStraightForHalfATurn) {
    Run("straight_line");
    // The coupler point from 90 to 270 degrees: its height above the ground link, and how far it travels along it.
    double low = 1e9, high = -1e9, left = 1e9, right = -1e9;
    for (int step = 45; step <= 135; ++step) {
        EXPECT_NEAR(Model.RunTable.Theta(step, 0), 2.0 * step, 1e-3);
        const double x = Model.RunTable.PointXY(step, 2, 0), y = Model.RunTable.PointXY(step, 2, 1);
        low = std::min(low, y);
        high = std::max(high, y);
        left = std::min(left, x);
        right = std::max(right, x);
    }
    // Closed form at the middle of the stroke: A at (-1, 0), B over (0.5, 2), P twice as far: (2, 4).
    EXPECT_NEAR(Model.RunTable.PointXY(90, 2, 0), 2, 1e-5);
    EXPECT_NEAR(std::abs(Model.RunTable.PointXY(90, 2, 1)), 4, 1e-5);
    EXPECT_NEAR(right - left, 4, 1e-4);
    EXPECT_LT((high - low) / (right - left), 0.004);
}

TEST_F(SampleModels, TheCamDriveIsSmoothAndComesBack) {
    Run("cam_driven");
    const auto& table = Model.RunTable;
    EXPECT_EQ(table.DriveTheta(0), 0);
    EXPECT_EQ(table.DriveTheta(360), 0);
    double highest = 0;
    for (int step = 1; step < 360; ++step) {
        highest = std::max<double>(highest, table.DriveTheta(step));
        // Speed and acceleration are the differences of the angle and of the speed, a step being 1/360 s.
        const double speed = (table.DriveTheta(step + 1) - table.DriveTheta(step - 1)) * 180 * M_PI / 180;
        const double acceleration = (table.Omega(step + 1, 0) - table.Omega(step - 1, 0)) * 180;
        EXPECT_NEAR(table.Omega(step, 0), speed, 0.002) << step;
        EXPECT_NEAR(table.Alpha(step, 0), acceleration, 0.5) << step;
    }
    EXPECT_EQ(highest, 40);
}

TEST_F(SampleModels, TheDwellCamRisesAsItsPolynomialAndStandsStill) {
    EXPECT_NE(Held(std::string(VERLINK_SAMPLES) + "/README.md").find("`dwell_cam.sva`"), std::string::npos);
    Model.JustStarted = true;  // no message, no screen
    const std::string content = Held(std::string(VERLINK_SAMPLES) + "/dwell_cam.sva");
    TextReader reader(content);
    ASSERT_TRUE(Read_Cam_Data(reader));
    EXPECT_EQ(Model.Units, 5);
    Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
    Integer result = 0;
    Imported_Run(result);
    ASSERT_EQ(Model.NSteps, 180);
    EXPECT_TRUE(Closes_Everywhere());
    const auto& table = Model.RunTable;
    for (int step = 0; step <= 40; ++step) {
        const double u = step / 40.0;
        EXPECT_NEAR(table.DriveTheta(step), 26 * (10 - 15 * u + 6 * u * u) * u * u * u, 1e-4) << step;
        // The rise takes a ninth of a second.
        const double change = (60 - 180 * u + 120 * u * u) * u;
        EXPECT_NEAR(table.Alpha(step, 0), 26 * M_PI / 180 * change * 81, 1e-3) << step;
    }
    for (int step = 41; step <= 75; ++step) EXPECT_EQ(table.Theta(step, 2), table.Theta(40, 2)) << step;
    for (int step = 121; step <= 180; ++step) EXPECT_EQ(table.Theta(step, 2), table.Theta(0, 2)) << step;
}

TEST_F(SampleModels, TheCouplerOfTheParallelogramKeepsItsDirection) {
    Run("parallelogram");
    EXPECT_TRUE(Model.Parallelogram);
    for (int step = 0; step <= Model.NSteps; ++step) {
        const double turned = std::remainder(Model.RunTable.Theta(step, 1), 360.0);
        EXPECT_NEAR(turned, 0, 1e-3) << step;
    }
}

TEST_F(SampleModels, WhatPassesBetweenTheTwoStagesIsWhatTheirRunsExport) {
    const std::string folder = std::string(VERLINK_SAMPLES) + "/";
    const std::string readme = Held(folder + "README.md");
    for (const char* name : {"`first_stage.out`", "`second_stage.trq`"})
        EXPECT_NE(readme.find(name), std::string::npos) << name;

    Run("first_stage");
    const std::string motion = Held(folder + "first_stage.out");
    EXPECT_EQ(Link4_Content(), motion);

    // The drive that is in the second stage's file is the one that its import gives.
    Run("second_stage");
    const std::string driven = File_Content();
    Model.JustStarted = true;
    TextReader reader(motion);
    EXPECT_TRUE(Import_Linkage_Data(reader));
    EXPECT_EQ(File_Content(), driven);
    EXPECT_TRUE(Solve_Forces(Model).solved);
    const std::string torque = Held(folder + "second_stage.trq");
    EXPECT_EQ(Torque_Content(), torque);

    Run("first_stage");
    TextReader load(torque);
    bool Failed = false;
    Import_Torque_Data(load, Failed);
    EXPECT_FALSE(Failed) << "the two stages have as many steps";
}

}  // namespace verlink::test
