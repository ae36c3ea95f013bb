// The task between the boxes of its screen and the model: typed, dragged, pasted, kept, undone, refused.
#include "platform/clipboard.h"
#include "tests/screens/frm_explore_fixture.h"

namespace verlink::test {

namespace {

class ExploreTask : public ExploreFixture {};

}  // namespace

TEST_F(ExploreTask, WhatIsTypedIsKeptWithTheModelAndUndone) {
    Inside([&] {
        Type(form, "txt_X", 2, "4.5");
        Leave_Box();
        EXPECT_EQ(Kept().positions[1].at, design::Point(4.5, 1));
        EXPECT_EQ(form.The_Task(), Kept());
        ASSERT_TRUE(The_History().Can_Undo());
        EXPECT_EQ(The_History().Undo_What(), "X of position 2");
        The_History().Undo();
        EXPECT_EQ(Model.DesignTask, "");
        EXPECT_EQ(form.txt_X[2].Text, "4");
        EXPECT_EQ(form.The_Task().positions[1].at, design::Point(4, 1));
        EXPECT_FALSE(The_History().Can_Undo());
        The_History().Redo();
        EXPECT_EQ(form.txt_X[2].Text, "4.5");
    });
}

TEST_F(ExploreTask, IsThatOfTheModelEachTimeTheScreenComesUp) {
    Inside([&] {
        Type(form, "txt_Y", 3, "5");
        Leave_Box();
    });
    const std::string kept = Model.DesignTask;
    Model.DesignTask.clear();
    Inside([&] { EXPECT_EQ(form.txt_Y[3].Text, "4"); });
    Model.DesignTask = kept;
    Inside([&] { EXPECT_EQ(form.txt_Y[3].Text, "5"); });
    EXPECT_EQ(Model.DesignTask, kept);
}

TEST_F(ExploreTask, ATextThatIsNoTaskIsSaidAndStaysUntilSomethingIsChanged) {
    Model.DesignTask = "{ \"format\": \"verlink-design\", \"version\": 1, \"kind\": \"motion\" }";
    const std::string before = Model.DesignTask;
    Inside([&] {
        EXPECT_EQ(Said(),
                  "The task that is kept with the model cannot be read: the field positions is missing. It stays as it "
                  "is until you change something here.");
        Search();
        form.cmb_Sort.Choose(1);
        EXPECT_EQ(Model.DesignTask, before);
        Type(form, "txt_X", 2, "4.5");
        Leave_Box();
        EXPECT_EQ(Kept().positions[1].at.real(), 4.5);
        EXPECT_EQ(Said().find("cannot be read"), std::string::npos);
    });
}

TEST_F(ExploreTask, IsShownInTheUnitsOfTheModel) {
    design::Task task = Four();
    task.left.fixed.is = design::Area::Is::kWithin;
    task.left.fixed.high = {4, 2};
    task.positions[3].at = {6.0012345, 4.5};
    task.shortest = 0.5;
    task.longest = 20;
    Model.DesignTask = design::Task_Text(task);
    const std::string before = Model.DesignTask;
    Use_Units(5);
    Inside([&] {
        EXPECT_EQ(form.txt_X[2].Text, "76.2");
        EXPECT_EQ(form.txt_X[4].Text, "152.431");
        EXPECT_EQ(form.txt_Angle[2].Text, "20");
        EXPECT_EQ(form.txt_Area[0].Text, "0 0 to 101.6 50.8");
        EXPECT_EQ(form.txt_Limit[0].Text, "12.7");
        EXPECT_EQ(form.txt_Limit[1].Text, "508");
        EXPECT_EQ(Model.DesignTask, before);
        Type(form, "txt_X", 2, "100");
        Leave_Box();
        EXPECT_EQ(Kept().units, 5);
        EXPECT_EQ(Kept().positions[1].at.real(), 100);
        EXPECT_NEAR(Kept().positions[2].at.real(), 127, 1e-9);
    });
}

TEST_F(ExploreTask, ATaskWhoseLengthsNoOtherUnitHoldsIsSaid) {
    design::Task task = Four();
    task.positions[1].at = {500000, 1};
    Model.DesignTask = design::Task_Text(task);
    Use_Units(5);
    Inside([&] {
        EXPECT_TRUE(Said().starts_with("The task that is kept with the model cannot be read: the field positions[1].x"))
            << Said();
    });
}

TEST_F(ExploreTask, OnlyABoxThatAHandHasTouchedIsRead) {
    design::Task task = Four();
    task.positions[2].at = {5.123456789, 2.5};
    task.weights.room = 0.25;
    Model.DesignTask = design::Task_Text(task);
    Inside([&] {
        Type(form, "txt_Angle", 2, "22");
        Leave_Box();
        EXPECT_EQ(Kept().positions[2].at.real(), 5.123456789);
        EXPECT_EQ(Kept().weights.room, 0.25);
        EXPECT_EQ(Kept().positions[1].angle, 22);
    });
}

TEST_F(ExploreTask, FewerPositionsKeepTheOthersForWhoComesBack) {
    Inside([&] {
        form.cmb_Count.Choose(3);
        EXPECT_EQ(form.The_Task().positions.size(), 5U);
        EXPECT_EQ(form.txt_X[4].Text, "8");
        EXPECT_EQ(form.txt_Y[4].Text, "7");
        EXPECT_EQ(form.txt_Angle[4].Text, "90");
        Type(form, "txt_X", 5, "9");
        Leave_Box();
        form.cmb_Count.Choose(0);
        EXPECT_EQ(form.The_Task().positions.size(), 2U);
        EXPECT_FALSE(form.txt_Angle[3].Enabled);
        form.cmb_Count.Choose(3);
        EXPECT_EQ(form.txt_X[5].Text, "9");
        EXPECT_EQ(form.The_Task().positions[4].at.real(), 9);
        Type(form, "txt_X", 5, "10");
        Type(form, "txt_Angle", 4, "85");
        Leave_Box();
        form.cmb_Count.Choose(1);
        form.cmb_Count.Choose(3);
        EXPECT_EQ(form.txt_X[5].Text, "10") << "as it was left, not as it was at first";
        EXPECT_EQ(form.txt_Angle[4].Text, "85");
    });
}

TEST_F(ExploreTask, TheBodyStaysWhereItIsWhenItsNumbersCountFromTheFirst) {
    form.Take_Task(With({{{1, 1}, 10}, {{4, 2}, 30}, {{6, 4}, 60}}));
    Inside([&] {
        const auto before = design::Absolute_Positions(form.The_Task());
        form.opt_Relative[1].Click();
        EXPECT_EQ(form.txt_X[2].Text, "3");
        EXPECT_EQ(form.txt_Angle[3].Text, "50");
        EXPECT_TRUE(Kept().relative);
        const auto after = design::Absolute_Positions(form.The_Task());
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_LT(design::Distance(before[i].at, after[i].at), 1e-12);
            EXPECT_NEAR(before[i].angle, after[i].angle, 1e-12);
        }
    });
}

