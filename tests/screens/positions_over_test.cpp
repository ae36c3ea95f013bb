// The positions that a linkage was found for, over the picture of the animate screen.
#include "screens/positions_over.h"

#include <algorithm>

#include "core/runs.h"
#include "core/text.h"
#include "design/hand_over.h"
#include "platform/settings.h"
#include "tests/screens/frm_animate_fixture.h"

namespace verlink::test {

namespace {

using platform::Overlay;
using Kind = Overlay::Mark::Kind;

class PositionsOver : public AnimateScreen {
   protected:
    PositionsOver() { platform::The_Settings().Open(Path("config")); }

    void Use(int positions = 3) {
        task.positions = {{{0, 0}, 0}, {{4, 1}, 30}, {{6, 4}, 60}, {{6, 7}, 95}};
        task.positions.resize(static_cast<std::size_t>(positions));
        const auto found = design::Find(task, {.best = 2, .threads = 1, .coarse = true}).solutions;
        ASSERT_FALSE(found.empty());
        design::Hand_Over(task, found.front(), Model);
        Model.DesignTask = design::Task_Text(task);
        Run();
    }
    static void Run() {
        Integer Result;
        Calc_Setup(Model.Calctype, Result);
    }
    const Overlay& Over() { return form.Picture1.Over; }
    long Count(Kind kind) { return std::ranges::count(Over().marks, kind, &Overlay::Mark::kind); }
    std::vector<std::string> Legend() {
        std::vector<std::string> lines;
        for (const auto& line : Over().legend) lines.push_back(line.text);
        return lines;
    }
    View_Choice& Entry() { return form.positions.mnu_ViewPositions; }
    using Lines = std::vector<std::string>;

    design::Task task;
};

}  // namespace

TEST_F(PositionsOver, StandBehindAllOtherEntriesOfTheMenu) {
    EXPECT_EQ(form.view.mnu_View.Children().back(), &Entry());
    EXPECT_EQ(Entry().Caption.Get(), "Positions");
}

TEST_F(PositionsOver, AreMarkedWithPointLegAndNumberWhereTheCouplerPointPasses) {
    Use();
    After_First_Picture([&] {
        EXPECT_TRUE(Over().Empty());
        Entry().Click();
        ASSERT_EQ(Count(Kind::kRing), 3);
        ASSERT_EQ(Count(Kind::kLine), 6);
        EXPECT_EQ(Legend(), Lines{"positions 1, 2, 3 passed"});
        EXPECT_EQ(Over().names.at(2).text, "3");
        // The run begins in position 1 and ends in position 3.
        const auto point = [](int step) {
            const double turn = Model.Link1Angle * kDegToRad, x = Model.RunTable.PointXY(step, 2, 0),
                         y = Model.RunTable.PointXY(step, 2, 1);
            return platform::Point{x * std::cos(turn) - y * std::sin(turn),
                                   Model.FlipSum - x * std::sin(turn) - y * std::cos(turn)};
        };
        const bool turned = Model.Omega2Input < 0;
        for (const int position : {0, 2}) {
            const auto at = Over().names.at(static_cast<std::size_t>(position)).at;
            const auto there = point((position == 0) == turned ? int{Model.NSteps} : 0);
            EXPECT_NEAR(at.x, there.x, 1e-4);
            EXPECT_NEAR(at.y, there.y, 1e-4);
        }
        // The numbers stand behind the corner: away from both legs, which are 30 degrees on each time, y downward.
        for (const int position : {0, 1, 2}) {
            const auto away = Over().names.at(static_cast<std::size_t>(position)).away;
            EXPECT_NEAR(std::remainder(std::atan2(-away.y, away.x) / kDegToRad - (225 + 30 * position), 360), 0, 1e-3);
        }
        // Legs along the body: 0, 30 and 60 degrees.
        std::vector<Overlay::Mark> lines;
        std::ranges::copy_if(Over().marks, std::back_inserter(lines),
                             [](const auto& mark) { return mark.kind == Kind::kLine; });
        for (const int position : {0, 1, 2}) {
            const auto& leg = lines.at(static_cast<std::size_t>(2 * position));
            EXPECT_NEAR(std::atan2(leg.from.y - leg.to.y, leg.to.x - leg.from.x) / kDegToRad, 30 * position, 1e-3);
        }
        Entry().Click();
        EXPECT_TRUE(Over().Empty());
    });
}

TEST_F(PositionsOver, StayWhereTheyAreWantedAndAreToldAsMissedWhenALengthIsTyped) {
    Use();
    Entry().Choose(true);
    After_First_Picture([&] {
        ASSERT_EQ(Count(Kind::kRing), 3);
        const auto before = Over().names;
        Enter(form, "txt_Linkout", 4, Text_Of(Single(Model.Rpa * 1.2)));
        Press(form, "cmd_Recalc");
        form.Timer1.Tick();
        EXPECT_EQ(Count(Kind::kRing), 0);
        EXPECT_EQ(Count(Kind::kDashes), 6);
        ASSERT_EQ(Legend().size(), 3U);
        for (const std::string& line : Legend()) EXPECT_NE(line.find(" missed by "), std::string::npos) << line;
        // The window may be another, the place in the world is not.
        for (std::size_t i = 0; i < before.size(); ++i) EXPECT_NEAR(Over().names.at(i).at.x, before[i].at.x, 1e-5);
    });
}

TEST_F(PositionsOver, OfFourAreAllMarked) {
    Use(4);
    Entry().Choose(true);
    After_First_Picture([&] {
        EXPECT_EQ(Count(Kind::kRing), 4);
        EXPECT_EQ(Legend(), Lines{"positions 1, 2, 3, 4 passed"});
    });
}

TEST_F(PositionsOver, GoAlongWithARun) {
    Use();
    Entry().Choose(true);
    After_First_Picture([&] {
        int frames = 0;
        const Position_Ear ear(form, [&](const Shown& shown) {
            if (shown.Nothing()) return;
            EXPECT_EQ(Count(Kind::kRing), 3);
            ++frames;
        });
        form.cmd_Animate.Click();
        EXPECT_GT(frames, Model.NSteps);
    });
}

TEST_F(PositionsOver, OfALinkageThatWasFoundForNoneAreNone) {
    Entry().Choose(true);
    After_First_Picture([&] {
        EXPECT_TRUE(Over().Empty());
        Press(form, "cmd_Animate");
        EXPECT_TRUE(Over().Empty());
    });
}

}  // namespace verlink::test
