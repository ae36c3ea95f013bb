// What the two threads hand over, under one lock.
#include "screens/search_aside.h"

#include <utility>

namespace verlink {

Search_Aside::~Search_Aside() {
    if (Runs()) Await();
}

void Search_Aside::Begin(const design::Task& task, const design::Effort& effort) {
    if (Runs()) Await();
    found_.reset();
    part_ = 0;
    stop_ = ended_ = false;
    thread_ = std::thread([this, task, effort] {
        design::Found found =
            design::Find(task, effort, [this](double part, const design::Found* so_far) { return Tell(part, so_far); });
        const std::lock_guard lock(hand_over_);
        found_ = std::move(found);
        part_ = 1;
        ended_ = true;
    });
}

bool Search_Aside::Tell(double part, const design::Found* so_far) {
    const std::lock_guard lock(hand_over_);
    part_ = part;
    if (so_far) found_ = *so_far;
    return !stop_;
}

void Search_Aside::Stop() {
    const std::lock_guard lock(hand_over_);
    stop_ = true;
}

double Search_Aside::Part() const {
    const std::lock_guard lock(hand_over_);
    return part_;
}

std::optional<design::Found> Search_Aside::Take() {
    std::optional<design::Found> taken;
    bool ended = false;
    {
        const std::lock_guard lock(hand_over_);
        taken = std::exchange(found_, std::nullopt);
        ended = ended_;
    }
    if (ended && Runs()) thread_.join();
    return taken;
}

design::Found Search_Aside::Await() {
    Stop();
    return To_Its_End();
}

design::Found Search_Aside::To_Its_End() {
    if (Runs()) thread_.join();
    return Take().value_or(design::Found{});
}

}  // namespace verlink
