// A pixel is covered by as much as its centre lies within the stroke, half a pixel beyond its edge being nothing.
#include "platform/ink.h"

#include <algorithm>
#include <array>
#include <cmath>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace verlink::platform {

namespace {

/// A larger circle is drawn as the part of it that is seen.
constexpr double kVast = 4000;
constexpr double kOff = 0.02;
constexpr int kBlock = 8;
/// What a pixel has that is wholly covered.
constexpr double kWhole = 255;

/// The lower bound for what is no number.
int Whole(double value, int low, int high) {
    return static_cast<int>(std::min<double>(high, std::max<double>(low, value)));
}

/// Numbers of the eight pixels of a block.
typedef float Four __attribute__((vector_size(16)));
struct Eight {
    Four low, high;
};
Eight operator+(const Eight& a, const Eight& b) { return {a.low + b.low, a.high + b.high}; }
Eight operator-(const Eight& a, const Eight& b) { return {a.low - b.low, a.high - b.high}; }
Eight operator*(const Eight& a, const Eight& b) { return {a.low * b.low, a.high * b.high}; }
Eight All(double value) {
    const auto one = static_cast<float>(value);
    return {Four{} + one, Four{} + one};
}
/// 0 to 7 times a step.
Eight Ramp(double step) {
    const auto by = static_cast<float>(step);
    return {Four{0, 1, 2, 3} * by, Four{4, 5, 6, 7} * by};
}

#ifdef __SSE2__
Four Root(Four x) { return _mm_sqrt_ps(x); }
Four Least(Four x, Four y) { return _mm_min_ps(x, y); }
Four Most(Four x, Four y) { return _mm_max_ps(x, y); }
std::uint64_t Bytes(const Eight& x) {
    const __m128i whole = _mm_packs_epi32(_mm_cvtps_epi32(x.low), _mm_cvtps_epi32(x.high));
    const __m128i bytes = _mm_packus_epi16(whole, whole);
    std::uint64_t packed;
    _mm_storel_epi64(reinterpret_cast<__m128i*>(&packed), bytes);
    return packed;
}
std::uint64_t Most_Of(std::uint64_t x, std::uint64_t y) {
    const __m128i a = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&x));
    const __m128i b = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&y));
    std::uint64_t most;
    _mm_storel_epi64(reinterpret_cast<__m128i*>(&most), _mm_max_epu8(a, b));
    return most;
}
/// Two pixels' channels as whole numbers, mixed with the colour by parts of 256.
__m128i Mixed(__m128i under, __m128i parts, __m128i color) {
    const __m128i rest = _mm_sub_epi16(_mm_set1_epi16(256), parts);
    const __m128i sum = _mm_add_epi16(_mm_mullo_epi16(under, rest), _mm_mullo_epi16(color, parts));
    return _mm_srli_epi16(_mm_add_epi16(sum, _mm_set1_epi16(128)), 8);
}
/// Four pixels; `parts` has a byte for each in its lowest 32 bits.
void Mix_Four(std::uint32_t* under, __m128i parts, __m128i color) {
    const __m128i none = _mm_setzero_si128();
    const __m128i held = _mm_loadu_si128(reinterpret_cast<const __m128i*>(under));
    __m128i each = _mm_unpacklo_epi8(parts, parts);
    each = _mm_unpacklo_epi16(each, each);  // four times the byte of each pixel
    const auto of_256 = [&](__m128i of_255) { return _mm_add_epi16(of_255, _mm_srli_epi16(of_255, 7)); };
    const __m128i low = Mixed(_mm_unpacklo_epi8(held, none), of_256(_mm_unpacklo_epi8(each, none)), color);
    const __m128i high = Mixed(_mm_unpackhi_epi8(held, none), of_256(_mm_unpackhi_epi8(each, none)), color);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(under), _mm_packus_epi16(low, high));
}
void Mix_Block(std::uint32_t* under, std::uint32_t color, std::uint64_t parts) {
    const __m128i both = _mm_set1_epi32(static_cast<int>(color | 0xFF000000U));
    const __m128i channels = _mm_unpacklo_epi8(both, _mm_setzero_si128());
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&parts));
    Mix_Four(under, bytes, channels);
    Mix_Four(under + 4, _mm_srli_si128(bytes, 4), channels);
}
#else
Four Root(Four x) { return Four{std::sqrt(x[0]), std::sqrt(x[1]), std::sqrt(x[2]), std::sqrt(x[3])}; }
Four Least(Four x, Four y) { return x < y ? x : y; }
Four Most(Four x, Four y) { return x > y ? x : y; }
std::uint64_t Bytes(const Eight& x) {
    std::uint64_t bytes = 0;
    for (int i = 0; i < kBlock; ++i) {
        const float part = std::clamp(i < 4 ? x.low[i] : x.high[i - 4], 0.0F, 255.0F);
        bytes |= static_cast<std::uint64_t>(std::nearbyint(part)) << (8 * i);
    }
    return bytes;
}
std::uint64_t Most_Of(std::uint64_t x, std::uint64_t y) {
    std::uint64_t most = 0;
    for (int at = 0; at < 64; at += 8) most |= std::max(x >> at & 255U, y >> at & 255U) << at;
    return most;
}
#endif
Eight Root(const Eight& x) { return {Root(x.low), Root(x.high)}; }
Eight Least(const Eight& x, const Eight& y) { return {Least(x.low, y.low), Least(x.high, y.high)}; }
Eight Most(const Eight& x, const Eight& y) { return {Most(x.low, y.low), Most(x.high, y.high)}; }
Eight Size(const Eight& x) { return Most(x, All(0) - x); }

}  // namespace

