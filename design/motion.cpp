// Tasks of moving a body: each candidate is a pair of dyads.
#include <algorithm>

#include "design/problem.h"

namespace verlink::design {

namespace {

/// A dyad of one side with what it is made from.
struct Choice {
    int sheet;
    std::array<double, 3> number;
    Dyad dyad;
};

/// Parts of 1 that fill the unit cube evenly, whatever their count: multiples of the powers of the root of
/// x^4 = x + 1 in three dimensions.
Point Even_Point(std::size_t index) {
    constexpr double kX = 0.8191725133961645, kY = 0.6710436067037893;
    const double n = static_cast<double>(index) + 0.5;
    return {n * kX - std::floor(n * kX), n * kY - std::floor(n * kY)};
}
double Even_Third(std::size_t index) {
    constexpr double kZ = 0.5497004779019703;
    const double n = static_cast<double>(index) + 0.5;
    return n * kZ - std::floor(n * kZ);
}

/// All dyads of one side of the task.
///
/// Two and three positions: sheets are planes, that of the moving and that of the fixed pivot, or given points; the
/// numbers are the place in the plane, and with two positions the turn of the link. Four: the sheets are the two ways
/// of Burmester's curves, the number is the turn. Five: each dyad is a sheet.
class Family {
   public:
    Family(const Task& task, const Side& side, std::span<const Carried> carried)
        : task_(task), side_(side), carried_(carried.begin(), carried.end()) {
        if (Count() == 4) curves_.emplace(carried);
        if (Count() == 5) five_ = Dyads_Through_Five(carried);
        fixed_ = Looked_Over(task, side.fixed);
        moving_ = Looked_Over(task, side.moving);
    }

    std::size_t Free() const { return Count() == 2 ? 3 : Count() == 3 ? 2 : Count() == 4 ? 1 : 0; }

    int Sheets() const {
        if (Count() == 5) return static_cast<int>(five_.size());
        return Given() ? static_cast<int>(Points().size()) : 2;
    }

    /// Where a descent begins: a part of the box, and of a turn.
    double Step(std::size_t number) const {
        constexpr double kPart = 0.05, kTurnStep = 0.15;
        if (number == 2 || Count() == 4) return kTurnStep;
        if (Given()) return 0;
        return kPart * std::min(Diagonal(fixed_), Diagonal(moving_));
    }

    std::optional<Dyad> Dyad_At(int sheet, const double* number) const {
        if (Count() == 4) return curves_->Dyad_At(number[0], sheet);
        if (Count() == 5) return five_[static_cast<std::size_t>(sheet)];
        const bool by_moving = Given() ? Area_Given(side_.moving) : sheet == 0;
        const Point point = Given() ? Points()[static_cast<std::size_t>(sheet)] : Point(number[0], number[1]);
        if (Count() == 3) return by_moving ? Dyad_Of_Moving(carried_, point) : Dyad_Of_Fixed(carried_, point);
        return by_moving ? Dyad_Of_Moving(carried_, point, number[2]) : Dyad_Of_Fixed(carried_, point, number[2]);
    }

    /// So many that lie within the limits, or as many as are found.
    std::vector<Choice> Choices(std::size_t wanted, std::size_t first) const {
        constexpr std::size_t kTries = 200;
        std::vector<Choice> choices;
        const auto sheets = static_cast<std::size_t>(Sheets());
        const bool counted = Count() == 5 || (Count() == 3 && Given());
        const std::size_t tries = counted ? sheets : sheets == 0 ? 0 : wanted * kTries;
        for (std::size_t i = 0; i < tries && choices.size() < wanted; ++i) {
            Choice choice = Drawn(static_cast<int>(i % sheets), first + i / sheets);
            const auto dyad = Dyad_At(choice.sheet, choice.number.data());
            if (!dyad || !Within(*dyad)) continue;
            choice.dyad = *dyad;
            choices.push_back(choice);
        }
        return choices;
    }

   private:
    static bool Area_Given(const Area& area) { return area.is == Area::Is::kPoints; }
    static double Diagonal(const Box& box) { return Distance(box.low, box.high); }
    std::size_t Count() const { return carried_.size(); }
    bool Given() const { return Area_Given(side_.fixed) || Area_Given(side_.moving); }
    const std::vector<Point>& Points() const {
        return Area_Given(side_.fixed) ? side_.fixed.points : side_.moving.points;
    }

    Choice Drawn(int sheet, std::size_t index) const {
        // Links that hardly turn have their centres at infinity.
        constexpr double kLeast = 0.02;
        const double turn = kTurn * (kLeast + (1 - 2 * kLeast) * Even_Third(index));
        if (Count() == 4) return {sheet, {turn}, {}};
        const Box& box = sheet == 0 ? moving_ : fixed_;
        const Point part = Even_Point(index), extent = box.high - box.low;
        return {sheet,
                {box.low.real() + part.real() * extent.real(), box.low.imag() + part.imag() * extent.imag(), turn},
                {}};
    }

