// How controls answer to code and to the user's hand.
#include "platform/controls.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/desktop_services.h"
#include "platform/screen.h"
#include "tests/support/scripted_desktop.h"

namespace verlink::test {
namespace {

using platform::CheckBox;
using platform::ComboBox;
using platform::CommandButton;
using platform::ControlArray;
using platform::kNoIndex;
using platform::Label;
using platform::MenuEntry;
using platform::OptionButton;
using platform::PictureBox;
using platform::RuntimeFailure;
using platform::Screen;
using platform::ScrollBar;
using platform::TextBox;
using platform::Timer;

struct Form : Screen {
    Form() : Screen("frm_Form") {}
    TextBox txt_Name{*this, "txt_Name", "first"};
    TextBox txt_Other{*this, "txt_Other"};
    Label lbl_Name{*this, "lbl_Name", "Name"};
    CommandButton cmd_Go{*this, "cmd_Go", "&Go"};
    CheckBox chk_Box{*this, "chk_Box", "Box"};
    ControlArray<OptionButton> opt_Way{*this, "opt_Way", {{0, "This"}, {1, "That"}, {4, "Neither"}}};
    ControlArray<OptionButton> opt_Else{*this, "opt_Else", {{0, "Here"}, {1, "There"}}};
    ComboBox cmb_List{*this, "cmb_List", "10"};
    ScrollBar hsc_Bar{*this, "hsc_Bar"};
    PictureBox Picture1{*this, "Picture1"};
    Timer Timer1{*this, "Timer1"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};
    MenuEntry mnu_Top{*this, "mnu_Top", "&Top"};
    MenuEntry mnu_Below{mnu_Top, "mnu_Below", "Below"};
    MenuEntry mnu_Deep{mnu_Below, "mnu_Deep", "Deep"};
};

class ControlsTest : public testing::Test {
   protected:
    /// An action that writes its name into `events`.
    std::function<void()> Note(const std::string& name) {
        return [this, name] { events.push_back(name); };
    }
    static long Number_Raised(const std::function<void()>& action) {
        try {
            action();
        } catch (const RuntimeFailure& failure) {
            return failure.Number();
        }
        return 0;
    }

