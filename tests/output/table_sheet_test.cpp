// The sheets of tables hold what the grid shows, with all digits: every variable, component and frame; of a transform
// as well.
#include "output/table_sheet.h"

#include <cmath>

#include "core/numeric.h"
#include "output/model_facts.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"
#include "tests/output/table_fixture.h"

namespace verlink::test {

namespace {

using platform::Grid;
using Texts = std::vector<std::string>;

const std::array<std::string, 4> kCaptions{"Theta2", "Veloc CP", "Veloc CP", "Omega4"};

class TableSheets : public Tables {
   protected:
    static Texts Heads(const Sheet& sheet, std::string Sheet_Column::*head) {
        Texts heads;
        for (const Sheet_Column& column : sheet.columns) heads.push_back(column.*head);
        return heads;
    }
    /// As the grid shows the stored number.
    static std::string Shown(double value) { return FNRoundStr(Single(value), Model.DecimalPlaces); }
    static Table_Wish Wish(int every) { return {.every = every, .decimals = Model.DecimalPlaces}; }
    /// The sheet of the slots against the cells of the grid.
    void Expect_As_In_The_Grid() {
        const bool local = Model.CoordSystem != 0;
        const Sheet sheet = Table_Sheet(Model, kCaptions, {Model.PrintStep, Model.DecimalPlaces, local});
        const Grid& grid = Show_Table().grd_Data;
        ASSERT_EQ(static_cast<int>(sheet.columns.size()), grid.Cols());
        for (int col = 0; col < grid.Cols(); ++col) {
            const Sheet_Column& column = sheet.columns[static_cast<std::size_t>(col)];
            ASSERT_EQ(static_cast<int>(column.values.size()), grid.Rows() - 6);
            for (int row = 6; row < grid.Rows(); ++row)
                EXPECT_EQ(Shown(column.values[static_cast<std::size_t>(row - 6)]), grid.Cell(row, col));
            if (col == 0) continue;
            EXPECT_EQ(column.component, grid.Cell(1, col));
            EXPECT_EQ(column.unit, grid.Cell(2, col));
            EXPECT_EQ(Shown(column.least), grid.Cell(3, col));
            EXPECT_EQ(Shown(column.mean), grid.Cell(4, col));
            EXPECT_EQ(Shown(column.most), grid.Cell(5, col));
        }
    }
};

}  // namespace

TEST_F(TableSheets, Have_the_heads_units_and_numbers_of_the_grid) {
    Fill_Run(6);
    for (int i = 0; i <= 6; ++i) Model.RunTable.Assembled(i) = true;
    const Sheet sheet = Table_Sheet(Model, kCaptions, Wish(1));
    EXPECT_EQ(sheet.name, "Table");
    EXPECT_TRUE(sheet.statistics);
    EXPECT_EQ(Heads(sheet, &Sheet_Column::name), (Texts{"Crank", "Theta2", "Veloc CP", "Veloc CP", "Omega4"}));
    EXPECT_EQ(Heads(sheet, &Sheet_Column::component), (Texts{"Angle", "Mag", "X", "Ang", "Mag"}));
    EXPECT_EQ(Heads(sheet, &Sheet_Column::unit), (Texts{"deg", "degrees", "in/sec", "deg", "rad/sec"}));
    EXPECT_EQ(sheet.columns[0].values, (std::vector<double>{5, 15, 25, 35, 45, 55, 65}));
    EXPECT_EQ(sheet.columns[4].values, (std::vector<double>{100, 101, 102, 103, 104, 105, 106}));
    EXPECT_EQ(sheet.columns[4].least, 100);
    EXPECT_EQ(sheet.columns[4].mean, 103);
    EXPECT_EQ(sheet.columns[4].most, 106);
    EXPECT_EQ(sheet.columns[4].decimals, 1);
    Expect_As_In_The_Grid();
}

TEST_F(TableSheets, Have_a_row_for_each_so_many_steps_and_statistics_of_all) {
    Fill_Run(7);
    for (int i = 0; i <= 7; ++i) Model.RunTable.Assembled(i) = true;
    const Sheet sheet = Table_Sheet(Model, kCaptions, Wish(3));
    EXPECT_EQ(sheet.columns[4].values, (std::vector<double>{100, 103, 106}));
    EXPECT_EQ(sheet.columns[4].most, 107);
    Model.PrintStep = 3;
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(grid.Cell(5, 4), "107.0");
}

TEST_F(TableSheets, Say_where_positions_do_not_close_when_some_do_not) {
    Fill_Run(6);
    for (int i = 0; i <= 6; ++i) Model.RunTable.Assembled(i) = i != 2 && i != 4;
    const Sheet sheet = Table_Sheet(Model, kCaptions, Wish(2));
    ASSERT_EQ(sheet.columns.size(), 6U);
    EXPECT_EQ(sheet.columns[5].name, "Closes");
    EXPECT_EQ(sheet.columns[5].values, (std::vector<double>{1, 0, 0, 1}));
    EXPECT_EQ(sheet.columns[5].decimals, 0);
    EXPECT_EQ(sheet.columns[5].least, 0);
    EXPECT_EQ(sheet.columns[5].most, 1);
}

TEST_F(TableSheets, Hold_every_variable_and_component_in_both_frames_as_the_grid_does) {
    Initialize();
    Run_Scenario({.name = "ground turned", .units = 5, .ground = 30});
    Solve_Forces();
    Model.PrintStep = 6;
    Model.DecimalPlaces = 5;
    for (const int frame : {0, 2})
        for (int number = 1; number <= 42; ++number) {
            SCOPED_TRACE(Model.VariableNames(number));
            Model.CoordSystem = frame;
            int slot = 0;
            for (const char* component : {"X", "Y", "Mag", "Ang"})
                Choose(++slot, Model.VariableNames(number), component);
            Expect_As_In_The_Grid();
        }
}

TEST_F(TableSheets, Have_zeros_where_the_grid_has_them_for_a_function_that_there_is_not) {
    Fill_Run(3);
    for (int i = 0; i <= 3; ++i) Model.RunTable.Assembled(i) = true;
    Model.FuncGroup(4) = 15;
    EXPECT_EQ(Table_Sheet(Model, kCaptions, Wish(1)).columns[4].values, (std::vector<double>(4, 0.0)));
    Expect_As_In_The_Grid();
}

TEST_F(TableSheets, Leave_the_record_as_it_is) {
    Fill_Run(3);
    Model.PlotSlot = 2;
    Model.SmallValue = 7;
    Table_Sheet(Model, kCaptions, Wish(1));
    EXPECT_EQ(Model.PlotSlot, 2);
    EXPECT_EQ(Model.SmallValue, 7);
}

TEST_F(TableSheets, Stand_at_times_in_runs_by_time_and_at_harmonics_in_transforms) {
    Fill_Run(3);
    By_Time(2, 0.5, 0.1);
    Sheet sheet = Table_Sheet(Model, kCaptions, Wish(1));
    EXPECT_EQ(sheet.columns[0].name, "Time");
    EXPECT_EQ(sheet.columns[0].unit, "sec");
    EXPECT_EQ(sheet.columns[0].values, (std::vector<double>{0.5, 0.6, 0.7, 0.8}));

    Model.Harmonics = 2;
    Model.FFTUnitLabel = "in/sec";
    for (int i = 0; i <= 2; ++i)
        for (int row = 0; row <= 3; ++row) Model.FFTResult(i, row) = 10 * i + row;
    int slot = 0;
    for (const char* component : {"X", "Y", "Mag", "Ang"}) Choose(++slot, "Current FFT", component);
    sheet = Table_Sheet(Model, {"FFT", "FFT", "FFT", "FFT"}, Wish(1));
    EXPECT_EQ(sheet.columns[0].name, "Harmonic");
    EXPECT_EQ(sheet.columns[0].component, "Number");
    EXPECT_EQ(sheet.columns[0].decimals, 0);
    EXPECT_EQ(sheet.columns[1].decimals, 1);
    EXPECT_EQ(Heads(sheet, &Sheet_Column::unit), (Texts{"", "in/sec", "in/sec", "in/sec", "deg"}));
    EXPECT_EQ(sheet.columns[0].values, (std::vector<double>{0, 1, 2}));
    EXPECT_EQ(sheet.columns[2].values, (std::vector<double>{1, 11, 21}));
    sheet = Transform_Sheet(Model, "Veloc CP X", 2);
    EXPECT_EQ(Heads(sheet, &Sheet_Column::component), (Texts{"Number", "Real", "Imaginary", "Magnitude", "Phase"}));
    EXPECT_EQ(Heads(sheet, &Sheet_Column::unit), (Texts{"", "in/sec", "in/sec", "in/sec", "deg"}));
    EXPECT_EQ(sheet.columns[0].values, (std::vector<double>{0, 1, 2}));
    EXPECT_EQ(sheet.columns[0].decimals, 0);
    EXPECT_EQ(sheet.columns[4].values, (std::vector<double>{3, 13, 23}));
}

TEST_F(TableSheets, Have_the_model_beside_them_in_the_units_shown) {
    Initialize();
    Use_Units(5);
    Model.ModelName = "press";
    Model.L2 = 0.0254;
    Model.CG(2, 0) = 0.01;
    Model.CG(2, 1) = M_PI / 2;
    Model.LinkMass(2) = 1.5;
    Model.FrictionForce = 0.75;
    Model.ForceDist3 = 0.125;
    Model.ForceDist4 = 0.25;
    Model.ForceAng3 = 15;
    Model.ForceAng4 = 25;
    const auto facts = Model_Facts(Model);
    const auto fact = [&](const std::string& what) {
        for (const Sheet_Fact& found : facts)
            if (found.what == what) return found;
        ADD_FAILURE() << what;
        return Sheet_Fact{};
    };
    EXPECT_EQ(std::get<std::string>(fact("Model").value), "press");
    EXPECT_NEAR(std::get<double>(fact("Link 2 (Crank)").value), 25.4, 1e-5);
    EXPECT_EQ(fact("Link 2 (Crank)").unit, "mm");
    EXPECT_NEAR(std::get<double>(fact("CG Distance of Link 2").value), 10, 1e-5);
    EXPECT_NEAR(std::get<double>(fact("CG Angle of Link 2").value), 90, 1e-4);
    EXPECT_EQ(fact("CG Angle of Link 2").unit, "deg");
    EXPECT_EQ(fact("Mass of Link 2").unit, "kg");
    EXPECT_EQ(fact("Inertia of Link 2").unit, "kg-m^2");
    EXPECT_EQ(fact("Torque on Link 4").unit, "N- m");
    EXPECT_EQ(std::get<double>(fact("Friction on Link 3").value), 0.75);
    EXPECT_EQ(fact("Friction on Link 3").unit, "N");
    EXPECT_NEAR(std::get<double>(fact("Distance of Force on Link 3").value), 125, 1e-4);
    EXPECT_NEAR(std::get<double>(fact("Distance of Force on Link 4").value), 250, 1e-4);
    EXPECT_EQ(std::get<double>(fact("Angle of its Point on Link 3").value), 15);
    EXPECT_EQ(std::get<double>(fact("Angle of its Point on Link 4").value), 25);
    Use_Units(2);
    for (const Sheet_Fact& found : Model_Facts(Model)) {
        if (found.what != "Inertia of Link 2") continue;
        EXPECT_EQ(found.unit, "ft-lb-s^2");
    }
}

}  // namespace verlink::test
