// What is typed into boxes between two steps of the model: taken back, typed again, and told.
#include "platform/deed.h"
#include "tests/shell/history_fixture.h"

namespace verlink::test {

class HistoryOfTyping : public HistoryOfResults {};

TEST_F(HistoryOfTyping, WhatIsTypedIntoSeveralBoxesIsTakenBackTheLatestFirstAndTypedAgainInItsOrder) {
    With_A_Run([this](Screen& home) {
        desktop.Expect_Screen("frm_MassProp", [](Screen& masses) {
            const auto in = [&](int link) { return masses.Text("txt_Mass", link).Text.Get(); };
            const std::string two = in(2), three = in(3);
            Type(masses, "txt_Mass", 2, "0.5");
            Type(masses, "txt_Mass", 3, "0.25");
            Type(masses, "txt_Mass", 2, "0.75");
            EXPECT_EQ(Steps().Undo_What(), "mass of link 2");
            Steps().Undo();
            EXPECT_EQ(in(2), two) << "as it was before anything was typed there";
            EXPECT_EQ(in(3), "0.25");
            EXPECT_EQ(Steps().Undo_What(), "mass of link 3");
            EXPECT_EQ(Steps().Redo_What(), "mass of link 2");
            Steps().Undo();
            EXPECT_EQ(in(3), three);
            EXPECT_FALSE(Steps().Can_Undo());
            EXPECT_EQ(Steps().Undo_What(), "");
            EXPECT_EQ(Steps().Redo_What(), "mass of link 3");
            Steps().Redo();
            EXPECT_EQ(in(3), "0.25");
            EXPECT_EQ(masses.Focus(), &masses.Text("txt_Mass", 3));
            EXPECT_EQ(Steps().Redo_What(), "mass of link 2");
            Steps().Redo();
            EXPECT_EQ(in(2), "0.75");
            EXPECT_FALSE(Steps().Can_Redo());
            EXPECT_EQ(Steps().Redo_What(), "");
            Steps().Undo();
            EXPECT_EQ(in(2), two);
            Type(masses, "txt_Mass", 4, "2");
            EXPECT_FALSE(Steps().Can_Redo()) << "something else was typed";
            Type(masses, "txt_Mass", 4, masses.Text("txt_Mass", 4).Text.Get());
            Press(masses, "cmd_Cancel");
        });
        Press(home, "cmd_Dynamics");
        EXPECT_FALSE(Steps().Can_Undo()) << "what was typed there is no step of this screen";
        EXPECT_FALSE(Steps().Can_Redo());
    });
}

TEST_F(HistoryOfTyping, AStepThatWasUndoneComesAgainBeforeWhatWasTypedBehindIt) {
    With_A_Run([this](Screen& home) {
        Do(home, [] { Model.LinkMass(2) = 0.5; });
        desktop.Expect_Screen("frm_MassProp", [](Screen& masses) {
            Type(masses, "txt_Mass", 3, "0.25");
            Steps().Undo();
            EXPECT_EQ(Steps().Redo_What(), "mass of link 3");
            Steps().Undo();
            EXPECT_NE(Model.LinkMass(2), 0.5);
            EXPECT_NE(Steps().Redo_What(), "mass of link 3");
            Steps().Redo();
            EXPECT_EQ(Model.LinkMass(2), 0.5);
            Press(masses, "cmd_Cancel");
        });
        Press(home, "cmd_Dynamics");
    });
}

TEST_F(HistoryOfTyping, TypingAtWhatHasNoTextIsNothingToTakeBack) {
    At_Home([](Screen& home) {
        { const platform::Deed deed(home.Get<CommandButton>("cmd_Input"), platform::Deed::Kind::kTyped); }
        EXPECT_FALSE(Steps().Can_Undo());
    });
}

TEST_F(HistoryOfTyping, ATextThatIsTypedBackToWhatItWasLeavesNothingToTakeBack) {
    With_A_Run([this](Screen& home) {
        desktop.Expect_Screen("frm_MassProp", [](Screen& masses) {
            const std::string two = masses.Text("txt_Mass", 2).Text;
            Type(masses, "txt_Mass", 2, "0.5");
            EXPECT_TRUE(Steps().Can_Undo());
            Type(masses, "txt_Mass", 2, two);
            EXPECT_FALSE(Steps().Can_Undo());
            Type(masses, "txt_Mass", 2, "0.5");
            Steps().Undo();
            masses.Text("txt_Mass", 2).Type("7");
            EXPECT_FALSE(Steps().Can_Undo()) << "what comes into the box otherwise is another matter";
            Press(masses, "cmd_Cancel");
        });
        Press(home, "cmd_Dynamics");
    });
}

TEST_F(HistoryOfTyping, WhatWasTakenBackInABoxIsGoneOnceTheModelHasChanged) {
    With_A_Run([this](Screen& home) {
        desktop.Expect_Screen("frm_MassProp", [&home](Screen& masses) {
            Type(masses, "txt_Mass", 2, "0.5");
            Steps().Undo();
            EXPECT_TRUE(Steps().Can_Redo());
            Do(home, [] { Model.LinkMass(3) = 2; });
            EXPECT_FALSE(Steps().Can_Redo());
            Press(masses, "cmd_Cancel");
        });
        Press(home, "cmd_Dynamics");
    });
}

TEST_F(HistoryOfTyping, WhatStandsTypedIsNoStepAnyMoreOnceTheModelHasChanged) {
    With_A_Run([this](Screen& home) {
        desktop.Expect_Screen("frm_MassProp", [&home](Screen& masses) {
            Type(masses, "txt_Mass", 2, "0.5");
            EXPECT_EQ(Steps().Undo_What(), "mass of link 2");
            Do(home, [] { Model.LinkMass(3) = 2; });
            EXPECT_NE(Steps().Undo_What(), "mass of link 2");
            Type(masses, "txt_Mass", 2, "0.75");
            Steps().Undo();
            EXPECT_EQ(masses.Text("txt_Mass", 2).Text, "0.5") << "what stood there when the typing began anew";
            Steps().Undo();
            EXPECT_NE(Model.LinkMass(3), 2);
            Press(masses, "cmd_Cancel");
        });
        Press(home, "cmd_Dynamics");
    });
}

TEST_F(HistoryOfTyping, WhatStandsTypedBelowIsNoStepAnyMoreOnceAnotherScreenHasUndoneOne) {
    With_A_Run([this](Screen& home) {
        Do(home, [] { Model.LinkMass(3) = 2; });
        desktop.Expect_Screen("frm_MassProp", [this](Screen& masses) {
            Type(masses, "txt_Mass", 2, "0.5");
            desktop.Expect_Screen("frm_About", [](Screen& above) {
                Steps().Undo();
                above.Hide();
            });
            Screens::Get("frm_About").ShowModal();
            EXPECT_NE(Model.LinkMass(3), 2);
            EXPECT_NE(Steps().Undo_What(), "mass of link 2");
            Press(masses, "cmd_Cancel");
        });
        Press(home, "cmd_Dynamics");
    });
}

TEST_F(HistoryOfTyping, WhoeverFollowsHearsWhetherSomethingIsBeingTyped) {
    static std::vector<bool> told;
    Steps().Follow([](bool typed) { told.push_back(typed); });
    With_A_Run([this](Screen& home) {
        desktop.Expect_Screen("frm_MassProp", [&home](Screen& masses) {
            const auto weigh = [] { Model.LinkMass(3) = 2; };
            const auto hears = [](const std::function<void()>& deed) {
                told.clear();
                deed();
                return told;
            };
            EXPECT_TRUE(hears([&] { Type(masses, "txt_Mass", 2, "0.5"); }).back());
            EXPECT_EQ(hears([] { Steps().Undo(); }), std::vector<bool>{false});
            EXPECT_EQ(hears([] { Steps().Redo(); }), std::vector<bool>{false});
            EXPECT_EQ(hears([&] { Do(home, weigh); }), std::vector<bool>{false});
            Press(masses, "cmd_Cancel");
        });
        Press(home, "cmd_Dynamics");
    });
}

}  // namespace verlink::test
