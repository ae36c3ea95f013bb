// Animated pictures, read back by the library: what they show, for how long, and in which colours.
#include "animation/gif.h"

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

TEST(Gifs, Refuse_a_picture_of_another_size) {
    Gif gif(7, 5);
    EXPECT_EQ(Failure_Of([&] { gif.Add(Plain(5, 7, kWhitePixel), 2); }), platform::kInvalidCall);
}

}  // namespace verlink::test