TEST_F(ExploreTask, ADragFromPressToReleaseIsOneStep) {
    Inside([&] {
        const auto drag = [&](double x, double y) {
            const platform::Deed deed(form.Picture1, platform::Deed::Kind::kDrag);
            form.Picture1.OnDrag({x, y, 0, 0.01});
        };
        {
            const platform::Deed deed(form.Picture1, platform::Deed::Kind::kDrag);
            ASSERT_TRUE(form.Picture1.OnSeize({4, 1, 0, 0.01}));
        }
        drag(4.1, 1);
        drag(4.2, 0.9);
        form.Picture1.OnRelease();
        platform::Deed::Drag_Ended();
        EXPECT_EQ(form.txt_X[2].Text, "4.2");
        EXPECT_EQ(form.txt_Y[2].Text, "0.9");
        EXPECT_EQ(Kept().positions[1].at, design::Point(4.2, 0.9));
        EXPECT_FALSE(form.Shown().empty());
        EXPECT_EQ(The_History().Steps(), 1U);
        The_History().Undo();
        EXPECT_EQ(form.txt_X[2].Text, "4");
        EXPECT_EQ(Model.DesignTask, "");
    });
}

TEST_F(ExploreTask, EachBodyIsDraggedByItsPoint) {
    Model.DesignTask = design::Task_Text(Four());
    Inside([&] {
        const std::vector<design::Place> places = Four().positions;
        for (std::size_t i = 0; i < places.size(); ++i) {
            const design::Point at = places[i].at, to = at + design::Point(0.25, -0.5);
            ASSERT_TRUE(form.Picture1.OnSeize({at.real(), at.imag(), 0, 0.01})) << i;
            form.Picture1.OnDrag({to.real(), to.imag(), 0, 0.01});
            form.Picture1.OnRelease();
            EXPECT_EQ(form.The_Task().positions[i].at, to);
        }
    });
}

