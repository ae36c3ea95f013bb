// Harmonics in fours; built for machines with AVX2, and called on them alone.
#include "output/harmonic_lanes.h"

namespace verlink::harmonics {

#ifdef __AVX2__
namespace {

void Group_By_Fours(const Common& common, int first, double* re, double* im) { Sum_Group<Quad>(common, first, re, im); }

}  // namespace

const Group kGroupByFours = Group_By_Fours;
#else
const Group kGroupByFours = nullptr;
#endif

}  // namespace verlink::harmonics
