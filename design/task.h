// A task of design: what a linkage is to do, within which limits, and what makes one better than another.
#pragma once

#include <limits>
#include <string>
#include <vector>

#include "design/plane.h"

namespace verlink::design {

inline constexpr int kFewestPositions = 2, kMostPositions = 5;

/// A number of a task is refused beyond this: lengths and coordinates in the task's unit, angles in degrees.
inline constexpr double kLargestLength = 1e6, kLargestAngle = 3600;

/// A position of the body: where its point is, and its angle, degrees, counterclockwise. The point becomes the coupler
/// point of the linkages.
struct Place {
    Point at;
    double angle = 0;
    bool operator==(const Place&) const = default;
};

/// Where a pivot may lie: anywhere, in an upright rectangle with its edges, or at one of some given points.
struct Area {
    enum class Is { kAnywhere, kWithin, kPoints };
    Is is = Is::kAnywhere;
    Point low, high;            ///< kWithin: corners, low below and left of high
    std::vector<Point> points;  ///< kPoints
    bool operator==(const Area&) const = default;

    /// With the slack that roundings of a double take.
    bool Holds(Point point) const;
};

/// A link that stands on the ground, with its two pivots; global frame.
struct Side {
    Area fixed;   ///< O2 or O4
    Area moving;  ///< A or B, with the body in position 1
    bool operator==(const Side&) const = default;
};

/// What each merit counts in the score; not negative, and one of them is positive.
struct Weights {
    double transmission = 1;  ///< a large smallest transmission angle
    double proportion = 1;    ///< links that are not too different in length
    double room = 1;          ///< little room taken on the way
    double rounding = 0;      ///< positions that are met when lengths are rounded as they are shown
    bool operator==(const Weights&) const = default;
};

/// Whose link is the crank: the left one's, the right one's, or whichever does.
enum class Drive { kLeft, kRight, kEither };

/// Coordinates and lengths are in the shown unit of the unit system.
struct Task {
    std::string title;
    int units = 1;                 ///< unit system, 1 to 5
    bool relative = false;         ///< positions behind the first are typed from the first
    std::vector<Place> positions;  ///< as typed
    Side left, right;
    double shortest = 0;  ///< of all four links
    double longest = std::numeric_limits<double>::infinity();
    double transmission = 0;  ///< the smallest transmission angle that is taken, degrees
    Drive drive = Drive::kEither;
    bool full_turn = false;  ///< the crank can turn fully
    Weights weights;
    bool operator==(const Task&) const = default;
};

/// The positions in the global frame, whichever way they are typed.
std::vector<Place> Absolute_Positions(const Task& task);

/// The length that a task is measured by: the diagonal of the box around its points or, where they are one point, the
/// largest diagonal of a given rectangle, and 1 where there is none.
double Span_Of(const Task& task);

/// Where a pivot is looked for: the area's own box, or a square about the positions, three spans wide on either side
/// and not wider than the longest link allows.
struct Box {
    Point low, high;
};
Box Looked_Over(const Task& task, const Area& area);

/// The task as a file, JSON with its version, ending in a line end.
std::string Task_Text(const Task& task);

/// Reads such a file. False, with a line that names the field, for what is no task; `task` is as it was then.
bool Read_Task(const std::string& text, Task& task, std::string& fault);

}  // namespace verlink::design
