// Showing, hiding and activation of screens, nested as the program nests them.
#include "platform/screen.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/scripted_desktop.h"

namespace verlink::test {
namespace {

using platform::Screen;
using platform::Screens;

std::vector<std::string> events;

struct Told : Screen {
    explicit Told(const std::string& name) : Screen(name) {}
    void Form_Activate() override { events.push_back("activate " + Name()); }
    void Form_Return() override { events.push_back("return to " + Name()); }
    void Form_QueryUnload(bool& cancel) override {
        events.push_back("query " + Name());
        cancel = keep;
    }
    void Form_Unload() override { events.push_back("unload " + Name()); }
    bool keep = false;
};

class ScreenTest : public testing::Test {
   protected:
    ScreenTest() {
        events.clear();
        for (const char* name : {"frm_A", "frm_B", "frm_C"})
            Screens::Register(name, [name] { return std::make_unique<Told>(name); });
    }
    ~ScreenTest() override {
        Screens::Discard();
        for (const char* name : {"frm_A", "frm_B", "frm_C"}) Screens::Register(name, nullptr);
    }
    static Told& The(const char* name) { return static_cast<Told&>(Screens::Get(name)); }
    using Events = std::vector<std::string>;

    ScriptedDesktop desktop;
};

TEST_F(ScreenTest, AScreenIsMadeOnFirstUseAndKept) {
    EXPECT_TRUE(Screens::Knows("frm_A"));
    EXPECT_FALSE(Screens::Knows("frm_Z"));
    EXPECT_TRUE(Screens::Made().empty());
    Screen& made = Screens::Get("frm_A");
    EXPECT_EQ(&Screens::Get("frm_A"), &made);
    EXPECT_EQ(Screens::Made(), std::vector<Screen*>{&made});
    EXPECT_EQ(Screens::Find("frm_Z"), nullptr);
    EXPECT_THROW(Screens::Get("frm_Z"), platform::RuntimeFailure);
}

TEST_F(ScreenTest, AShowingReturnsWhenTheScreenIsHidden) {
    desktop.Expect_Screen("frm_A", [](Screen& screen) {
        EXPECT_TRUE(screen.Visible());
        EXPECT_EQ(Screen::Active(), &screen);
        screen.Hide();
    });
    The("frm_A").ShowModal();
    EXPECT_FALSE(The("frm_A").Visible());
    EXPECT_EQ(Screen::Active(), nullptr);
    EXPECT_EQ(events, Events{"activate frm_A"});
}

TEST_F(ScreenTest, TheEndOfAnotherScreenLeavesTheActiveOneActive) {
    desktop.Expect_Screen("frm_A", [](Screen& screen) {
        { const Told other("frm_Other"); }
        EXPECT_EQ(Screen::Active(), &screen);
        screen.Hide();
    });
    The("frm_A").ShowModal();
}

TEST_F(ScreenTest, TheWindowOfAScreenComesAndGoesOnceWithIt) {
    struct Windows : ScriptedDesktop {
        void Show_Window(Screen& screen) override { come.push_back(screen.Name()); }
        void Hide_Window(Screen& screen) override { gone.push_back(screen.Name()); }
        Events come, gone;
    } windows;
    platform::Use_Desktop(&windows);
    windows.Expect_Screen("frm_A", [](Screen& screen) {
        screen.Hide();
        screen.Hide();
    });
    The("frm_A").ShowModal();
    EXPECT_EQ(windows.come, Events{"frm_A"});
    EXPECT_EQ(windows.gone, Events{"frm_A"});
    platform::Use_Desktop(&desktop);
}

TEST_F(ScreenTest, TheScreenBelowIsReturnedToWhenTheChildCloses) {
    desktop.Expect_Screen("frm_A", [](Screen& a) {
        The("frm_B").ShowModal();
        EXPECT_EQ(Screen::Active(), &a);
        a.Hide();
    });
    desktop.Expect_Screen("frm_B", [](Screen& b) { b.Hide(); });
    The("frm_A").ShowModal();
    EXPECT_EQ(events, (Events{"activate frm_A", "activate frm_B", "return to frm_A"}));
}

TEST_F(ScreenTest, AScreenThatHidesItselfBeforeItShowsAnotherLeavesTheChainClean) {
    // Input to animate: the first showing returns only after the second screen has been left.
    desktop.Expect_Screen("frm_A", [](Screen& a) {
        a.Hide();
        The("frm_B").ShowModal();
        EXPECT_FALSE(a.Visible());
    });
    desktop.Expect_Screen("frm_B", [](Screen& b) { b.Hide(); });
    The("frm_A").ShowModal();
    EXPECT_EQ(events, (Events{"activate frm_A", "activate frm_B"}));
    EXPECT_EQ(Screen::Active(), nullptr);
}

TEST_F(ScreenTest, AScreenMayBeShownAgainWhileAnEarlierShowingHasNotReturned) {
    // From A to B and back to A, then on: all three showings end.
    desktop.Expect_Screen("frm_A", [](Screen& a) {
        a.Hide();
        The("frm_B").ShowModal();
    });
    desktop.Expect_Screen("frm_B", [](Screen& b) {
        b.Hide();
        The("frm_A").ShowModal();
        EXPECT_FALSE(The("frm_A").Visible());
    });
    desktop.Expect_Screen("frm_A", [](Screen& a) {
        EXPECT_TRUE(a.Visible());
        a.Hide();
    });
    The("frm_A").ShowModal();
    EXPECT_EQ(The("frm_A").Hidings(), 2);
    EXPECT_EQ(events, (Events{"activate frm_A", "activate frm_B", "activate frm_A"}));
}

TEST_F(ScreenTest, HidingAScreenThatIsNotShownDoesNothing) {
    The("frm_A").Hide();
    EXPECT_EQ(The("frm_A").Hidings(), 0);
}

TEST_F(ScreenTest, ClosingTheWindowAsksFirst) {
    desktop.Expect_Screen("frm_A", [](Screen& a) {
        The("frm_A").keep = true;
        a.Close();
        EXPECT_TRUE(a.Visible());
        The("frm_A").keep = false;
        a.Close();
        EXPECT_FALSE(a.Visible());
    });
    The("frm_A").ShowModal();
    EXPECT_EQ(events, (Events{"activate frm_A", "query frm_A", "query frm_A", "unload frm_A"}));
}

TEST_F(ScreenTest, AScreenThatSaysNothingOfItCloses) {
    struct Silent : Screen {
        Silent() : Screen("frm_Silent") {}
        void Form_QueryUnload(bool&) override {}
    } silent;
    desktop.Expect_Screen("frm_Silent", [](Screen& screen) { screen.Close(); });
    silent.ShowModal();
    EXPECT_FALSE(silent.Visible());
}

TEST_F(ScreenTest, NothingIsShownOnceTheProcessIsEnding) {
    desktop.Expect_Screen("frm_A", [](Screen&) {
        The("frm_B").ShowModal();
        EXPECT_TRUE(platform::The_Desktop().Ending());
        The("frm_C").ShowModal();
    });
    desktop.Expect_Screen("frm_B", [](Screen&) { platform::The_Desktop().End_Process(); });
    The("frm_A").ShowModal();
    EXPECT_FALSE(The("frm_C").Visible());
    EXPECT_EQ(events, (Events{"activate frm_A", "activate frm_B"}));
}

TEST_F(ScreenTest, NobodyIsReturnedToOnceTheProcessIsEnding) {
    desktop.Expect_Screen("frm_A", [](Screen&) { The("frm_B").ShowModal(); });
    desktop.Expect_Screen("frm_B", [](Screen& b) {
        b.Hide();
        platform::The_Desktop().End_Process();
    });
    The("frm_A").ShowModal();
    EXPECT_EQ(events, (Events{"activate frm_A", "activate frm_B"}));
}

TEST_F(ScreenTest, SizeAndCaptionAreWatched) {
    int told = 0;
    Screen& screen = The("frm_A");
    screen.ShapeWatcher() = [&] { ++told; };
    screen.Width() = 5000;
    screen.Width() = 5000;
    screen.Caption() = "Title";
    EXPECT_EQ(told, 2);
    EXPECT_TRUE(screen.Controls().empty());
}

TEST_F(ScreenTest, KeysDoWhatTheControlThatHasThemDoes) {
    struct Keyed : Screen {
        Keyed() : Screen("frm_Keyed") {}
        platform::TextBox box{*this, "txt_Box"};
        platform::CommandButton button{*this, "cmd_Print", "&Print"};
        platform::MenuEntry menu{*this, "mnu_File", "&File"};
        platform::MenuEntry entry{menu, "mnu_Save", "&Save"};
        platform::Shortcut shortcut{*this, "key_After", "Right Ctrl++"};
    } keyed;
    std::vector<std::string> done;
    keyed.button.Keys = "Ctrl+P";
    keyed.entry.Keys = "Ctrl+S";
    keyed.button.OnClick = [&] { done.emplace_back("print"); };
    keyed.entry.OnClick = [&] { done.emplace_back("save"); };
    keyed.shortcut.OnPress = [&] { done.emplace_back("after"); };
    keyed.box.OnLostFocus = [&] { done.emplace_back("left the box"); };
    keyed.box.SetFocus();
    EXPECT_TRUE(keyed.Press_Keys("Ctrl+S"));
    EXPECT_TRUE(keyed.Press_Keys("Right"));
    EXPECT_TRUE(keyed.Press_Keys("Ctrl++"));
    EXPECT_EQ(keyed.Focus(), &keyed.box);
    EXPECT_TRUE(keyed.Press_Keys("Ctrl+P"));
    EXPECT_EQ(keyed.Focus(), &keyed.button) << "as by a click";
    EXPECT_EQ(done, (Events{"save", "after", "after", "left the box", "print"}));
    EXPECT_FALSE(keyed.Press_Keys("Ctrl+Q"));
    EXPECT_FALSE(keyed.Press_Keys(""));

    done.clear();
    keyed.menu.Enabled = false;
    keyed.button.Enabled = false;
    keyed.shortcut.Enabled = false;
    keyed.box.SetFocus();
    for (const char* keys : {"Ctrl+S", "Ctrl+P", "Right"}) EXPECT_TRUE(keyed.Press_Keys(keys)) << keys;
    EXPECT_TRUE(done.empty());
    EXPECT_EQ(keyed.Focus(), &keyed.box);
}

TEST_F(ScreenTest, AMenuIsToldBeforeItsEntriesComeIntoSightTheOuterOnesFirst) {
    Screen screen("frm_Menus");
    platform::MenuEntry file(screen, "mnu_File", "&File"), recent(file, "mnu_Recent", "&Recent Files");
    file.OnOpen = [] { events.emplace_back("file"); };
    recent.OnOpen = [] { events.emplace_back("recent"); };
    recent.Open();
    EXPECT_EQ(events, (Events{"file", "recent"}));
}

TEST_F(ScreenTest, WhatIsAboveAScreenGoesTheLastFirst) {
    desktop.Expect_Screen("frm_A", [&](Screen& a) {
        desktop.Expect_Screen("frm_B", [&](Screen&) {
            desktop.Expect_Screen("frm_C", [&](Screen&) {
                Screen::Hide_Above(The("frm_B"));
                EXPECT_FALSE(The("frm_C").Visible());
                EXPECT_TRUE(The("frm_B").Visible());
                Screen::Hide_Above(a);
            });
            The("frm_C").ShowModal();
        });
        The("frm_B").ShowModal();
        Screen::Hide_Above(The("frm_C"));
        EXPECT_TRUE(a.Visible()) << "that one is not shown itself";
        a.Hide();
    });
    The("frm_A").ShowModal();
    EXPECT_EQ(events, (Events{"activate frm_A", "activate frm_B", "activate frm_C", "return to frm_A"}));
}

TEST_F(ScreenTest, OneThatStandsBesideIsArrivedAtOnceAndIsNeverTheActiveOne) {
    desktop.Expect_Screen("frm_A", [&](Screen& a) {
        desktop.Expect_Screen("frm_B", [](Screen&) {}).Expect_Screen("frm_B", [](Screen&) {});
        Screen& b = The("frm_B");
        EXPECT_FALSE(b.Beside());
        b.ShowBeside();
        EXPECT_TRUE(b.Visible());
        EXPECT_TRUE(b.Beside());
        b.ShowBeside();
        EXPECT_EQ(Screen::Active(), &a);
        Screen::Hide_Above(b);
        EXPECT_TRUE(a.Visible()) << "nothing was shown above one that stands beside";
        b.Hide();
        EXPECT_FALSE(b.Visible());
        desktop.Expect_Screen("frm_B", [](Screen& shown) {
            EXPECT_FALSE(shown.Beside());
            EXPECT_EQ(Screen::Active(), &shown);
            shown.Hide();
        });
        b.ShowModal();
        platform::The_Desktop().End_Process();
        b.ShowBeside();
        EXPECT_FALSE(b.Visible()) << "the process is ending";
    });
    The("frm_A").ShowModal();
    EXPECT_EQ(events, (Events{"activate frm_A", "activate frm_B", "activate frm_B", "return to frm_A"}));
    desktop.Verify();
}

TEST_F(ScreenTest, WhoGoesAlongHearsOfTheActiveScreenAfterItsOwnEvent) {
    Screen::ActiveWatcher() = [](Screen& screen) { events.push_back("at " + screen.Name()); };
    desktop.Expect_Screen("frm_A", [&](Screen& a) {
        desktop.Expect_Screen("frm_B", [](Screen& b) { b.ShowModal(); });
        desktop.Expect_Screen("frm_B", [](Screen& b) { b.Hide(); });
        The("frm_B").ShowModal();
        a.Hide();
    });
    The("frm_A").ShowModal();
    Screen::ActiveWatcher() = nullptr;
    EXPECT_EQ(events,
              (Events{"activate frm_A", "at frm_A", "activate frm_B", "at frm_B", "return to frm_A", "at frm_A"}));
}

TEST_F(ScreenTest, OneThatHidesItselfAsItComesIsNotWaitedForNorGoneAlongWith) {
    struct Gone : Screen {
        Gone() : Screen("frm_Gone") {}
        void Form_Activate() override { Hide(); }
    } gone;
    Screen::ActiveWatcher() = [](Screen& screen) { events.push_back("at " + screen.Name()); };
    gone.ShowModal();
    Screen::ActiveWatcher() = nullptr;
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(gone.Hidings(), 1);
    EXPECT_EQ(Screen::Active(), nullptr);
}

TEST_F(ScreenTest, AScreenThatIsDestroyedIsNeitherShownNorActive) {
    Screens::Register("frm_C", [] { return std::make_unique<Told>("frm_C"); });
    desktop.Expect_Screen("frm_A", [&](Screen& a) {
        auto brief = std::make_unique<Told>("frm_Brief");
        desktop.Expect_Screen("frm_Brief", [&](Screen&) { platform::The_Desktop().End_Process(); });
        brief->ShowModal();
        EXPECT_EQ(Screen::Active(), brief.get());
        brief.reset();
        EXPECT_EQ(Screen::Active(), nullptr);
        Screen::Hide_Above(a);
        EXPECT_TRUE(a.Visible());
    });
    The("frm_A").ShowModal();
}

TEST_F(ScreenTest, WordsOfATitleAreKnownOfThoseThatWereRegisteredWithThem) {
    const auto make = [] { return std::make_unique<Told>("frm_C"); };
    EXPECT_FALSE(Screens::Titles().contains("frm_C"));
    Screens::Register("frm_C", make, "Balance");
    EXPECT_EQ(Screens::Titles().at("frm_C"), "Balance");
    Screens::Register("frm_C", make, "Flywheel");
    EXPECT_EQ(Screens::Titles().at("frm_C"), "Flywheel");
    Screens::Register("frm_C", make);
    EXPECT_FALSE(Screens::Titles().contains("frm_C"));
    Screens::Register("frm_C", make, "Balance");
    Screens::Register("frm_C", nullptr, "Nothing");
    EXPECT_FALSE(Screens::Titles().contains("frm_C"));
    EXPECT_FALSE(Screens::Knows("frm_C"));
}

TEST_F(ScreenTest, WhatWasRefusedInABoxIsForgottenWithTheScreen) {
    struct Boxed : Screen {
        Boxed() : Screen("frm_Boxed") {}
        platform::TextBox box{*this, "txt_Box", "3"};
    } boxed;
    boxed.box.Reads = [](const std::string&) {
        return platform::Reading{.text = "4", .whole = false, .why = "no number"};
    };
    desktop.Expect_Screen("frm_Boxed", [&](Screen& screen) {
        boxed.box.Type("4 apples");
        boxed.box.Leave();
        EXPECT_TRUE(boxed.box.Refused());
        screen.Hide();
    });
    boxed.ShowModal();
    EXPECT_FALSE(boxed.box.Refused());
    EXPECT_EQ(boxed.box.Shown(), "3");
}

TEST_F(ScreenTest, ALabelIsWrittenWhereThereIsOne) {
    struct Labelled : Screen {
        Labelled() : Screen("frm_Labelled") {}
        platform::Label label{*this, "lbl_Say", "before", 2};
    } screen;
    platform::Put_Caption(screen, "lbl_Say", 1, "nobody");
    platform::Put_Caption(screen, "lbl_None", 2, "nobody");
    EXPECT_EQ(screen.label.Caption.Get(), "before");
    platform::Put_Caption(screen, "lbl_Say", 2, "after");
    EXPECT_EQ(screen.label.Caption.Get(), "after");
}

}  // namespace
}  // namespace verlink::test
