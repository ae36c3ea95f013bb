// From the screen of linkages for a task, come to from home, to the screens of synthesis; and where no road leads.
#include <random>

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
    static bool Comes_To(const char* synthesis, const design::Choices& choices) {
        return dynamic_cast<Synthesis_Screen&>(platform::Screens::Get(synthesis)).Trouble_With(choices).empty();
    }
    /// Uses what is shown, and leaves the screen that comes up with it.
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
    Model.SynMethod = 2;
    Model.SynPositions = 1;
    Model.SpecifiedPivots = true;
    Inside([&] {
        Expect_Synthesis("frm_Synth3");
        Press(form, "cmd_Choices");
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_EQ(Model.SynMethod, 2);
    EXPECT_EQ(Model.SynPositions, 2);
    EXPECT_FALSE(Model.SpecifiedPivots);
}

TEST_F(ExploreChoices, OfTwoPositionsBeforeAnyMethodWasUsedGoToTheFirst) {
    form.Take_Task(So_Many(2));
    Model.SynMethod = 0;
    Inside([&] {
        Expect_Synthesis("frm_Synth2A");
        Press(form, "cmd_Choices");
    });
    EXPECT_EQ(Model.SynMethod, 1);
}

TEST_F(ExploreChoices, OfFreePivotsGoWhereSpecifiedOnesWouldNot) {
    std::mt19937 engine(20240611);
    const auto number = [&](double most) { return std::uniform_real_distribution<>(-most, most)(engine); };
    const auto place = [&] { return design::Place{{number(2), number(2)}, number(90)}; };
    int gone = 0;
    for (int tried = 0; tried < 30 && gone == 0; ++tried) {
        form.Take_Task(With({place(), place(), place()}));
        if (!form.Chosen()) continue;
        const design::Choices choices = design::Choices_Of(form.The_Task(), *form.Chosen());
        if (design::Trouble_By_Pivots(choices).empty() || !Comes_To("frm_Synth3", choices)) continue;
        Model.SpecifiedPivots = true;
        Inside([&] {
            Expect_Synthesis("frm_Synth3");
            Press(form, "cmd_Choices");
            EXPECT_FALSE(form.Visible());
        });
        EXPECT_FALSE(Model.SpecifiedPivots);
        ++gone;
    }
    EXPECT_EQ(gone, 1);
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

}  // namespace
}  // namespace verlink::test
