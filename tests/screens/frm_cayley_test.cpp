// The screen of the cognates: which one is chosen, what is told of it, the diagram's zoom.
#include "screens/frm_cayley.h"

#include <algorithm>
#include <cmath>

#include "core/classification.h"
#include "core/numeric.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "synthesis/cognates.h"
#include "synthesis/examples.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using platform::Screen;

struct Cayley_Screen : Fixture {
    Cayley_Screen() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        Testlinkage_old();
        SeedCognate();
    }
    void Activate() { form.Form_Activate(); }
    std::string Box(int index) { return form.txt_Linkout[index].Text; }
    /// Right end of the diagram's window.
    double Reach() { return form.Picture1.Drawing().Right(); }
    frm_Cayley& form = dynamic_cast<frm_Cayley&>(platform::Screens::Get("frm_Cayley"));
};

}  // namespace

TEST_F(Cayley_Screen, CaptionsStandAsDesigned) {
    EXPECT_EQ(form.fra_Cognate.Caption, "Cognate");
    EXPECT_EQ(form.fra_Links.Caption, "Cognate Data");
    const char* names[] = {"Link 1 (Ground)",
                           "Link 2 (Crank)",
                           "Link 3 (Coupler)",
                           "Link 4 (Rocker)",
                           "Dist. from I 2,3 to Coupler Pt",
                           "Angle from Link 3 to Coupler Pt"};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(form.lbl_Link[i].Caption, names[i]);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(form.pnl_CogLabel[i].Caption.Get(), "Cognate #" + std::to_string(i + 1));
    EXPECT_EQ(form.cmd_Done.Caption, "&Next >");
    EXPECT_EQ(form.zoom.mnu_Plus.Caption, "Zoom In");
    EXPECT_EQ(form.zoom.mnu_Normal.Caption, "Normal");
    EXPECT_EQ(form.zoom.mnu_Minus.Caption, "Zoom Out");
}

TEST_F(Cayley_Screen, ComesUpWithThePresentCognateAndTakesNoneByThat) {
    Run_Holds();
    form.Width() = 500;
    Activate();
    EXPECT_EQ(form.Width(), 11850);
    EXPECT_TRUE(form.opt_Cognate[0].Value);
    EXPECT_TRUE(Model.Calculated);
    const char* texts[] = {"18.000", "6.000", "16.000", "12.000", "14.420", "33.70"};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(Box(i), texts[i]) << i;
    for (const auto& unit : form.lbl_Units) EXPECT_EQ(unit->Caption, "in");
    EXPECT_EQ(form.Pnl_Grashof.Caption, "Grashof");
    EXPECT_GT(form.Picture1.Drawing().Alive(), 50U);

    Model.CognateNumber = 3;
    Activate();
    EXPECT_TRUE(form.opt_Cognate[2].Value);
    EXPECT_EQ(Model.L2, 6) << "the option was set by the screen itself";
    EXPECT_TRUE(Model.Calculated);
}

TEST_F(Cayley_Screen, AChoiceTakesTheCognate) {
    Run_Holds();
    Forces_Hold();
    Balance_Holds();
    Model.Synthesized = true;
    Activate();
    Choose_Option(form, "opt_Cognate", 1);
    EXPECT_EQ(Model.CognateNumber, 2);
    EXPECT_TRUE(Model.CognateEdit);
    EXPECT_EQ(Model.L1, Model.Cognates(2, 1));
    EXPECT_EQ(Model.Rpa, Model.Cognates(2, 5));
    EXPECT_EQ(Model.LinkArray(3), Model.Cognates(2, 3));
    for (int i = 0; i < 4; ++i) EXPECT_EQ(Box(i), FNRoundStr(Model.Cognates(2, i + 1), 3)) << i;
    EXPECT_EQ(Box(4), FNRoundStr(Model.Cognates(2, 5), 3));
    EXPECT_EQ(Box(5), FNRoundStr(Model.Delta, 2));
    EXPECT_EQ(form.Pnl_Grashof.Caption, "Grashof Double-Rocker");
    for (const bool flag :
         std::initializer_list<bool>{Model.Calculated, Model.DynamicsDone, Model.BalanceDone, Model.Synthesized})
        EXPECT_FALSE(flag);
}

TEST_F(Cayley_Screen, TheFirstLinkageComesBackAfterTheThird) {
    Model.Link1Angle = 30;
    Model.Link1Y = 9;
    Activate();
    Choose_Option(form, "opt_Cognate", 2);
    Choose_Option(form, "opt_Cognate", 0);
    EXPECT_EQ(Model.L1, 18);
    EXPECT_EQ(Model.L2, 6);
    EXPECT_EQ(Model.L3, 16);
    EXPECT_EQ(Model.L4, 12);
    EXPECT_EQ(Model.Rpa, Single(14.42));
    EXPECT_NEAR(Model.Link1X, 18 * std::sqrt(0.75), 1e-5);
    EXPECT_NEAR(Model.Link1Y, 9, 1e-5);
    EXPECT_EQ(Model.Link1Angle, 30) << "a ground angle set earlier stays";
    EXPECT_FALSE(Model.CognateEdit);
}

