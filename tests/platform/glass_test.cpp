// What is seen of a picture under a magnifier.
#include "platform/glass.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/controls.h"
#include "platform/picture_part.h"
#include "platform/picture_pixels.h"
#include "platform/screen.h"

namespace verlink::test {

using namespace platform;

namespace {

TEST(GlassTest, What_is_seen_at_the_place_of_a_zoom_stays_there) {
    Glass glass;
    for (const double by : {1.2, 3.0, 0.5, 7.0}) {
        const double across = glass.Part_Across(0.3), down = glass.Part_Down(0.8);
        glass = Zoomed(glass, by, 0.3, 0.8);
        EXPECT_NEAR(glass.Part_Across(0.3), across, 1e-12);
        EXPECT_NEAR(glass.Part_Down(0.8), down, 1e-12);
    }
    EXPECT_NEAR(glass.factor, 1.2 * 3 * 0.5 * 7, 1e-12);
}

TEST(GlassTest, Seen_and_part_are_each_other_s_way_back) {
    const Glass glass{5, 0.2, 0.7};
    EXPECT_NEAR(glass.Seen_Across(glass.Part_Across(0.1)), 0.1, 1e-12);
    EXPECT_NEAR(glass.Seen_Down(glass.Part_Down(0.9)), 0.9, 1e-12);
    EXPECT_EQ(glass.Seen_Across(0.2), 0.5);
    EXPECT_DOUBLE_EQ(glass.Part_Across(1), 0.3);
}

TEST(GlassTest, It_moves_with_the_hand_and_never_loses_the_picture) {
    const Glass glass = Moved({4, 0.5, 0.5}, 0.2, -0.4);
    EXPECT_DOUBLE_EQ(glass.across, 0.45);
    EXPECT_DOUBLE_EQ(glass.down, 0.6);
    const Glass far = Moved(glass, 1e6, -1e6);
    EXPECT_EQ(far.across, -0.5);
    EXPECT_EQ(far.down, 1.5);
}

TEST(GlassTest, There_and_back_is_the_whole_picture_again) {
    Glass glass;
    for (int i = 0; i < 30; ++i) glass = Zoomed(glass, 1.2, 0.5, 0.5);
    for (int i = 0; i < 30; ++i) glass = Zoomed(glass, 1 / 1.2, 0.5, 0.5);
    EXPECT_EQ(glass.factor, 1);
    EXPECT_NEAR(glass.across, 0.5, 1e-12);
    for (int i = 0; i < 100; ++i) glass = Zoomed(glass, 1.2, 0.5, 0.5);
    EXPECT_EQ(glass.factor, kMostGlass);
    for (int i = 0; i < 200; ++i) glass = Zoomed(glass, 1 / 1.2, 0.5, 0.5);
    EXPECT_EQ(glass.factor, kLeastGlass);
}

struct Bare : Screen {
    Bare() : Screen("frm_Bare") {}
    PictureBox Picture1{*this, "Picture1"};
};

TEST(GlassTest, A_picture_tells_how_much_of_the_world_a_pixel_is) {
    Bare screen;
    screen.Picture1.Canvas().Scale(-2, -2, 8, 8);
    screen.Picture1.Across = 500;
    EXPECT_DOUBLE_EQ(screen.Picture1.Pixel(), 0.02);
    screen.Picture1.Through = Glass{4, 0.1, 0.9};
    EXPECT_DOUBLE_EQ(screen.Picture1.Pixel(), 0.005);
    screen.Picture1.Canvas().Scale(8, -2, -2, 8);
    EXPECT_DOUBLE_EQ(screen.Picture1.Pixel(), 0.005);
}

class PixelsTest : public testing::Test {
   protected:
    static constexpr int kSide = 300;
    using Sheet = std::vector<std::uint32_t>;

