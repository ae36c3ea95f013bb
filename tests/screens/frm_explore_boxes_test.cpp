// Boxes and lists of the screen of linkages for a task: texts that stand in no list, faults that stay and go, numbers
// as they are shown.
#include "core/text.h"
#include "tests/screens/frm_explore_fixture.h"

namespace verlink::test {
namespace {

using ExploreBoxes = ExploreFixture;

constexpr char kFault[] = "\"5000000\" is not taken for x of position 2";

TEST_F(ExploreBoxes, AListWhoseTextIsNoneOfItsEntriesSaysSoAndKeepsItsChoice) {
    const auto refuses = [&](platform::ComboBox& box, const std::string& kind) {
        const std::string before = box.Text;
        form.MoveFocus(&box);
        box.Text = "something else";
        desktop.Expect_Message_With("is not one of the " + kind + ". Please choose from the list.");
        form.MoveFocus(&form.cmd_Search);
        EXPECT_EQ(box.Text.Get(), before);
    };
    Inside([&] {
        refuses(form.cmb_Count, "numbers of positions");
        refuses(form.cmb_Drive, "sides");
        refuses(form.cmb_Sort, "orders");
        refuses(form.cmb_Class, "classes");
        refuses(form.cmb_Circuit, "circuits");
        refuses(form.cmb_Map, "pivots");
        desktop.Verify();
    });
}

TEST_F(ExploreBoxes, WhileATextNamesNoEntryTheFirstOfTheListCounts) {
    Inside([&] {
        Search();
        const std::size_t all = form.Shown().size();
        form.cmb_Circuit.Text = "neither";
        form.cmb_Class.Choose(0);
        EXPECT_EQ(form.Shown().size(), all);
        form.cmb_Map.Text = "the middle";
        form.cmb_Sort.Choose(0);
        const design::Point at = form.Shown()[0].linkage.crank.moving;
        EXPECT_TRUE(std::ranges::any_of(form.pic_Map.Drawing().Primitives(), [&](const auto& drawn) {
            return drawn.alive && drawn.kind == platform::Picture::Primitive::Kind::kPin &&
                   design::Distance({drawn.x1, drawn.y1}, at) < 1e-6;
        }));
        form.cmb_Count.Text = "9";
        form.cmb_Count.OnClick();
        EXPECT_EQ(form.The_Task().positions.size(), 3U);
        form.cmb_Count.Text = "1";
        form.cmb_Count.OnClick();
        EXPECT_EQ(form.The_Task().positions.size(), 3U);
    });
}

TEST_F(ExploreBoxes, AFaultStaysWhileOtherBoxesAreFilledAndGoesWithTheScreen) {
    Inside([&] {
        Type(form, "txt_X", 2, "5000000");
        Leave_Box();
        ASSERT_TRUE(Said().starts_with(kFault)) << Said();
        Type(form, "txt_Y", 2, "1.23456789");
        EXPECT_TRUE(Said().starts_with(kFault)) << "typing elsewhere is no answer to it: " << Said();
        Leave_Box();
        EXPECT_EQ(Kept().positions[1].at.imag(), 1.23456789);
        EXPECT_NE(form.txt_Y[2].Text.Get(), "1.23456789") << "it is shown rounded";
        EXPECT_TRUE(Said().starts_with(kFault)) << Said();
        Press(form, "cmd_Cancel");
    });
    Inside([&] {
        EXPECT_EQ(Said().find("not taken"), std::string::npos) << Said();
        EXPECT_EQ(form.txt_X[2].Text, "4");
    });
}

TEST_F(ExploreBoxes, LengthsOfLinksAreShownAsFinelyAsPlaces) {
    Inside([&] {
        Type(form, "txt_X", 2, "3.23456789");
        Type(form, "txt_Limit", 0, "1.23456789");
        Leave_Box();
        EXPECT_EQ(form.txt_X[2].Text.Get().substr(1), form.txt_Limit[0].Text.Get().substr(1));
        Type(form, "txt_Limit", 1, "0");
        Leave_Box();
        EXPECT_EQ(form.txt_Limit[1].Text, "") << "any length";
        EXPECT_EQ(Kept().longest, std::numeric_limits<double>::infinity());
    });
}

TEST_F(ExploreBoxes, PositionsBeyondTheCountStandGreyedInTheWayTheOthersAreTyped) {
    form.Take_Task(With({{{1, 1}, 10}, {{4, 2}, 30}, {{6, 4}, 60}}));
    Inside([&] {
        form.opt_Relative[1].Click();
        form.cmb_Count.Choose(0);
        EXPECT_FALSE(form.txt_X[3].Enabled);
        EXPECT_EQ(form.txt_X[3].Text, "5");
        EXPECT_EQ(form.txt_Y[3].Text, "3");
        EXPECT_EQ(form.txt_Angle[3].Text, "50");
        form.opt_Relative[0].Click();
        EXPECT_EQ(form.txt_X[3].Text, "6");
        EXPECT_EQ(form.txt_X[4].Text, "");
    });
}

TEST_F(ExploreBoxes, EachWeightCountsByItself) {
    for (int one = 0; one < 4; ++one) {
        form.Take_Task(With({{{0, 0}, 0}, {{4, 1}, 30}, {{6, 4}, 60}}));
        Inside([&] {
            form.hsc_Weight[one].SetValue(10);
            for (int other = 0; other < 4; ++other)
                if (other != one) form.hsc_Weight[other].SetValue(0);
            EXPECT_EQ(Said().find("Something has to count"), std::string::npos) << one;
            const design::Weights& kept = Kept().weights;
            EXPECT_EQ(kept.transmission + kept.proportion + kept.room + kept.rounding, 10) << one;
        });
    }
}

TEST_F(ExploreBoxes, UseLeavesATaskThatIsTheSameAsItIsWrittenAndShowsThePositions) {
    const design::Task task = With({{{0, 0}, 0}, {{4, 1}, 30}, {{6, 4}, 60}});
    const std::string written = design::Task_Text(task) + "\n";
    Model.DesignTask = written;
    Inside([&] {
        desktop.Expect_Screen("frm_Inputnew", [&](platform::Screen& input) {
            EXPECT_TRUE(input.Get<platform::MenuEntry>("mnu_ViewPositions").Checked);
            Press(input, "cmd_Cancel");
        });
        EXPECT_FALSE(platform::Screens::Get("frm_Inputnew").Get<platform::MenuEntry>("mnu_ViewPositions").Checked);
        Press(form, "cmd_Use");
    });
    EXPECT_EQ(Model.DesignTask, written);
}

TEST_F(ExploreBoxes, LookingAtATaskThatCountsFromTheFirstRoundsNothing) {
    design::Task task = With({{{1.0 / 3, 0.1}, 10.1}, {{0.7, 1.1}, 20.2}, {{1.7, 2.3}, 50.3}});
    task.relative = true;
    Model.DesignTask = design::Task_Text(task);
    const std::string before = Model.DesignTask;
    Inside([&] { EXPECT_EQ(form.The_Task().positions, task.positions); });
    EXPECT_EQ(Model.DesignTask, before);
}

TEST_F(ExploreBoxes, UsePutsItsTaskInThePlaceOfOneThatCannotBeRead) {
    Model.DesignTask = "{ \"format\": \"verlink-design\", \"version\": 1, \"kind\": \"motion\" }";
    Inside([&] {
        desktop.Expect_Screen("frm_Inputnew", [](platform::Screen& input) { Press(input, "cmd_Cancel"); });
        Press(form, "cmd_Use");
    });
    EXPECT_EQ(Kept(), form.The_Task());
}

}  // namespace
}  // namespace verlink::test