TEST_F(Cayley_Screen, AParallelogramIsRefusedAndNothingIsTouched) {
    Activate();
    Model.Parallelogram = true;
    Run_Holds();
    desktop.Expect_Message(kParallelogramMessage, platform::Answer::kOk, platform::Icon::kInformation,
                           platform::Buttons::kOk);
    Choose_Option(form, "opt_Cognate", 1);
    EXPECT_EQ(Model.CognateNumber, 1);
    EXPECT_EQ(Model.L2, 6);
    EXPECT_EQ(Box(1), "6.000");
    EXPECT_TRUE(Model.Calculated);
    EXPECT_TRUE(form.opt_Cognate[0].Value) << "the mark goes back to the cognate in force";
}

TEST_F(Cayley_Screen, TheZoomMenuChangesTheWindowAndTheFactor) {
    Activate();
    const double normal = Reach();
    form.zoom.mnu_Plus.Click();
    EXPECT_NEAR(Model.ZoomFactor, 1 / 1.1, 1e-6);
    EXPECT_NEAR(Reach(), normal / 1.1, 1e-4);
    // The factor counts twice at the lower bound.
    EXPECT_NEAR(form.Picture1.Drawing().Left(), -normal / 1.21, 1e-4);
    form.zoom.mnu_Normal.Click();
    EXPECT_EQ(Model.ZoomFactor, 1);
    EXPECT_EQ(Reach(), normal);
    form.zoom.mnu_Minus.Click();
    EXPECT_NEAR(Reach(), normal * 1.1, 1e-4);
}

TEST_F(Cayley_Screen, RedrawDrawsTheDiagramAgain) {
    Activate();
    const auto drawn = form.Picture1.Drawing().Alive();
    for (const bool by_menu : {true, false}) {
        form.Picture1.Canvas().Cls();
        if (by_menu)
            Pick_Menu(form, "mnu_Redraw");
        else
            Press(form, "cmd_Redraw");
        EXPECT_EQ(form.Picture1.Drawing().Alive(), drawn);
    }
}

TEST_F(Cayley_Screen, NamesStandAtTheCornersAndSidesOfTheDiagram) {
    Activate();
    const auto at = [this](const char* name, int index) { return *form.Get<platform::Label>(name, index).At.Get(); };
    // O2 is left of O4 on one level, below O6; the coupler point has the origin, the middle of the window.
    EXPECT_LT(at("lbl_Point", 0).across, at("lbl_Point", 1).across);
    EXPECT_GT(at("lbl_Point", 0).down, at("lbl_Point", 2).down);
    EXPECT_NEAR(at("lbl_Point", 3).across, 0.5, 0.03);
    EXPECT_NEAR(at("lbl_Point", 3).down, 0.5, 0.03);
    // The names of the cognates stand outside: below, at the left, at the right.
    EXPECT_GT(at("pnl_CogLabel", 0).below, 0);
    EXPECT_LT(at("pnl_CogLabel", 1).right, 0);
    EXPECT_GT(at("pnl_CogLabel", 2).right, 0);
}

TEST_F(Cayley_Screen, NamesOfCognatesLeadAwayFromTheCornerAcrossWhereverTheCouplerPointIs) {
    // A short link has the coupler point close to its side of the triangle.
    const Single L2 = Model.L2, L3 = Model.L3, L4 = Model.L4;
    for (const int small : {2, 3, 4}) {
        SCOPED_TRACE(small);
        Model.L2 = small == 2 ? Single(1) : L2;
        Model.L3 = small == 3 ? Single(1) : L3;
        Model.L4 = small == 4 ? Single(1) : L4;
        SeedCognate();
        Activate();
        const auto at = [this](const char* name, int index) {
            return *form.Get<platform::Label>(name, index).At.Get();
        };
        for (int side = 0; side < 3; ++side) {
            const auto name = at("pnl_CogLabel", side), across = at("lbl_Point", 2 - side);
            EXPECT_GT((name.across - across.across) * name.right + (name.down - across.down) * name.below, 0) << side;
        }
    }
}

using CayleyAlone = Fixture;

TEST_F(CayleyAlone, TheThreeLinkagesAreGreenBlueAndRed) {
    auto& form = dynamic_cast<frm_Cayley&>(platform::Screens::Get("frm_Cayley"));
    Use_Units(1);
    Model.ZoomFactor = 1;
    Testlinkage_old();
    SeedCognate();
    form.Form_Activate();
    for (const platform::Color color : {255 * 256, 255 * 65536, 255})
        EXPECT_TRUE(std::ranges::any_of(form.Picture1.Drawing().Primitives(), [color](const auto& drawn) {
            return drawn.alive && drawn.color == color;
        })) << color;
}

TEST_F(Cayley_Screen, LengthsAreShownInTheUnit) {
    Use_Units(5);
    Activate();
    EXPECT_EQ(Box(1), "6,000.000");
    EXPECT_EQ(form.lbl_Units[1].Caption, "mm");
}

TEST_F(Cayley_Screen, NextHidesTheScreenAndHelpOpensItsPage) {
    desktop.Expect_Screen("frm_Cayley", [&](Screen& screen) {
        desktop.Expect_Screen("frm_Help", [](Screen& help) {
            EXPECT_NE(help.Get<platform::DocumentView>("WebBrowser1").Document.Get().find("cognate_help.pdf"),
                      std::string::npos);
            help.Hide();
        });
        Pick_Menu(screen, "mnu_Help");
        Press(screen, "cmd_Done");
        EXPECT_FALSE(screen.Visible());
    });
    form.ShowModal();
}

}  // namespace verlink::test
