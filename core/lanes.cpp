// Asks the processor.
#include "core/lanes.h"

namespace verlink {

Lanes Widest_Lanes() {
#if defined(__x86_64__) && defined(__GNUC__)
    static const bool four = __builtin_cpu_supports("avx2");
    return four ? Lanes::kFour : Lanes::kTwo;
#else
    return Lanes::kTwo;
#endif
}

}  // namespace verlink
