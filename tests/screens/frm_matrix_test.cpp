// The screen of the equations after a solution.
#include "screens/frm_matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "core/numeric.h"
#include "dynamics/dynacalc.h"
#include "tests/screens/forces_fixture.h"

namespace verlink::test {

using platform::Label;

namespace {

constexpr platform::Color kGray = 128 + 128 * 256 + 128 * 65536;
constexpr platform::Color kRed = 255;

struct MatrixScreen : Forces {
    static void Solve() {
        const ForceSolve solve = Solve_Forces(Model);
        ASSERT_TRUE(solve.first);
        PrintAmatrix(solve.first->A, solve.first->C);
    }
    Label& Cell(int row, int column) { return form.Get<Label>("lbl_A" + std::to_string(row), column); }

    frm_Matrix& form = dynamic_cast<frm_Matrix&>(platform::Screens::Get("frm_Matrix"));
};

}  // namespace

TEST_F(MatrixScreen, CaptionsStandAsDesigned) {
    EXPECT_EQ(form.fra_A.Caption, "A-matrix");
    EXPECT_EQ(form.fra_C.Caption, "C-vector");
    EXPECT_EQ(form.lbl_Note.Caption, "Note: Data shown are for the first position of linkage calculated.");
    const std::vector<std::string> unknowns = {"F12x", "F12y", "F32x", "F32y", "F43x", "F43y", "F14x", "F14y", "T12"};
    for (int i = 1; i <= 9; ++i) {
        EXPECT_EQ(form.lbl_Var[i].Caption, unknowns[static_cast<std::size_t>(i - 1)]);
        EXPECT_EQ(form.lbl_Var[10 + i].Caption, unknowns[static_cast<std::size_t>(i - 1)]);
    }
    EXPECT_EQ(form.cmd_Done.Caption, "&Next >");
    EXPECT_EQ(form.cmd_Back.Caption, "< &Back");
}

TEST_F(MatrixScreen, ShowsTheEquationsOfTheFirstPositionAsTheyStandBeforeTheyAreSolved) {
    Solve();
    // Equation 1 is the x forces on link 2: F12x + F32x.
    for (int column = 1; column <= 9; ++column) {
        const bool part = column == 1 || column == 3;
        EXPECT_EQ(Cell(1, column).Caption, part ? "1.000" : "0.000");
        EXPECT_EQ(Cell(1, column).ForeColor, part ? kRed : kGray);
    }
    // Equation 3, the moments on link 2: the crank lies along x at the first position.
    EXPECT_EQ(Cell(3, 2).Caption, FNRoundStr(-0.5, 3));
    EXPECT_EQ(Cell(3, 4).Caption, FNRoundStr(1.115 - 0.5, 3));
    EXPECT_EQ(Cell(3, 9).Caption, "1.000");
    EXPECT_EQ(Cell(9, 3).Caption, "0.000") << "the equation is the row, the unknown the column";
    const auto& r = Model.RunTable;
    for (int axis = 0; axis <= 1; ++axis) {
        EXPECT_EQ(form.lbl_B[1 + axis].Caption, FNRoundStr(Model.LinkMass(2) * r.AccXY(0, 6, axis), 3));
        EXPECT_EQ(form.lbl_B[4 + axis].Caption, FNRoundStr(Model.LinkMass(3) * r.AccXY(0, 5, axis), 3));
        EXPECT_EQ(form.lbl_B[7 + axis].Caption, FNRoundStr(Model.LinkMass(4) * r.AccXY(0, 7, axis), 3));
    }
    EXPECT_EQ(form.lbl_B[9].Caption, FNRoundStr(Model.LinkInertia(4) * r.Alpha(0, 2), 3));
    for (int i = 1; i <= 9; ++i)
        EXPECT_EQ(form.lbl_B[i].ForeColor, form.lbl_B[i].Caption == "0.000" ? kGray : kRed) << i;
}

TEST_F(MatrixScreen, TakesTheDecimalsOfShownLengthsButTheColorsOfThree) {
    In_Units(5);
    Solve();
    EXPECT_EQ(Cell(1, 1).Caption, "1.00");
    EXPECT_EQ(Cell(1, 2).Caption, "0.00");
    EXPECT_EQ(Cell(3, 2).Caption, FNRoundStr(-Model.CG(2, 0), 2));
    EXPECT_EQ(Cell(3, 2).ForeColor, kRed);
}

TEST_F(MatrixScreen, ColorsChangeWhereThreeDecimalsComeToZero) {
    In_Units(5);
    const std::vector<double> A(81, 0.0004999), C(9, -0.00051);
    PrintAmatrix(A, C);
    EXPECT_EQ(Cell(4, 7).Caption, "0.00");
    EXPECT_EQ(Cell(4, 7).ForeColor, kGray);
    EXPECT_EQ(form.lbl_B[9].Caption, "0.00");
    EXPECT_EQ(form.lbl_B[9].ForeColor, kRed);
}

TEST_F(MatrixScreen, ShowsTheEquationsOfTheDynamicsScreenAndThenThoseOfTheCounterweights) {
    auto& masses = platform::Screens::Get("frm_MassProp");
    Inside(masses, [&masses] {
        Type(masses, "txt_DistCG", 2, "0.25");
        Press(masses, "cmd_Solve");
    });
    EXPECT_EQ(Cell(3, 2).Caption, "-0.250");
    auto& balance = platform::Screens::Get("frm_Balance");
    Inside(balance, [&balance] { Press(balance, "cmd_Calc"); });
    EXPECT_EQ(Cell(3, 2).Caption, FNRoundStr(-Model.BerkRadius(2) * std::cos(Model.MRAngle(2)), 3));
}

TEST_F(MatrixScreen, ComesUpWithPrintAndCopyAndEitherWayOutOnlyCloses) {
    form.Width() = 500;
    form.cmd_Print.Enabled = false;
    form.cmd_Copy.Enabled = false;
    Model.ScreenReturn = false;
    Inside(form, [this] {
        EXPECT_EQ(form.Width(), 11850);
        EXPECT_EQ(form.Height(), 8950);
        Printing_And_Copying(form, "cmd_Copy");
        Press(form, "cmd_Done");
        EXPECT_FALSE(form.Visible());
    });
    Inside(form, [this] {
        Press(form, "cmd_Back");
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_FALSE(Model.ScreenReturn);
}

}  // namespace verlink::test
