// The C library raises its own limits with the size of what is freed, and keeps ever larger holes; fixed ones stay.
#include "desktop/memory.h"

#include <malloc.h>

namespace verlink::desktop {

void returnLargeBlocks() {
    constexpr int kLarge = 256 * 1024, kSpare = 2 * 1024 * 1024;
    ::mallopt(M_MMAP_THRESHOLD, kLarge);
    ::mallopt(M_TRIM_THRESHOLD, kSpare);
}

}  // namespace verlink::desktop
