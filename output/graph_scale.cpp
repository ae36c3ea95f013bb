// How the spans, the thinning and the colours of a graph are found.
#include "output/graph_scale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace verlink {

using platform::Color;
using platform::Graph;

namespace {

constexpr double kAir = 0.06;

/// The first of the multiples of `every` by 1, 2, 5, 10, 20 ... that will do; 0 for none.
template <class Test>
int First_Multiple(int every, Test will_do) {
    every = std::max(1, every);
    for (int power = 1; power <= 1000; power *= 10)
        for (const int factor : {1, 2, 5})
            if (will_do(every * power * factor)) return every * power * factor;
    return 0;
}

constexpr Color Rgb(int hex) { return ((hex & 0xFF) << 16) | (hex & 0xFF00) | ((hex >> 16) & 0xFF); }

}  // namespace

bool Draws_Lines(const Graph& graph) { return graph.GraphStyle != 2; }
bool Draws_Sticks(const Graph& graph) { return graph.GraphStyle == 2 || graph.GraphStyle == 6; }

Span Value_Span(const Graph& graph) {
    double low = std::numeric_limits<double>::infinity(), high = -low;
    if (Draws_Sticks(graph)) low = high = 0;
    for (const Graph::Set& set : graph.Sets())
        for (const double value : set.values) {
            if (!std::isfinite(value)) continue;
            low = std::min(low, value);
            high = std::max(high, value);
        }
    if (low > high) return {-1, 1};
    const double size = std::max(std::fabs(low), std::fabs(high));
    // A difference that single precision cannot tell from none is noise and not a curve.
    if (high - low <= size * 1e-6) {
        const double half = size > 0 ? size / 2 : 1;
        return {low - half, high + half};
    }
    const double air = kAir * (high - low);
    const bool sticks = Draws_Sticks(graph);
    return {sticks && low == 0 ? 0 : low - air, sticks && high == 0 ? 0 : high + air};
}

Span Point_Span(const Graph& graph) {
    const double last = std::max(0, graph.NumPoints() - 1);
    const double beside = last == 0 ? 0.5 : Draws_Sticks(graph) ? std::max(0.5, 0.01 * last) : 0;
    return {-beside, last + beside};
}

int Thinned(int every, int points, int room) {
    room = std::max(2, room);
    const int step = First_Multiple(every, [&](int candidate) { return (points - 1) / candidate + 1 <= room; });
    return step > 0 ? step : points;
}

int Labels_Every(int every, int first, int last, const std::vector<double>& widths, double apart, double gap) {
    const auto clear = [&](int step) {
        for (int i = (first + step - 1) / step * step; i + step <= last; i += step) {
            const auto here = static_cast<std::size_t>(i), next = static_cast<std::size_t>(i + step);
            if ((widths[here] + widths[next]) / 2 + gap > step * apart) return false;
        }
        return true;
    };
    const int step = First_Multiple(every, clear);
    return step > 0 ? step : last + 1;
}

std::vector<double> Round_Values(Span span, int about) {
    const double raw = span.Width() / std::max(1, about);
    if (!(raw > 0) || !std::isfinite(raw)) return {};
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    double step = 10 * power;
    for (const double factor : {5.0, 2.0, 1.0})
        if (factor * power >= raw * 0.8) step = factor * power;
    std::vector<double> values;
    for (double n = std::ceil(span.low / step); n * step <= span.high; ++n) values.push_back(n == 0 ? 0 : n * step);
    return values;
}

const Graph_Colors& Colors_Of(int background) {
    static constexpr Graph_Colors kWhite{
        Rgb(0xFFFFFF), Rgb(0x2B3036), Rgb(0xDDE1E6), {Rgb(0x1F5FBF), Rgb(0xC23B22), Rgb(0x1E7F4F), Rgb(0x7A4BA8)}};
    static constexpr Graph_Colors kBlue{
        Rgb(0x14305E), Rgb(0xE8EEF7), Rgb(0x35527F), {Rgb(0xFFD65C), Rgb(0x7FD4FF), Rgb(0xFFA58A), Rgb(0xA8E6A1)}};
    static constexpr Graph_Colors kGray{
        Rgb(0xC4C8CE), Rgb(0x1B1F24), Rgb(0xA9AEB6), {Rgb(0x133F8F), Rgb(0x9A2611), Rgb(0x0F5A30), Rgb(0x5A2688)}};
    return background == 1 ? kBlue : background == 7 ? kGray : kWhite;
}

const std::vector<double>& Dashes_Of(int pattern) {
    static const std::vector<double> patterns[]{{}, {6, 3}, {1.5, 2}, {7, 2.5, 1.5, 2.5}};
    return patterns[static_cast<std::size_t>(pattern) % std::size(patterns)];
}

int Pattern_Of(const Graph& graph, const Graph::Set& set) { return graph.PatternedLines == 1 ? set.pattern : 0; }

}  // namespace verlink
