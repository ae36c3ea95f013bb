// Painting by its definition alone: a pixel is covered by as much as its middle lies within a stroke, half a pixel
// beyond the edge being nothing.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "platform/clip.h"
#include "platform/surface.h"

namespace verlink::test {

/// Looks at every pixel for every stroke.
class PlainPainter {
   public:
    using Point = platform::Point;
    using Color = platform::Color;

    PlainPainter(int wide, int high, Color back) : wide_(wide), high_(high), covered_(Count()), pixels_(Count()) {
        for (auto& pixel : pixels_) pixel = Channels(back);
    }

    void Line(Point from, Point to, double width) {
        const double x = to.x - from.x, y = to.y - from.y, square = x * x + y * y;
        Cover(width, [&](Point at) {
            const double along = (at.x - from.x) * x + (at.y - from.y) * y;
            const double part = square > 0 ? std::clamp(along / square, 0.0, 1.0) : 0;
            return std::hypot(at.x - from.x - part * x, at.y - from.y - part * y);
        });
    }
    void Circle(Point centre, double radius, double width) {
        Cover(width, [&](Point at) { return std::abs(std::hypot(at.x - centre.x, at.y - centre.y) - radius); });
    }
    void Disc(Point centre, double radius) { Line(centre, centre, 2 * radius); }

    /// What is covered takes the colour; nothing is covered any more.
    void Pour(Color color) {
        const auto fresh = Channels(color);
        for (std::size_t i = 0; i < Count(); ++i) {
            for (std::size_t c = 0; c < 3; ++c) pixels_[i][c] += (fresh[c] - pixels_[i][c]) * covered_[i];
            covered_[i] = 0;
        }
    }

    /// Of 1, row by row.
    const std::vector<double>& Covered() const { return covered_; }

    void Expect(const std::vector<std::uint32_t>& painted, double off = 1.6) const {
        ASSERT_EQ(painted.size(), Count());
        for (std::size_t i = 0; i < Count(); ++i) {
            EXPECT_EQ(painted[i] >> 24U, 255U);
            for (std::size_t c = 0; c < 3; ++c)
                ASSERT_NEAR(painted[i] >> (16 - 8 * c) & 255U, pixels_[i][c], off)
                    << "column " << i % static_cast<std::size_t>(wide_) << " row "
                    << i / static_cast<std::size_t>(wide_);
        }
    }

   private:
    /// Red, green and blue.
    static std::array<double, 3> Channels(Color color) {
        return {static_cast<double>(color & 255), static_cast<double>(color >> 8 & 255),
                static_cast<double>(color >> 16 & 255)};
    }
    std::size_t Count() const { return static_cast<std::size_t>(wide_) * static_cast<std::size_t>(high_); }
    template <class Distance>
    void Cover(double width, Distance distance) {
        for (int row = 0; row < high_; ++row)
            for (int column = 0; column < wide_; ++column) {
                double& held = covered_[static_cast<std::size_t>(row * wide_ + column)];
                held = std::max(held, std::clamp(width / 2 + 0.5 - distance({column + 0.5, row + 0.5}), 0.0, 1.0));
            }
    }

    int wide_, high_;
    std::vector<double> covered_;
    std::vector<std::array<double, 3>> pixels_;
};

}  // namespace verlink::test
