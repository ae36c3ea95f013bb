// A ground link that is turned: angles that are told in one frame, and a pivot that is told where it is drawn.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "core/text.h"
#include "screens/frm_cayley.h"
#include "screens/frm_homescreen.h"
#include "tests/screens/frm_inputnew_fixture.h"

namespace verlink::test {

namespace {

constexpr double kRadians = 3.14159265358979323846 / 180;

struct TurnedGround : InputScreen {
    /// Ground, crank, coupler, rocker; the ground at 30 degrees.
    void Enter_Linkage(const char* L1, const char* L2, const char* L3, const char* L4) {
        Without_Autocalc();
        Choose_Option(input, "opt_Polar", 1);
        const char* lengths[] = {L1, L2, L3, L4};
        for (int i = 0; i < 4; ++i) Enter_Link(i, lengths[i]);
        Enter_Link(6, "30");
    }
    void Enter_Limits(const char* first, const char* last, const char* step) {
        Enter_Limit(0, first);
        Enter_Limit(1, last);
        Enter_Limit(2, step);
    }
    static void Expect_Pivot_On_The_Ground_Link(const Screen& screen) {
        const Single x = Model.L1 * std::cos(30 * kRadians), y = Model.L1 * std::sin(30 * kRadians);
        EXPECT_EQ(Model.Link1Angle, 30);
        EXPECT_NEAR(Model.Link1X, x, 1e-6);
        EXPECT_NEAR(Model.Link1Y, y, 1e-6);
        EXPECT_EQ(Model.LinkArray(5), Model.Link1X);
        EXPECT_EQ(Model.LinkArray(6), Model.Link1Y);
        if (screen.Name() != "frm_Inputnew") return;
        EXPECT_NEAR(Val(screen.Text("txt_Linkout", 15).Text.Get()), x, 1e-3);
        EXPECT_NEAR(Val(screen.Text("txt_Linkout", 16).Text.Get()), y, 1e-3);
    }
};

}  // namespace

TEST_F(TurnedGround, TheMessageOfAPositionThatDoesNotCloseSaysTheAngleOfTheBox) {
    Show([this] {
        Enter_Linkage("4", "2", "3", "2");
        Choose_Option(input, "opt_Calctype", 1);
        Type(input, "txt_Thetazero", kNoIndex, "205.5");
        desktop.Expect_Message_With(std::string(kNoConnect) + "205.5 Deg.", Answer::kIgnore);
        Calculate_Now();
    });
}

TEST_F(TurnedGround, TheMessageSaysTheAngleThatTheStepIsShownWith) {
    Show([this] {
        Enter_Linkage("4", "2", "3", "2");
        Enter_Limits("60", "210", "30");
        desktop.Expect_Message_With(std::string(kNoConnect) + "150 Deg.", Answer::kRetry);
        desktop.Expect_Message_With(std::string(kNoConnect) + "180 Deg.", Answer::kRetry);
        desktop.Expect_Message_With(std::string(kNoConnect) + "210 Deg.", Answer::kRetry);
        Calculate_Now();
        EXPECT_EQ(input.lbl_Toggle[1].Caption, "deg to link 1");
        for (int step = 0; step <= 5; ++step) {
            input.hsc_step.Drag(step);
            EXPECT_EQ(input.txt_Thetazero.Text, std::to_string(60 + 30 * step) + ".0");
        }
    });
}

TEST_F(TurnedGround, ACognateShowsItsPivotWhereItIsDrawn) {
    Show([this] {
        Enter_Linkage("18", "6", "16", "12");
        Enter_Limits("45", "405", "30");
        Enter_Link(4, "14.42");
        Enter_Link(5, "33.7");
        Calculate_Now();
        for (const int cognate : {2, 3, 1}) {
            SCOPED_TRACE(cognate);
            Pick_Menu(input, "mnu_Cog", cognate);
            EXPECT_EQ(Model.L1, Model.Cognates(cognate, 1));
            Expect_Pivot_On_The_Ground_Link(input);
        }
    });
    auto& diagram = dynamic_cast<frm_Cayley&>(Screens::Get("frm_Cayley"));
    diagram.Form_Activate();
    for (const int cognate : {2, 3, 1}) {
        SCOPED_TRACE(cognate);
        Choose_Option(diagram, "opt_Cognate", cognate - 1);
        EXPECT_EQ(Model.L1, Model.Cognates(cognate, 1));
        Expect_Pivot_On_The_Ground_Link(diagram);
    }
}

}  // namespace verlink::test
