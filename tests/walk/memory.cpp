// The resident size is the system's word, what is in use the allocator's: the difference is lost to holes.
#include "tests/walk/memory.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace verlink::walk {

namespace {

constexpr double kMega = 1024.0 * 1024.0;

double Resident() {
    long pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE)) / kMega;
}

double In_Use() {
    const auto info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / kMega;
}

}  // namespace

void Memory_Watch::Note(long actions) {
    if (!states_.empty() && actions < states_.back().actions + kEvery) return;
    states_.push_back({actions, Resident(), In_Use()});
}

const Memory_Watch::State* Memory_Watch::Base() const {
    const auto base = std::ranges::find_if(states_, [](const State& state) { return state.actions >= kWarm; });
    return base == states_.end() ? nullptr : &*base;
}

bool Memory_Watch::Has_Grown() const {
    const State* base = Base();
    return base && states_.back().resident > base->resident + kMost;
}

void Memory_Watch::Tell() const {
    for (const State& state : states_)
        std::printf("  after %6ld actions %6.1f MB resident, %6.1f MB in use\n", state.actions, state.resident,
                    state.in_use);
    if (const State* base = Base())
        std::printf("  grown by %.1f MB since %ld actions\n", states_.back().resident - base->resident, base->actions);
}

}  // namespace verlink::walk
