// The choices of the view menu are one for all screens, and outlast the session.
#include "screens/view_menu.h"

#include <algorithm>

#include "files/in_hand.h"
#include "platform/settings.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_inputnew.h"
#include "tests/screens/frm_animate_fixture.h"

namespace verlink::test {
namespace {

using platform::MenuEntry;
using platform::Screens;
using platform::The_Settings;

constexpr const char* kScreens[] = {"frm_HomeScreen", "frm_Inputnew", "frm_Animate"};

class ViewMenu : public Fixture {
   protected:
    ViewMenu() { The_Settings().Open(Path("config")); }
    static View_Choice& Choice(const char* screen, const char* name) {
        return Screens::Get(screen).Get<View_Choice>(name);
    }
    static std::vector<View_Choice*> Choices(const char* screen) {
        std::vector<View_Choice*> found;
        for (platform::Control* control : Screens::Get(screen).Controls())
            if (auto* choice = dynamic_cast<View_Choice*>(control)) found.push_back(choice);
        return found;
    }
};

TEST_F(ViewMenu, IsTheLastOfEachScreenWithALinkageButForTools) {
    for (const char* screen : kScreens) {
        MenuEntry* last = nullptr;
        for (platform::Control* control : Screens::Get(screen).Controls())
            if (auto* entry = dynamic_cast<MenuEntry*>(control);
                entry && !entry->Parent() && entry->Name() != "mnu_Tools")
                last = entry;
        ASSERT_TRUE(last) << screen;
        EXPECT_EQ(last->Caption.Get(), "View") << screen;
    }
}

TEST_F(ViewMenu, BeginsWithNothingChosen) {
    for (const char* screen : kScreens)
        for (const View_Choice* choice : Choices(screen)) {
            EXPECT_FALSE(choice->On()) << choice->Caption.Get();
            EXPECT_FALSE(choice->Checked) << choice->Caption.Get();
            EXPECT_FALSE(choice->Tip.Get().empty()) << choice->Caption.Get();
        }
}

TEST_F(ViewMenu, AClickChoosesAndTheNextTakesItBack) {
    View_Choice& poles = Choice("frm_Animate", "mnu_ViewPoles");
    int told = 0;
    poles.OnChoice = [&told] { ++told; };
    poles.Click();
    EXPECT_TRUE(poles.On());
    EXPECT_TRUE(poles.Checked);
    poles.Click();
    EXPECT_FALSE(poles.On());
    EXPECT_FALSE(poles.Checked);
    EXPECT_EQ(told, 2);
}

TEST_F(ViewMenu, TheMarksOfAllScreensFollow) {
    for (const char* screen : kScreens) Screens::Get(screen);
    Choice("frm_Inputnew", "mnu_ViewGrid").Click();
    for (const char* screen : kScreens) {
        EXPECT_TRUE(Choice(screen, "mnu_ViewGrid").Checked) << screen;
        EXPECT_FALSE(Choice(screen, "mnu_ViewNames").Checked) << screen;
    }
}

TEST_F(ViewMenu, EachChoiceIsKeptByItself) {
    const std::vector<View_Choice*> choices = Choices("frm_Animate");
    for (View_Choice* choice : choices) {
        choice->Click();
        for (const View_Choice* other : choices) EXPECT_EQ(other->On(), other == choice) << other->Caption.Get();
        choice->Click();
    }
}

TEST_F(ViewMenu, TheNextSessionHasTheChoicesOfThisOne) {
    Choice("frm_Animate", "mnu_ViewGhosts").Click();
    Screens::Discard();
    The_Settings().Open("");
    EXPECT_FALSE(Choice("frm_Animate", "mnu_ViewGhosts").Checked);
    Screens::Discard();
    The_Settings().Open(Path("config"));
    EXPECT_TRUE(Choice("frm_Animate", "mnu_ViewGhosts").Checked);
    EXPECT_FALSE(Choice("frm_Animate", "mnu_ViewPoles").Checked);
}

TEST_F(ViewMenu, WhatAHandHasWrittenIntoTheSettingsIsNoChoice) {
    The_Settings().Put("view.poles", "perhaps");
    EXPECT_FALSE(Choice("frm_Animate", "mnu_ViewPoles").Checked);
}

using platform::Overlay;
using Kind = Overlay::Mark::Kind;

class ViewOnAnimate : public AnimateScreen {
   protected:
    const Overlay& Over() { return form.Picture1.Over; }
    int Places(Kind kind) { return static_cast<int>(std::ranges::count(Over().marks, kind, &Overlay::Mark::kind)); }
    void Choose_All() {
        View_Menu& view = form.view;
        for (View_Choice* choice : {&view.mnu_ViewPoles, &view.mnu_ViewVelocities, &view.mnu_ViewAccelerations,
                                    &view.mnu_ViewPinForces, &view.mnu_ViewShakingForce, &view.mnu_ViewCurvature,
                                    &view.mnu_ViewGrid, &view.mnu_ViewNames, &view.mnu_ViewGhosts})
            choice->Click();
    }
};

TEST_F(ViewOnAnimate, WhatIsChosenLiesOverThePositionShownAtOnce) {
    After_First_Picture([&] {
        EXPECT_TRUE(Over().Empty());
        form.view.mnu_ViewNames.Click();
        EXPECT_EQ(Over().names.size(), 5U);
        form.view.mnu_ViewVelocities.Click();
        EXPECT_EQ(Places(Kind::kOpenArrow), 3);
        form.view.mnu_ViewNames.Click();
        EXPECT_EQ(Over().names.size(), 0U);
        form.view.mnu_ViewVelocities.Click();
        EXPECT_TRUE(Over().Empty());
    });
}

TEST_F(ViewOnAnimate, WhatIsChosenOnAnotherScreenLiesOverThisOneToo) {
    After_First_Picture([&] {
        auto& home = dynamic_cast<frm_HomeScreen&>(Screens::Get("frm_HomeScreen"));
        home.view.mnu_ViewNames.Click();
        EXPECT_EQ(Over().names.size(), 5U);
        home.view.mnu_ViewNames.Click();
        EXPECT_TRUE(Over().Empty());
    });
}

TEST_F(ViewOnAnimate, ItGoesWithStepAndBarAndRun) {
    After_First_Picture([&] {
        form.view.mnu_ViewNames.Click();
        const auto A = [&] { return Over().names.at(2).at; };
        const auto stored = [](int step) {
            return platform::Point{Model.RunTable.PointXY(step, 0, 0),
                                   Model.FlipSum - Model.RunTable.PointXY(step, 0, 1)};
        };
        form.cmd_Reset.Click();
        EXPECT_EQ(A(), stored(0));
        form.cmd_Step.Click();
        EXPECT_EQ(A(), stored(1));
        form.hsc_step.Drag(7);
        EXPECT_EQ(A(), stored(7));
        form.hsc_step.Drop();
        int frames = 0;
        const Position_Ear ear(form, [&](const Shown& shown) {
            if (shown.Nothing()) {
                EXPECT_TRUE(Over().Empty());
                return;
            }
            EXPECT_EQ(A(), stored(shown.step));
            ++frames;
        });
        form.cmd_Animate.Click();
        EXPECT_EQ(frames, Model.NSteps + 2);
    });
}

TEST_F(ViewOnAnimate, ItFollowsADrag) {
    After_First_Picture([&] {
        form.opt_Shift_Drag[1].Click();
        form.view.mnu_ViewNames.Click();
        form.Picture1_MouseMove(1, 1, 0.9, Model.FlipSum);
        EXPECT_NEAR(
            Over().names.at(2).at.x * Over().names.at(2).at.x + std::pow(Model.FlipSum - Over().names.at(2).at.y, 2),
            0.81, 1e-3);
    });
}

TEST_F(ViewOnAnimate, NothingLiesOverAPictureThatWasCleared) {
    After_First_Picture([&] {
        Choose_All();
        EXPECT_FALSE(Over().Empty());
        form.txt_Linkout[1].Type("1.2");
        form.txt_Linkout[1].OnLostFocus();
        EXPECT_TRUE(Over().Empty());
        // A choice without a run has nothing to lay over it.
        form.view.mnu_ViewGrid.Click();
        form.view.mnu_ViewGrid.Click();
        EXPECT_TRUE(Over().Empty());
        form.cmd_Recalc.Click();
        EXPECT_FALSE(Over().Empty());
    });
}

TEST_F(ViewOnAnimate, TheDrawingItselfIsTheSameWithAndWithout) {
    std::vector<std::string> calls[2];
    for (auto& drawn : calls)
        After_First_Picture([&] {
            LogSurface log;
            form.Picture1.Redirect(&log);
            if (&drawn == &calls[1]) Choose_All();
            form.cmd_Step.Click();
            form.hsc_step.Drag(7);
            form.cmd_Animate.Click();
            form.Picture1.Redirect(nullptr);
            drawn = log.Calls;
        });
    EXPECT_GT(calls[0].size(), 100U);
    EXPECT_EQ(calls[0], calls[1]);
}

TEST_F(ViewOnAnimate, LookingChangesNothingOfTheModel) {
    After_First_Picture([&] {
        Model_Kept();
        const std::string name = form.lbl_Model.Caption;
        Choose_All();
        EXPECT_FALSE(Modified());
        EXPECT_EQ(form.lbl_Model.Caption.Get(), name);
        EXPECT_TRUE(Model.RunStands);
    });
}

TEST_F(ViewOnAnimate, AnotherKindOfStepsTakesItAway) {
    auto& input = dynamic_cast<frm_Inputnew&>(Screens::Get("frm_Inputnew"));
    desktop.Expect_Screen("frm_Inputnew", [&](platform::Screen& screen) {
        input.cmd_Calc.Click();
        input.view.mnu_ViewVelocities.Click();
        EXPECT_FALSE(input.Picture1.Over.Get().Empty());
        input.opt_Calctype[2].Click();
        EXPECT_FALSE(Model.RunStands);
        EXPECT_TRUE(input.Picture1.Over.Get().Empty());
        screen.Hide();
    });
    input.ShowModal();
}

TEST_F(ViewOnAnimate, TheInputScreenHasItToo) {
    auto& input = dynamic_cast<frm_Inputnew&>(Screens::Get("frm_Inputnew"));
    desktop.Expect_Screen("frm_Inputnew", [&](platform::Screen& screen) {
        input.Timer1.Tick();
        EXPECT_TRUE(input.Picture1.Over.Get().Empty());
        input.cmd_Calc.Click();
        input.view.mnu_ViewPoles.Click();
        EXPECT_FALSE(input.Picture1.Over.Get().marks.empty());
        const Overlay before = input.Picture1.Over;
        input.cmd_Step.Click();
        EXPECT_FALSE(input.Picture1.Over == before);
        input.opt_Modulo[0].Click();
        screen.Hide();
    });
    input.ShowModal();
}

TEST_F(ViewOnAnimate, TheHomeScreenShowsItWithItsOwnRun) {
    auto& home = dynamic_cast<frm_HomeScreen&>(Screens::Get("frm_HomeScreen"));
    Run_Dropped();
    const auto before = std::make_unique<LinkageModel>(Model);
    home.Form_Return();
    home.view.mnu_ViewNames.Click();
    EXPECT_EQ(home.Picture1.Over.Get().names.size(), 5U);
    home.view.mnu_ViewNames.Click();
    EXPECT_TRUE(home.Picture1.Over.Get().Empty());
    EXPECT_FALSE(Model.RunStands);
    EXPECT_EQ(Model.AnimMax, before->AnimMax);
    EXPECT_EQ(Model.ZoomFactor, before->ZoomFactor);
}

}  // namespace
}  // namespace verlink::test
