// Dyads of two and three positions in the standard dyad form, and the linkage that two of them make.
#pragma once

#include "core/number.h"

namespace verlink {

// Lengths are as link lengths, angles are degrees, vectors are in the global frame. A dyad is the vector along the
// grounded link (W left, U right) and the vector from its moving pin to the coupler point (Z left, S right).
// A system is singular when a change in the last place of its angles, which are single numbers, can make it so.

/// One dyad for two positions. P21 is the displacement of the coupler point, `alpha` the turn of the coupler, `beta`
/// that of the grounded link; `angle1`, `mag1`, `x1`, `y1` are of the grounded link's vector, those with 2 of the
/// other. Method 1: both angles given, both magnitudes found, negative ones kept. Method 2: the second vector given,
/// the first found. A singular system is told as a zero divisor and leaves what is not yet written. Other methods do
/// nothing. Whether there is a dyad.
bool TwoPos(Integer method, Single P21x, Single P21y, Single alpha, Single beta, Single& angle1, Single& angle2,
            Single& mag1, Single& x1, Single& y1, Single& mag2, Single& x2, Single& y2);

/// One dyad for three positions, turns given. A singular system is told, the vectors stay, and `SimqAnswer` has the
/// button pressed, 2 for Cancel; it is 0 after a solution.
void ThreePos(Single P21x, Single P21y, Single P31x, Single P31y, Single alpha2, Single alpha3, Single beta2,
              Single beta3, Single& wx, Single& wy, Single& zx, Single& zy);

/// Turns `beta2`, `beta3` of the grounded link whose pivot is at (ox, oy), by Erdman and Sandor's closed form. Reads
/// P1, P21, P31, SynAlpha2, SynAlpha3 of the record. When there is none: a message, both as they were, and false.
/// `beta2` is right above -90 and up to 180 degrees, but for 0, where the end point of the arc cosine gives 57.3.
bool FixedPivots(Single ox, Single oy, Single& beta2, Single& beta3);
void Solve_Beta2(Single beta3, Single A1, Single A2, Single A3, Single A4, Single A5, Single A6, Single& beta2);
/// The angle of an arc cosine `a` and an arc sine `s`, degrees; a negative `s` beside a positive `a` gives `s`.
Single Quadrant_Fix(Single a, Single s);

/// Joins two dyads into the linkage of the record, with the crank's range by `mode` (1 two positions, 2 to 4 three),
/// puts it on the input screen and reports it. The ground goes in by length and angle. A range that passes a whole turn
/// comes out swapped, with a negative step. Where the range is swapped the crank's speed turns negative, and the next
/// assembly whose range is not turns it back.
void Assemblevlnk(Integer mode, Single wx, Single wy, Single zx, Single zy, Single ux, Single uy, Single sx, Single sy,
                  Single beta2, Single beta3, Single& link1Angle);

}  // namespace verlink