TEST_F(ExploreTask, TheEndOfABodysLegTurnsIt) {
    Inside([&] {
        ASSERT_TRUE(form.Chosen());
        const double size = (form.Picture1.Drawing().Right() - form.Picture1.Drawing().Left()) * 0.08;
        ASSERT_TRUE(form.Picture1.OnSeize({size, 0, 0, 0.01}));
        form.Picture1.OnDrag({0, size, 0, 0.01});
        form.Picture1.OnRelease();
        EXPECT_EQ(form.txt_Angle[1].Text, "90");
        EXPECT_EQ(form.txt_X[1].Text, "0");
        EXPECT_FALSE(form.Picture1.OnSeize({-50, -50, 0, 0.01}));
    });
}

TEST_F(ExploreTask, WeightsOrderWhatWasFoundAnew) {
    Inside([&] {
        Search();
        const std::size_t count = form.Shown().size();
        for (const int other : {1, 2}) form.hsc_Weight[other].SetValue(0);
        form.hsc_Weight[0].SetValue(10);
        ASSERT_EQ(form.Shown().size(), count);
        EXPECT_EQ(Kept().weights, (design::Weights{10, 0, 0, 0}));
        for (std::size_t i = 0; i < count; ++i) {
            const design::Judgement& j = form.Shown()[i].judgement;
            EXPECT_NEAR(j.score, 100 * j.transmission / 90, 1e-9);
            EXPECT_GE(form.Shown()[i > 0 ? i - 1 : 0].judgement.score, j.score);
        }
        form.hsc_Weight[0].SetValue(0);
        EXPECT_EQ(Said(), "Something has to count in the score: one of the weights stays above 0.");
        EXPECT_EQ(form.hsc_Weight[0].Value(), 10);
        EXPECT_EQ(Kept().weights.transmission, 10);
    });
}

TEST_F(ExploreTask, LimitsAreKeptAndAnEmptyLongestLinkIsAny) {
    Inside([&] {
        Type(form, "txt_Limit", 0, "1");
        Type(form, "txt_Limit", 1, "12");
        Type(form, "txt_Limit", 2, "30");
        Leave_Box();
        EXPECT_EQ(Kept().shortest, 1);
        EXPECT_EQ(Kept().longest, 12);
        EXPECT_EQ(Kept().transmission, 30);
        Type(form, "txt_Limit", 1, "0.5");
        Leave_Box();
        EXPECT_EQ(Said(), "The longest link is to be longer than the shortest: the longest link is not taken.");
        EXPECT_EQ(Kept().longest, 12);
        Type(form, "txt_Limit", 1, "");
        Leave_Box();
        EXPECT_EQ(Kept().longest, std::numeric_limits<double>::infinity());
        form.chk_FullTurn.Click();
        form.cmb_Drive.Choose(0);
        EXPECT_TRUE(Kept().full_turn);
        EXPECT_EQ(Kept().drive, design::Drive::kLeft);
    });
}

TEST_F(ExploreTask, AnAreaThatIsNoneIsToldAndTheTaskStays) {
    Inside([&] {
        Type(form, "txt_Area", 1, "over there");
        Leave_Box();
        EXPECT_EQ(form.The_Task().left.moving, design::Area{});
        EXPECT_EQ(Model.DesignTask, "");
        EXPECT_EQ(
            Said(),
            "\"over there\" is no place for the left moving pivot: \"anywhere\", \"0 0 to 4 3\" or \"at 1 2, 3 4\".");
        EXPECT_EQ(form.txt_Area[1].Text, "over there");
        Type(form, "txt_Area", 1, "at 1 1");
        Leave_Box();
        EXPECT_EQ(form.The_Task().left.moving.points.size(), 1U);
        EXPECT_EQ(Kept(), form.The_Task());
        EXPECT_EQ(Said().find("no place"), std::string::npos);
    });
}

TEST_F(ExploreTask, ANumberBeyondAllBoundsIsToldAndNothingIsSearched) {
    Inside([&] {
        Type(form, "txt_X", 2, "5000000");
        Leave_Box();
        EXPECT_EQ(Said(),
                  "\"5000000\" is not taken for x of position 2: it is to be a number from -1000000 to 1000000.");
        EXPECT_EQ(form.The_Task().positions[1].at.real(), 4);
        EXPECT_EQ(Model.DesignTask, "");
        Press(form, "cmd_Search");
        EXPECT_FALSE(form.Timer1.Enabled);
        EXPECT_TRUE(Said().starts_with("\"5000000\" is not taken"));
        for (const char* text : {"1e400", "-1e39"}) {
            SCOPED_TRACE(text);
            Type(form, "txt_X", 2, text);
            Leave_Box();
            EXPECT_TRUE(Said().starts_with("\"" + std::string(text) + "\" is not taken for x of position 2")) << Said();
        }
        Type(form, "txt_Limit", 2, "91");
        Type(form, "txt_X", 2, "5");
        Leave_Box();
        EXPECT_EQ(Said(), "\"91\" is not taken for the transmission angle: it is to be a number from 0 to 90.");
        EXPECT_EQ(form.The_Task().positions[1].at.real(), 5);
    });
}

