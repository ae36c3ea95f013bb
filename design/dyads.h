// Dyads of a moved body: a pivot of the body whose places lie on a circle, and the centre of that circle.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "design/task.h"

namespace verlink::design {

/// Global frame; the moving pivot is where it is with the body in position 1.
struct Dyad {
    Point fixed, moving;
    bool operator==(const Dyad&) const = default;
};

/// Where the body is carried from position 1.
struct Carried {
    Point turn;      ///< of length 1
    Point from, to;  ///< the body's point in position 1 and now
    Point Of(Point in_position_1) const { return to + Times(turn, in_position_1 - from); }
    /// A point of the ground as the body in position 1 would see it from there.
    Point Back(Point ground) const { return from + Times(std::conj(turn), ground - to); }
};

/// From position 1 to each, the first included.
std::vector<Carried> Carried_Through(std::span<const Place> absolute);

/// What makes the dyads of these positions none, or none that a four-bar can be made of, in a sentence that says what
/// to loosen: positions that coincide, that all turn about one point, that lie on a line without turning, or limits
/// that leave fewer free numbers than there are conditions. Empty where nothing is wrong.
std::string Trouble_With(const Task& task);

// None of the following where a point is at infinity, or so far that its digits are lost.

/// Two positions: a pivot of the body, and how far its link turns between them, radians, not a multiple of a turn.
std::optional<Dyad> Dyad_Of_Moving(std::span<const Carried> two, Point moving, double turn);
std::optional<Dyad> Dyad_Of_Fixed(std::span<const Carried> two, Point fixed, double turn);

/// Three positions: the centre of the circle through three places, and the same seen from the body.
std::optional<Dyad> Dyad_Of_Moving(std::span<const Carried> three, Point moving);
std::optional<Dyad> Dyad_Of_Fixed(std::span<const Carried> three, Point fixed);

/// Four positions: the curves of Burmester, on which centres and circle points lie. A dyad is found by how far its link
/// turns from position 1 to another, and there are two of them or none: the compatibility equation of Sandor and
/// Erdman, a triangle of the minors of the standard dyad form, which is closed in two ways.
class Burmester {
   public:
    /// Four positions in which nothing is wrong.
    explicit Burmester(std::span<const Carried> four);

    /// `turn` in radians, `way` 0 or 1.
    std::optional<Dyad> Dyad_At(double turn, int way) const;

    /// Both curves as pieces without gaps, point by point of the same dyad, `steps` to a turn at least; each dyad is
    /// exact.
    std::vector<std::vector<Dyad>> Curves(int steps) const;

   private:
    std::optional<Dyad> Dyad_With(Point (&turns)[4]) const;
    bool Closes(double turn) const;
    /// From a turn that closes to one that does not, so much farther.
    double Last_That_Closes(double closes, double step) const;

    Carried carried_[4];
    Point minor_[4];
    int led_ = 1;  ///< the position that `turn` leads to
};

/// Five positions: the dyads, none to four. Each equation is bilinear in the two pivots; four of them leave two
/// unknowns of two conics, whose crossings are found by their resultant and polished by Newton's method. The places of
/// each dyad lie on its circle to 1e-9 of its radius or of the positions' span.
std::vector<Dyad> Dyads_Through_Five(std::span<const Carried> five);

}  // namespace verlink::design