    ScriptedDesktop desktop;
    Form form;
    std::vector<std::string> events;
    using Events = std::vector<std::string>;
};

TEST_F(ControlsTest, LinesPrintedOnAPictureStandBelowEachOther) {
    int told = 0;
    form.Picture1.Watcher = [&] { ++told; };
    form.Picture1.Print("first");
    form.Picture1.Print("");
    form.Picture1.Print("third");
    EXPECT_EQ(form.Picture1.Lines.Get(), (std::vector<std::string>{"first", "", "third"}));
    EXPECT_EQ(told, 3);
    form.Picture1.Lines = {};
    EXPECT_TRUE(form.Picture1.Lines.Get().empty());
}

TEST_F(ControlsTest, ATextRaisesItsEventOnceAndOnlyWhenItReallyChanges) {
    form.txt_Name.Text.Event = Note("change");
    form.txt_Name.Text = "first";
    EXPECT_EQ(events, Events{});
    form.txt_Name.Text = "second";
    EXPECT_EQ(events, Events{"change"});
    form.txt_Name.Text = form.txt_Other.Text;
    EXPECT_EQ(form.txt_Name.Text.Get(), "");
    EXPECT_EQ(events.size(), 2U);
}

TEST_F(ControlsTest, TheWatcherIsToldBeforeTheEvent) {
    form.txt_Name.Watcher = Note("watcher");
    form.txt_Name.Text.Event = Note("event");
    form.txt_Name.Text = "second";
    EXPECT_EQ(events, (Events{"watcher", "event"}));
    form.txt_Name.Enabled = false;
    form.txt_Name.Enabled = false;
    EXPECT_EQ(events, (Events{"watcher", "event", "watcher"}));
}

TEST_F(ControlsTest, SelectingAllCanBeRepeated) {
    form.txt_Name.Watcher = Note("watcher");
    form.txt_Name.SelectAll();
    form.txt_Name.SelectAll();
    EXPECT_TRUE(form.txt_Name.SelectedAll);
    EXPECT_GE(events.size(), 3U);
}

TEST_F(ControlsTest, AButtonClicksOnlyWhileEnabledAndVisible) {
    form.cmd_Go.OnClick = Note("go");
    form.cmd_Go.Click();
    form.cmd_Go.Enabled = false;
    form.cmd_Go.Click();
    form.cmd_Go.Enabled = true;
    form.cmd_Go.Visible = false;
    form.cmd_Go.Click();
    EXPECT_EQ(events, Events{"go"});
}

TEST_F(ControlsTest, OfAGroupOfOptionsOneIsOn) {
    form.opt_Way[0].Value = true;
    form.opt_Else[1].Value = true;
    form.opt_Way[4].Value = true;
    EXPECT_FALSE(form.opt_Way[0].Value);
    EXPECT_FALSE(form.opt_Way[1].Value);
    EXPECT_TRUE(form.opt_Way[4].Value);
    EXPECT_TRUE(form.opt_Else[1].Value);
}

TEST_F(ControlsTest, AnOptionClicksOnceWhenItGoesOnWhoeverDoesIt) {
    form.opt_Way.On(&OptionButton::OnClick, [this](int index) { events.push_back(std::to_string(index)); });
    form.opt_Way[0].Value = true;
    form.opt_Way[0].Value = true;
    form.opt_Way[1].Click();
    form.opt_Way[1].Click();
    form.opt_Way[1].Value = false;
    EXPECT_EQ(events, (Events{"0", "1"}));
    form.opt_Way[4].Enabled = false;
    form.opt_Way[4].Click();
    EXPECT_FALSE(form.opt_Way[4].Value);
}

TEST_F(ControlsTest, TheOthersOfAGroupAreOffWhenTheClickIsRaised) {
    form.opt_Way[0].Value = true;
    bool other = true;
    form.opt_Way[1].OnClick = [&] { other = form.opt_Way[0].Value; };
    form.opt_Way[1].Click();
    EXPECT_FALSE(other);
}

TEST_F(ControlsTest, ACheckBoxClicksOnEveryChange) {
    form.chk_Box.OnClick = Note("click");
    form.chk_Box.Value = true;
    form.chk_Box.Value = true;
    form.chk_Box.Click();
    EXPECT_FALSE(form.chk_Box.Value);
    form.chk_Box.Enabled = false;
    form.chk_Box.Click();
    EXPECT_EQ(events.size(), 2U);
}

TEST_F(ControlsTest, ChoosingFromAListCountsAsAClickAndNotAsATyping) {
    form.cmb_List.AddItem("10");
    form.cmb_List.AddItem("20");
    form.cmb_List.OnChange = Note("change");
    form.cmb_List.OnClick = Note("click");
    form.cmb_List.Choose(1);
    EXPECT_EQ(form.cmb_List.Text.Get(), "20");
    EXPECT_EQ(form.cmb_List.ListIndex(), 1);
    EXPECT_EQ(events, Events{"click"});
    form.cmb_List.Choose(1);
    EXPECT_EQ(events, (Events{"click", "click"}));
}

TEST_F(ControlsTest, ATextTypedIntoAListIsAChangeAndChoosesNothing) {
    form.cmb_List.AddItem("10");
    form.cmb_List.Choose(0);
    form.cmb_List.OnChange = Note("change");
    form.cmb_List.OnClick = Note("click");
    form.cmb_List.Text = "33";
    EXPECT_EQ(form.cmb_List.ListIndex(), -1);
    EXPECT_EQ(events, Events{"change"});
    form.cmb_List.Clear();
    EXPECT_EQ(form.cmb_List.Items().size(), 0U);
    EXPECT_EQ(form.cmb_List.Text.Get(), "33");
}

TEST_F(ControlsTest, AnItemThatDoesNotExistIsAnInvalidValue) {
    form.cmb_List.AddItem("10");
    EXPECT_EQ(Number_Raised([&] { form.cmb_List.Choose(1); }), platform::kInvalidProperty);
    EXPECT_EQ(Number_Raised([&] { form.cmb_List.Choose(-2); }), platform::kInvalidProperty);
    form.cmb_List.Choose(-1);
    EXPECT_EQ(form.cmb_List.Text.Get(), "");
}

TEST_F(ControlsTest, ABarTellsOfARealChangeOnly) {
    form.hsc_Bar.OnChange = Note("change");
    form.hsc_Bar.OnScroll = Note("scroll");
    form.hsc_Bar.SetValue(0);
    EXPECT_EQ(events, Events{});
    form.hsc_Bar.SetValue(7);
    EXPECT_EQ(events, Events{"change"});
}

TEST_F(ControlsTest, DraggingTheThumbScrollsAndDroppingItChanges) {
    form.hsc_Bar.OnChange = Note("change");
    form.hsc_Bar.OnScroll = Note("scroll");
    form.hsc_Bar.Drag(3);
    form.hsc_Bar.Drag(3);
    form.hsc_Bar.Drag(5);
    EXPECT_EQ(form.hsc_Bar.Value(), 5);
    EXPECT_EQ(events, (Events{"scroll", "scroll"}));
    form.hsc_Bar.Drop();
    form.hsc_Bar.Drop();
    EXPECT_EQ(events, (Events{"scroll", "scroll", "change"}));
}

TEST_F(ControlsTest, AThumbDroppedWhereItWasChangesNothing) {
    form.hsc_Bar.OnChange = Note("change");
    form.hsc_Bar.Drag(3);
    form.hsc_Bar.Drag(0);
    form.hsc_Bar.Drop();
    EXPECT_EQ(events, Events{});
}

TEST_F(ControlsTest, TheThumbStopsAtTheLimits) {
    form.hsc_Bar.SetMax(10);
    form.hsc_Bar.Drag(99);
    EXPECT_EQ(form.hsc_Bar.Value(), 10);
    form.hsc_Bar.Drag(-5);
    EXPECT_EQ(form.hsc_Bar.Value(), 0);
}

TEST_F(ControlsTest, AValueOutsideTheLimitsIsAnInvalidValue) {
    form.hsc_Bar.SetMax(10);
    EXPECT_EQ(Number_Raised([&] { form.hsc_Bar.SetValue(11); }), platform::kInvalidProperty);
    EXPECT_EQ(Number_Raised([&] { form.hsc_Bar.SetValue(-1); }), platform::kInvalidProperty);
    EXPECT_EQ(form.hsc_Bar.Value(), 0);
}

TEST_F(ControlsTest, NarrowerLimitsPullTheValueIn) {
    form.hsc_Bar.SetValue(50);
    form.hsc_Bar.OnChange = Note("change");
    form.hsc_Bar.SetMax(60);
    EXPECT_EQ(events, Events{});
    form.hsc_Bar.SetMax(20);
    EXPECT_EQ(form.hsc_Bar.Value(), 20);
    EXPECT_EQ(events, Events{"change"});
    form.hsc_Bar.SetMax(60);
    form.hsc_Bar.SetMin(30);
    EXPECT_EQ(form.hsc_Bar.Value(), 30);
    EXPECT_EQ(events, (Events{"change", "change"}));
}

TEST_F(ControlsTest, OnlyALimitThatIsAnotherIsTold) {
    form.hsc_Bar.SetMin(1);
    form.hsc_Bar.SetMax(10);
    EXPECT_EQ(form.hsc_Bar.Min(), 1);
    EXPECT_EQ(form.hsc_Bar.Max(), 10);
    form.hsc_Bar.Watcher = Note("watcher");
    form.hsc_Bar.SetMin(1);
    form.hsc_Bar.SetMax(10);
    EXPECT_EQ(events, Events{});
    form.hsc_Bar.SetMax(11);
    form.hsc_Bar.SetMin(0);
    EXPECT_EQ(events, (Events{"watcher", "watcher"}));
}

TEST_F(ControlsTest, LimitsMayStandTheOtherWayRound) {
    form.hsc_Bar.SetMax(-435);
    form.hsc_Bar.SetValue(-100);
    EXPECT_EQ(form.hsc_Bar.Value(), -100);
    EXPECT_EQ(Number_Raised([&] { form.hsc_Bar.SetValue(1); }), platform::kInvalidProperty);
}

TEST_F(ControlsTest, ATimerTicksOnlyWhileEnabled) {
    form.Timer1.OnTimer = Note("tick");
    form.Timer1.Tick();
    form.Timer1.Enabled = true;
    form.Timer1.Tick();
    EXPECT_EQ(events, Events{"tick"});
}

TEST_F(ControlsTest, AMenuEntryNeedsAllAboveItEnabled) {
    form.mnu_Deep.OnClick = Note("deep");
    form.mnu_Deep.Click();
    form.mnu_Top.Enabled = false;
    form.mnu_Deep.Click();
    form.mnu_Top.Enabled = true;
    form.mnu_Below.Visible = false;
    form.mnu_Deep.Click();
    EXPECT_EQ(events, Events{"deep"});
    EXPECT_EQ(form.mnu_Top.Children(), std::vector<MenuEntry*>{&form.mnu_Below});
    EXPECT_EQ(form.mnu_Deep.Parent(), &form.mnu_Below);
}

TEST_F(ControlsTest, ControlsAreFoundByNameAndIndex) {
    EXPECT_EQ(form.Find("opt_Way", 4), &form.opt_Way[4]);
    EXPECT_EQ(form.Find("opt_Way"), nullptr);
    EXPECT_EQ(form.Find("opt_Way", 2), nullptr);
    EXPECT_EQ(form.opt_Way[4].ObjectName(), "opt_Way_4");
    EXPECT_EQ(form.txt_Name.ObjectName(), "txt_Name");
    EXPECT_EQ(&form.Text("txt_Name"), &form.txt_Name);
    EXPECT_EQ(form.FindAs<Label>("txt_Name"), nullptr);
    EXPECT_EQ(Number_Raised([&] { form.Text("lbl_Name"); }), platform::kSubscript);
    EXPECT_EQ(Number_Raised([&] { form.opt_Way[2].Value = true; }), platform::kSubscript);
    EXPECT_TRUE(form.opt_Way.Has(1));
    EXPECT_FALSE(form.opt_Way.Has(3));
}

TEST_F(ControlsTest, ReachingForAControlThatIsNotThereDoesNothing) {
    int reached = 0;
    platform::With<Label>(form, "lbl_Name", kNoIndex, [&](Label&) { ++reached; });
    platform::With<Label>(form, "lbl_None", kNoIndex, [&](Label&) { ++reached; });
    platform::With<TextBox>(form, "lbl_Name", kNoIndex, [&](TextBox&) { ++reached; });
    platform::With<Label>("frm_None", "lbl_Name", kNoIndex, [&](Label&) { ++reached; });
    EXPECT_EQ(reached, 1);
}

TEST_F(ControlsTest, APictureCanBeSentToALog) {
    LogSurface log;
    form.Picture1.Redirect(&log);
    form.Picture1.Canvas().Circle(-0.0, 1.25, 3, 0xFF);
    form.Picture1.Redirect(nullptr);
    form.Picture1.Canvas().PSet(1, 2);
    EXPECT_EQ(log.Text(), "Circle 0 1.25 3 0000FF\n");
    EXPECT_EQ(form.Picture1.Drawing().Alive(), 1U);
}

TEST_F(ControlsTest, ACancelledDialogIsAFailureAndKeepsTheName) {
    form.CommonDialog1.FileName = "kept";
    desktop.Expect_Open({}).Expect_Save({}).Expect_Printer(false);
    EXPECT_EQ(Number_Raised([&] { form.CommonDialog1.ShowOpen(); }), platform::kDialogCancelled);
    EXPECT_EQ(Number_Raised([&] { form.CommonDialog1.ShowSave(); }), platform::kDialogCancelled);
    EXPECT_EQ(Number_Raised([&] { form.CommonDialog1.ShowPrinter(); }), platform::kDialogCancelled);
    EXPECT_EQ(form.CommonDialog1.FileName, "kept");
    desktop.Expect_Save("/a/b.vlk");
    form.CommonDialog1.DialogTitle = "Save";
    form.CommonDialog1.OverwritePrompt = true;
    form.CommonDialog1.ShowSave();
    EXPECT_EQ(form.CommonDialog1.FileName, "/a/b.vlk");
    EXPECT_EQ(desktop.Dialogs.back().title, "Save");
    EXPECT_TRUE(desktop.Dialogs.back().warn_before_overwriting);
}

TEST_F(ControlsTest, WhateverChangesInAListOrABarIsToldToItsWatcher) {
    const auto told_by = [&](platform::Control& control, const std::function<void()>& change) {
        events.clear();
        control.Watcher = Note("watcher");
        change();
        return !events.empty();
    };
    EXPECT_TRUE(told_by(form.cmb_List, [&] { form.cmb_List.AddItem("10"); }));
    EXPECT_TRUE(told_by(form.cmb_List, [&] { form.cmb_List.Choose(0); })) << "its text is the same";
    EXPECT_EQ(form.cmb_List.Text.Get(), "10");
    EXPECT_TRUE(told_by(form.cmb_List, [&] { form.cmb_List.SelectAll(); }));
    EXPECT_TRUE(told_by(form.cmb_List, [&] { form.cmb_List.SelectAll(); }));
    EXPECT_EQ(events.size(), 2U);
    EXPECT_TRUE(told_by(form.cmb_List, [&] { form.cmb_List.Clear(); }));
    EXPECT_EQ(form.cmb_List.ListIndex(), -1);
    EXPECT_TRUE(told_by(form.hsc_Bar, [&] { form.hsc_Bar.SetValue(4); }));
    EXPECT_TRUE(told_by(form.hsc_Bar, [&] { form.hsc_Bar.Drag(6); }));
    EXPECT_TRUE(told_by(form.hsc_Bar, [&] { form.hsc_Bar.SetMax(5); }));
    EXPECT_EQ(events.size(), 2U) << "the limit, and the value that it pulls in";
    EXPECT_TRUE(told_by(form.hsc_Bar, [&] { form.hsc_Bar.SetMin(6); }));
    EXPECT_TRUE(told_by(form.txt_Name, [&] { form.txt_Name.Put_Back({}); }));
}

TEST_F(ControlsTest, OptionsAndTicksThatAreOutOfReachAreNotClicked) {
    form.opt_Way[1].Visible = false;
    form.opt_Way[1].Click();
    EXPECT_FALSE(form.opt_Way[1].Value);
    form.chk_Box.Visible = false;
    form.chk_Box.Click();
    EXPECT_FALSE(form.chk_Box.Value);
    form.chk_Box.Visible = true;
    form.chk_Box.Click();
    EXPECT_TRUE(form.chk_Box.Value);
    form.cmb_List.Choose(-1);
    EXPECT_EQ(form.cmb_List.ListIndex(), -1);
    platform::Shortcut key(form, "key_After", "Right");
    key.OnPress = Note("key");
    key.Press();
    key.Enabled = false;
    key.Press();
    EXPECT_EQ(events, Events{"key"});
    EXPECT_EQ(platform::Single_Keys(" Right  Ctrl++ "), (std::vector<std::string>{"Right", "Ctrl++"}));
}

TEST_F(ControlsTest, ANumberInHandIsReadBeforeAMenuActsThoughItsBoxIsNotLeft) {
    form.txt_Name.Reads = [](const std::string& typed) {
        return platform::Reading{.text = typed.substr(0, 1), .whole = typed.size() == 1, .why = "too long"};
    };
    form.mnu_Top.OnClick = [&] { events.push_back("acts on " + form.txt_Name.Text.Get()); };
    form.txt_Name.Text = "1";
    form.txt_Name.SetFocus();
    form.txt_Name.Type("2");
    form.mnu_Top.Click();
    EXPECT_EQ(events, Events{"acts on 2"});
    EXPECT_EQ(form.Focus(), &form.txt_Name);
    // A text that is refused counts as not told of yet, whether it was told of before or not.
    for (int time = 0; time < 2; ++time) {
        form.txt_Name.Type("34");
        form.mnu_Top.Click();
        EXPECT_TRUE(form.txt_Name.Refused());
        EXPECT_EQ(form.txt_Name.State().told, "");
        EXPECT_EQ(form.txt_Name.Text.Get(), "2");
    }
    form.txt_Name.Leave();
    EXPECT_TRUE(form.txt_Name.Refused()) << "left for the first time";
    form.txt_Name.Leave();
    EXPECT_EQ(form.txt_Name.Text.Get(), "3");
}

// Focus.

TEST_F(ControlsTest, TheFocusLeavesBeforeItArrives) {
    form.txt_Name.OnGotFocus = Note("got name");
    form.txt_Name.OnLostFocus = Note("lost name");
    form.txt_Other.OnGotFocus = Note("got other");
    form.txt_Name.SetFocus();
    form.txt_Name.SetFocus();
    form.txt_Other.SetFocus();
    EXPECT_EQ(events, (Events{"got name", "lost name", "got other"}));
    EXPECT_EQ(form.Focus(), &form.txt_Other);
}

TEST_F(ControlsTest, ABoxLeftMayTakeTheFocusBack) {
    form.txt_Name.SetFocus();
    form.txt_Name.OnLostFocus = [this] {
        events.emplace_back("lost name");
        form.txt_Name.SetFocus();
    };
    form.txt_Name.OnGotFocus = Note("got name");
    form.txt_Other.OnGotFocus = Note("got other");
    form.txt_Other.OnLostFocus = Note("lost other");
    form.FocusWatcher = [this](platform::Control* control) { events.push_back("at " + control->Name()); };
    form.txt_Other.SetFocus();
    EXPECT_EQ(form.Focus(), &form.txt_Name);
    EXPECT_EQ(events, (Events{"lost name", "lost other", "at txt_Name", "got name"}));
}

TEST_F(ControlsTest, TheFocusMayGoNowhere) {
    form.txt_Name.SetFocus();
    form.txt_Name.OnLostFocus = Note("lost name");
    form.MoveFocus(nullptr);
    EXPECT_EQ(form.Focus(), nullptr);
    EXPECT_EQ(events, Events{"lost name"});
}

}  // namespace
}  // namespace verlink::test
