// From the screen of linkages for a task, come to from home, to the screens of synthesis; and where no road leads.
#include "core/text.h"
#include "design/choices.h"
#include "screens/synthesis_screen.h"
#include "screens/view_menu.h"
#include "tests/screens/frm_explore_fixture.h"

namespace verlink::test {
namespace {

class ExploreChoices : public ExploreFixture {
   protected:
    /// The screen of synthesis comes up and is left.
    void Expect_Synthesis(const char* name) {
        desktop.Expect_Screen(name, [](platform::Screen& synthesis) { Press(synthesis, "cmd_Cancel"); });
    }
    static design::Task So_Many(std::size_t positions) {
        design::Task task = Four();
        task.positions.resize(positions);
        return task;
    }
    void Use() {
        desktop.Expect_Screen("frm_Inputnew", [](platform::Screen& input) { Press(input, "cmd_Cancel"); });
        Press(form, "cmd_Use");
    }
};

TEST_F(ExploreChoices, OfTwoPositionsGoToTheMethodThatWasUsedLast) {
    form.Take_Task(So_Many(2));
    for (const int method : {1, 2}) {
        SCOPED_TRACE(method);
        Model.SynMethod = method;
        Model.SynPositions = 2;
        Model.SpecifiedPivots = true;
        Inside([&] {
            ASSERT_TRUE(form.cmd_Choices.Enabled);
            Expect_Synthesis(method == 1 ? "frm_Synth2A" : "frm_Synth2B");
            Press(form, "cmd_Choices");
            EXPECT_FALSE(form.Visible());
        });
        EXPECT_EQ(Model.SynMethod, method);
        EXPECT_EQ(Model.SynPositions, 1);
        EXPECT_FALSE(Model.SpecifiedPivots);
    }
}

TEST_F(ExploreChoices, OfThreePositionsGoToTheirScreenAndLeaveTheMethodOfTwo) {
    form.Take_Task(So_Many(3));
    for (const int method : {2, 0}) {
        Model.SynMethod = method;
        Model.SynPositions = 1;
        Model.SpecifiedPivots = true;
        Inside([&] {
            Expect_Synthesis("frm_Synth3");
            Press(form, "cmd_Choices");
            EXPECT_FALSE(form.Visible());
        });
        EXPECT_EQ(Model.SynMethod, method);
        EXPECT_EQ(Model.SynPositions, 2);
        EXPECT_FALSE(Model.SpecifiedPivots);
    }
}

TEST_F(ExploreChoices, FromHomeAreFreeOnesWhateverPivotsWereSpecifiedBefore) {
    form.Take_Task(With({{{0, 0}, 0}, {{4, 1}, -110}, {{6, 4}, -160}}));
    Model.SpecifiedPivots = true;
    Inside([&] {
        const auto& three = dynamic_cast<Synthesis_Screen&>(platform::Screens::Get("frm_Synth3"));
        design::Choices choices = design::Choices_Of(form.The_Task(), *form.Chosen());
        // One that specified pivots would not come to.
        const auto by_pivots_alone_not = [&] {
            choices = design::Choices_Of(form.The_Task(), *form.Chosen());
            if (!three.Trouble_With(choices).empty()) return false;
            design::Choices specified = choices;
            specified.specified = true;
            return !three.Trouble_With(specified).empty();
        };
        for (std::size_t i = 1; i < form.Shown().size() && !by_pivots_alone_not(); ++i) form.key_Next.OnPress();
        ASSERT_TRUE(by_pivots_alone_not());
        desktop.Expect_Screen("frm_Synth3", [&](platform::Screen& synthesis) {
            const platform::TextBox& turn = synthesis.Text("txt_Beta2");
            EXPECT_TRUE(turn.Touched()) << "it is typed there";
            EXPECT_NEAR(Val(turn.Text.Get()), choices.beta2, 1e-3);
            Press(synthesis, "cmd_Cancel");
        });
        Press(form, "cmd_Choices");
    });
}

TEST_F(ExploreChoices, GoToTheOtherMethodWhereTheLastOneDoesNotComeToTheLinkage) {
    const auto trouble = [&](const char* name) {
        auto& synthesis = dynamic_cast<Synthesis_Screen&>(platform::Screens::Get(name));
        return !synthesis.Trouble_With(design::Choices_Of(form.The_Task(), *form.Chosen())).empty();
    };
    // The body hardly turns, which leaves three angles little to go by.
    form.Take_Task(With({{{0, 0}, -33.9}, {{-0.8, 1.9}, -34.4}}));
    int last = 0;
    for (std::size_t i = 0; i < form.Shown().size() && last == 0; ++i) {
        if (i > 0) form.key_Next.OnPress();
        const bool first = trouble("frm_Synth2A"), second = trouble("frm_Synth2B");
        if (first != second) last = first ? 1 : 2;
    }
    ASSERT_NE(last, 0);
    Model.SynPositions = 1;
    Model.SynMethod = last;
    Inside([&] {
        Expect_Synthesis(last == 1 ? "frm_Synth2B" : "frm_Synth2A");
        Press(form, "cmd_Choices");
    });
    EXPECT_EQ(Model.SynMethod, 3 - last);
}

TEST_F(ExploreChoices, TheFirstMethodIsNotedWhereNoneWasUsedYet) {
    form.Take_Task(So_Many(2));
    Model.SynMethod = 0;
    Inside([&] {
        Expect_Synthesis("frm_Synth2A");
        Press(form, "cmd_Choices");
    });
    EXPECT_EQ(Model.SynMethod, 1);
}

TEST_F(ExploreChoices, WhatPlaysEndsOnEachWayOut) {
    form.Take_Task(So_Many(2));
    const std::function<void()> ways[] = {[&] { Use(); },
                                          [&] {
                                              Expect_Synthesis("frm_Synth2A");
                                              Press(form, "cmd_Choices");
                                          },
                                          [&] { Press(form, "cmd_Cancel"); }};
    for (const auto& leave : ways) {
        Inside([&] {
            Press(form, "cmd_Play");
            ASSERT_EQ(form.cmd_Play.Caption, "&Pause");
            leave();
            EXPECT_FALSE(form.Visible());
        });
        EXPECT_EQ(form.cmd_Play.Caption, "&Play");
        EXPECT_FALSE(form.Timer1.Enabled);
    }
}

TEST_F(ExploreChoices, OfFourPositionsAreNone) {
    form.Take_Task(Four());
    Inside([&] {
        EXPECT_TRUE(form.cmd_Use.Enabled);
        EXPECT_FALSE(form.cmd_Choices.Enabled);
        form.cmd_Choices.OnClick();
        EXPECT_TRUE(form.Visible());
    });
}

TEST_F(ExploreChoices, OfALinkageThatDoesNotDoItAreNoneAndItIsNotUsed) {
    const Single before = Model.L2;
    Inside([&] {
        Search();
        form.chk_ThrownOut.Click();
        ASSERT_FALSE(form.Shown().empty());
        form.cmd_Use.OnClick();
        form.cmd_Choices.OnClick();
        form.chk_ThrownOut.Click();
        Type(form, "txt_Least", platform::kNoIndex, "90.1");
        Leave_Box();
        ASSERT_FALSE(form.Chosen());
        form.cmd_Use.OnClick();
        form.cmd_Choices.OnClick();
        EXPECT_TRUE(form.Visible());
    });
    EXPECT_EQ(Model.L2, before);
    EXPECT_EQ(Model.DesignTask, "");
}

TEST_F(ExploreChoices, UseLeavesATaskAsItIsWrittenAndShowsThePositions) {
    const std::string kept = design::Task_Text(Four()) + "\n";
    Model.DesignTask = kept;
    auto& positions = platform::Screens::Get("frm_Inputnew").Get<View_Choice>("mnu_ViewPositions");
    for (const bool shown : {false, true}) {
        positions.Choose(shown);
        Inside([&] { Use(); });
        EXPECT_EQ(Model.DesignTask, kept);
        EXPECT_TRUE(positions.On());
    }
    positions.Choose(false);
}

TEST_F(ExploreChoices, UseWritesItsTaskOverOneThatCannotBeRead) {
    Model.DesignTask = "{ \"format\": \"verlink-design\", \"version\": 1, \"kind\": \"motion\" }";
    Inside([&] { Use(); });
    EXPECT_EQ(Kept(), form.The_Task());
}

}  // namespace
}  // namespace verlink::test