TEST_F(ExploreTask, WhatIsSaidOfATypedNumberGoesWhenItIsUndone) {
    Inside([&] {
        Type(form, "txt_X", 2, "5000000");
        Leave_Box();
        ASSERT_TRUE(Said().starts_with("\"5000000\" is not taken"));
        The_History().Undo();
        EXPECT_EQ(form.txt_X[2].Text, "4");
        EXPECT_TRUE(Said().ends_with("Search looks for all of them.")) << Said();
    });
}

TEST_F(ExploreTask, ATextThatIsNoNumberIsRefusedByItsBox) {
    Inside([&] {
        for (const char* text : {"nan", "inf", "over there"}) {
            SCOPED_TRACE(text);
            Type(form, "txt_Y", 2, text);
            Leave_Box();
            EXPECT_TRUE(form.txt_Y[2].Refused());
            EXPECT_EQ(form.txt_Y[2].Shown(), text);
            EXPECT_EQ(form.The_Task().positions[1].at.imag(), 1);
            EXPECT_EQ(Model.DesignTask, "");
        }
    });
}

TEST_F(ExploreTask, PositionsArePastedOrItIsToldWhatIsWanted) {
    std::string held = "0\t0\t0\n3\t1\t20\n5\t2\t50\n6\t4\t80\n";
    platform::Use_Clipboard(nullptr, [&held] { return held; });
    Inside([&] {
        Press(form, "cmd_Paste");
        EXPECT_EQ(form.cmb_Count.Text, "4");
        EXPECT_EQ(form.txt_Angle[4].Text, "80");
        EXPECT_EQ(Kept().positions.size(), 4U);
        EXPECT_EQ(The_History().Undo_What(), "Paste");
        held = "nothing";
        desktop.Expect_Message(
            "The clipboard does not hold two to five lines of three numbers each: x, y and the angle in degrees.");
        Press(form, "cmd_Paste");
        held = "0 0 0\n1e9 0 20\n";
        desktop.Expect_Message(
            "The positions on the clipboard are not taken: the field positions[1].x is to lie between -1000000.0 and "
            "1000000.0.");
        Press(form, "cmd_Paste");
        EXPECT_EQ(form.The_Task().positions.size(), 4U);
    });
    platform::Use_Clipboard(nullptr);
}

TEST_F(ExploreTask, TasksThatNothingSolvesAreSaidInASentence) {
    using design::Place;
    const std::pair<std::vector<Place>, std::string> tasks[] = {
        {{{{1, 1}, 0}, {{1, 1}, 0}}, "Positions 1 and 2 coincide: move or turn one of them, or leave it out."},
        {{{{0, 0}, 0}, {{1, 1}, 0}, {{2, 2}, 0}},
         "The positions lie on a line and do not turn, so that no circle passes through the places of any point: turn "
         "one of them, or move one off the line."},
        {{{{2, 0}, 0}, {{0, 2}, 90}, {{-2, 0}, 180}},
         "All positions turn about the one point 0, 0, so that every link has its pivot there: a single joint does it. "
         "Move or turn one of the positions."}};
    for (const auto& task : tasks) {
        const std::string& words = task.second;
        SCOPED_TRACE(words);
        form.Take_Task(With(task.first));
        Inside([&] {
            EXPECT_EQ(Said(), words);
            Search();
            EXPECT_EQ(Said(), words);
            EXPECT_TRUE(form.Shown().empty());
            EXPECT_FALSE(form.cmd_Use.Enabled);
            EXPECT_FALSE(form.cmd_Play.Enabled);
            Press(form, "cmd_Search");
            ASSERT_TRUE(Said().starts_with("Searching, ")) << Said();
            Press(form, "cmd_Stop");
            EXPECT_EQ(Said(), words) << "a search that had nothing is over all the same";
            EXPECT_FALSE(form.cmd_Stop.Enabled);
            EXPECT_FALSE(form.Timer1.Enabled);
        });
    }
}

TEST_F(ExploreTask, WhenALimitLeavesNothingItIsSaidWhichOneToLoosen) {
    Inside([&] {
        Type(form, "txt_Limit", 2, "89");
        Leave_Box();
        EXPECT_TRUE(form.Shown().empty());
        EXPECT_NE(Said().find("None of "), std::string::npos) << Said();
        EXPECT_TRUE(form.chk_ThrownOut.Enabled);
    });
}

}  // namespace verlink::test
