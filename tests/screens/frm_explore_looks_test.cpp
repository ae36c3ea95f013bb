// The pictures of the screen of linkages as they are looked at: dots before curves, the way along a curve, the window
// of the map, the stroke between the positions; and what ends when it is left.
#include <algorithm>
#include <cmath>

#include "core/numeric.h"
#include "core/text.h"
#include "design/drawing.h"
#include "tests/screens/frm_explore_fixture.h"

namespace verlink::test {

namespace {

using design::Point;
using design::Solution;

class ExploreLooks : public ExploreFixture {
   protected:
    static std::string Rounded(double value) { return Text_Of(FNRound(value, 3)); }
    bool Tells_Of(const design::Dyad& dyad) {
        return Said().find(" from " + Rounded(dyad.fixed.real()) + ", " + Rounded(dyad.fixed.imag()) + " to " +
                           Rounded(dyad.moving.real()) + ", " + Rounded(dyad.moving.imag()) + ".") != std::string::npos;
    }
    static Point Pivot(const Solution& solution, int map) {
        const design::FourBar& bar = solution.linkage;
        const Point pivots[] = {bar.crank.moving, bar.crank.fixed, bar.other.moving, bar.other.fixed};
        return pivots[map];
    }
    /// Around the task and the dots of what is shown.
    design::Box With_Dots(const design::Task& task, int map) const {
        design::Box seen = design::Seen_Of(task);
        for (const Solution& solution : form.Shown()) {
            const Point at = Pivot(solution, map);
            seen.low = {std::min(seen.low.real(), at.real()), std::min(seen.low.imag(), at.imag())};
            seen.high = {std::max(seen.high.real(), at.real()), std::max(seen.high.imag(), at.imag())};
        }
        return seen;
    }
};

}  // namespace

TEST_F(ExploreLooks, TheMapPicksADotWithinReachBeforeTheCurveThroughIt) {
    form.Take_Task(Four());
    Inside([&] {
        for (int map = 0; map < 4; ++map) {
            SCOPED_TRACE(map);
            form.cmb_Map.Choose(map);
            const Point at = Pivot(form.Shown().at(2), map);
            ASSERT_TRUE(form.pic_Map.OnSeize({at.real() + 1e-4, at.imag(), 0, 1e-4}));
            EXPECT_EQ(Said().find("with the link"), std::string::npos) << Said();
            EXPECT_LT(design::Distance(Pivot(*form.Chosen(), map), at), 1e-9);
        }
    });
}

TEST_F(ExploreLooks, WithNothingShownAndNoCurveTheMapPicksNothing) {
    form.Take_Task(Four());
    Inside([&] {
        form.chk_Curves.Click();
        Type(form, "txt_Least", platform::kNoIndex, "90.1");
        Leave_Box();
        ASSERT_TRUE(form.Shown().empty());
        EXPECT_FALSE(form.pic_Map.OnSeize({1, 1, 0, 0.01}));
        EXPECT_FALSE(form.Chosen());
        form.chk_Curves.Click();
        Type(form, "txt_Least", platform::kNoIndex, "0");
        Leave_Box();
    });
}

TEST_F(ExploreLooks, RightGoesOnAlongTheCurveAndLeftBackByTwelveLinks) {
    form.Take_Task(Four());
    Inside([&] {
        std::vector<design::Dyad> all;
        for (const auto& piece : form.The_Curves()) all.insert(all.end(), piece.begin(), piece.end());
        const std::size_t at = all.size() / 3;
        ASSERT_TRUE(form.Picture1.OnSeize({all[at].moving.real(), all[at].moving.imag(), 0, 1e-9}));
        for (const std::size_t next : {at + 12, at + 24}) {
            form.pic_Map.OnKey({"Right", 0, 0.01});
            EXPECT_TRUE(Tells_Of(all[next])) << Said();
        }
        for (const std::size_t next : {at + 12, at, at - 12}) {
            form.pic_Map.OnKey({"Left", 0, 0.01});
            EXPECT_TRUE(Tells_Of(all[next])) << Said();
        }
    });
}

TEST_F(ExploreLooks, TheMapIsASquareAboutTheTaskAndAllDotsWithATenthAround) {
    const std::vector<design::Task> tasks{
        With({{{100, 200}, 0}, {{104, 201}, 30}, {{106, 204}, 60}}),
        With({{{-300, -100}, 0}, {{-300.5, -90}, 20}, {{-301, -80}, 60}}),
        With({{{200, 100}, 0}, {{190, 100.5}, 20}, {{180, 101}, 60}}),
    };
    for (const design::Task& task : tasks) {
        form.Take_Task(task);
        Inside([&] {
            for (int map = 0; map < 4; ++map) {
                form.cmb_Map.Choose(map);
                const design::Box seen = With_Dots(task, map);
                const Point middle = (seen.low + seen.high) / 2.0, size = seen.high - seen.low;
                const double half = 0.6 * std::max(size.real(), size.imag());
                const auto& drawn = form.pic_Map.Drawing();
                EXPECT_NEAR(drawn.Left(), middle.real() - half, 1e-6);
                EXPECT_NEAR(drawn.Right(), middle.real() + half, 1e-6);
                EXPECT_NEAR(std::min(drawn.Top(), drawn.Bottom()), middle.imag() - half, 1e-6);
                EXPECT_NEAR(std::max(drawn.Top(), drawn.Bottom()), middle.imag() + half, 1e-6);
            }
        });
    }
}

TEST_F(ExploreLooks, BetweenThePositionsTheCrankStandsWhereTheBarDoes) {
    Inside([&] {
        for (int i = 0; i < 6; ++i) {
            form.pic_Found[i].OnClick();
            const auto& crank = form.Chosen()->judgement.crank;
            const double first = crank[0], way = crank[2] - first;
            // Also where the crank lies along the x axis.
            const int along = std::clamp(static_cast<int>(std::lround(-first / way * 200)), 1, 199);
            for (const int place : {1, 67, along, 199}) {
                if (std::lround((crank[1] - first) / way * 200) == place) continue;
                form.hsc_Stroke.SetValue(place);
                const double degrees = std::fmod((first + place / 200.0 * way) * 180 / M_PI + 3600, 360);
                const std::string words = form.lbl_Stroke.Caption;
                EXPECT_LT(std::abs(std::remainder(Val(words.substr(9)) - degrees, 360)), 0.0501) << words;
                EXPECT_EQ(words.find("position"), std::string::npos) << words;
            }
            form.hsc_Stroke.SetValue(0);
        }
    });
}

TEST_F(ExploreLooks, OneThatWasThrownOutIsDrawnAsItStandsInTheFirstPosition) {
    Inside([&] {
        Search();
        form.chk_ThrownOut.Click();
        ASSERT_FALSE(form.Shown().empty());
        for (const Solution& out : form.Shown()) {
            std::vector<Point> points{out.linkage.crank.fixed, out.linkage.other.fixed};
            if (const auto pose = design::Pose_Of(out.linkage, out.judgement.open, 0))
                points.insert(points.end(), {pose->A, pose->B, pose->P});
            const auto across = [](Point a, Point b) { return a.real() < b.real(); };
            const auto up = [](Point a, Point b) { return a.imag() < b.imag(); };
            const auto wide = std::ranges::minmax_element(points, across),
                       high = std::ranges::minmax_element(points, up);
            const design::Box& room = out.judgement.room;
            EXPECT_NEAR(room.low.real(), wide.min->real(), 1e-9);
            EXPECT_NEAR(room.high.real(), wide.max->real(), 1e-9);
            EXPECT_NEAR(room.low.imag(), high.min->imag(), 1e-9);
            EXPECT_NEAR(room.high.imag(), high.max->imag(), 1e-9);
        }
        form.chk_ThrownOut.Click();
    });
}

TEST_F(ExploreLooks, APageThatIsFullIsTheLastOne) {
    Inside([&] {
        Search();
        form.cmb_Sort.Choose(1);
        const double sixth = form.Shown().at(5).judgement.transmission,
                     next = form.Shown().at(6).judgement.transmission;
        ASSERT_GT(sixth, next);
        Type(form, "txt_Least", platform::kNoIndex, Text_Of((sixth + next) / 2));
        Leave_Box();
        ASSERT_EQ(form.Shown().size(), 6U);
        EXPECT_FALSE(form.cmd_Later.Enabled);
        form.cmd_Later.OnClick();
        EXPECT_EQ(form.lbl_Page.Caption.Get(), "1 to 6 of 6");
        form.cmb_Sort.Choose(0);
        Type(form, "txt_Least", platform::kNoIndex, "0");
        Leave_Box();
    });
}

TEST_F(ExploreLooks, ASearchThatIsStoppedBeforeItHasAnythingIsOverAllTheSame) {
    form.Effort.coarse = false;
    Inside([&] {
        for (int i = 0; i < 5; ++i) {
            Press(form, "cmd_Search");
            form.cmd_Stop.OnClick();
            EXPECT_FALSE(form.Timer1.Enabled);
            EXPECT_FALSE(form.cmd_Stop.Enabled);
            EXPECT_FALSE(Said().starts_with("Searching")) << Said();
        }
    });
}

TEST_F(ExploreLooks, ClosingTheWindowEndsWhatPlaysAndWhatSearches) {
    form.Effort.coarse = false;
    Inside([&] {
        Press(form, "cmd_Play");
        Press(form, "cmd_Search");
        EXPECT_TRUE(form.Timer1.Enabled);
        bool cancel = true;
        form.Form_QueryUnload(cancel);
        EXPECT_FALSE(cancel);
        EXPECT_FALSE(form.Timer1.Enabled);
        EXPECT_FALSE(form.cmd_Stop.Enabled);
        EXPECT_EQ(form.cmd_Play.Caption.Get(), "&Play");
    });
}

}  // namespace verlink::test
