// Work that several threads do and one takes, in the order of its numbers.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <thread>
#include <vector>

namespace verlink::study {

/// Blocks 0 to `blocks` - 1. Each of the threads calls `make_worker` and hands that worker(number, block) whatever is
/// next; the calling thread gives each block to take(block), in order, until that says false. Blocks are used again, so
/// a worker has to fill all of one; no more of them are kept than four for each thread. False when it was stopped.
/// Neither worker nor take may throw. Nobody waits at a lock: a number says which block is done, another which was
/// taken.
template <class Block, class Make_Worker, class Take>
bool In_Order(std::uint64_t blocks, int threads, Make_Worker make_worker, Take take) {
    struct Slot {
        std::atomic<std::uint64_t> done{0};  ///< blocks that have been made here or before, this one included
        Block block;
    };
    std::vector<Slot> ring(static_cast<std::size_t>(threads) * 4);
    std::atomic<std::uint64_t> next{0}, taken{0};
    std::atomic<bool> stopped{false};
    const auto work = [&] {
        auto worker = make_worker();
        for (std::uint64_t number; (number = next.fetch_add(1)) < blocks;) {
            for (std::uint64_t seen; (seen = taken.load()) + ring.size() <= number && !stopped.load();)
                taken.wait(seen);
            if (stopped.load()) return;
            Slot& slot = ring[number % ring.size()];
            worker(number, slot.block);
            slot.done.store(number + 1);
            slot.done.notify_one();
        }
    };
    std::vector<std::jthread> crew(static_cast<std::size_t>(threads));
    for (std::jthread& one : crew) one = std::jthread(work);
    for (std::uint64_t number = 0; number < blocks && !stopped.load(); ++number) {
        Slot& slot = ring[number % ring.size()];
        for (std::uint64_t seen; (seen = slot.done.load()) != number + 1;) slot.done.wait(seen);
        if (!take(slot.block)) stopped.store(true);
        taken.store(number + 1);
        taken.notify_all();
    }
    return !stopped.load();
}

}  // namespace verlink::study
