// Whether results are others than they were.
#pragma once

namespace verlink {

/// Moves on whenever the run, its forces, a balance or a transform comes to hold or falls, by core/results.h: whoever
/// shows results sees by it that they are others now.
int Results_Turns();
/// A record was put back with what held then.
void Results_Put_Back();

}  // namespace verlink