/// A segment, in pixels.
struct Ink::Stroke {
    Point from, to;
    double reach;        ///< from the middle line to where nothing is covered
    double length{};     ///< of the segment
    double along_x = 1;  ///< of length 1 together
    double along_y = 0;
    double slope{};  ///< by so much to the right with each row; no row tells the place of a level one

    Stroke(Point a, Point b, double far) : from(a), to(b), reach(far) {
        const double x = to.x - from.x, y = to.y - from.y;
        length = std::sqrt(x * x + y * y);
        if (length > 0) {
            along_x = x / length;
            along_y = y / length;
        }
        if (along_y != 0) slope = along_x / along_y;
    }
    /// Times 255, how far the first pixel of a block is from the middle line, by which the next ones are nearer.
    double Across(double down, int column) const {
        const double by_x = along_x * kWhole, by_y = along_y * kWhole;
        return down * by_x + (from.x - 0.5) * by_y - column * by_y;
    }
};

struct Ink::Ring {
    Point centre;
    double radius;
    double reach;  ///< from the middle line to where nothing is covered
};

Ink::Ink(int width, int height)
    : width_(width),
      height_(height),
      blocks_(static_cast<std::size_t>(std::ceil(static_cast<double>(width) / kBlock))),
      covered_(blocks_ * static_cast<std::size_t>(height)) {}

template <class Action>
inline void Ink::Each_Block(double from, double to, Action action) const {
    // The middles of pixels count, which are half a pixel on.
    const int first = Whole(from + 0.5, 0, width_), end = Whole(to + 0.5, 0, width_);
    for (int column = first / kBlock * kBlock; first < end && column < end; column += kBlock) action(column);
}

inline void Ink::Put(int row, std::size_t place, std::uint64_t parts) {
    std::uint64_t& held = covered_[static_cast<std::size_t>(row) * blocks_ + place];
    if (held == 0) {
        touched_.push_back({static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(place)});
        held = parts;
    } else {
        held = Most_Of(held, parts);
    }
}

template <class Parts>
inline void Ink::Cover(int row, int column, const Parts& parts) {
    const std::uint64_t fresh = Bytes(parts);
    if (fresh != 0) Put(row, static_cast<std::size_t>(column / kBlock), fresh);
}

/// Rows near the ends, where a pixel may be nearest to an end.
void Ink::Cover_Around(const Stroke& s, int first, int last) {
    const Eight beside = Ramp(-s.along_y * kWhole), along = Ramp(s.along_x * kWhole);
    const Eight reach = All(s.reach * kWhole), end = All(s.length * kWhole), start = All(0);
    const double left = std::min(s.from.x, s.to.x), right = std::max(s.from.x, s.to.x);
    const double top = std::min(s.from.y, s.to.y), bottom = std::max(s.from.y, s.to.y);
    for (int row = first; row < last; ++row) {
        const double middle = row + 0.5, down = middle - s.from.y;
        double low = left, high = right;
        if (s.along_y != 0) {
            const double one = s.from.x + (std::clamp(middle - s.reach, top, bottom) - s.from.y) * s.slope;
            const double other = s.from.x + (std::clamp(middle + s.reach, top, bottom) - s.from.y) * s.slope;
            low = std::min(one, other);
            high = std::max(one, other);
        }
        Each_Block(low - s.reach, high + s.reach, [&](int column) {
            const double right_by = column + 0.5 - s.from.x;
            const double walked = right_by * s.along_x + down * s.along_y;
            const Eight away = All((down * s.along_x - right_by * s.along_y) * kWhole) + beside;
            const Eight went = All(walked * kWhole) + along;
            const Eight beyond = went - Most(start, Least(went, end));
            Cover(row, column, reach - Root(away * away + beyond * beyond));
        });
    }
}

