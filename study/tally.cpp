// Bins of singles by their bits, and the extremes.
#include "study/tally.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

namespace verlink::study {

namespace {

constexpr std::size_t kExtremes = 10;

/// In the order of the values.
std::uint32_t Key_Of(float value) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    return (bits >> 31U) != 0 ? ~bits : bits | 0x80000000U;
}

bool Lower(const Tally::Extreme& a, const Tally::Extreme& b) {
    return std::less()(std::pair(a.value, a.linkage), std::pair(b.value, b.linkage));
}
bool Higher(const Tally::Extreme& a, const Tally::Extreme& b) {
    return std::less()(std::pair(-a.value, a.linkage), std::pair(-b.value, b.linkage));
}

template <class Before>
void Insert(std::vector<Tally::Extreme>& extremes, const Tally::Extreme& extreme, Before before) {
    extremes.insert(std::ranges::upper_bound(extremes, extreme, before), extreme);
    if (extremes.size() > kExtremes) extremes.pop_back();
}

/// Numbers with blanks between them.
class Numbers {
   public:
    explicit Numbers(const std::string& text) : at_(text.data()), end_(at_ + text.size()) {}
    template <class T = std::uint64_t>
    std::optional<T> Next() {
        T number;
        const auto read = std::from_chars(at_, end_, number);
        if (read.ec != std::errc()) return std::nullopt;
        at_ = read.ptr;
        if (at_ != end_ && *at_ == ' ') ++at_;
        return number;
    }
    std::optional<float> Next_Single() {
        const auto bits = Next<std::uint32_t>();
        return bits ? std::optional(std::bit_cast<float>(*bits)) : std::nullopt;
    }
    bool At_End() const { return at_ == end_; }

   private:
    const char *at_, *end_;
};

std::string Word(std::uint64_t number) { return std::to_string(number) + " "; }
std::string Word(float value) { return Word(std::uint64_t{std::bit_cast<std::uint32_t>(value)}); }

std::string Text_Of(const std::vector<Tally::Extreme>& extremes) {
    std::string text;
    for (const Tally::Extreme& extreme : extremes) text += Word(extreme.value) + Word(extreme.linkage);
    return text;
}

bool Read(const std::string& text, std::vector<Tally::Extreme>& extremes) {
    Numbers numbers(text);
    extremes.clear();
    while (!numbers.At_End()) {
        const auto value = numbers.Next_Single();
        const auto linkage = numbers.Next();
        if (!value || !linkage || extremes.size() == kExtremes) return false;
        extremes.push_back({*value, *linkage});
    }
    return true;
}

}  // namespace

void Spread_Of_Values::Bin::Add(const Bin& other) {
    least = std::min(least, other.least);
    greatest = std::max(greatest, other.greatest);
    count += other.count;
}

void Spread_Of_Values::Put(std::uint32_t key, const Bin& bin) {
    bins_[key].Add(bin);
    least_ = std::min(least_, bin.least);
    greatest_ = std::max(greatest_, bin.greatest);
    count_ += bin.count;
    while (bins_.size() > kBins) Widen();
}

/// One bit less of each key.
void Spread_Of_Values::Widen() {
    std::unordered_map<std::uint32_t, Bin> wider;
    for (const auto& [key, bin] : bins_) wider[key >> 1U].Add(bin);
    bins_ = std::move(wider);
    ++let_go_;
}

void Spread_Of_Values::Add(float value) {
    const float plain = value == 0 ? 0.0F : value;
    Put(Key_Of(plain) >> let_go_, {1, plain, plain});
}

void Spread_Of_Values::Add(const Spread_Of_Values& other) {
    while (let_go_ < other.let_go_) Widen();
    for (const auto& [key, bin] : other.bins_) {
        // The bins of this one may get wider on the way.
        const std::uint32_t here = let_go_ - other.let_go_ < 32 ? key >> (let_go_ - other.let_go_) : 0;
        Put(here, bin);
    }
}

std::map<std::uint32_t, Spread_Of_Values::Bin> Spread_Of_Values::In_Order() const {
    return {bins_.begin(), bins_.end()};
}

