// Threads that take the next piece until there is none.
#include "design/side_by_side.h"

#include <algorithm>
#include <thread>
#include <vector>

namespace verlink::design {

int Threads_Of(int wanted) {
    if (wanted > 0) return wanted;
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

bool Side_By_Side(std::size_t count, int threads, const std::function<void(std::size_t)>& work,
                  const std::function<bool(std::size_t done)>& between) {
    std::atomic<std::size_t> next = 0, done = 0;
    std::atomic<bool> stopped = false;
    const auto take = [&](bool calling) {
        for (std::size_t i; !stopped && (i = next++) < count;) {
            work(i);
            ++done;
            if (calling && !between(done)) stopped = true;
        }
    };
    std::vector<std::thread> others;
    const int most = static_cast<int>(std::min<std::size_t>(count, static_cast<std::size_t>(Threads_Of(threads))));
    for (int i = 1; i < most; ++i) others.emplace_back(take, false);
    take(true);
    for (std::thread& other : others) other.join();
    return done == count;
}

}  // namespace verlink::design