/// Rows in which every pixel that the stroke reaches is nearest to a place between its ends.
void Ink::Cover_Between(const Stroke& s, int first, int last) {
    const Eight beside = Ramp(-s.along_y * kWhole), reach = All(s.reach * kWhole);
    // Half of what the stroke takes of a row.
    const double half = s.reach / std::abs(s.along_y);
    for (int row = first; row < last; ++row) {
        const double down = row + 0.5 - s.from.y, at = s.from.x + down * s.slope;
        Each_Block(at - half, at + half,
                   [&](int column) { Cover(row, column, reach - Size(All(s.Across(down, column)) + beside)); });
    }
}

Ink::Rows Ink::Cover_Ends(const Stroke& s) {
    const double top = std::min(s.from.y, s.to.y), bottom = std::max(s.from.y, s.to.y);
    const int first = Whole(top - s.reach, 0, height_), last = Whole(bottom + s.reach + 1, 0, height_);
    // A level one has no rows between its ends.
    const int in = Whole(std::ceil(top + s.reach), first, last), out = Whole(std::floor(bottom - s.reach), in, last);
    Cover_Around(s, first, in);
    Cover_Around(s, out, last);
    return {in, out};
}

void Ink::Line(Point from, Point to, double width) {
    const double reach = width / 2 + 0.5;
    if (!Clip_Segment(Within(reach), from, to)) return;
    const Stroke stroke(from, to, reach);
    const Rows between = Cover_Ends(stroke);
    Cover_Between(stroke, between.first, between.last);
}

void Ink::Lines(const std::vector<Upright>& lines, double width) {
    struct Piece {
        Rows rows;
        std::uint64_t parts;
    };
    std::vector<std::vector<Piece>> pieces(blocks_);
    const double reach = width / 2 + 0.5;
    for (const Upright& line : lines) {
        Point from{line.x, line.y1}, to{line.x, line.y2};
        if (!Clip_Segment(Within(reach), from, to)) continue;
        const Stroke stroke(from, to, reach);
        const Rows rows = Cover_Ends(stroke);
        const Eight beside = Ramp(-stroke.along_y * kWhole);
        Each_Block(line.x - reach, line.x + reach, [&](int column) {
            const Eight away = Size(All(stroke.Across(0, column)) + beside);
            pieces[static_cast<std::size_t>(column / kBlock)].push_back({rows, Bytes(All(reach * kWhole) - away)});
        });
    }
    std::vector<int> cuts;
    for (std::size_t place = 0; place < pieces.size(); ++place) {
        cuts.clear();
        for (const Piece& piece : pieces[place]) cuts.insert(cuts.end(), {piece.rows.first, piece.rows.last});
        std::sort(cuts.begin(), cuts.end());
        for (std::size_t i = 1; i < cuts.size(); ++i) {
            std::uint64_t most = 0;
            for (const Piece& piece : pieces[place])
                if (piece.rows.first <= cuts[i - 1] && piece.rows.last >= cuts[i]) most = Most_Of(most, piece.parts);
            for (int row = cuts[i - 1]; most != 0 && row < cuts[i]; ++row) Put(row, place, most);
        }
    }
}

void Ink::Ring_Row(int row, const Ring& ring) {
    const Point centre = ring.centre;
    const double radius = ring.radius;
    const double down = row + 0.5 - centre.y;
    const double outer = radius + ring.reach, inner = std::fdim(radius, ring.reach);
    const double to = std::sqrt(std::fdim(outer * outer, down * down));
    const double from = std::sqrt(std::fdim(inner * inner, down * down));
    const Eight reach = All(ring.reach * kWhole), whole = All(kWhole), round = All(radius), below = All(down * down);
    const auto cover = [&](int column) {
        const Eight across = All(column + 0.5 - centre.x) + Ramp(1);
        const Eight away = Size(Root(across * across + below) - round);
        Cover(row, column, reach - away * whole);
    };
    Each_Block(centre.x - to, centre.x - from, cover);
    Each_Block(centre.x + from, centre.x + to, cover);
}