double Spread_Of_Values::Quantile(double share) const {
    const double rank = share * static_cast<double>(count_ - 1);
    const auto below = static_cast<std::uint64_t>(rank);
    const auto bins = In_Order();
    const auto value_at = [&](std::uint64_t wanted) -> double {
        std::uint64_t before = 0;
        for (const auto& [key, bin] : bins) {
            if (wanted < before + bin.count) {
                if (bin.count == 1) return bin.least;
                const double part = static_cast<double>(wanted - before) / static_cast<double>(bin.count - 1);
                return bin.least + (double{bin.greatest} - bin.least) * part;
            }
            before += bin.count;
        }
        return greatest_;
    };
    const double low = value_at(below), part = rank - static_cast<double>(below);
    return low + (value_at(below + 1) - low) * part;
}

std::vector<std::uint64_t> Spread_Of_Values::Between(const std::vector<double>& bounds) const {
    std::vector<std::uint64_t> counts(bounds.size() - 1);
    for (const auto& [key, bin] : bins_) {
        const double middle = (double{bin.least} + bin.greatest) / 2;
        const auto above = std::upper_bound(bounds.begin(), bounds.end(), middle);
        const auto place = above == bounds.begin() ? 0 : above - bounds.begin() - 1;
        counts[std::min(static_cast<std::size_t>(place), counts.size() - 1)] += bin.count;
    }
    return counts;
}

std::string Spread_Of_Values::Text() const {
    std::string text = Word(std::uint64_t{let_go_});
    for (const auto& [key, bin] : In_Order())
        text += Word(std::uint64_t{key}) + Word(bin.count) + Word(bin.least) + Word(bin.greatest);
    return text;
}

bool Spread_Of_Values::Take(const std::string& text) {
    *this = {};
    Numbers numbers(text);
    const auto let_go = numbers.Next();
    if (!let_go || *let_go > 32) return false;
    let_go_ = static_cast<unsigned>(*let_go);
    while (!numbers.At_End()) {
        const auto key = numbers.Next(), count = numbers.Next();
        const auto least = numbers.Next_Single(), greatest = numbers.Next_Single();
        // Behind a number that is missing all are.
        if (!least || !greatest || *key > 0xffffffffU || bins_.size() == kBins) return false;
        Put(static_cast<std::uint32_t>(*key), {*count, *least, *greatest});
    }
    return true;
}

void Tally::Add(float value, std::uint64_t linkage) {
    if (value != value) {
        ++none_;
        return;
    }
    spread_.Add(value);
    const double distance = value - about_;
    sum_.Add(distance);
    squares_.Add(distance * distance);
    Insert(lowest_, {value, linkage}, Lower);
    Insert(highest_, {value, linkage}, Higher);
}

void Tally::Add(const Tally& other) {
    none_ += other.none_;
    spread_.Add(other.spread_);
    sum_.Add(other.sum_);
    squares_.Add(other.squares_);
    for (const Extreme& extreme : other.lowest_) Insert(lowest_, extreme, Lower);
    for (const Extreme& extreme : other.highest_) Insert(highest_, extreme, Higher);
}

double Tally::Mean() const { return about_ + sum_.Value() / static_cast<double>(spread_.Count()); }

double Tally::Deviation() const {
    const auto count = static_cast<double>(spread_.Count());
    const double mean = sum_.Value() / count;
    // A single one has no number here, which counts for nothing.
    return std::sqrt(std::fmax(0.0, (squares_.Value() - count * mean * mean) / (count - 1)));
}

std::string Tally::Text() const {
    return std::to_string(none_) + '\n' + sum_.Text() + '\n' + squares_.Text() + '\n' + spread_.Text() + '\n' +
           Text_Of(lowest_) + '\n' + Text_Of(highest_) + '\n';
}

bool Tally::Take(const std::vector<std::string>& lines) {
    if (lines.size() != kLines) return false;
    Numbers none(lines[0]);
    const auto count = none.Next();
    if (!count) return false;
    none_ = *count;
    return none.At_End() && sum_.Take(lines[1]) && squares_.Take(lines[2]) && spread_.Take(lines[3]) &&
           Read(lines[4], lowest_) && Read(lines[5], highest_);
}

}  // namespace verlink::study
