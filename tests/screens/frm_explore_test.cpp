// The screen of all linkages for a task: searching, looking, picking, using.
#include <map>
#include <utility>
#include <vector>

#include "core/text.h"
#include "design/drawing.h"
#include "tests/screens/frm_explore_fixture.h"

namespace verlink::test {

namespace {

using design::Solution;
using platform::Screen;

class Explore : public ExploreFixture {};

double Off(design::Point a, design::Point b) { return design::Distance(a, b); }

/// The pose in which a linkage is shown with the bar at a place.
design::Pose Shown_At(const Solution& solution, double turn) {
    const auto pose = design::Pose_Of(solution.linkage, solution.judgement.open, turn);
    EXPECT_TRUE(pose.has_value());
    return pose.value_or(design::Pose{});
}

}  // namespace

TEST_F(Explore, ComesUpWithATaskAndWhatIsFoundForItAtAGlance) {
    Inside([&] {
        EXPECT_EQ(form.cmb_Count.Text, "3");
        EXPECT_FALSE(form.txt_X[4].Enabled);
        EXPECT_GE(form.Shown().size(), 6U);
        EXPECT_TRUE(form.cmd_Use.Enabled);
        EXPECT_EQ(Said(),
                  std::to_string(form.Shown().size()) + " linkages at a first glance. Search looks for all of them.");
    });
}

TEST_F(Explore, ASearchShowsWhatItHasJudged) {
    Inside([&] {
        Search();
        EXPECT_GE(form.Shown().size(), 10U);
        EXPECT_TRUE(form.pic_Found[5].Visible);
        EXPECT_EQ(form.lbl_Page.Caption.Get(), "1 to 6 of " + std::to_string(form.Shown().size()));
        EXPECT_TRUE(Said().ends_with(" judged.")) << Said();
        EXPECT_FALSE(form.cmd_Stop.Enabled);
    });
}

TEST_F(Explore, ASearchThatIsStoppedKeepsWhatIsThere) {
    form.Effort.coarse = false;
    Inside([&] {
        Press(form, "cmd_Search");
        EXPECT_TRUE(form.cmd_Stop.Enabled);
        EXPECT_TRUE(form.Timer1.Enabled);
        EXPECT_TRUE(Said().starts_with("Searching, ")) << Said();
        EXPECT_TRUE(Said().ends_with(" %: 0 linkages so far.")) << "none of those at a glance is one: " << Said();
        while (form.Timer1.Enabled && Said().find(": 0 linkages") != std::string::npos) form.Timer1.Tick();
        Press(form, "cmd_Stop");
        EXPECT_FALSE(form.Timer1.Enabled);
        EXPECT_FALSE(form.cmd_Stop.Enabled);
        EXPECT_GE(form.Shown().size(), 6U);
    });
}

TEST_F(Explore, AChangeOfTheTaskDropsWhatASearchForTheOneBeforeWouldBring) {
    form.Effort.coarse = false;
    Inside([&] {
        Press(form, "cmd_Search");
        Type(form, "txt_X", 2, "4.5");
        Leave_Box();
        form.Timer1.Tick();
        EXPECT_FALSE(form.Timer1.Enabled);
        for (const Solution& solution : form.Shown()) {
            const auto pose = Shown_At(solution, solution.judgement.crank[1] - solution.judgement.crank[0]);
            EXPECT_LT(Off(pose.P, {4.5, 1}), 1e-6);
        }
    });
}

TEST_F(Explore, LookingAndLeavingChangeNothing) {
    const Single before = Model.L2;
    Inside([&] {
        Search();
        form.hsc_Stroke.SetValue(100);
        Press(form, "cmd_Later");
        form.chk_ThrownOut.Click();
        form.chk_ThrownOut.Click();
        form.cmb_Sort.Choose(1);
        form.cmb_Class.Choose(2);
        form.cmb_Map.Choose(3);
        Type(form, "txt_Least", platform::kNoIndex, "30");
        Press(form, "cmd_Play");
        form.Timer1.Tick();
        form.pic_Map.OnSeize({1, 1, 0, 0.01});
        Press(form, "cmd_Cancel");
    });
    EXPECT_EQ(Model.L2, before);
    EXPECT_EQ(Model.DesignTask, "");
    EXPECT_FALSE(The_History().Can_Undo());
    EXPECT_FALSE(form.Timer1.Enabled);
}

TEST_F(Explore, UseHandsOverTheLinkageThatIsShownInOneStep) {
    const Single before = Model.L2;
    Inside([&] {
        Search();
        form.pic_Found[2].OnClick();
        const Solution chosen = form.Shown()[2];
        desktop.Expect_Screen("frm_Inputnew", [&](Screen& input) {
            const auto links = design::Links_Of(chosen.linkage);
            EXPECT_EQ(Model.L2, Single(links.L2));
            EXPECT_EQ(Model.L4, Single(links.L4));
            EXPECT_EQ(Model.CircuitIndex, chosen.judgement.open ? 1 : 2);
            EXPECT_FALSE(form.Visible());
            EXPECT_EQ(Model.DesignTask, design::Task_Text(form.The_Task())) << "also one that nobody has edited";
            EXPECT_EQ(Model.Calctype, 3);
            The_History().Undo();
            EXPECT_EQ(Model.L2, before);
            EXPECT_FALSE(The_History().Can_Undo());
            Press(input, "cmd_Cancel");
        });
        Press(form, "cmd_Use");
    });
}

TEST_F(Explore, APressThatLeavesABoxTakesNoLinkageThatCameUpWithIt) {
    Inside([&] {
        Search();
        const Single before = Model.L2;
        const auto seen = form.Chosen()->linkage;
        Type(form, "txt_X", 1, "1.5");
        EXPECT_TRUE(form.cmd_Use.Enabled);
        form.cmd_Use.SetFocus();
        ASSERT_NE(form.Chosen(), nullptr);
        ASSERT_GT(design::Apart_As_Driven(seen, form.Chosen()->linkage), 0);
        EXPECT_FALSE(form.cmd_Use.Enabled);
        EXPECT_FALSE(form.cmd_Choices.Enabled);
        form.cmd_Use.OnClick();
        EXPECT_EQ(Model.L2, before);
        ASSERT_TRUE(form.Timer1.Enabled);
        form.Timer1.Tick();
        EXPECT_TRUE(form.cmd_Use.Enabled) << "as soon as it has been seen";
        EXPECT_FALSE(form.Timer1.Enabled);

        Type(form, "txt_X", 1, "1.6");
        form.txt_X[1].OnReturn();
        EXPECT_TRUE(form.cmd_Use.Enabled) << "whoever presses Enter looks at what comes";
        form.txt_Y[1].SetFocus();
        EXPECT_TRUE(form.cmd_Use.Enabled) << "leaving changes nothing any more";

        const auto like_it = form.Chosen()->linkage;
        Type(form, "txt_X", 1, "1.60001");
        form.cmd_Use.SetFocus();
        ASSERT_GT(design::Apart_As_Driven(like_it, form.Chosen()->linkage), 0);
        ASSERT_LT(design::Apart_As_Driven(like_it, form.Chosen()->linkage), 0.1);
        EXPECT_FALSE(form.cmd_Use.Enabled) << "a little different is another one";
    });
}

TEST_F(Explore, TheLinkageStandsInEachPositionWhereTheBarSaysSo) {
    for (int count = 2; count <= 4; ++count) {
        SCOPED_TRACE(count);
        design::Task task = Four();
        task.positions.resize(static_cast<std::size_t>(count));
        form.Take_Task(task);
        Inside([&] {
            ASSERT_TRUE(form.Chosen());
            const design::Judgement& j = form.Chosen()->judgement;
            const double way = j.crank[static_cast<std::size_t>(count - 1)] - j.crank[0];
            for (int i = 0; i < count; ++i) {
                const double turn = j.crank[static_cast<std::size_t>(i)] - j.crank[0];
                form.hsc_Stroke.SetValue(static_cast<int>(std::lround(turn / way * frm_Explore::kStroke)));
                EXPECT_TRUE(form.lbl_Stroke.Caption.Get().ends_with("in position " + std::to_string(i + 1)))
                    << form.lbl_Stroke.Caption.Get();
                EXPECT_LT(Off(Shown_At(*form.Chosen(), turn).P, task.positions[static_cast<std::size_t>(i)].at), 1e-6);
            }
            form.hsc_Stroke.SetValue(0);
        });
    }
}

TEST_F(Explore, PlayGoesToTheLastPositionAndBack) {
    Inside([&] {
        Press(form, "cmd_Play");
        EXPECT_EQ(form.cmd_Play.Caption, "&Pause");
        for (int i = 0; i < 50; ++i) form.Timer1.Tick();
        EXPECT_EQ(form.hsc_Stroke.Value(), frm_Explore::kStroke);
        for (int i = 0; i < 51; ++i) form.Timer1.Tick();
        EXPECT_EQ(form.hsc_Stroke.Value(), 0);
        form.Timer1.Tick();
        EXPECT_EQ(form.hsc_Stroke.Value(), 0) << "it rests at either end alike";
        form.Timer1.Tick();
        EXPECT_EQ(form.hsc_Stroke.Value(), frm_Explore::kStroke / 50);
        form.hsc_Stroke.SetValue(0);
        Press(form, "cmd_Play");
        EXPECT_FALSE(form.Timer1.Enabled);
    });
}

TEST_F(Explore, TheFilterPassesWhatItSaysAndTheLineTellsHowMany) {
    Inside([&] {
        Search();
        const std::size_t all = form.Shown().size();
        std::size_t open = 0;
        for (const Solution& solution : form.Shown()) open += solution.judgement.open ? 1 : 0;
        form.cmb_Circuit.Choose(1);
        EXPECT_EQ(form.Shown().size(), open);
        for (const Solution& solution : form.Shown()) EXPECT_TRUE(solution.judgement.open);
        form.cmb_Circuit.Choose(2);
        EXPECT_EQ(form.Shown().size(), all - open);
        for (const Solution& solution : form.Shown()) EXPECT_FALSE(solution.judgement.open);
        form.cmb_Circuit.Choose(0);
        Type(form, "txt_Least", platform::kNoIndex, "60");
        Leave_Box();
        ASSERT_LT(form.Shown().size(), all);
        for (const Solution& solution : form.Shown()) EXPECT_GE(solution.judgement.transmission, 60);
        EXPECT_TRUE(Said().ends_with(" The filter passes " + std::to_string(form.Shown().size()) + ".")) << Said();
        Type(form, "txt_Least", platform::kNoIndex, "90.1");
        Leave_Box();
        EXPECT_TRUE(form.Shown().empty());
        EXPECT_FALSE(form.cmd_Use.Enabled);
        EXPECT_TRUE(Said().ends_with(" The filter passes none of them.")) << Said();
    });
}

TEST_F(Explore, EachClassOfTheFilterHasItsOwnAndTogetherTheyAreAll) {
    Inside([&] {
        Search();
        const std::size_t all = form.Shown().size();
        std::size_t sum = 0;
        for (const int entry : {2, 3, 4, 5}) {
            form.cmb_Class.Choose(entry);
            sum += form.Shown().size();
        }
        EXPECT_EQ(sum, all);
        form.cmb_Class.Choose(1);
        for (const Solution& solution : form.Shown())
            EXPECT_TRUE(design::Turns_Fully(design::Links_Of(solution.linkage)));
    });
}

TEST_F(Explore, EachClassPassesItsOwnKindsAlone) {
    using design::Class;
    const std::pair<int, std::vector<Class>> classes[] = {{2, {Class::kCrankRocker}},
                                                          {3, {Class::kDoubleCrank}},
                                                          {4, {Class::kDoubleRocker, Class::kRockerCrank}},
                                                          {5, {Class::kNonGrashof, Class::kSpecialCase}}};
    std::map<Class, std::size_t> seen;
    for (const std::size_t count : {2U, 3U, 4U}) {
        design::Task task = Four();
        task.positions.resize(count);
        task.drive = design::Drive::kEither;
        form.Take_Task(task);
        Inside([&] {
            form.cmb_Class.Choose(0);
            std::map<Class, std::size_t> kinds;
            for (const Solution& solution : form.Shown()) ++kinds[solution.judgement.kind];
            for (const auto& [entry, passed] : classes) {
                form.cmb_Class.Choose(entry);
                std::size_t own = 0;
                for (const Class kind : passed) own += kinds[kind];
                EXPECT_EQ(form.Shown().size(), own) << entry;
            }
            for (const auto& [kind, number] : kinds) seen[kind] += number;
            form.cmb_Class.Choose(0);
        });
    }
    for (const Class kind : {Class::kCrankRocker, Class::kDoubleCrank, Class::kRockerCrank, Class::kNonGrashof})
        EXPECT_GT(seen[kind], 0U) << design::Words_Of(kind);
}

TEST_F(Explore, EachOrderHasTheBestOfItFirst) {
    Inside([&] {
        Search();
        const auto ascends = [&](auto key) {
            for (std::size_t i = 1; i < form.Shown().size(); ++i)
                if (key(form.Shown()[i - 1]) > key(form.Shown()[i])) return false;
            return true;
        };
        form.cmb_Sort.Choose(1);
        EXPECT_TRUE(ascends([](const Solution& s) { return -s.judgement.transmission; }));
        form.cmb_Sort.Choose(2);
        EXPECT_TRUE(ascends([](const Solution& s) { return Off(s.judgement.room.low, s.judgement.room.high); }));
        form.cmb_Sort.Choose(3);
        EXPECT_TRUE(ascends([](const Solution& s) { return s.judgement.proportion; }));
        form.cmb_Sort.Choose(4);
        EXPECT_TRUE(ascends([](const Solution& s) { return static_cast<int>(s.judgement.kind); }));
    });
}

TEST_F(Explore, WhatWasThrownOutIsShownWithItsReason) {
    Inside([&] {
        Search();
        form.chk_ThrownOut.Click();
        ASSERT_FALSE(form.Shown().empty());
        EXPECT_FALSE(form.Shown()[0].judgement.Good());
        EXPECT_FALSE(form.cmd_Use.Enabled);
        EXPECT_FALSE(form.cmb_Class.Enabled);
        EXPECT_EQ(form.lbl_Told.Caption.Get(), "1 of " + std::to_string(form.Shown().size()) + ": " +
                                                   design::Words_Of(form.Shown()[0].judgement, form.The_Task()));
    });
}

TEST_F(Explore, KeysGoFromLinkageToLinkageOverThePages) {
    Inside([&] {
        Search();
        for (int i = 0; i < 6; ++i) EXPECT_TRUE(form.Press_Keys("Ctrl+PgDown"));
        EXPECT_TRUE(form.lbl_Told.Caption.Get().starts_with("7 of ")) << form.lbl_Told.Caption.Get();
        EXPECT_TRUE(form.lbl_Page.Caption.Get().starts_with("7 to ")) << form.lbl_Page.Caption.Get();
        EXPECT_TRUE(form.Press_Keys("Ctrl+PgUp"));
        EXPECT_TRUE(form.lbl_Page.Caption.Get().starts_with("1 to 6 of ")) << form.lbl_Page.Caption.Get();
    });
}

TEST_F(Explore, AClickOnTheMapPicksTheLinkageOfTheNearestDot) {
    Inside([&] {
        Search();
        form.cmb_Map.Choose(1);
        const design::Point at = form.Shown()[4].linkage.crank.fixed;
        ASSERT_TRUE(form.pic_Map.OnSeize({at.real(), at.imag(), 0, 0.01}));
        ASSERT_TRUE(form.Chosen());
        EXPECT_LT(Off(form.Chosen()->linkage.crank.fixed, at), 1e-9);
    });
}

TEST_F(Explore, AClickOnACurveOfFourPositionsShowsTheLinkagesWithThatLink) {
    form.Take_Task(Four());
    Inside([&] {
        EXPECT_TRUE(form.chk_Curves.Enabled);
        ASSERT_FALSE(form.The_Curves().empty());
        form.cmb_Map.Choose(1);
        int with_some = 0;
        const design::Curves curves = form.The_Curves();
        for (const auto& piece : curves)
            for (std::size_t i = 0; i < piece.size(); i += 40) {
                const design::Point at = piece[i].fixed;
                if (std::abs(at) > 40) continue;
                form.Take_Task(Four());
                // Apart from all dots.
                form.cmb_Circuit.Choose(0);
                ASSERT_TRUE(form.pic_Map.OnSeize({at.real(), at.imag(), 0, 1e-9}));
                for (const Solution& solution : form.Shown()) {
                    const design::FourBar& linkage = solution.linkage;
                    EXPECT_LT(std::min(Off(linkage.crank.fixed, at), Off(linkage.other.fixed, at)), 1e-6);
                    EXPECT_TRUE(solution.judgement.Good());
                }
                with_some += form.Shown().empty() ? 0 : 1;
            }
        EXPECT_GT(with_some, 0);
    });
    form.Take_Task(With({{{0, 0}, 0}, {{4, 1}, 30}}));
    EXPECT_FALSE(form.chk_Curves.Enabled);
    EXPECT_TRUE(form.The_Curves().empty());
}

TEST_F(Explore, KeysOnTheMapGoAlongTheCurveAndBack) {
    form.Take_Task(Four());
    Inside([&] {
        form.pic_Map.OnKey({"Right", 0, 0.01});
        const std::string first = Said();
        EXPECT_NE(first.find("link"), std::string::npos) << first;
        form.pic_Map.OnKey({"Right", 0, 0.01});
        EXPECT_NE(Said(), first);
        form.pic_Map.OnKey({"Left", 0, 0.01});
        EXPECT_EQ(Said(), first);
        Search();
        EXPECT_TRUE(Said().ends_with(" judged.")) << Said();
    });
}

}  // namespace verlink::test
