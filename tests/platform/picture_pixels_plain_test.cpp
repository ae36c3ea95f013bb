// Each pixel of a picture against the definition of its strokes: places, pens, pins, marks, and the glass over them.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "platform/picture_pixels.h"
#include "tests/platform/plain_painter.h"
#include "tests/support/colors.h"

namespace verlink::test {
namespace {

using platform::Color;
using platform::Glass;
using platform::Picture;
using platform::PicturePixels;
using platform::Point;
using Drawn_Kind = Picture::Primitive::Kind;

struct Page {
    int wide = 70, high = 52;
    double density = 1, across = 70, down = 52;
    Glass glass = {};
};

/// Where the world is seen on a page, and how its strokes are drawn there.
class Seen_Plainly {
   public:
    Seen_Plainly(const Picture& picture, const Page& page)
        : picture_(picture), page_(page), plain_(page.wide, page.high, picture.Back()) {
        Color color = 0;
        bool any = false;
        for (const auto& drawn : picture.Primitives()) {
            if (!drawn.alive) continue;
            if (any && drawn.color != color) plain_.Pour(color);
            color = drawn.color;
            any = true;
            Draw(drawn);
        }
        plain_.Pour(color);
    }
    const PlainPainter& Plain() const { return plain_; }

   private:
    double Unit_X() const { return page_.across * page_.density / (picture_.Right() - picture_.Left()); }
    double Unit_Y() const { return page_.down * page_.density / (picture_.Bottom() - picture_.Top()); }
    Point Place(double x, double y) const {
        const double part_x = (x - picture_.Left()) / (picture_.Right() - picture_.Left());
        const double part_y = (y - picture_.Top()) / (picture_.Bottom() - picture_.Top());
        return {page_.glass.Seen_Across(part_x) * page_.across * page_.density,
                page_.glass.Seen_Down(part_y) * page_.down * page_.density};
    }
    void Line(Point from, Point to) {
        // Along an axis through the middles of pixels.
        if (from.y == to.y)
            from.y = to.y = std::floor(from.y) + 0.5;
        else if (from.x == to.x)
            from.x = to.x = std::floor(from.x) + 0.5;
        plain_.Line(from, to, Pen());
    }
    double Pen() const { return 1.2 * page_.density; }
    void Draw(const Picture::Primitive& drawn) {
        const Point at = Place(drawn.x1, drawn.y1), end = Place(drawn.x2, drawn.y2);
        switch (drawn.kind) {
            case Drawn_Kind::kSegment: return Line(at, end);
            case Drawn_Kind::kCircle:
                return plain_.Circle(at, drawn.x2 * std::abs(Unit_X()) * page_.glass.factor, Pen());
            case Drawn_Kind::kPin: return plain_.Circle(at, drawn.x2 * std::abs(Unit_X()), Pen());
            case Drawn_Kind::kMark:
                return Line({at.x + drawn.dx1 * Unit_X(), at.y + drawn.dy1 * Unit_Y()},
                            {end.x + drawn.dx2 * Unit_X(), end.y + drawn.dy2 * Unit_Y()});
            case Drawn_Kind::kDot: return plain_.Disc(at, 0.8 * page_.density);
        }
    }

