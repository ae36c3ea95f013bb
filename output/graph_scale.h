// What every picture of a graph goes by: the span of its values, how its labels thin out, and its colours.
#pragma once

#include <array>
#include <vector>

#include "platform/graph.h"

namespace verlink {

struct Span {
    double low, high;
    double Width() const { return high - low; }
};

/// Are points joined by lines, and does each stand on a stick?
bool Draws_Lines(const platform::Graph& graph);
bool Draws_Sticks(const platform::Graph& graph);

/// The finite values with a little air above and below; zero is among them where there are sticks. A flat graph has
/// its value in the middle.
Span Value_Span(const platform::Graph& graph);
/// The points, counted from 0; sticks at the ends have room beside them.
Span Point_Span(const platform::Graph& graph);

/// `every`, or the least of its multiples by 2, 5, 10, 20, 50 ... of which no more than `room` fall upon `points`.
int Thinned(int every, int points, int room);
/// The same for labels centred upon the points from first to last: of its multiples the least at which neighbours stand
/// clear of each other. `widths` has those of all labels, `apart` the distance of two points, `gap` the least that is
/// to be free between two labels.
int Labels_Every(int every, int first, int last, const std::vector<double>& widths, double apart, double gap);
/// Round numbers within the span, about so many.
std::vector<double> Round_Values(Span span, int about);

/// Readable upon one another: the background, texts and axes, the grid, and the curves in the order of the sets.
struct Graph_Colors {
    platform::Color back, ink, grid;
    std::array<platform::Color, 4> curves;
};
/// Of a background number; white for any other than 1 and 7.
const Graph_Colors& Colors_Of(int background);

/// Lengths of dash and gap, in turn, in widths of the line; none for a solid one. Patterns repeat after the fourth.
const std::vector<double>& Dashes_Of(int pattern);
/// The pattern that a set is drawn with.
int Pattern_Of(const platform::Graph& graph, const platform::Graph::Set& set);

}  // namespace verlink
