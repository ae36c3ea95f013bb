// Qt for the benchmarks of windows.
#pragma once

namespace verlink::bench {

/// Starts Qt once, for the life of the process.
void Start_Qt();

}  // namespace verlink::bench
