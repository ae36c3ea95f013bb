// The hand on the pictures of linkages for a task: how near is near, which way along a curve, and what stays in view.
#include <algorithm>
#include <vector>

#include "core/numeric.h"
#include "core/text.h"
#include "design/drawing.h"
#include "tests/screens/frm_explore_fixture.h"

namespace verlink::test {
namespace {

using design::Point;
using design::Solution;

class ExploreHand : public ExploreFixture {
   protected:
    static double Side(const platform::PictureBox& picture) {
        return picture.Drawing().Right() - picture.Drawing().Left();
    }
    /// The box around the positions and a pivot of each linkage, in the order of the list.
    design::Box All_On_Map(int map) const {
        design::Box all = design::Seen_Of(form.The_Task());
        for (const Solution& solution : form.Shown()) {
            const design::FourBar& bar = solution.linkage;
            const Point pivots[] = {bar.crank.moving, bar.crank.fixed, bar.other.moving, bar.other.fixed};
            const Point at = pivots[map];
            all.low = {std::min(all.low.real(), at.real()), std::min(all.low.imag(), at.imag())};
            all.high = {std::max(all.high.real(), at.real()), std::max(all.high.imag(), at.imag())};
        }
        return all;
    }
};

TEST_F(ExploreHand, ReachesTenPixels) {
    Inside([&] {
        form.Picture1.OnHover({4, 1 - 0.097, 0, 0.01});
        EXPECT_TRUE(form.Picture1.Lit.Get());
        form.Picture1.OnHover({4, 1 - 0.103, 0, 0.01});
        EXPECT_FALSE(form.Picture1.Lit.Get());
    });
}

TEST_F(ExploreHand, ABodyThatIsPulledBeyondAllBoundsStaysAndStaysLit) {
    Inside([&] {
        ASSERT_TRUE(form.Picture1.OnSeize({0, 0, 0, 0.01}));
        form.Picture1.OnDrag({5e6, 0, 0, 0.01});
        EXPECT_EQ(form.txt_X[1].Text, "0");
        ASSERT_TRUE(form.Picture1.Lit.Get());
        EXPECT_EQ(*form.Picture1.Lit.Get(), (platform::Light{0, 0, true}));
        form.Picture1.OnRelease();
        EXPECT_FALSE(form.Picture1.Lit.Get());
        EXPECT_EQ(Model.DesignTask, "");
    });
}

TEST_F(ExploreHand, OfALargePixelABodyGoesToWholeNumbers) {
    Inside([&] {
        ASSERT_TRUE(form.Picture1.OnSeize({4, 1, 0, 4}));
        form.Picture1.OnDrag({14.4, 2.3, 0, 4});
        EXPECT_EQ(form.txt_X[2].Text, "14");
        EXPECT_EQ(form.txt_Y[2].Text, "2");
        form.Picture1.OnRelease();
    });
}

TEST_F(ExploreHand, ABodyTurnsAboutItsOwnPoint) {
    Inside([&] {
        const double size = Side(form.Picture1) * 0.08;
        const auto at = [&](double degrees) { return Point(4, 1) + std::polar(size, degrees * M_PI / 180); };
        ASSERT_TRUE(form.Picture1.OnSeize({at(30).real(), at(30).imag(), 0, 0.001}));
        form.Picture1.OnDrag({at(75).real(), at(75).imag(), 0, 0.001});
        EXPECT_EQ(form.txt_Angle[2].Text, "75");
        EXPECT_EQ(form.txt_X[2].Text, "4");
        form.Picture1.OnRelease();
    });
}

TEST_F(ExploreHand, TheRightArrowGoesTwelvePointsOnAlongTheCurveAndTheLeftOneBack) {
    form.Take_Task(Four());
    Inside([&] {
        std::vector<design::Dyad> all;
        for (const auto& piece : form.The_Curves()) all.insert(all.end(), piece.begin(), piece.end());
        const auto said = [](const design::Dyad& dyad) {
            return " with the link from " + Text_Of(FNRound(dyad.fixed.real(), 3)) + ", " +
                   Text_Of(FNRound(dyad.fixed.imag(), 3)) + " to ";
        };
        const auto nearest_to = [&](Point moving) {
            std::size_t nearest = 0;
            for (std::size_t i = 1; i < all.size(); ++i)
                if (design::Distance(all[i].moving, moving) < design::Distance(all[nearest].moving, moving))
                    nearest = i;
            return nearest;
        };
        ASSERT_TRUE(form.Chosen());
        const std::size_t first = nearest_to(form.Chosen()->linkage.crank.moving), count = all.size();
        form.pic_Map.OnKey({"Right", 0, 0.01});
        EXPECT_NE(Said().find(said(all[(first + 12) % count])), std::string::npos) << Said();
        form.pic_Map.OnKey({"Right", 0, 0.01});
        EXPECT_NE(Said().find(said(all[(first + 24) % count])), std::string::npos) << Said();
        form.pic_Map.OnKey({"Left", 0, 0.01});
        EXPECT_NE(Said().find(said(all[(first + 12) % count])), std::string::npos) << Said();
    });
}

TEST_F(ExploreHand, ADotIsPickedBeforeTheCurveThatItLiesOn) {
    form.Take_Task(Four());
    Inside([&] {
        ASSERT_GT(form.Shown().size(), 2U);
        const Point at = form.Shown()[2].linkage.crank.moving;
        ASSERT_TRUE(form.pic_Map.OnSeize({at.real(), at.imag(), 0, 0.01}));
        EXPECT_EQ(Said().find("with the link"), std::string::npos) << Said();
        EXPECT_LT(design::Distance(form.Chosen()->linkage.crank.moving, at), 1e-9);
    });
}

TEST_F(ExploreHand, AMapWithoutDotsTakesNoPress) {
    Inside([&] {
        Type(form, "txt_Least", platform::kNoIndex, "90.1");
        Leave_Box();
        ASSERT_TRUE(form.Shown().empty());
        EXPECT_FALSE(form.pic_Map.OnSeize({1, 1, 0, 0.01}));
    });
}

TEST_F(ExploreHand, TheMapIsASquareAFifthWiderThanWhatItHas) {
    design::Task far = Four();
    for (design::Place& place : far.positions) place.at += Point(300, -200);
    for (const design::Task& task : {Four(), far}) {
        form.Take_Task(task);
        Inside([&] {
            for (int map = 0; map < 4; ++map) {
                form.cmb_Map.Choose(map);
                const design::Box all = All_On_Map(map);
                const double wide = all.high.real() - all.low.real(), high = all.high.imag() - all.low.imag();
                EXPECT_NEAR(Side(form.pic_Map), 1.2 * std::max(wide, high), 1e-6) << map;
                EXPECT_NEAR(form.pic_Map.Drawing().Left() + form.pic_Map.Drawing().Right(),
                            all.low.real() + all.high.real(), 1e-6);
            }
        });
    }
}

TEST_F(ExploreHand, WhatWasThrownOutIsSeenAsItStandsInTheFirstPosition) {
    Inside([&] {
        Search();
        form.chk_ThrownOut.Click();
        ASSERT_FALSE(form.Shown().empty());
        for (const Solution& solution : form.Shown()) {
            const design::FourBar& bar = solution.linkage;
            const auto pose = design::Pose_Of(bar, solution.judgement.open, 0);
            if (!pose) continue;
            EXPECT_LT(design::Distance(pose->A, bar.crank.moving), 1e-6) << "where its dyads have it";
            EXPECT_LT(design::Distance(pose->B, bar.other.moving), 1e-6);
            Point low = bar.crank.fixed, high = low;
            for (const Point p : {bar.other.fixed, pose->A, pose->B, pose->P}) {
                low = {std::min(low.real(), p.real()), std::min(low.imag(), p.imag())};
                high = {std::max(high.real(), p.real()), std::max(high.imag(), p.imag())};
            }
            EXPECT_LT(design::Distance(solution.judgement.room.low, low), 1e-9);
            EXPECT_LT(design::Distance(solution.judgement.room.high, high), 1e-9);
        }
    });
}

TEST_F(ExploreHand, WhatWasThrownOutHasNoPathOfItsCouplerPoint) {
    constexpr platform::Color kPath = 0xA0A0A0;
    const auto longest = [&] {
        double most = 0;
        for (const auto& drawn : form.Picture1.Drawing().Primitives())
            if (drawn.alive && drawn.kind == platform::Picture::Primitive::Kind::kSegment && drawn.color == kPath)
                most = std::max(most, design::Distance({drawn.x1, drawn.y1}, {drawn.x2, drawn.y2}));
        return most;
    };
    Inside([&] {
        Type(form, "txt_Limit", 2, "40");
        Leave_Box();
        Search();
        ASSERT_FALSE(form.Shown().empty());
        EXPECT_GT(longest(), 1e-3);
        form.chk_ThrownOut.Click();
        ASSERT_FALSE(form.Shown().empty());
        for (std::size_t i = 0; i < form.Shown().size(); ++i) {
            EXPECT_LT(longest(), 1e-9) << form.lbl_Told.Caption.Get();
            form.key_Next.OnPress();
        }
    });
}

TEST_F(ExploreHand, APageThatIsFullIsTheLast) {
    Inside([&] {
        Search();
        form.cmb_Sort.Choose(1);
        ASSERT_GT(form.Shown().size(), 6U);
        const double sixth = form.Shown()[5].judgement.transmission, next = form.Shown()[6].judgement.transmission;
        ASSERT_GT(sixth, next);
        Type(form, "txt_Least", platform::kNoIndex, Text_Of((sixth + next) / 2));
        Leave_Box();
        EXPECT_EQ(form.lbl_Page.Caption.Get(), "1 to 6 of 6");
        EXPECT_FALSE(form.cmd_Later.Enabled);
        form.cmd_Later.OnClick();
        EXPECT_EQ(form.lbl_Page.Caption.Get(), "1 to 6 of 6");
    });
}

TEST_F(ExploreHand, AClosedWindowPlaysNothingAndSearchesNothing) {
    form.Effort.coarse = false;
    Inside([&] {
        Press(form, "cmd_Play");
        Press(form, "cmd_Search");
        bool cancel = true;
        form.Form_QueryUnload(cancel);
        EXPECT_FALSE(cancel);
        EXPECT_EQ(form.cmd_Play.Caption, "&Play");
        EXPECT_FALSE(form.Timer1.Enabled);
        EXPECT_FALSE(form.cmd_Stop.Enabled);
    });
}

TEST_F(ExploreHand, ASearchThatIsStoppedAtOnceIsOver) {
    form.Effort.coarse = false;
    Inside([&] {
        Press(form, "cmd_Search");
        Press(form, "cmd_Stop");
        EXPECT_FALSE(form.Timer1.Enabled);
        EXPECT_FALSE(form.cmd_Stop.Enabled);
        EXPECT_FALSE(form.Shown().empty()) << "those at a glance are better than none";
    });
}

}  // namespace
}  // namespace verlink::test
