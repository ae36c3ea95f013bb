// Animated pictures, read back by the library: what they show, for how long, and in which colours.
#include "animation/gif.h"

#include <algorithm>
#include <random>

#include "platform/failure.h"
#include "platform/guard.h"
#include "tests/support/gif_reader.h"

namespace verlink::test {

namespace {

using platform::Pixels;

constexpr std::uint32_t kWhitePixel = 0xFFFFFFFF, kRedPixel = 0xFFFF0000, kBluePixel = 0xFF0000FF;

Pixels Plain(int wide, int high, std::uint32_t color) {
    return {wide, high,
            std::vector<std::uint32_t>(static_cast<std::size_t>(wide) * static_cast<std::size_t>(high), color)};
}

void Dot(Pixels& picture, int x, int y, std::uint32_t color) {
    picture.colors[static_cast<std::size_t>(y * picture.wide + x)] = color;
}

}  // namespace

TEST(Gifs, Show_each_picture_whole_for_its_time_again_and_again) {
    Pixels first = Plain(7, 5, kWhitePixel), second = first;
    Dot(second, 3, 2, kRedPixel);
    Dot(second, 5, 4, kBluePixel);
    Gif gif(7, 5);
    gif.Add(first, 4);
    gif.Add(second, 13);
    gif.Add(second, 2);
    gif.Add(first, 5);
    const Gif_Read read = Read_Gif(gif.Finish());
    EXPECT_EQ(read.wide, 7);
    EXPECT_EQ(read.high, 5);
    EXPECT_TRUE(read.again_and_again);
    ASSERT_EQ(read.frames.size(), 4U);
    const int times[] = {4, 13, 2, 5};
    const Pixels* shown[] = {&first, &second, &second, &first};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(read.frames[i].hundredths, times[i]) << i;
        EXPECT_EQ(read.frames[i].pixels, shown[i]->colors) << i;
    }
}

TEST(Gifs, Keep_up_to_256_colours_exactly) {
    Pixels picture = Plain(16, 16, 0);
    for (std::uint32_t i = 0; i < 256; ++i) picture.colors[i] = 0xFF000000U | i * 0x010305U;
    Gif gif(16, 16);
    gif.Add(picture, 10);
    const Gif_Read read = Read_Gif(gif.Finish());
    ASSERT_EQ(read.frames.size(), 1U);
    EXPECT_EQ(read.frames[0].pixels, picture.colors);
}

TEST(Gifs, Keep_plain_colours_as_they_are_among_many_shades_which_come_out_near) {
    Pixels picture = Plain(100, 100, kWhitePixel);
    std::mt19937 random(7);
    for (std::size_t i = 0; i < 2000; ++i) {
        // A stroke's edge: a share of red or blue over white.
        const std::uint32_t share = random() % 256;
        picture.colors[i] = i % 2 ? (0xFFFF0000U | share << 8U | share) : (0xFF0000FFU | share << 16U | share << 8U);
    }
    for (std::size_t i = 2000; i < 2400; ++i) picture.colors[i] = i % 2 ? kRedPixel : kBluePixel;
    Gif gif(100, 100);
    gif.Add(picture, 10);
    const Gif_Read read = Read_Gif(gif.Finish());
    ASSERT_EQ(read.frames.size(), 1U);
    int most = 0;
    for (std::size_t i = 0; i < picture.colors.size(); ++i) {
        most = std::max(most, Apart(read.frames[0].pixels[i], picture.colors[i]));
        if (i >= 2000) {
            EXPECT_EQ(read.frames[0].pixels[i], picture.colors[i]);
        }
    }
    EXPECT_LT(most, 8);
}

TEST(Gifs, Bring_any_picture_down_to_256_colours) {
    Pixels picture = Plain(256, 256, 0);
    std::mt19937 random(11);
    for (std::uint32_t& pixel : picture.colors) pixel = 0xFF000000U | (random() & 0xFFFFFFU);
    const Few_Colors few = Reduced(picture.colors);
    EXPECT_LE(few.colors.size(), 256U);
    for (std::size_t i = 0; i < picture.colors.size(); ++i)
        EXPECT_LT(Apart(few.colors[few.of_pixel[i]], picture.colors[i]), 64) << i;
}

