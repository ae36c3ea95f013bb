// Labels upon a picture: near their anchors, within the picture, clear of what is drawn and of each other.
#include "platform/label_places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <tuple>

#include "platform/picture.h"

namespace verlink::test {

using platform::Anchor;
using platform::Find_Label_Places;
using platform::LabelPlace;
using platform::LabelWish;
using platform::Picture;

namespace {

constexpr double kSide = 400;

/// A picture of 400 by 400 in its own pixels, y down.
struct LabelPlaces : testing::Test {
    LabelPlaces() { picture.Scale(0, 0, kSide, kSide); }
    Picture picture;

    static LabelWish Wish(double x, double y, double right = 0, double below = 0) {
        return {Anchor{x / kSide, y / kSide, right, below}, 80, 16};
    }
    static double Distance(const LabelWish& wish, const LabelPlace& place) {
        const double x = wish.at.across * kSide, y = wish.at.down * kSide;
        return std::hypot(x - std::clamp(x, place.x, place.x + wish.width),
                          y - std::clamp(y, place.y, place.y + wish.height));
    }
    static bool Overlap(const LabelWish& a, const LabelPlace& p, const LabelWish& b, const LabelPlace& q) {
        return p.x < q.x + b.width && q.x < p.x + a.width && p.y < q.y + b.height && q.y < p.y + a.height;
    }
    static bool Inside(const LabelWish& wish, const LabelPlace& place) {
        return place.x >= 0 && place.y >= 0 && place.x + wish.width <= kSide && place.y + wish.height <= kSide;
    }
};

}  // namespace

TEST_F(LabelPlaces, ALabelAloneStandsCloseByInTheWishedDirection) {
    const LabelWish above = Wish(200, 200, 0, -1), right = Wish(200, 200, 3, 0);
    const LabelPlace over = Find_Label_Places(picture, kSide, {{above}}).front();
    EXPECT_LT(over.y + above.height, 200);
    EXPECT_NEAR(over.x + above.width / 2, 200, 1);
    EXPECT_LT(Distance(above, over), 8);
    const LabelPlace beside = Find_Label_Places(picture, kSide, {{right}}).front();
    EXPECT_GT(beside.x, 200);
    EXPECT_NEAR(beside.y + right.height / 2, 200, 1);
}

TEST_F(LabelPlaces, ALabelAtTheEdgeStaysWithinThePicture) {
    for (const auto& wish : {Wish(0, 0, -1, -1), Wish(400, 200, 1, 0), Wish(200, 400, 0, 1), Wish(-50, 500)})
        EXPECT_TRUE(Inside(wish, Find_Label_Places(picture, kSide, {{wish}}).front()));
}

TEST_F(LabelPlaces, ALabelGivesWayToALineACircleAndADot) {
    const LabelWish wish = Wish(200, 200, 0, -1);
    const LabelPlace free = Find_Label_Places(picture, kSide, {{wish}}).front();
    const double middle = free.y + wish.height / 2;
    const auto blocked = [&](const auto& draw) {
        picture.Cls();
        draw();
        const LabelPlace place = Find_Label_Places(picture, kSide, {{wish}}).front();
        return place.x != free.x || place.y != free.y;
    };
    EXPECT_TRUE(blocked([&] { picture.Line(100, middle, 300, middle, 1); }));
    EXPECT_TRUE(blocked([&] { picture.Circle(200, middle, 12, 1); }));
    EXPECT_TRUE(blocked([&] {
        for (int x = 160; x < 240; x += 4) picture.PSet(x, middle, 1);
    }));
    EXPECT_FALSE(blocked([&] { picture.Line(100, 350, 300, 350, 1); })) << "what is elsewhere does not matter";
    EXPECT_FALSE(blocked([&] { picture.Line(100, middle, 300, middle, picture.Back()); })) << "nor what is not seen";
    EXPECT_FALSE(blocked([&] {
        picture.Line(100, middle, 300, middle, 1);
        picture.Line(100, middle, 300, middle, picture.Back());
    })) << "nor what was erased";
}

TEST_F(LabelPlaces, ALabelStaysOnItsAnchorsSideOfALine) {
    picture.Line(0, 190, 400, 190, 1);
    const LabelWish wish = Wish(200, 200, 0, -1);
    EXPECT_GT(Find_Label_Places(picture, kSide, {{wish}}).front().y, 190);
}

TEST_F(LabelPlaces, LabelsOfOneAnchorStandBesideEachOther) {
    const std::vector<LabelWish> wishes(5, Wish(200, 200, 1, 0));
    const auto places = Find_Label_Places(picture, kSide, wishes);
    for (std::size_t i = 0; i < wishes.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(Overlap(wishes[i], places[i], wishes[j], places[j]));
}

TEST_F(LabelPlaces, TheWayToAnAnchorLeadsThroughNoOtherLabel) {
    // All want the place over one line, where only one can stand next to it.
    picture.Line(120, 200, 280, 200, 1);
    const std::vector<LabelWish> wishes{Wish(196, 200, 0, -1), Wish(200, 200, 0, -1), Wish(204, 200, 0, -1)};
    const auto places = Find_Label_Places(picture, kSide, wishes);
    for (std::size_t i = 0; i < wishes.size(); ++i) {
        const double x = wishes[i].at.across * kSide, y = wishes[i].at.down * kSide;
        const double near_x = std::clamp(x, places[i].x, places[i].x + wishes[i].width);
        const double near_y = std::clamp(y, places[i].y, places[i].y + wishes[i].height);
        for (double part = 0; part < 1; part += 0.02) {
            const LabelPlace walked{x + (near_x - x) * part, y + (near_y - y) * part};
            for (std::size_t j = 0; j < wishes.size(); ++j)
                if (j != i) {
                    EXPECT_FALSE(Overlap({{}, 0.1, 0.1}, walked, wishes[j], places[j])) << i << " through " << j;
                }
        }
    }
}

TEST_F(LabelPlaces, TheSamePictureGivesTheSamePlaces) {
    picture.Line(0, 0, 400, 400, 1);
    const std::vector<LabelWish> wishes{Wish(100, 100), Wish(110, 105), Wish(200, 200, 1, 1)};
    const auto once = Find_Label_Places(picture, kSide, wishes), again = Find_Label_Places(picture, kSide, wishes);
    for (std::size_t i = 0; i < wishes.size(); ++i) {
        EXPECT_EQ(once[i].x, again[i].x);
        EXPECT_EQ(once[i].y, again[i].y);
    }
}

TEST_F(LabelPlaces, ManyLabelsOnManyLinesOverlapNowhere) {
    // Of two thousand such pictures one leaves no room for a label, so that they are the same ones each time.
    std::mt19937 chance(7);
    std::uniform_real_distribution<double> anywhere(60, 340);
    for (int round = 0; round < 12; ++round) {
        picture.Cls();
        for (int i = 0; i < 8; ++i)
            picture.Line(anywhere(chance), anywhere(chance), anywhere(chance), anywhere(chance), 1);
        std::vector<LabelWish> wishes;
        for (int i = 0; i < 16; ++i) wishes.push_back(Wish(anywhere(chance), anywhere(chance), 1, i % 3 - 1));
        const auto places = Find_Label_Places(picture, kSide, wishes);
        for (std::size_t i = 0; i < wishes.size(); ++i) {
            EXPECT_TRUE(Inside(wishes[i], places[i])) << "round " << round;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(Overlap(wishes[i], places[i], wishes[j], places[j])) << "round " << round;
        }
    }
}

TEST_F(LabelPlaces, APictureTooSmallForItsLabelsHasThemAllTheSame) {
    const LabelWish wide{Anchor{0.5, 0.5, 0, 0}, 500, 20};
    const LabelPlace place = Find_Label_Places(picture, 40, {{wide}}).front();
    EXPECT_TRUE(std::isfinite(place.x) && std::isfinite(place.y));
    EXPECT_TRUE(Find_Label_Places(picture, 0, {{wide}}).size() == 1);
    EXPECT_TRUE(Find_Label_Places(picture, kSide, {}).empty());
}

TEST_F(LabelPlaces, WhatIsDrawnFarOutsideTheWindowIsNoHindrance) {
    picture.Line(-1e30, 3, 1e30, 3, 1);
    picture.Circle(1e20, 1e20, 1e25, 1);
    const LabelWish wish = Wish(200, 200, 0, -1);
    const LabelPlace free = Find_Label_Places(picture, kSide, {{wish}}).front();
    EXPECT_LT(Distance(wish, free), 8);
    // What comes from there and is seen is one.
    picture.Line(-1e10, free.y + 8, 1e10, free.y + 8, 1);
    const LabelPlace place = Find_Label_Places(picture, kSide, {{wish}}).front();
    EXPECT_TRUE(place.y > free.y + 8 || place.y + wish.height < free.y + 8);
}

TEST_F(LabelPlaces, TheMiddleOfALabelLiesInTheVeryDirectionAndItsEdgeThreePixelsOff) {
    for (const auto& [wide, high] : {std::pair{80.0, 16.0}, {30.0, 50.0}})
        for (int way = 0; way < 16; ++way) {
            const double turn = 2 * std::numbers::pi * way / 16;
            const double right = std::cos(turn), below = std::sin(turn);
            const LabelWish wish{Anchor{0.5, 0.45, 3 * right, 3 * below}, wide, high};
            const LabelPlace place = Find_Label_Places(picture, kSide, {{wish}}).front();
            const double x = place.x + wide / 2 - 200, y = place.y + high / 2 - 180;
            EXPECT_NEAR(x * below - y * right, 0, 1e-9) << way;
            EXPECT_GT(x * right + y * below, 0) << way;
            // From the middle back towards the anchor until the edge, with two pixels of air around the label.
            const double out_x = (wide / 2 + 2) / std::max(std::abs(right), 1e-12);
            const double out_y = (high / 2 + 2) / std::max(std::abs(below), 1e-12);
            EXPECT_NEAR(std::hypot(x, y) - std::min(out_x, out_y), 3, 1e-9) << way;
        }
}

TEST_F(LabelPlaces, WithoutADirectionALabelStandsOnTheRight) {
    const LabelWish wish = Wish(200, 150);
    const LabelPlace place = Find_Label_Places(picture, kSide, {{wish}}).front();
    EXPECT_NEAR(place.x, 200 + 3 + 2, 1e-9);
    EXPECT_NEAR(place.y + wish.height / 2, 150, 1e-9);
}

TEST_F(LabelPlaces, AtTheEdgeFivePixelsAreLeftOnEachSide) {
    const auto place_of = [&](double x, double y, double right, double below) {
        return Find_Label_Places(picture, kSide, {{Wish(x, y, right, below)}}).front();
    };
    const LabelPlace first = place_of(-30, -40, -1, -1), last = place_of(430, 440, 1, 1);
    EXPECT_DOUBLE_EQ(first.x, 5);
    EXPECT_DOUBLE_EQ(first.y, 5);
    EXPECT_DOUBLE_EQ(last.x, kSide - 5 - 80);
    EXPECT_DOUBLE_EQ(last.y, kSide - 5 - 16);
    const LabelWish wide{Anchor{0.5, 0.5, 0, 0}, 500, 600};
    const LabelPlace larger = Find_Label_Places(picture, kSide, {{wide}}).front();
    EXPECT_DOUBLE_EQ(larger.x, 5) << "what is larger than the picture begins at its corner";
    EXPECT_DOUBLE_EQ(larger.y, 5);
}

TEST_F(LabelPlaces, WhatLiesAlongTheVeryEdgeIsInTheWayOfALabelWhoseAnchorIsOutside) {
    for (const bool upright : {false, true})
        for (const auto& [anchor, edge, inward] : {std::tuple{-30.0, 1.0, 1.0}, {430.0, 399.0, -1.0}}) {
            const LabelWish wish{upright ? Anchor{0.5, anchor / kSide, 0, inward} : Anchor{anchor / kSide, 0.5, inward},
                                 16, 16};
            const auto aside = [&] {
                const LabelPlace place = Find_Label_Places(picture, kSide, {{wish}}).front();
                return std::abs((upright ? place.x : place.y) + 8 - 200);
            };
            picture.Cls();
            EXPECT_NEAR(aside(), 0, 1e-9);
            picture.PSet(upright ? 201 : edge, upright ? edge : 201, 1);
            EXPECT_GT(aside(), 8 + 2) << upright << anchor;
        }
}

TEST_F(LabelPlaces, ALabelTurnsALittleRatherThanMoveOut) {
    const LabelWish wish = Wish(200, 160, 0, -1);
    // Under the lower left corner of where it would stand, 158 to 242 across and 137 to 157 down.
    picture.PSet(159, 155, 1);
    const LabelPlace place = Find_Label_Places(picture, kSide, {{wish}}).front();
    EXPECT_NEAR(place.x + 40 - 200, (3 + 10 / std::cos(M_PI / 12)) * std::sin(M_PI / 12), 1e-9) << "a 24th of a turn";
    EXPECT_NEAR(160 - place.y - 8, (3 + 10 / std::cos(M_PI / 12)) * std::cos(M_PI / 12), 1e-9);
}

TEST_F(LabelPlaces, ALabelMovesOutAsFarAsItsSurroundingsAreFilledAndNoFurther) {
    const LabelWish wish{Anchor{0.5, 0.5, 0, 0}, 2, 2};
    for (const double distance : {26.0, 36.0, 48.0, 62.0, 80.0, 100.0}) {
        picture.Cls();
        const double filled = distance - 3;
        for (double x = -filled; x <= filled; x += 2)
            for (double y = -filled; y <= filled; ++y) {
                // A way is left free to both sides, too narrow for a label.
                const bool way = y >= 0 && y < 2;
                if (std::hypot(x, y) <= filled && !way) picture.PSet(200 + x, 200 + y, 1);
            }
        const LabelPlace place = Find_Label_Places(picture, kSide, {{wish}}).front();
        const double gap = place.x > 200 ? place.x - 2 - 200 : 200 - (place.x + 4);
        EXPECT_NEAR(gap, distance, 1e-9);
        EXPECT_NEAR(place.y + 1, 200, 1e-9) << distance;
    }
}

TEST_F(LabelPlaces, AWayEndsAtItsLabelAndDoesNotMindOthersBehindItAndAbove) {
    // All is drawn upon around the anchor but for ways to both sides; that on the right is the first.
    const LabelWish wish{Anchor{0.5, 0.5, 0, 0}, 2, 2}, behind{Anchor{330 / kSide, 0.5, 0, 0}, 2, 2},
        above{Anchor{250 / kSide, 40 / kSide, 0, 0}, 2, 2};
    for (double x = -97; x <= 97; x += 2)
        for (double y = -97; y <= 97; ++y)
            if (std::hypot(x, y) <= 97 && !(y >= 0 && y < 2)) picture.PSet(200 + x, 200 + y, 1);
    for (const LabelWish& other : {behind, above}) {
        const auto places = Find_Label_Places(picture, kSide, {{wish, other}});
        EXPECT_NEAR(places[0].x, 200 + 100 + 2, 1e-9);
        EXPECT_NEAR(places[1].x, other.at.across * kSide + 3 + 2, 1e-9);
    }
}

TEST_F(LabelPlaces, TheOppositeSideIsAsGoodAsFourteenPixelsFurtherOut) {
    const LabelWish wish{Anchor{0.5, 0.5, 1, 0}, 2, 2};
    for (const double distance : {12.0, 18.0}) {
        picture.Cls();
        for (double x = -110; x <= 110; ++x)
            for (double y = -110; y <= 110; ++y) {
                // Room for a label close by on the left, and at the end of a way on the right that is too narrow for
                // it.
                const bool way = x > 0 && x < distance && y >= 0 && y < 2;
                const bool left = x >= -10 && x < -2, right = x >= distance && x < distance + 8;
                if (!way && !((left || right) && y >= -4 && y < 4)) picture.PSet(200 + x, 200 + y, 1);
            }
        const LabelPlace place = Find_Label_Places(picture, kSide, {{wish}}).front();
        EXPECT_NEAR(place.y + 1, 200, 1e-9);
        EXPECT_NEAR(place.x + 1, distance < 3 + 14 ? 200 + distance + 3 : 200 - 3 - 3, 1e-9) << distance;
    }
}

TEST_F(LabelPlaces, OfTwoFreeWaysOutTheOneIsTakenOnWhichNothingIsDrawn) {
    const LabelWish wish{Anchor{0.5, 0.5, 0, 0}, 2, 2};
    for (const bool upright : {false, true})
        for (const double barred : {-12.0, 12.0}) {
            picture.Cls();
            for (double x = -23; x <= 23; ++x)
                for (double y = -23; y <= 23; ++y) {
                    const double along = upright ? y : x, across = upright ? x : y;
                    const bool way = across >= 0 && across < 2;
                    const bool bar = std::abs(along - barred) < 1;
                    if (std::hypot(x, y) <= 23 && (!way || bar)) picture.PSet(200 + x, 200 + y, 1);
                }
            const LabelPlace place = Find_Label_Places(picture, kSide, {{wish}}).front();
            const double x = place.x + 1 - 200, y = place.y + 1 - 200;
            EXPECT_NEAR(upright ? x : y, 0, 1e-9) << barred;
            EXPECT_NEAR(upright ? y : x, barred < 0 ? 29 : -29, 1e-9) << barred;
        }
}

TEST_F(LabelPlaces, ACellUnderALabelIsWorthFourteenPixelsAndOneOnItsWayEight) {
    // Ways out to both sides, wide enough for a label of six pixels with its air, and all else is drawn upon.
    const auto draw = [&](double right, const auto& free) {
        picture.Cls();
        for (double x = -110; x <= 110; x += 2)
            for (double y = -110; y <= 110; y += 2)
                if (!free(x, y)) picture.PSet(201 + x, 201 + y, 1);
        return Find_Label_Places(picture, kSide, {{LabelWish{Anchor{0.5, 0.5, right, 0}, 2, 2}}}).front();
    };
    // On the right a row of cells along the edge of the way, of which a label covers four, up to 62 pixels from its
    // place: 3 + 4 * 14 is less than 62, and 3 + 4 * 15 would be more.
    const LabelPlace over =
        draw(1, [](double x, double y) { return x >= 0 && y >= -4 && y <= 2 && !(y == -4 && x < 62); });
    EXPECT_NEAR(over.x, 200 + 3 + 2, 1e-9);
    EXPECT_NEAR(over.y + 1, 200, 1e-9);
    // On the right room from 36 pixels on, behind three cells; on the left from 62 on: 36 + 3 * 8 is less than 62.
    const LabelPlace behind = draw(0, [](double x, double y) {
        const double out = std::abs(x + 1);
        const bool way = y == 0 && !(x > 6 && x < 14);
        return way || (std::abs(y) <= 6 && out >= (x > 0 ? 36 : 60));
    });
    EXPECT_NEAR(behind.x, 200 + 36 + 2, 1e-9);
    EXPECT_NEAR(behind.y + 1, 200, 1e-9);
}

namespace {

/// A picture whose window is given, seen through a glass, with one label over the anchor at pixel 200, 160.
struct Label_Sheet {
    Picture picture;
    platform::Glass glass;
    double left, top, right, bottom;
    Label_Sheet(double l, double t, double r, double b, platform::Glass g)
        : glass(g), left(l), top(t), right(r), bottom(b) {
        picture.Scale(l, t, r, b);
    }
    double X(double pixel) const { return left + (right - left) * glass.Part_Across(pixel / kSide); }
    double Y(double pixel) const { return top + (bottom - top) * glass.Part_Down(pixel / kSide); }
    /// World, of a length in pixels: of what goes with the glass, and of what keeps its size.
    double Length(double pixels) const { return pixels / kSide * std::abs(right - left) / glass.factor; }
    double Kept(double pixels) const { return pixels / kSide * std::abs(right - left); }
    float Dx(double pixels) const { return static_cast<float>(pixels / kSide * (right - left)); }
    float Dy(double pixels) const { return static_cast<float>(pixels / kSide * (bottom - top)); }
    LabelPlace Place() const {
        const LabelWish wish{Anchor{200 / kSide, 160 / kSide, 0, -1}, 80, 16};
        return Find_Label_Places(picture, kSide, {{wish}}, glass).front();
    }
};

}  // namespace

TEST_F(LabelPlaces, ALabelMovesForWhatIsDrawnUnderItAndForNothingBesideIt) {
    // With its air the label stands from 158 to 242 across and from 137 to 157 down.
    struct Spot {
        double x, y;
        bool under;
    };
    const Spot spots[] = {{161, 147, true},  {239, 147, true},  {200, 140, true},  {200, 154.5, true},
                          {154, 147, false}, {247, 147, false}, {200, 133, false}, {200, 162, false}};
    const platform::Glass whole, near{2.5, 0.4, 0.55};
    for (Label_Sheet sheet : {Label_Sheet{0, 0, kSide, kSide, whole}, Label_Sheet{-3, 40, 5, -20, near}}) {
        const LabelPlace free = sheet.Place();
        EXPECT_NEAR(free.x, 160, 1e-9);
        EXPECT_NEAR(free.y, 139, 1e-9);
        Picture& on = sheet.picture;
        for (const auto& [spot_x, spot_y, under] : spots) {
            const double x = spot_x, y = spot_y;
            const auto moved = [&](const auto& draw) {
                on.Cls();
                draw();
                const LabelPlace place = sheet.Place();
                return place.x != free.x || place.y != free.y;
            };
            const double wx = sheet.X(x), wy = sheet.Y(y);
            EXPECT_EQ(moved([&] { on.PSet(wx, wy, 1); }), under) << x << ' ' << y;
            EXPECT_EQ(moved([&] { on.Line(wx, wy, sheet.X(x + 0.2), wy, 1); }), under) << x << ' ' << y;
            EXPECT_EQ(moved([&] { on.Pin(wx, wy, sheet.Kept(0.4), 1); }), under) << x << ' ' << y;
            EXPECT_EQ(moved([&] {
                          on.Mark({sheet.X(20), sheet.Y(30), sheet.Dx(x - 20), sheet.Dy(y - 30)},
                                  {sheet.X(350), sheet.Y(380), sheet.Dx(x - 350), sheet.Dy(y - 380)}, 1);
                      }),
                      under)
                << x << ' ' << y;
        }
        // Circles and pins, 60 pixels large, that reach to a place from above and from the left.
        for (const auto& [x, y, under] : {spots[2], spots[6], spots[0], spots[4]}) {
            const double cx = y == 147 ? x - 60 : x, cy = y == 147 ? y : y - 60;
            for (const bool pin : {false, true}) {
                on.Cls();
                if (pin)
                    on.Pin(sheet.X(cx), sheet.Y(cy), sheet.Kept(60), 1);
                else
                    on.Circle(sheet.X(cx), sheet.Y(cy), sheet.Length(60), 1);
                const LabelPlace place = sheet.Place();
                EXPECT_EQ(place.x != free.x || place.y != free.y, under) << x << ' ' << y << ' ' << pin;
            }
        }
    }
}

}  // namespace verlink::test