void Ink::Circle(Point centre, double radius, double width) {
    const double reach = width / 2 + 0.5;
    if (radius > kVast) {
        const std::vector<Point> arc = Seen_Arc(Within(reach), centre, radius, kOff);
        Each_Piece(arc, [&](Point from, Point to) { Line(from, to, width); });
        return;
    }
    const double around = radius + reach;
    const int first = Whole(centre.y - around, 0, height_), last = Whole(std::ceil(centre.y + around), 0, height_);
    for (int row = first; row < last; ++row) Ring_Row(row, {centre, radius, reach});
}

void Ink::Disc(Point centre, double radius) { Line(centre, centre, 2 * radius); }

Ink::Area Ink::Covered() const {
    if (touched_.empty()) return {};
    Block first = touched_.front(), last = first;
    for (const Block& block : touched_) {
        first = {std::min(first.row, block.row), std::min(first.place, block.place)};
        last = {std::max(last.row, block.row), std::max(last.place, block.place)};
    }
    const auto whole = [](std::uint32_t value) { return static_cast<int>(value); };
    return {whole(first.place) * kBlock, whole(first.row), std::min(whole(last.place + 1) * kBlock, width_),
            whole(last.row) + 1};
}

template <class Action>
void Ink::Empty(Action action) {
    const auto wide = static_cast<std::size_t>(width_);
    for (const Block block : touched_) {
        std::uint64_t& held = covered_[block.row * blocks_ + block.place];
        const std::uint64_t parts = held;
        held = 0;
        const std::size_t column = std::size_t{block.place} * kBlock;
        action(block.row * wide + column, std::min<std::size_t>(kBlock, wide - column), parts);
    }
    touched_.clear();
}

void Ink::Pour(std::vector<std::uint32_t>& pixels, Color color) {
    const auto bits = static_cast<std::uint32_t>(color);
    // Red and blue of a pixel stand far enough apart to be mixed together.
    const std::uint32_t red_blue = (bits & 255U) << 16U | (bits >> 16U & 255U), green = bits >> 8U & 255U;
    const auto mix = [&](std::uint32_t& under, std::uint32_t covered) {
        const std::uint32_t part = covered + (covered >> 7U);  // of 256
        const std::uint32_t mixed = (under & 0xFF00FFU) * (256 - part) + red_blue * part + 0x800080U;
        const std::uint32_t between = (under >> 8U & 255U) * (256 - part) + green * part + 0x80U;
        under = 0xFF000000U | (mixed >> 8U & 0xFF00FFU) | (between & 0xFF00U);
    };
    Empty([&](std::size_t pixel, std::size_t count, std::uint64_t parts) {
        std::uint32_t* under = &pixels[pixel];
#ifdef __SSE2__
        if (count == kBlock) return Mix_Block(under, red_blue | green << 8U, parts);
#endif
        for (std::size_t i = 0; i < count; ++i, parts >>= 8U) mix(under[i], static_cast<std::uint32_t>(parts & 255U));
    });
}

void Ink::Pour_Upon_Nothing(std::vector<std::uint32_t>& pixels, Color color, int alpha) {
    const auto bits = static_cast<std::uint32_t>(color);
    const auto most = static_cast<std::uint32_t>(alpha);
    const auto part_of = [](std::uint32_t value, std::uint32_t part) { return (value * part + 127) / 255; };
    // What a pixel becomes depends on its part alone.
    using Shades = std::array<std::uint32_t, 256>;
    Shades shades{};
    for (std::uint32_t covered = 1; covered < shades.size(); ++covered) {
        const std::uint32_t part = part_of(covered, most);
        shades[covered] = part << 24U | part_of(bits & 255U, part) << 16U | part_of(bits >> 8U & 255U, part) << 8U |
                          part_of(bits >> 16U & 255U, part);
    }
    Empty([&](std::size_t pixel, std::size_t count, std::uint64_t parts) {
        for (std::size_t i = 0; i < count; ++i, parts >>= 8U) pixels[pixel + i] = shades[parts & 255U];
    });
}

}  // namespace verlink::platform