    bool Within(const Dyad& dyad) const {
        const double length = Distance(dyad.fixed, dyad.moving);
        return side_.fixed.Holds(dyad.fixed) && side_.moving.Holds(dyad.moving) && length >= task_.shortest &&
               length <= task_.longest;
    }

    const Task& task_;
    const Side& side_;
    std::vector<Carried> carried_;
    Box fixed_, moving_;
    std::optional<Burmester> curves_;
    std::vector<Dyad> five_;
};

class Motion : public Problem {
   public:
    explicit Motion(const Task& task)
        : judge_(task),
          left_(judge_.The_Task(), judge_.The_Task().left, judge_.Positions()),
          right_(judge_.The_Task(), judge_.The_Task().right, judge_.Positions()) {
        // Both sides draw other numbers, so that a pair of equal sides has no dyad twice.
        constexpr std::size_t kApart = 1U << 20U;
        const std::size_t most = kFirst << (Rounds() - 1);
        lefts_ = left_.Choices(most, 0);
        rights_ = right_.Choices(most, kApart);
    }

    std::size_t Rounds() const override { return 5; }
    std::size_t Coarse_Rounds() const override { return 2; }
    std::size_t Chunks(std::size_t round) const override { return std::min(lefts_.size(), kFirst << round); }

    /// A chunk is one left dyad with all right ones that it has not met.
    void Each(std::size_t round, std::size_t chunk, const Take& take) const override {
        const std::size_t before = round == 0 ? 0 : kFirst << (round - 1);
        const std::size_t end = std::min(rights_.size(), kFirst << round);
        for (std::size_t i = chunk < before ? before : 0; i < end; ++i) {
            if (lefts_[chunk].dyad == rights_[i].dyad) continue;
            Genes genes = Genes_Of(lefts_[chunk], rights_[i]);
            const auto offer = [&](bool left_drives) {
                genes.sheet[0] = lefts_[chunk].sheet * 2 + (left_drives ? 1 : 0);
                take(genes, Pair(lefts_[chunk].dyad, rights_[i].dyad, left_drives));
            };
            if (judge_.The_Task().drive != Drive::kRight) offer(true);
            if (judge_.The_Task().drive != Drive::kLeft) offer(false);
        }
    }

    std::optional<FourBar> Linkage_Of(const Genes& genes) const override {
        const auto left = left_.Dyad_At(genes.sheet[0] / 2, genes.number.data());
        const auto right = right_.Dyad_At(genes.sheet[1], genes.number.data() + left_.Free());
        if (!left || !right) return {};
        return Pair(*left, *right, genes.sheet[0] % 2 == 1);
    }

    Judgement Judge_Of(const FourBar& linkage) const override { return judge_.Of(linkage); }
    bool Either_Crank() const override { return judge_.The_Task().drive == Drive::kEither; }
    double Neighbourhood() const override {
        constexpr double kSpans = 0.25;
        return Freely() ? kSpans * Span_Of(judge_.The_Task()) : 0;
    }

    std::string No_Candidates() const override {
        if (judge_.Positions().size() == 5) {
            if (left_.Sheets() == 0)
                return "No dyad goes through these five positions: move or turn one of them, or leave one out.";
            if (left_.Sheets() == 1)
                return "Only one dyad goes through these five positions, and a four-bar takes two: move or turn one of "
                       "them, or leave one out.";
        }
        for (const auto& [choices, name] : {std::pair(&lefts_, "left"), std::pair(&rights_, "right")})
            if (choices->empty())
                return std::string("No dyad of the ") + name +
                       " link lies within its limits: widen the places of its pivots, or allow other lengths.";
        return "";
    }

   private:
    static constexpr std::size_t kFirst = 32;

    bool Freely() const { return left_.Free() > 0; }

    FourBar Pair(const Dyad& left, const Dyad& right, bool left_drives) const {
        const Point coupler = judge_.Positions().front().from;
        return left_drives ? FourBar{left, right, coupler, true} : FourBar{right, left, coupler, false};
    }

    Genes Genes_Of(const Choice& left, const Choice& right) const {
        Genes genes;
        const std::size_t free = left_.Free();
        genes.count = 2 * free;
        genes.sheet[1] = right.sheet;
        for (std::size_t i = 0; i < free; ++i) {
            genes.number[i] = left.number[i];
            genes.number[free + i] = right.number[i];
            genes.step[i] = left_.Step(i);
            genes.step[free + i] = right_.Step(i);
        }
        return genes;
    }

    Judge judge_;
    Family left_, right_;
    std::vector<Choice> lefts_, rights_;
};

}  // namespace

std::unique_ptr<Problem> Motion_Problem(const Task& task) { return std::make_unique<Motion>(task); }

std::unique_ptr<Problem> Problem_Of(const Task& task) { return Motion_Problem(task); }

}  // namespace verlink::design
