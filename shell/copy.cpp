// Copies of models that were not saved.
#include "shell/copy.h"

#include <pthread.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "platform/file_system.h"
#include "platform/guard.h"
#include "shell/run_log.h"

namespace verlink {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::system_clock;

namespace {

constexpr std::string_view kCopySuffix = ".copy";
constexpr std::string_view kHead = "a copy of a model that was not saved\n";
constexpr milliseconds kRetry(2000);

/// Takes "word rest\n" off the text.
std::optional<std::string_view> Line(std::string_view& text, std::string_view word) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos || !text.starts_with(word)) return {};
    const std::string_view rest = text.substr(word.size(), end - word.size());
    text.remove_prefix(end + 1);
    return rest;
}

std::string Some(long long count, const char* unit) {
    return std::to_string(count) + " " + unit + (count == 1 ? "" : "s") + " ago";
}

}  // namespace

std::string Copy_Text(const Model_Copy& copy) {
    const auto since = std::chrono::duration_cast<milliseconds>(copy.changed.time_since_epoch()).count();
    return std::string(kHead) + "path " + In_One_Line(copy.path) + "\nname " + In_One_Line(copy.name) + "\nchanged " +
           std::to_string(since) + "\ntasks " + std::to_string(copy.tasks.size()) + "\nsize " +
           std::to_string(copy.content.size()) + "\n" + copy.content + copy.tasks;
}

std::optional<Model_Copy> Copy_Of(std::string_view text) {
    if (!text.starts_with(kHead)) return {};
    text.remove_prefix(kHead.size());
    const auto path = Line(text, "path "), name = Line(text, "name "), changed = Line(text, "changed ");
    // A copy of an earlier program has none.
    const auto tasks = Line(text, "tasks "), size = Line(text, "size ");
    if (!path || !name || !changed || !size) return {};
    // Behind each stands the end of its line.
    const auto number = [](const auto& digits) { return std::strtoll(digits->data(), nullptr, 10); };
    const long long since = number(changed);
    const auto length = static_cast<std::size_t>(number(size));
    const std::size_t behind = tasks ? static_cast<std::size_t>(number(tasks)) : 0;
    if (behind > text.size() || text.size() - behind != length) return {};
    return Model_Copy{From_One_Line(*path), From_One_Line(*name), std::string(text.substr(0, length)),
                      std::string(text.substr(length)), system_clock::time_point(milliseconds(since))};
}

std::string Copy_File(const std::string& folder, const platform::Process& process) {
    return folder + platform::Name_Of(process) + std::string(kCopySuffix);
}

std::vector<Left_Copy> Left_Copies(const std::string& folder) {
    std::vector<Left_Copy> found;
    std::error_code none;
    for (fs::directory_iterator entry(folder, none), end; !none && entry != end; entry.increment(none)) {
        std::string name = entry->path().filename().string();
        if (!name.ends_with(kCopySuffix) || !entry->is_regular_file(none) || entry->is_symlink(none)) continue;
        name.resize(name.size() - kCopySuffix.size());
        const auto process = platform::Process_Of(name);
        if (!process || platform::Runs(*process)) continue;
        std::string text;
        if (Failure_Of([&] { text = platform::Read_File(entry->path().string()); }) != 0) continue;
        if (auto copy = Copy_Of(text)) found.push_back({entry->path().string(), std::move(*copy)});
    }
    std::ranges::sort(found, std::greater(), [](const Left_Copy& left) { return left.copy.changed; });
    return found;
}

std::string Age_In_Words(system_clock::duration age) {
    const long long minutes = std::chrono::duration_cast<std::chrono::minutes>(age).count();
    constexpr long long kHour = 60, kDay = 24 * kHour;
    if (minutes < 1) return "less than a minute ago";
    if (minutes < kHour) return Some(minutes, "minute");
    if (minutes < 2 * kDay) return Some(minutes / kHour, "hour");
    return Some(minutes / kDay, "day");
}

Copy_Keeper::Copy_Keeper(std::string file, milliseconds pause) : file_(std::move(file)), pause_(pause) {
    // Signals are for the thread that the program runs in.
    sigset_t all, before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    worker_ = std::thread([this] { Work(); });
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

Copy_Keeper::~Copy_Keeper() {
    {
        const std::scoped_lock lock(mutex_);
        ending_ = true;
    }
    asked_.notify_all();
    worker_.join();
}

void Copy_Keeper::Keep(Model_To_Copy model) { Ask(std::make_shared<const Model_To_Copy>(std::move(model))); }

void Copy_Keeper::Drop() { Ask({}); }

void Copy_Keeper::Ask(Wish wish) {
    const std::scoped_lock lock(mutex_);
    if (frozen_) return;
    const bool same = wish && wish_
                          ? wish->file == wish_->file && wish->path == wish_->path && wish->name == wish_->name
                          : !wish && !wish_;
    if (same) return;
    wish_ = std::move(wish);
    fresh_ = failed_ = false;
    asked_.notify_all();
}

void Copy_Keeper::Freeze() {
    const std::scoped_lock lock(mutex_);
    frozen_ = true;
}

bool Copy_Keeper::Flush(milliseconds patience) {
    std::unique_lock lock(mutex_);
    hurry_ = !fresh_;
    failed_ = false;
    asked_.notify_all();
    done_.wait_for(lock, patience, [this] { return fresh_ || failed_; });
    return fresh_;
}

void Copy_Keeper::Work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        asked_.wait(lock, [this] { return !fresh_ || ending_; });
        if (fresh_) return;
        const Wish wish = wish_;
        hurry_ = false;
        lock.unlock();
        const bool good = Do(wish);
        lock.lock();
        fresh_ = good && wish == wish_;
        hurry_ = hurry_ && !fresh_;
        failed_ = !good && !hurry_;  // a flush that came meanwhile has its own try
        done_.notify_all();
        if (failed_ && ending_) return;
        asked_.wait_for(lock, good ? pause_ : kRetry, [this] { return ending_ || hurry_; });
    }
}

bool Copy_Keeper::Do(const Wish& wish) const {
    if (wish) {
        const auto write = [&] {
            const Model_Copy copy{wish->path, wish->name, File_Text(wish->file), Tasks_Text(wish->tasks),
                                  wish->changed};
            platform::Write_File(file_, Copy_Text(copy), 0600);
        };
        return Failure_Of(write) == 0;
    }
    std::error_code failed;
    fs::remove(file_, failed);
    return !failed;
}

}  // namespace verlink
