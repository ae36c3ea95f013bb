// What the screen of linkages for a task shows of them: numbers of the gallery, words, dots of the map, drawings; and
// what it says under the hand.
#include <algorithm>
#include <cmath>
#include <sstream>

#include "core/numeric.h"
#include "core/text.h"
#include "platform/picture_box.h"
#include "tests/screens/frm_explore_fixture.h"

namespace verlink::test {

namespace {

using design::Point;
using design::Solution;

class ExplorePictures : public ExploreFixture {
   protected:
    static std::string One(double value) { return Text_Of(FNRound(value, 1)); }
    const Solution& The(std::size_t i) { return form.Shown().at(i); }
    /// Pins of the map, by their place and size.
    std::vector<std::array<double, 3>> Dots() {
        std::vector<std::array<double, 3>> dots;
        for (const auto& drawn : form.pic_Map.Drawing().Primitives())
            if (drawn.alive && drawn.kind == platform::Picture::Primitive::Kind::kPin)
                dots.push_back({drawn.x1, drawn.y1, drawn.x2});
        return dots;
    }
    bool Has_Dot(Point at, double size) {
        const double flip = Middle_Y(form.pic_Map);
        return std::ranges::any_of(Dots(), [&](const auto& dot) {
            return std::abs(dot[0] - at.real()) < 1e-6 && std::abs(dot[2] - size) < 1e-6 &&
                   (std::abs(dot[1] - at.imag()) < 1e-6 || std::abs(flip - dot[1] - at.imag()) < 1e-6);
        });
    }
    static double Middle_Y(const platform::PictureBox& picture) {
        return picture.Drawing().Top() + picture.Drawing().Bottom();
    }
    /// Whether a line is drawn between two spots, either way.
    static bool Has_Line(const platform::PictureBox& picture, Point a, Point b) {
        for (const auto& drawn : picture.Drawing().Primitives()) {
            if (!drawn.alive || drawn.kind == platform::Picture::Primitive::Kind::kPin) continue;
            const Point from(drawn.x1, drawn.y1), to(drawn.x2, drawn.y2);
            const auto same = [](Point p, Point q) { return design::Distance(p, q) < 1e-6; };
            if ((same(from, a) && same(to, b)) || (same(from, b) && same(to, a))) return true;
        }
        return false;
    }
    static double Side(const platform::PictureBox& picture) {
        return picture.Drawing().Right() - picture.Drawing().Left();
    }
};

}  // namespace

TEST_F(ExplorePictures, ComesUpWithItsListsAndTheFirstOfEach) {
    Inside([&] {
        const auto items = [](const platform::ComboBox& box) { return box.Items().size(); };
        EXPECT_EQ(form.cmb_Count.Items(), (std::vector<std::string>{"2", "3", "4", "5"}));
        EXPECT_EQ(items(form.cmb_Sort), 5U);
        EXPECT_EQ(items(form.cmb_Class), 6U);
        EXPECT_EQ(items(form.cmb_Circuit), 3U);
        EXPECT_EQ(items(form.cmb_Map), 4U);
        EXPECT_EQ(items(form.cmb_Drive), 3U);
        EXPECT_EQ(form.cmb_Sort.Text, "score");
        EXPECT_EQ(form.cmb_Class.Text, "all classes");
        EXPECT_EQ(form.cmb_Circuit.Text, "both circuits");
        EXPECT_EQ(form.cmb_Map.Text, "crank's moving pivot");
        EXPECT_EQ(form.cmb_Drive.Text, "either side");
        EXPECT_EQ(form.txt_Least.Text, "0");
        EXPECT_TRUE(form.chk_Curves.Value);
        EXPECT_FALSE(form.chk_ThrownOut.Value);
        EXPECT_FALSE(form.chk_FullTurn.Value);
        EXPECT_EQ(form.hsc_Stroke.Max(), 200);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(form.hsc_Weight[i].Max(), 10);
        EXPECT_EQ(form.Timer1.Interval, 40);
        EXPECT_FALSE(form.Timer1.Enabled);
        EXPECT_EQ(form.Focus(), &form.txt_X[1]);
        EXPECT_EQ(form.DefaultButton, &form.cmd_Search);
        EXPECT_EQ(form.CancelButton, &form.cmd_Cancel);
        EXPECT_TRUE(form.Picture1.Magnifies);
        EXPECT_TRUE(form.pic_Map.Magnifies);
        EXPECT_EQ(form.lbl_Head[0].Caption.Get(), "x, in");
        EXPECT_EQ(form.lbl_Head[1].Caption.Get(), "y, in");
        EXPECT_EQ(form.lbl_Unit[0].Caption.Get(), "in");
        EXPECT_EQ(form.lbl_Unit[1].Caption.Get(), "in");
        EXPECT_EQ(form.lbl_Unit[2].Caption.Get(), "deg");
        EXPECT_FALSE(form.chk_Curves.Enabled) << "there are three positions";
        EXPECT_EQ(form.txt_Limit[1].Text, "") << "any";
        EXPECT_EQ(form.txt_Area[0].Text, "anywhere");
    });
}

TEST_F(ExplorePictures, TheTaskToBeginWithIsOfRoundNumbersInEachUnit) {
    const std::pair<int, const char*> units[] = {{1, "4"}, {2, "4"}, {3, "0.4"}, {4, "40"}, {5, "400"}};
    for (const auto& [system, x] : units) {
        SCOPED_TRACE(system);
        Use_Units(system);
        Inside([&, text = x] {
            EXPECT_EQ(form.txt_X[2].Text, text);
            EXPECT_EQ(Val(form.txt_Y[3].Text.Get()), Val(form.txt_X[2].Text.Get())) << "4 up at the third";
            EXPECT_EQ(form.txt_Angle[2].Text, "30");
            EXPECT_EQ(form.txt_Angle[3].Text, "60");
            EXPECT_EQ(form.lbl_Head[0].Caption.Get(), "x, " + Model.UnitLabel(6));
        });
    }
}

TEST_F(ExplorePictures, TheGalleryTurnsItsPagesAndStopsAtItsEnds) {
    Inside([&] {
        Search();
        const int count = static_cast<int>(form.Shown().size());
        ASSERT_GT(count, 6);
        EXPECT_FALSE(form.cmd_Earlier.Enabled);
        EXPECT_TRUE(form.cmd_Later.Enabled);
        int page = 0;
        while (form.cmd_Later.Enabled) {
            Press(form, "cmd_Later");
            ++page;
            const int first = 6 * page, last = std::min(count, first + 6);
            EXPECT_EQ(form.lbl_Page.Caption.Get(),
                      std::to_string(first + 1) + " to " + std::to_string(last) + " of " + std::to_string(count));
            for (int i = 0; i < 6; ++i) {
                EXPECT_EQ(form.pic_Found[i].Visible, first + i < count) << i;
                EXPECT_EQ(form.lbl_Found[i].Visible, first + i < count) << i;
            }
        }
        EXPECT_EQ(page, (count - 1) / 6);
        form.cmd_Later.OnClick();
        EXPECT_TRUE(form.lbl_Page.Caption.Get().starts_with(std::to_string(6 * page + 1) + " to "));
        for (; page > 0; --page) Press(form, "cmd_Earlier");
        form.cmd_Earlier.OnClick();
        EXPECT_TRUE(form.lbl_Page.Caption.Get().starts_with("1 to 6 of "));
        form.pic_Found[5].OnClick();
        EXPECT_EQ(form.Chosen(), &The(5));
        form.key_Before.OnPress();
        EXPECT_EQ(form.Chosen(), &The(4));
        form.pic_Found[0].OnClick();
        form.key_Before.OnPress();
        EXPECT_EQ(form.Chosen(), &The(0)) << "there is none before the first";
        for (int i = 1; i < count + 2; ++i) form.key_Next.OnPress();
        EXPECT_EQ(form.Chosen(), &The(static_cast<std::size_t>(count - 1)));
    });
}

TEST_F(ExplorePictures, EachOfTheGalleryIsToldInTwoLinesAndTheChosenOneInASentence) {
    const char* classes[] = {"crank-rocker", "double-crank", "double-rocker",
                             "rocker-crank", "special case", "triple-rocker"};
    Inside([&] {
        Search();
        for (std::size_t i = 0; i < 6; ++i) {
            const design::Judgement& j = The(i).judgement;
            const double room = design::Distance(j.room.low, j.room.high);
            const std::string words = form.lbl_Found[static_cast<int>(i)].Caption;
            EXPECT_TRUE(words.starts_with(std::to_string(i + 1) + "  " + classes[static_cast<int>(j.kind)] + "\n" +
                                          One(j.transmission) + " deg, "))
                << words;
            EXPECT_TRUE(words.ends_with(" in")) << words;
            const double told = Val(words.substr(words.find(", ") + 2));
            EXPECT_NEAR(told, room, 0.0051 * std::max(1.0, room));
        }
        form.pic_Found[1].OnClick();
        const design::Judgement& j = The(1).judgement;
        const std::string told = form.lbl_Told.Caption;
        EXPECT_TRUE(told.starts_with("2 of " + std::to_string(form.Shown().size()) + ": ")) << told;
        for (const std::string& part :
             {std::string(j.open ? "open" : "crossed") + " circuit",
              "transmission angle " + One(j.transmission) + " deg",
              "longest link " + One(j.proportion) + " times the shortest", "score " + One(j.score)})
            EXPECT_NE(told.find(part), std::string::npos) << part << "\n" << told;
    });
}

TEST_F(ExplorePictures, TheMapHasADotForEachAtThePivotThatIsAskedForAndALargeOneForTheChosen) {
    Inside([&] {
        Search();
        form.pic_Found[2].OnClick();
        for (int map = 0; map < 4; ++map) {
            SCOPED_TRACE(map);
            form.cmb_Map.Choose(map);
            const double side = Side(form.pic_Map);
            for (std::size_t i = 0; i < form.Shown().size(); ++i) {
                const design::FourBar& bar = The(i).linkage;
                const Point pivots[] = {bar.crank.moving, bar.crank.fixed, bar.other.moving, bar.other.fixed};
                const Point at = pivots[map];
                const double size = (i == 2 ? 0.032 : 0.016) * side;
                EXPECT_TRUE(Has_Dot(at, size)) << i;
                EXPECT_GT(at.real(), form.pic_Map.Drawing().Left());
                EXPECT_LT(at.real(), form.pic_Map.Drawing().Right());
            }
        }
    });
}

TEST_F(ExplorePictures, TheMapsDotsGoFromRedToGreenWithTheScore) {
    Inside([&] {
        Search();
        for (const auto& drawn : form.pic_Map.Drawing().Primitives()) {
            if (!drawn.alive || drawn.kind != platform::Picture::Primitive::Kind::kPin) continue;
            // Red at 0 is 220, green at 100 is 160; several may have a pivot in common.
            EXPECT_TRUE(std::ranges::any_of(form.Shown(), [&](const Solution& solution) {
                const double score = solution.judgement.score;
                const int red = drawn.color % 256, green = drawn.color / 256;
                return design::Distance(solution.linkage.crank.moving, {drawn.x1, drawn.y1}) < 1e-6 &&
                       std::abs(red - 220 * (1 - score / 100)) < 2 && std::abs(green - 160 * score / 100) < 2;
            })) << drawn.color;
        }
    });
}

TEST_F(ExplorePictures, APickOnTheMapIsTheNearestDotHoweverFarAndADragGoesOnWithIt) {
    Inside([&] {
        form.cmb_Map.Choose(3);
        Search();
        const Point at = The(3).linkage.other.fixed;
        EXPECT_TRUE(form.pic_Map.OnSeize({at.real(), at.imag(), 0, 0.001}));
        EXPECT_LT(design::Distance(form.Chosen()->linkage.other.fixed, at), 1e-9);
        const Point there = The(1).linkage.other.fixed;
        form.pic_Map.OnDrag({there.real(), there.imag(), 0, 0.001});
        EXPECT_LT(design::Distance(form.Chosen()->linkage.other.fixed, there), 1e-9);
        form.pic_Map.OnRelease();
        EXPECT_TRUE(form.pic_Map.OnSeize({1e4, 1e4, 0, 0.001}));
        double nearest = 1e9;
        for (const Solution& s : form.Shown())
            nearest = std::min(nearest, design::Distance(s.linkage.other.fixed, {1e4, 1e4}));
        EXPECT_NEAR(design::Distance(form.Chosen()->linkage.other.fixed, {1e4, 1e4}), nearest, 1e-6);
    });
}

TEST_F(ExplorePictures, TheNumbersStandBehindTheCornersOfTheBodyInEachPosition) {
    form.Take_Task(With({{{0, 0}, 0}, {{4, 1}, 90}, {{6, 4}, 180}}));
    Inside([&] {
        const auto& picture = form.Picture1.Drawing();
        const double side = Side(form.Picture1);
        const double high = std::max(picture.Top(), picture.Bottom());
        const Point at[] = {{0, 0}, {4, 1}, {6, 4}};
        const Point away[] = {{-1, 0}, {0, 1}, {1, 0}};
        for (int i = 1; i <= 5; ++i) {
            EXPECT_EQ(form.lbl_Number[i].Visible, i <= 3) << i;
            if (i > 3) continue;
            const auto& anchor = form.lbl_Number[i].At.Get();
            ASSERT_TRUE(anchor);
            EXPECT_NEAR(anchor->across, (at[i - 1].real() - picture.Left()) / side, 1e-9);
            EXPECT_NEAR(anchor->down, (high - at[i - 1].imag()) / side, 1e-9);
            EXPECT_NEAR(anchor->right, away[i - 1].real(), 1e-9);
            EXPECT_NEAR(anchor->below, away[i - 1].imag(), 1e-9);
        }
    });
}

TEST_F(ExplorePictures, TheStrokeTellsTheAngleOfTheCrankWithinATurn) {
    Inside([&] {
        ASSERT_TRUE(form.Chosen());
        const design::Judgement& j = form.Chosen()->judgement;
        const auto angle = [](double radians) {
            const double degrees = std::fmod(radians * 180 / M_PI, 360);
            return degrees < 0 ? degrees + 360 : degrees;
        };
        for (const int place : {0, 37, 121, 200}) {
            form.hsc_Stroke.SetValue(place);
            const std::string words = form.lbl_Stroke.Caption;
            EXPECT_TRUE(words.starts_with("Crank at ")) << words;
            const double told = Val(words.substr(9));
            EXPECT_LT(
                std::abs(std::remainder(told - angle(j.crank[0] + place / 200.0 * (j.crank[2] - j.crank[0])), 360)),
                1.5);
            EXPECT_GE(told, 0);
            EXPECT_LE(told, 360);
        }
        EXPECT_TRUE(form.hsc_Stroke.Enabled);
        EXPECT_TRUE(form.cmd_Play.Enabled);
        Type(form, "txt_Least", platform::kNoIndex, "90.1");
        Leave_Box();
        EXPECT_FALSE(form.hsc_Stroke.Enabled);
        EXPECT_FALSE(form.cmd_Play.Enabled);
        EXPECT_EQ(form.lbl_Stroke.Caption.Get(), "");
        EXPECT_EQ(form.lbl_Told.Caption.Get(), "");
        EXPECT_EQ(form.lbl_Page.Caption.Get(), "");
    });
}

TEST_F(ExplorePictures, WhatPlaysStopsWhereNothingIsLeftToPlay) {
    Inside([&] {
        Press(form, "cmd_Play");
        EXPECT_TRUE(form.Timer1.Enabled);
        Type(form, "txt_Least", platform::kNoIndex, "90.1");
        Leave_Box();
        EXPECT_EQ(form.cmd_Play.Caption.Get(), "&Play");
        EXPECT_FALSE(form.Timer1.Enabled);
    });
}

TEST_F(ExplorePictures, ABodyLightsUpUnderThePointerAndIsHeldByTheHand) {
    Inside([&] {
        EXPECT_FALSE(form.Picture1.Lit.Get());
        form.Picture1.OnHover({4.03, 1, 0, 0.01});
        ASSERT_TRUE(form.Picture1.Lit.Get());
        EXPECT_EQ(*form.Picture1.Lit.Get(), (platform::Light{4, 1, false}));
        EXPECT_EQ(form.Picture1.Pointer.Get(), platform::Grip::kOpenHand);
        form.Picture1.OnHover({4.2, 1, 0, 0.01});
        EXPECT_FALSE(form.Picture1.Lit.Get()) << "that is 20 pixels off";
        EXPECT_EQ(form.Picture1.Pointer.Get(), platform::Grip::kArrow);
        form.Picture1.OnHover({4, 1, 0, 0.01});
        form.Picture1.OnLeave();
        EXPECT_FALSE(form.Picture1.Lit.Get());
        const double left = form.Picture1.Drawing().Left();
        ASSERT_TRUE(form.Picture1.OnSeize({4, 1, 0, 0.01}));
        EXPECT_EQ(*form.Picture1.Lit.Get(), (platform::Light{4, 1, true}));
        EXPECT_EQ(form.Picture1.Pointer.Get(), platform::Grip::kClosedHand);
        form.Picture1.OnDrag({14.1234, 1, 0, 0.01});
        EXPECT_EQ(form.txt_X[2].Text, "14.123") << "a step is less than half a pixel";
        EXPECT_EQ(form.Picture1.Drawing().Left(), left) << "the picture stays while it is held";
        EXPECT_EQ(form.Picture1.Lit.Get()->x, 14.123);
        form.Picture1.OnRelease();
        EXPECT_FALSE(form.Picture1.Lit.Get());
        EXPECT_GT(form.Picture1.Drawing().Right(), 14.12);
        form.Picture1.OnDrag({1, 1, 0, 0.01});
        EXPECT_EQ(form.txt_X[2].Text, "14.123") << "nothing is held";
    });
}

TEST_F(ExplorePictures, ATurnOfABodyIsToTenthsOfADegreeAndGoesTheShorterWay) {
    form.Take_Task(With({{{0, 0}, 350}, {{4, 1}, 30}, {{6, 4}, 60}}));
    Inside([&] {
        const double size = Side(form.Picture1) * 0.08;
        const auto at = [&](double degrees) { return std::polar(size, degrees * M_PI / 180); };
        ASSERT_TRUE(form.Picture1.OnSeize({at(350).real(), at(350).imag(), 0, 0.001}));
        form.Picture1.OnDrag({at(13.56).real(), at(13.56).imag(), 0, 0.001});
        EXPECT_EQ(form.txt_Angle[1].Text, "373.6");
        form.Picture1.OnRelease();
        EXPECT_EQ(Kept().positions[0].at, Point(0, 0));
    });
}

TEST_F(ExplorePictures, TheKindsOfRefusalStandInTheGalleryOfThoseThatWereThrownOut) {
    Inside([&] {
        Search();
        form.chk_ThrownOut.Click();
        ASSERT_FALSE(form.Shown().empty());
        EXPECT_TRUE(Said().ends_with(" Shown are some that were thrown out.")) << Said();
        for (platform::Visual* box : std::initializer_list<platform::Visual*>{&form.cmb_Sort, &form.cmb_Class,
                                                                              &form.cmb_Circuit, &form.txt_Least})
            EXPECT_FALSE(box->Enabled) << box->Name();
        EXPECT_EQ(form.lbl_Found[0].Caption.Get(), "1  " + std::string(design::Words_Of(The(0).judgement.refusal)));
        EXPECT_EQ(form.lbl_Stroke.Caption.Get(), "");
        EXPECT_FALSE(form.cmd_Choices.Enabled);
        // Those that jump or jam come before those that lie beyond a limit.
        int before = -1;
        for (const Solution& s : form.Shown()) {
            const int rank = (static_cast<int>(s.judgement.refusal) + design::kRefusals -
                              static_cast<int>(design::Refusal::kCircuit)) %
                             design::kRefusals;
            EXPECT_GE(rank, before);
            before = rank;
        }
        form.chk_ThrownOut.Click();
        for (platform::Visual* box : std::initializer_list<platform::Visual*>{&form.cmb_Sort, &form.cmb_Class,
                                                                              &form.cmb_Circuit, &form.txt_Least})
            EXPECT_TRUE(box->Enabled) << box->Name();
    });
}

TEST_F(ExplorePictures, WhatAHandHasPickedStaysInViewWhenTheListIsAnother) {
    Inside([&] {
        Search();
        form.pic_Found[4].OnClick();
        const design::FourBar picked = form.Chosen()->linkage;
        form.cmb_Sort.Choose(2);
        ASSERT_TRUE(form.Chosen());
        EXPECT_LT(design::Apart_As_Driven(form.Chosen()->linkage, picked), 1e-9);
        const auto number = static_cast<int>(form.Chosen() - form.Shown().data());
        EXPECT_TRUE(form.lbl_Page.Caption.Get().starts_with(std::to_string(number / 6 * 6 + 1) + " to "));
        Search();
        EXPECT_EQ(form.Chosen(), &The(0)) << "a new search begins with its best";
    });
}

TEST_F(ExplorePictures, CurvesOfFourPositionsAreDrawnWhileTheyAreTicked) {
    form.Take_Task(Four());
    Inside([&] {
        EXPECT_TRUE(form.chk_Curves.Enabled);
        const auto large = form.Picture1.Drawing().Alive(), map = form.pic_Map.Drawing().Alive();
        form.chk_Curves.Click();
        EXPECT_LT(form.Picture1.Drawing().Alive(), large);
        EXPECT_LT(form.pic_Map.Drawing().Alive(), map);
        EXPECT_GT(large - form.Picture1.Drawing().Alive(), map - form.pic_Map.Drawing().Alive())
            << "both curves there, one on the map";
        form.pic_Map.OnKey({"Right", 0, 0.01});
        EXPECT_EQ(Said().find("with the link"), std::string::npos) << "there is no curve to go along";
        const auto& point = form.The_Curves().front()[form.The_Curves().front().size() / 2];
        EXPECT_FALSE(form.Picture1.OnSeize({point.fixed.real() + 300, point.fixed.imag(), 0, 1e-9}));
        form.chk_Curves.Click();
        EXPECT_EQ(form.pic_Map.Drawing().Alive(), map);
    });
}

TEST_F(ExplorePictures, ALinkThatIsPickedOnACurveIsDrawnAndToldByItsEnds) {
    form.Take_Task(Four());
    Inside([&] {
        const auto& piece = form.The_Curves().front();
        const design::Dyad dyad = piece[piece.size() / 3];
        ASSERT_TRUE(form.Picture1.OnSeize({dyad.moving.real(), dyad.moving.imag(), 0, 1e-9}));
        const std::string link = " with the link from " + Text_Of(FNRound(dyad.fixed.real(), 3)) + ", " +
                                 Text_Of(FNRound(dyad.fixed.imag(), 3)) + " to " +
                                 Text_Of(FNRound(dyad.moving.real(), 3)) + ", " +
                                 Text_Of(FNRound(dyad.moving.imag(), 3)) + ". Search looks for all again.";
        EXPECT_NE(Said().find(link), std::string::npos) << Said() << "\n" << link;
        const auto is_drawn = [&](const platform::PictureBox& picture) {
            const double flip = Middle_Y(picture);
            const auto mirrored = [flip](Point p) { return Point(p.real(), flip - p.imag()); };
            return Has_Line(picture, dyad.fixed, dyad.moving) ||
                   Has_Line(picture, mirrored(dyad.fixed), mirrored(dyad.moving));
        };
        EXPECT_TRUE(is_drawn(form.Picture1));
        EXPECT_TRUE(is_drawn(form.pic_Map));
        Search();
        EXPECT_FALSE(is_drawn(form.pic_Map)) << "all are looked for";
        EXPECT_EQ(Said().find("with the link"), std::string::npos);
    });
}

TEST_F(ExplorePictures, AWeightThatIsSetBackCountsAgainAndTheFaultGoes) {
    Inside([&] {
        for (int i = 1; i < 4; ++i) form.hsc_Weight[i].SetValue(0);
        form.hsc_Weight[0].SetValue(0);
        EXPECT_TRUE(Said().starts_with("Something has to count")) << Said();
        EXPECT_GT(form.hsc_Weight[0].Value(), 0);
        form.hsc_Weight[2].SetValue(4);
        EXPECT_FALSE(Said().starts_with("Something has to count")) << Said();
        EXPECT_EQ(Kept().weights.room, 4);
        EXPECT_EQ(Kept().weights.proportion, 0);
        EXPECT_EQ(Kept().weights.rounding, 0);
        form.hsc_Weight[3].SetValue(10);
        EXPECT_EQ(Kept().weights.rounding, 10);
        form.hsc_Weight[1].SetValue(3);
        EXPECT_EQ(Kept().weights.proportion, 3);
    });
}

TEST_F(ExplorePictures, AreasGoToTheirPivotsAndNumbersBeyondTheirBoundsAreNamed) {
    Inside([&] {
        for (int i = 0; i < 4; ++i) {
            Type(form, "txt_Area", i, "at " + std::to_string(i) + " 1");
            Leave_Box();
        }
        EXPECT_EQ(Kept().left.fixed.points, (std::vector<Point>{{0, 1}}));
        EXPECT_EQ(Kept().left.moving.points, (std::vector<Point>{{1, 1}}));
        EXPECT_EQ(Kept().right.fixed.points, (std::vector<Point>{{2, 1}}));
        EXPECT_EQ(Kept().right.moving.points, (std::vector<Point>{{3, 1}}));
        const std::tuple<const char*, int, const char*, const char*> beyond[] = {
            {"txt_Y", 1, "-2000000", "y of position 1"},
            {"txt_Angle", 3, "1e9", "the angle of position 3"},
            {"txt_Limit", 0, "-1", "the shortest link"},
            {"txt_Limit", 1, "-1", "the longest link"},
            {"txt_Limit", 2, "-0.1", "the transmission angle"}};
        for (const auto& [box, index, text, what] : beyond) {
            Type(form, box, index, text);
            Leave_Box();
            EXPECT_TRUE(Said().starts_with("\"" + std::string(text) + "\" is not taken for " + what + ": ")) << Said();
            The_History().Undo();
        }
    });
}

}  // namespace verlink::test