    const Picture& picture_;
    const Page& page_;
    PlainPainter plain_;
};

void Expect_As_Defined(const Picture& picture, const Page& page, double off = 2.6) {
    PicturePixels pixels;
    pixels.Paint(picture, page.wide, page.high, page.density, page.across, page.down, page.glass);
    EXPECT_EQ(pixels.Painted(), picture.Alive());
    Seen_Plainly(picture, page).Plain().Expect(pixels.Pixels(), off);
}

/// All kinds in several colours, in a window whose corners are given; nothing stands at the same place in x as in y.
void Draw_All(Picture& picture, double left, double top, double right, double bottom) {
    picture.BackColor(0xE0F0FF);
    picture.Scale(left, top, right, bottom);
    const auto x = [=](double part) { return left + part * (right - left); };
    const auto y = [=](double part) { return top + part * (bottom - top); };
    const double size = std::abs(right - left);
    const auto dx = [=](double part) { return part * (right - left); };
    const auto dy = [=](double part) { return part * (bottom - top); };
    picture.Line(x(0.1), y(0.2), x(0.63), y(0.71), kRed);
    picture.LineTo(x(0.9), y(0.33), kRed);
    picture.LineTo(x(0.9), y(0.93), kRed);
    picture.LineTo(x(0.37), y(0.93), kRed);
    picture.Circle(x(0.4), y(0.55), 0.17 * size, kBlue);
    picture.Pin(x(0.63), y(0.71), 0.05 * size, kBlue);
    picture.PSet(x(0.22), y(0.81), kBlack);
    picture.Mark({x(0.5), y(0.4), dx(0.02), dy(-0.03)}, {x(0.5), y(0.4), dx(0.13), dy(-0.11)}, kBlack);
    picture.Mark({x(0.7), y(0.4), 0, dy(0.06)}, {x(0.8), y(0.4), 0, dy(0.06)}, kMagenta);
    picture.Mark({x(0.7), y(0.1), dx(0.04), 0}, {x(0.7), y(0.6), dx(0.04), 0}, kMagenta);
    picture.Line(x(-0.5), y(0.45), x(0.52), y(1.7), kGreen);
}

TEST(PicturePixelsPlain, EveryKindStandsInItsPlaceInItsColourWhicheverWayTheWindowLies) {
    for (const auto& [left, top, right, bottom] :
         {std::array{-3.0, -2.0, 5.0, 4.0}, std::array{-3.0, 40.0, 5.0, -20.0}, std::array{9.0, 1.0, 2.0, 3.5}}) {
        Picture picture;
        Draw_All(picture, left, top, right, bottom);
        Expect_As_Defined(picture, {});
        if (testing::Test::HasFatalFailure()) FAIL() << left;
    }
}

TEST(PicturePixelsPlain, PensGrowWithTheDensityAndTheWindowFillsWhatItIsGiven) {
    Picture picture;
    Draw_All(picture, -3, -2, 5, 4);
    Expect_As_Defined(picture, {.density = 1.5, .across = 45, .down = 30});
    Expect_As_Defined(picture, {.density = 2, .across = 28, .down = 31});
    Expect_As_Defined(picture, {.density = 0.75, .across = 100, .down = 60});
    PicturePixels given, told;
    given.Paint(picture, 90, 60, 1.5);
    told.Paint(picture, 90, 60, 1.5, 60, 40);
    EXPECT_EQ(given.Pixels(), told.Pixels());
}

TEST(PicturePixelsPlain, UnderTheGlassWorldSpreadsAndPensPinsAndMarksStay) {
    Picture picture;
    Draw_All(picture, -3, 4, 5, -2);
    for (const Glass& glass : {Glass{2.5, 0.6, 0.55}, Glass{6, 0.55, 0.4}, Glass{0.4, 0.2, 0.7}}) {
        Expect_As_Defined(picture, {.glass = glass});
        Expect_As_Defined(picture, {.density = 1.5, .across = 46, .down = 34, .glass = glass});
        if (testing::Test::HasFatalFailure()) FAIL() << glass.factor;
    }
}

TEST(PicturePixelsPlain, APathOfShortStepsIsTheCurveThatTheyMakeToItsVeryEnds) {
    for (const double step : {0.013, 0.05, 0.031}) {
        Picture picture;
        picture.Scale(0, 0, 70, 52);
        // Steps of less than half a pixel, one of exactly that along an axis, and a single one by itself.
        picture.Line(55.5, 26.25, 55.5 + 1e-9, 26.25, kBlack);
        for (double turn = 0; turn < 5; turn += step)
            picture.LineTo(35 + 20.5 * std::cos(turn), 26.25 + 20.5 * std::sin(turn), kBlack);
        for (int i = 0; i < 7; ++i) picture.LineStep(0.3, 0, kBlack);
        for (int i = 0; i < 7; ++i) picture.LineStep(0.2, 0.15, kBlack);
        picture.Line(10.2, 10.3, 10.3, 10.5, kBlack);
        picture.Line(20.2, 40.3, 20.4, 40.5, kRed);
        picture.LineTo(20.4, 40.7, kRed);
        Expect_As_Defined(picture, {}, 8);
        if (testing::Test::HasFatalFailure()) FAIL() << step;
    }
}

TEST(PicturePixelsPlain, AnEmptyPictureIsPaperAndSoIsOneOfWhichAllWasErased) {
    Picture picture;
    picture.BackColor(kGreen);
    picture.Scale(0, 0, 10, 10);
    PicturePixels pixels;
    const auto expect_paper = [&] {
        pixels.Paint(picture, 20, 12);
        EXPECT_EQ(pixels.Pixels(), std::vector<std::uint32_t>(20 * 12, 0xFF00FF00U));
        EXPECT_EQ(pixels.Painted(), 0U);
    };
    expect_paper();
    expect_paper();
    for (int i = 0; i < 3; ++i) {
        picture.Line(1, 1, 8, 5, kRed);
        pixels.Paint(picture, 20, 12);
        EXPECT_EQ(pixels.Painted(), 1U);
        pixels.Paint(picture, 20, 12);
        picture.Line(1, 1, 8, 5, kGreen);
        expect_paper();
    }
}

}  // namespace
}  // namespace verlink::test