TEST(Gifs, Have_of_each_picture_what_differs_from_the_one_before) {
    Pixels picture = Plain(9, 7, kWhitePixel);
    Gif gif(9, 7);
    gif.Add(picture, 2);
    Dot(picture, 3, 2, kRedPixel);
    Dot(picture, 6, 4, kBluePixel);
    gif.Add(picture, 2);
    gif.Add(picture, 2);
    Dot(picture, 0, 6, kRedPixel);
    gif.Add(picture, 2);
    Dot(picture, 8, 0, kRedPixel);
    gif.Add(picture, 2);
    Dot(picture, 0, 0, kBluePixel);
    Dot(picture, 8, 6, kBluePixel);
    gif.Add(picture, 2);
    // What begins the next row is no end of this one.
    Dot(picture, 3, 2, kBluePixel);
    Dot(picture, 0, 3, kBluePixel);
    Dot(picture, 1, 3, kBluePixel);
    gif.Add(picture, 2);
    const Gif_Read read = Read_Gif(gif.Finish());
    EXPECT_EQ(read.version, "GIF89a");
    EXPECT_EQ(read.bits, 8);
    const int boxes[][5] = {{0, 0, 9, 7, 2}, {3, 2, 4, 3, 4}, {0, 0, 1, 1, 2}, {0, 6, 1, 1, 2},
                            {8, 0, 1, 1, 2}, {0, 0, 9, 7, 4}, {0, 2, 4, 2, 2}};
    ASSERT_EQ(read.frames.size(), std::size(boxes));
    for (std::size_t i = 0; i < std::size(boxes); ++i) {
        const Gif_Read::Frame& frame = read.frames[i];
        EXPECT_EQ(frame.left, boxes[i][0]) << i;
        EXPECT_EQ(frame.top, boxes[i][1]) << i;
        EXPECT_EQ(frame.wide, boxes[i][2]) << i;
        EXPECT_EQ(frame.high, boxes[i][3]) << i;
        EXPECT_EQ(frame.colors, boxes[i][4]) << i;
        EXPECT_TRUE(frame.plain) << i;
    }
    EXPECT_EQ(read.frames.back().pixels, picture.colors);
}

TEST(Gifs, Let_the_more_frequent_of_two_neighbouring_shades_stand_for_both) {
    // 300 shades: 150 far enough apart to be told by seven bits, each with one that only the eighth tells from it.
    std::vector<std::uint32_t> pixels, wanted;
    for (std::uint32_t i = 0; i < 150; ++i) {
        const std::uint32_t base = 0xFF000000U | (2 * (i % 100)) << 16U | (2 * (i / 100)) << 8U;
        // Thrice the one and once the other, by turns, and both as often in every third.
        const std::uint32_t lower = i % 3 == 0 ? 3 : i % 3 == 1 ? 1 : 2, upper = 4 - lower;
        const std::uint32_t chief = lower > upper ? base : base + 1;
        for (std::uint32_t n = 0; n < 4; ++n) {
            pixels.push_back(n < lower ? base : base + 1);
            wanted.push_back(chief);
        }
    }
    const Few_Colors few = Reduced(pixels);
    ASSERT_EQ(few.colors.size(), 150U);
    EXPECT_TRUE(std::ranges::is_sorted(few.colors));
    ASSERT_EQ(few.of_pixel.size(), pixels.size());
    for (std::size_t i = 0; i < pixels.size(); ++i) EXPECT_EQ(few.colors[few.of_pixel[i]], wanted[i]) << i;
}

TEST(Gifs, Let_one_colour_too_many_stand_for_its_neighbour) {
    std::vector<std::uint32_t> pixels;
    for (std::uint32_t i = 0; i <= 256; ++i) pixels.push_back(0xFF000000U | (i / 16) << 20U | (i % 16) << 12U);
    EXPECT_EQ(Reduced({pixels.begin(), pixels.end() - 1}).colors.size(), 256U);
    pixels.back() = pixels.front() + 1;
    const Few_Colors few = Reduced(pixels);
    EXPECT_EQ(few.colors.size(), 256U);
    EXPECT_EQ(few.of_pixel.front(), few.of_pixel.back());
    EXPECT_NE(few.of_pixel[1], few.of_pixel[0]);
}

TEST(Gifs, End_once) {
    Gif gif(7, 5);
    gif.Add(Plain(7, 5, kWhitePixel), 2);
    EXPECT_FALSE(gif.Finish().empty());
    EXPECT_EQ(Failure_Of([&] { gif.Finish(); }), platform::kOutOfMemory) << "there is no file any more";
}

TEST(Gifs, Refuse_a_picture_of_another_size) {
    Gif gif(7, 5);
    for (const Pixels& other : {Plain(5, 7, kWhitePixel), Plain(7, 6, kWhitePixel), Plain(6, 5, kWhitePixel)})
        EXPECT_EQ(Failure_Of([&] { gif.Add(other, 2); }), platform::kInvalidCall) << other.wide;
}

}  // namespace verlink::test
