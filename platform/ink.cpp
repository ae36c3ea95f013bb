// A pixel is covered by as much as its centre lies within the stroke, half a pixel beyond its edge being nothing.
#include "platform/ink.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace verlink::platform {

namespace {

/// A larger circle is drawn as the part of it that is seen.
constexpr double kVast = 1e5;
constexpr double kOff = 0.02;

int Whole(double value, int low, int high) {
    return static_cast<int>(std::clamp(value, static_cast<double>(low), static_cast<double>(high)));
}

}  // namespace

/// A segment of some length in coordinates along its longer extent (u) and across (v).
struct Ink::Stroke {
    double u1, v1, u2, v2;
    double along_u, along_v;  ///< of length 1
    double length;
    double reach;  ///< from the middle line to where nothing is covered
};

Ink::Ink(int width, int height)
    : width_(width), height_(height), covered_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

void Ink::Cover(std::size_t pixel, int part) {
    std::uint8_t& held = covered_[pixel];
    if (part <= held) return;
    if (held == 0) touched_.push_back(static_cast<std::uint32_t>(pixel));
    held = static_cast<std::uint8_t>(std::min(part, 255));
}

void Ink::Cover(std::size_t pixel, double part) { Cover(pixel, static_cast<int>(part * 255 + 0.5)); }

template <bool kSteep>
void Ink::Walk(const Stroke& s) {
    const int u_end = kSteep ? height_ : width_, v_end = kSteep ? width_ : height_;
    const auto wide = static_cast<std::size_t>(width_);
    const std::size_t u_step = kSteep ? wide : 1, v_step = kSteep ? 1 : wide;
    const double slope = s.along_u > 0 ? s.along_v / s.along_u : 0;
    const double beside = s.along_u > 0 ? s.reach / s.along_u : s.reach;
    const int first = Whole(std::floor(s.u1 - s.reach), 0, u_end), last = Whole(std::ceil(s.u2 + s.reach), 0, u_end);
    for (int u = first; u < last; ++u) {
        const double at = u + 0.5 - s.u1;
        const double middle = s.v1 + slope * at;
        // Near an end the pixels of a column may be nearest to the end itself.
        const bool ends = u + 0.5 < s.u1 + s.reach || u + 0.5 > s.u2 - s.reach;
        const double around = ends ? std::clamp(middle, std::min(s.v1, s.v2), std::max(s.v1, s.v2)) : middle;
        const int top = Whole(std::ceil(around - beside - 0.5), 0, v_end);
        const int bottom = Whole(std::floor(around + beside - 0.5) + 1, 0, v_end);
        std::size_t pixel = static_cast<std::size_t>(u) * u_step + static_cast<std::size_t>(top) * v_step;
        if (!ends) {
            // Nearly all of a line, in whole numbers of 256 to a part.
            constexpr double kPart = 255 * 256;
            const int reach = static_cast<int>(s.reach * kPart) + 128, by = static_cast<int>(s.along_u * kPart);
            int away = static_cast<int>((top + 0.5 - middle) * s.along_u * kPart);
            for (int v = top; v < bottom; ++v, pixel += v_step, away += by) Cover(pixel, (reach - std::abs(away)) >> 8);
            continue;
        }
        for (int v = top; v < bottom; ++v, pixel += v_step) {
            double away = std::abs(v + 0.5 - middle) * s.along_u;
            const double down = v + 0.5 - s.v1;
            const double walked = at * s.along_u + down * s.along_v;
            if (walked < 0) {
                away = std::sqrt(at * at + down * down);
            } else if (walked > s.length) {
                const double u2 = u + 0.5 - s.u2, v2 = v + 0.5 - s.v2;
                away = std::sqrt(u2 * u2 + v2 * v2);
            }
            Cover(pixel, s.reach - away);
        }
    }
}

void Ink::Line(Point from, Point to, double width) {
    const double reach = width / 2 + 0.5;
    const ClipBox sheet{0, 0, static_cast<double>(width_), static_cast<double>(height_)};
    if (!Clip_Segment(sheet.Grown(2 * reach), from, to)) return;
    const double x = to.x - from.x, y = to.y - from.y;
    const double length = std::hypot(x, y);
    if (length == 0) return Disc(from, width / 2);
    const bool steep = std::abs(y) > std::abs(x);
    if (steep ? y < 0 : x < 0) std::swap(from, to);
    const double along_x = (to.x - from.x) / length, along_y = (to.y - from.y) / length;
    if (steep)
        Walk<true>({from.y, from.x, to.y, to.x, along_y, along_x, length, reach});
    else
        Walk<false>({from.x, from.y, to.x, to.y, along_x, along_y, length, reach});
}

