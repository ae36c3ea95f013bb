// Pieces of work on several threads.
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>

namespace verlink::design {

/// So many threads as the machine has processors where 0 are asked for.
int Threads_Of(int wanted);

/// `work` for 0 to count - 1, each once, on so many threads, of which the calling one is one; `work` is not to throw.
/// `between` is called by the calling thread alone after each of its pieces; once it gives false, no further piece is
/// begun. False when not all was done.
bool Side_By_Side(std::size_t count, int threads, const std::function<void(std::size_t)>& work,
                  const std::function<bool(std::size_t done)>& between);

}  // namespace verlink::design
