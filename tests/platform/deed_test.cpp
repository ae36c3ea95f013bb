// What a deed of the hand is called, and who is told of it when.
#include "platform/deed.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/screen.h"
#include "tests/support/scripted_desktop.h"

namespace verlink::test {
namespace {

using namespace platform;

struct Deeds_Form : Screen {
    Deeds_Form() : Screen("frm_Form") {}
    TextBox txt_Length{*this, "txt_Length", "3"};
    CommandButton cmd_Next{*this, "cmd_Next", "&Next >"};
    CommandButton cmd_Bare{*this, "cmd_Bare", ""};
    OptionButton opt_Open{*this, "opt_Open", "&Open Circuit"};
    CheckBox chk_Grid{*this, "chk_Grid", "Show &Grid"};
    MenuEntry mnu_Save{*this, "mnu_Save", " Save &As... "};
    PictureBox Picture1{*this, "Picture1"};
    Timer Timer1{*this, "Timer1"};
};

class DeedTest : public testing::Test {
   protected:
    using Told = std::vector<std::string>;
    DeedTest() {
        Watch_Deeds({.done = [this](const std::string& what,
                                    bool goes_on) { told.push_back("done " + what + (goes_on ? " ..." : "")); },
                     .by_itself = [this] { told.emplace_back("by itself"); },
                     .to_be_typed = [this](const Control& box) { told.push_back("into " + box.Name()); },
                     .typed = [this] { told.emplace_back("typed"); }});
    }
    ~DeedTest() override { Watch_Deeds({}); }

    ScriptedDesktop desktop;
    Deeds_Form form;
    Told told;
};

TEST_F(DeedTest, ItIsCalledByTheCaptionWithoutMarksOrByTheBeginningOfTheTip) {
    EXPECT_EQ(Deed_Name(form.cmd_Next), "Next");
    EXPECT_EQ(Deed_Name(form.opt_Open), "Open Circuit");
    EXPECT_EQ(Deed_Name(form.chk_Grid), "Show Grid");
    EXPECT_EQ(Deed_Name(form.mnu_Save), "Save As...");
    EXPECT_EQ(Deed_Name(form.Picture1), "drag");
    EXPECT_EQ(Deed_Name(form.Timer1), "change");
    for (const auto& [tip, name] : {std::pair{"Length of link 2, the crank, from O2 to A", "length of link 2"},
                                    {"Mass: of link 3", "mass"},
                                    {"Speed; in rpm", "speed"},
                                    {"Angle (deg)", "angle"},
                                    {"X of the pin", "X of the pin"},
                                    {"O2 alone", "O2 alone"},
                                    {"CG of link 4", "CG of link 4"},
                                    {"Y", "Y"},
                                    {" , nothing", "change"},
                                    {"", "change"}}) {
        form.txt_Length.Tip = tip;
        EXPECT_EQ(Deed_Name(form.txt_Length), name);
        form.cmd_Bare.Tip = tip;
        EXPECT_EQ(Deed_Name(form.cmd_Bare), name) << "a button without a caption";
    }
    form.cmd_Next.Tip = "Goes on to the next screen";
    EXPECT_EQ(Deed_Name(form.cmd_Next), "Next") << "the caption counts where there is one";
}

TEST_F(DeedTest, EachKindIsToldWhenItEnds) {
    {
        const Deed deed("move");
        EXPECT_TRUE(told.empty());
    }
    EXPECT_EQ(std::exchange(told, {}), Told{"done move"});
    { const Deed deed(form.cmd_Next); }
    EXPECT_EQ(std::exchange(told, {}), Told{"done Next"});
    { const Deed deed(form.Picture1, Deed::Kind::kDrag); }
    Deed::Drag_Ended();
    EXPECT_EQ(std::exchange(told, {}), (Told{"done drag ...", "done "}));
    { const Deed deed(form.Timer1, Deed::Kind::kTimed); }
    EXPECT_EQ(std::exchange(told, {}), Told{"by itself"});
    {
        const Deed deed(form.txt_Length, Deed::Kind::kTyped);
        EXPECT_EQ(told, Told{"into txt_Length"});
    }
    EXPECT_EQ(told, (Told{"into txt_Length", "typed"}));
}

TEST_F(DeedTest, ADeedWithinADeedIsPartOfIt) {
    {
        const Deed outer("outer");
        { const Deed inner("inner"); }
        { const Deed drag("drag", Deed::Kind::kDrag); }
        { const Deed timed("time", Deed::Kind::kTimed); }
        { const Deed typed("type", Deed::Kind::kTyped); }
        EXPECT_TRUE(told.empty());
    }
    EXPECT_EQ(std::exchange(told, {}), Told{"done outer"});
    { const Deed next("next"); }
    EXPECT_EQ(told, Told{"done next"});
}

TEST_F(DeedTest, WhatWasDoneSoFarBearsTheNameOfTheOutermostDeed) {
    Deed::So_Far();
    EXPECT_EQ(std::exchange(told, {}), Told{"done "});
    const Deed outer("outer"), inner("inner"), innermost("innermost");
    Deed::So_Far();
    EXPECT_EQ(told, Told{"done outer"});
}

TEST_F(DeedTest, WhileAScreenWaitsTheHandHasDeedsOfItsOwn) {
    {
        const Deed outer("outer");
        {
            const Deed::Waiting hand_free;
            { const Deed own("own"); }
            EXPECT_EQ(std::exchange(told, {}), Told{"done own"});
        }
        { const Deed inner("inner"); }
        EXPECT_TRUE(told.empty());
    }
    EXPECT_EQ(told, Told{"done outer"});
}

TEST_F(DeedTest, LeavingABoxThatAHandHasTouchedIsADeedOfItsOwn) {
    form.txt_Length.Tip = "Length of link 2, the crank";
    const Deed around(form.cmd_Next);
    const auto left = [this] { told.emplace_back("left"); };
    Leave_Box(form.txt_Length, left);
    Leave_Box(form.cmd_Bare, left);
    EXPECT_EQ(std::exchange(told, {}), (Told{"left", "left"})) << "nothing was typed";
    form.txt_Length.Type("4");
    Leave_Box(form.txt_Length, left);
    EXPECT_EQ(told, (Told{"done Next", "left", "done length of link 2"}));
}

TEST_F(DeedTest, WhoWatchesNothingIsToldNothing) {
    Watch_Deeds({});
    for (const auto kind : {Deed::Kind::kWhole, Deed::Kind::kTyped, Deed::Kind::kTimed, Deed::Kind::kDrag})
        EXPECT_NO_THROW({ const Deed deed(form.txt_Length, kind); });
    Deed::So_Far();
    Deed::By_Itself();
    Deed::Drag_Ended();
    EXPECT_TRUE(told.empty());
}

TEST_F(DeedTest, AScreenThatComesUpEndsWhatWasDoneAndItsOwnChangesAreNobodys) {
    struct Counts : Screen {
        explicit Counts(Told& told) : Screen("frm_Counts"), events(told) {}
        void Form_Activate() override { events.emplace_back("activate"); }
        Told& events;
    } screen(told);
    desktop.Expect_Screen("frm_Counts", [&](Screen& shown) {
        { const Deed own("on the screen"); }
        shown.Hide();
    });
    {
        const Deed deed(form.cmd_Next);
        screen.ShowModal();
        { const Deed inner("inner"); }
    }
    EXPECT_EQ(told, (Told{"done Next", "activate", "by itself", "done on the screen", "done Next"}));
}

}  // namespace
}  // namespace verlink::test
