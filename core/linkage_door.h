// The one door by which a linkage comes into the record.
#pragma once

#include <functional>

namespace verlink {

enum class Road { kBoxes, kDrag, kFile, kExample, kImport, kSynthesis, kCognate, kUnits, kNew };

/// `fill` stores the primary values of a linkage in the record; then what follows from them is derived by
/// `Derive_Linkage`, and what was known of the linkage before falls, by the road's row of a table. A failure on the
/// way leaves the record as it was, and goes on.
void Enter_Linkage(Road road, const std::function<void()>& fill);

/// Which form of link 1 the other one follows from: the length and angle, the place of O4 in the global frame, the
/// one that `PolarCoords` says, or neither as long as both say the same within the precision of a file.
enum class Leading { kPolar, kInForce, kBoth };

/// What follows from the stored lengths, angles and circuit: both forms of link 1, its local pivot, Delta in radians
/// and as text, sign and name of the circuit, `LinkArray`, `Parallelogram`.
void Derive_Linkage(Leading leading);

}  // namespace verlink