template <class Part>
void Ink::Cover_Span(int row, double from, double to, Part part) {
    const int first = Whole(std::ceil(from - 0.5), 0, width_), last = Whole(std::floor(to - 0.5) + 1, 0, width_);
    std::size_t pixel =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(first);
    for (int x = first; x < last; ++x, ++pixel) Cover(pixel, part(x + 0.5));
}

void Ink::Ring_Row(int row, Point centre, double radius, double half) {
    const double down = row + 0.5 - centre.y;
    const double outer = radius + half + 0.5, inner = radius - half - 0.5;
    const double to = std::sqrt(std::max(0.0, outer * outer - down * down));
    const double from = inner > std::abs(down) ? std::sqrt(inner * inner - down * down) : 0;
    const auto part = [&](double x) {
        const double across = x - centre.x;
        return half + 0.5 - std::abs(std::sqrt(across * across + down * down) - radius);
    };
    if (from == 0) return Cover_Span(row, centre.x - to, centre.x + to, part);
    Cover_Span(row, centre.x - to, centre.x - from, part);
    Cover_Span(row, centre.x + from, centre.x + to, part);
}

void Ink::Circle(Point centre, double radius, double width) {
    const double reach = width / 2 + 0.5;
    const ClipBox sheet{0, 0, static_cast<double>(width_), static_cast<double>(height_)};
    if (radius > kVast) {
        const std::vector<Point> arc = Seen_Arc(sheet.Grown(2 * reach), centre, radius, kOff);
        for (std::size_t i = 1; i < arc.size(); ++i) Line(arc[i - 1], arc[i], width);
        return;
    }
    const ClipBox around{centre.x - radius - reach, centre.y - radius - reach, centre.x + radius + reach,
                         centre.y + radius + reach};
    if (!(around.left < sheet.right && around.right > 0 && around.top < sheet.bottom && around.bottom > 0)) return;
    const int first = Whole(std::floor(around.top), 0, height_), last = Whole(std::ceil(around.bottom), 0, height_);
    for (int row = first; row < last; ++row) Ring_Row(row, centre, radius, width / 2);
}

void Ink::Disc(Point centre, double radius) {
    const double reach = radius + 0.5;
    if (!(centre.x + reach > 0 && centre.x - reach < width_ && centre.y + reach > 0 && centre.y - reach < height_))
        return;
    const int first = Whole(std::floor(centre.y - reach), 0, height_);
    const int last = Whole(std::ceil(centre.y + reach), 0, height_);
    for (int row = first; row < last; ++row) {
        const double down = row + 0.5 - centre.y;
        const double to = std::sqrt(std::max(0.0, reach * reach - down * down));
        Cover_Span(row, centre.x - to, centre.x + to,
                   [&](double x) { return reach - std::sqrt((x - centre.x) * (x - centre.x) + down * down); });
    }
}

void Ink::Pour(std::vector<std::uint32_t>& pixels, Color color) {
    const auto bits = static_cast<std::uint32_t>(color);
    // Red and blue of a pixel stand far enough apart to be mixed together.
    const std::uint32_t red_blue = (bits & 255U) << 16U | (bits >> 16U & 255U), green = bits >> 8U & 255U;
    const std::uint32_t whole = 0xFF000000U | red_blue | green << 8U;
    for (const std::uint32_t pixel : touched_) {
        const std::uint32_t part = covered_[pixel] + (covered_[pixel] >> 7U);  // of 256
        std::uint32_t& under = pixels[pixel];
        covered_[pixel] = 0;
        if (part == 256) {
            under = whole;
            continue;
        }
        const std::uint32_t mixed = (under & 0xFF00FFU) * (256 - part) + red_blue * part + 0x800080U;
        const std::uint32_t between = (under >> 8U & 255U) * (256 - part) + green * part + 0x80U;
        under = 0xFF000000U | (mixed >> 8U & 0xFF00FFU) | (between & 0xFF00U);
    }
    touched_.clear();
}

void Ink::Pour_Upon_Nothing(std::vector<std::uint32_t>& pixels, Color color, int alpha) {
    const auto bits = static_cast<std::uint32_t>(color);
    const auto most = static_cast<std::uint32_t>(alpha);
    const auto part_of = [](std::uint32_t value, std::uint32_t part) { return (value * part + 127) / 255; };
    for (const std::uint32_t pixel : touched_) {
        const std::uint32_t part = part_of(covered_[pixel], most);
        pixels[pixel] = part << 24U | part_of(bits & 255U, part) << 16U | part_of(bits >> 8U & 255U, part) << 8U |
                        part_of(bits >> 16U & 255U, part);
        covered_[pixel] = 0;
    }
    touched_.clear();
}

}  // namespace verlink::platform
