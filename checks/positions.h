// Which of the positions that a synthesis was given its linkage reaches.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace verlink {

struct LinkageModel;

/// How near a circuit of the linkage comes to a position: coupler point in place, coupler in its direction.
struct Approach {
    bool closes = false;  ///< the circuit is there at all
    double place = 0;     ///< stored length
    double angle = 0;     ///< radians
    double crank = 0;     ///< where it is nearest, radians from the ground link
    double expected = 0;  ///< of place; of single precision at that crank angle
    double expected_angle = 0;
    double boxes = 0;  ///< of place, and of angle, where lengths and angles were rounded as the boxes show them
    double boxes_angle = 0;
    bool Reaches() const { return closes && place <= expected && angle <= expected_angle; }
    bool Reaches_As_Shown() const { return Reaches() || (closes && place <= boxes && angle <= boxes_angle); }
};

/// The coupler's place and direction in position 1 are those of the dyads, the others follow from the displacements and
/// turns given. Nearest is where place and turn, times the coupler's size, are least together.
struct Reached_Position {
    int number = 1;
    std::array<Approach, 2> circuits;  ///< open, crossed
    const Approach& Nearest() const;
};

/// A pose that is asked for: where the coupler point is to be, from O2 in the global frame, stored length, and the
/// direction of the coupler there, radians.
struct Asked_Pose {
    double x = 0, y = 0, coupler = 0;
};
Reached_Position Approach_To(const LinkageModel& model, int number, const Asked_Pose& asked);

/// Positions 1 to 2 or 3 of the synthesis data for the linkage of the record. With pivots that were specified a
/// ten-thousandth of the lengths is taken for good: their closed form takes lengths to the fourth power in singles.
std::vector<Reached_Position> Positions_Reached(const LinkageModel& model);

/// What there is to say, in the shown unit: "misses position 2 by 0.31 in on either circuit", or on which circuit the
/// positions are reached and in which order the crank passes them.
std::string Words_Of_Positions(const LinkageModel& model, const std::vector<Reached_Position>& positions);

/// Whether a position is missed on both circuits.
bool Misses_One(const std::vector<Reached_Position>& positions);
/// The circuit that has them all: 0 open, 1 crossed, -1 neither.
int Circuit_With_All(const std::vector<Reached_Position>& positions);

}  // namespace verlink
