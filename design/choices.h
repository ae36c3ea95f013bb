// A linkage found in the terms of the synthesis of two and three positions.
#pragma once

#include "design/search.h"

namespace verlink::design {

/// Vectors of the standard dyad form in the global frame, with the body in position 1, in the task's unit; W and Z are
/// the crank's, U and S the other link's. Turns are degrees from position 1, counterclockwise. Of a task of four or
/// five positions it is the first three; of two, what belongs to a third is 0.
struct Choices {
    Point first;            ///< the body's point in position 1
    Point P21, P31;         ///< its way from there
    double alpha2, alpha3;  ///< of the body
    double beta2, beta3;    ///< of the crank, as far as it turns on its one way
    double gamma2, gamma3;  ///< of the other link, within half a turn either way
    Point W, Z, U, S;
    bool specified;  ///< both fixed pivots are given
};
Choices Choices_Of(const Task& task, const Solution& solution);

/// By how much the two dyads that come out of these turns and ways, taken as singles, are off from those that they
/// were read off, as a part of the longest vector. Infinite where the equations are singular.
double Off_By_Turns(const Choices& three);
/// The same of two positions, where the directions of all vectors are given beside the turns of the links.
double Off_By_Directions(const Choices& two);
/// The same where Z and S are given whole.
double Off_By_Arms(const Choices& two);

/// Why the closed form of specified pivots finds other turns than these, in words; empty where it finds them. It has
/// the turn to position 2 right above -90 and up to 180 degrees, and takes the dyad for none that turns with the body
/// from position 1 to 3.
std::string Trouble_By_Pivots(const Choices& three);

}  // namespace verlink::design
