// Whether a linkage does a task, and how well.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "design/linkage.h"

namespace verlink::design {

/// Why a linkage does not do it; in the order in which it is asked.
enum class Refusal {
    kNone,
    kLength,        ///< a link without length, or shorter or longer than the task allows
    kUnlike,        ///< links of which one is hundreds of times as long as another
    kPivot,         ///< a pivot lies where it may not
    kCircuit,       ///< positions lie on both circuits: it would have to be taken apart
    kBranch,        ///< positions lie on one circuit with a toggle between them
    kStands,        ///< the crank stands between two positions
    kOrder,         ///< turning one way, the crank passes the positions in another order
    kGap,           ///< the loop does not close on the way
    kFullTurn,      ///< the crank cannot turn fully
    kTransmission,  ///< the transmission angle falls below what the task asks, or below two degrees
    kDigits,        ///< the program's seven digits do not hold the positions
};
inline constexpr int kRefusals = static_cast<int>(Refusal::kDigits) + 1;

/// The largest departures at the positions.
struct Miss {
    bool closes = true;  ///< at all of them; the rest means nothing else
    double place = 0;    ///< of the coupler point, unit of the task
    double angle = 0;    ///< of the coupler, degrees
};

struct Judgement {
    Refusal refusal = Refusal::kNone;
    int from = 0, to = 0;  ///< the positions that a refusal is about, 1 to 5; 0 for none
    double amount = 0;     ///< what it is, where that is a number: a length, a transmission angle or a departure

    // The rest is known of what is not refused.
    bool open = false;              ///< the circuit
    std::array<double, 5> crank{};  ///< its angle at each position, global, radians, going on one way
    Class kind = Class::kNone;
    double transmission = 0;  ///< smallest on the stroke, degrees; over the full turn where that is asked
    double proportion = 1;    ///< longest over shortest link
    Box room{};               ///< what the mechanism takes on its stroke
    Miss miss;                ///< with lengths in single precision, by the program's own formulas
    Miss rounded;             ///< with lengths and angles rounded as the boxes of the linkage show them
    double score = 0;         ///< 0 to 100

    bool Good() const { return refusal == Refusal::kNone; }
};

/// Judges linkages whose dyads fit the positions of a task exactly. Safe to use from several threads.
class Judge {
   public:
    explicit Judge(const Task& task);
    Judgement Of(const FourBar& linkage) const;
    const Task& The_Task() const { return task_; }
    const std::vector<Carried>& Positions() const { return carried_; }

   private:
    struct Case;
    void Ask_Links(Case& c) const;
    void Ask_Pivots(Case& c) const;
    void Ask_Circuits(Case& c) const;
    void Ask_Stroke(Case& c) const;
    void Ask_Stroke(Case& c, double way) const;
    void Ask_Digits(Case& c) const;
    void Score(Case& c) const;

    Task task_;
    double span_;
    std::vector<Carried> carried_;
};

/// The departures of a linkage at crank angles (radians, global), by the formulas and roundings of core: its lengths
/// and angles are stored as singles, and rounded before to so many decimals as the boxes show when `as_shown`.
Miss Miss_Of(const FourBar& linkage, bool open, const std::vector<Carried>& positions, std::span<const double> crank,
             int units, bool as_shown);

/// The refusal in a sentence, lengths in the task's unit; empty for what is good.
std::string Words_Of(const Judgement& judgement, const Task& task);
/// What such refusals have in common, for a count of them: "the transmission angle is too small".
const char* Words_Of(Refusal refusal);
/// What to loosen where nothing is found and most fail by it.
const char* Advice_On(Refusal refusal);

}  // namespace verlink::design