    static Sheet Painted(const Picture& picture, const Glass& glass) {
        PicturePixels pixels;
        pixels.Paint(picture, kSide, kSide, 1, kSide, kSide, glass);
        return pixels.Pixels();
    }
    static void Draw_Curves(Picture& picture) {
        for (int i = 0; i < 40; ++i)
            picture.Line(std::cos(i * 0.7), std::sin(i * 0.4), std::cos(i * 0.7 + 1), std::sin(i * 0.4 + 2), 0xFF00FF);
        picture.Circle(0.2, 0.1, 0.35, 0x00FF00);
        picture.PSet(0.1, 0.2, 0);
    }
    static int Dark(const Sheet& sheet) {
        int dark = 0;
        for (const std::uint32_t pixel : sheet) dark += (pixel & 0xFFFFFFU) != 0xFFFFFFU;
        return dark;
    }
};

TEST_F(PixelsTest, Under_the_glass_it_is_the_picture_of_a_smaller_window) {
    Picture whole, part;
    whole.Scale(-1, -1, 1, 1);
    // The same drawing in the window that is seen.
    const Glass glass{4, 0.625, 0.375};
    part.Scale(0, -0.5, 0.5, 0);
    Draw_Curves(whole);
    Draw_Curves(part);
    EXPECT_EQ(Painted(whole, glass), Painted(part, {}));
    EXPECT_NE(Painted(whole, glass), Painted(whole, {}));
}

TEST_F(PixelsTest, Lines_keep_their_widths_and_pins_their_size) {
    Picture line, pin, circle;
    for (Picture* picture : {&line, &pin, &circle}) picture->Scale(-1, -1, 1, 1);
    line.Line(-0.9, -0.6, 0.9, 0.6, 0);
    pin.Pin(0.02, 0.03, 0.05, 0);
    circle.Circle(0.02, 0.03, 0.05, 0);
    const Glass near{8, 0.5, 0.5};
    EXPECT_NEAR(Dark(Painted(line, near)), Dark(Painted(line, {})) / 0.9, 30);
    EXPECT_NEAR(Dark(Painted(pin, near)), Dark(Painted(pin, {})), 12);
    EXPECT_GT(Dark(Painted(circle, near)), 6 * Dark(Painted(circle, {})));
    EXPECT_EQ(Painted(pin, {}), Painted(circle, {}));
}

TEST_F(PixelsTest, A_mark_goes_with_its_place_and_keeps_its_size) {
    // A head of an arrow at the middle, 0.1 of the world long, and a segment from there.
    Picture mark, plain;
    for (Picture* picture : {&mark, &plain}) picture->Scale(-1, 1, 1, -1);
    mark.Mark({0.02, 0.03}, {0.02, 0.03, -0.1, -0.05}, 0);
    mark.Mark({0.02, 0.03, 0, 0.01}, {0.5, 0.03, 0, 0.01}, 0);
    plain.Line(0.02, 0.03, -0.08, -0.02, 0);
    plain.Line(0.02, 0.04, 0.5, 0.04, 0);
    EXPECT_NEAR(Dark(Painted(mark, {})), Dark(Painted(plain, {})), 4);
    EXPECT_EQ(mark.Svg(100), plain.Svg(100));

    const Glass near{8, 0.5, 0.5};
    Picture seen;
    seen.Scale(-0.125, 0.125, 0.125, -0.125);
    seen.Line(0.02, 0.03, 0.02 - 0.1 / 8, 0.03 - 0.05 / 8, 0);
    seen.Line(0.02, 0.03 + 0.01 / 8, 0.5, 0.03 + 0.01 / 8, 0);
    EXPECT_NEAR(Dark(Painted(mark, near)), Dark(Painted(seen, {})), 4);
    const Picture part = Part_Of(mark, -0.125, 0.125, 0.125, -0.125, 8);
    EXPECT_EQ(part.Svg(1000), seen.Svg(1000));

    mark.Scale(-2, 2, 2, -2);
    EXPECT_FLOAT_EQ(mark.Primitives().front().dx1, 0);
    EXPECT_FLOAT_EQ(mark.Primitives().front().dx2, -0.2F)
        << "the window is another, and the mark as large on the screen";
    mark.Mark({0.04, 0.06}, {0.04, 0.06, -0.2, -0.1}, 0xFFFFFF);
    EXPECT_EQ(mark.Alive(), 1U);
}

TEST_F(PixelsTest, A_glass_that_moves_paints_anew_and_back_gives_the_same) {
    Picture picture;
    picture.Scale(-1, -1, 1, 1);
    Draw_Curves(picture);
    PicturePixels pixels;
    const auto paint = [&](const Glass& glass) {
        pixels.Paint(picture, kSide, kSide, 1, kSide, kSide, glass);
        return pixels.Pixels();
    };
    for (const Glass& glass : {Glass{}, Glass{3, 0.4, 0.4}, Glass{3, 0.41, 0.4}, Glass{}, Glass{300, 0.6, 0.55}}) {
        EXPECT_EQ(paint(glass), Painted(picture, glass));
        picture.Line(0.1 * glass.factor, 0, 0, 0.3, 0xFF);
        EXPECT_EQ(paint(glass), Painted(picture, glass));
    }
}

TEST_F(PixelsTest, A_pin_that_is_erased_leaves_nothing) {
    Picture picture;
    picture.Scale(-1, -1, 1, 1);
    picture.Pin(0.2, 0.3, 0.1, 0xFF);
    picture.Pin(0.2, 0.3, 0.1, 0xFFFFFF);
    EXPECT_EQ(picture.Alive(), 0U);
    picture.Pin(0.2, 0.3, 0.1, 0xFF);
    // Like any circle it goes with another window, and into files.
    picture.Scale(-2, -2, 2, 2);
    EXPECT_DOUBLE_EQ(picture.Primitives().front().x2, 0.2);
    EXPECT_NE(picture.Svg(100).find("<circle"), std::string::npos);
}

}  // namespace

}  // namespace verlink::test
