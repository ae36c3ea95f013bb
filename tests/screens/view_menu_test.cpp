// The choices of the view menu are one for all screens, and outlast the session.
#include "screens/view_menu.h"

#include "platform/settings.h"
#include "tests/support/fixture.h"

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

TEST_F(ViewMenu, IsTheLastOfEachScreenWithALinkage) {
    for (const char* screen : kScreens) {
        MenuEntry* last = nullptr;
        for (platform::Control* control : Screens::Get(screen).Controls())
            if (auto* entry = dynamic_cast<MenuEntry*>(control); entry && !entry->Parent()) last = entry;
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

}  // namespace
}  // namespace verlink::test
