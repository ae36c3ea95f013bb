// What is said of a linkage that does not do a task.
#include "core/numeric.h"
#include "core/text.h"
#include "design/judge.h"
#include "dynamics/shown_length.h"

namespace verlink::design {

namespace {

std::string Length_Words(double length, const Task& task) {
    const ShownLength shown = Shown_Length(task.units);
    return Text_Of(FNRound(length, shown.decimals)) + " " + shown.unit;
}

std::string Degrees(double degrees) { return Text_Of(FNRound(degrees, 1)) + " degrees"; }

std::string Both(const Judgement& j) { return std::to_string(j.from) + " and " + std::to_string(j.to); }

std::string Length_Refused(const Judgement& j, const Task& task) {
    if (j.amount == 0) return "A link has no length.";
    const bool is_short = j.amount < task.shortest;
    return std::string("A link is ") + Length_Words(j.amount, task) + " long, " + (is_short ? "shorter" : "longer") +
           " than the " + Length_Words(is_short ? task.shortest : task.longest, task) + " of the task.";
}

}  // namespace

std::string Words_Of(const Judgement& j, const Task& task) {
    switch (j.refusal) {
        case Refusal::kNone: return "";
        case Refusal::kLength: return Length_Refused(j, task);
        case Refusal::kUnlike:
            return "The longest link is " + Text_Of(FNRound(j.amount, 0)) + " times as long as the shortest.";
        case Refusal::kPivot: return "A pivot lies outside the place that it is given.";
        case Refusal::kCircuit:
            return "Positions " + Both(j) +
                   " lie on different circuits: the linkage jumps, and would have to be taken "
                   "apart between them.";
        case Refusal::kBranch:
            return "Between positions " + Both(j) + " lies a toggle, through which the crank cannot drive the linkage.";
        case Refusal::kStands: return "The crank stands still between positions " + Both(j) + ".";
        case Refusal::kOrder:
            return "The crank, turning one way, passes the positions in another order: after position " +
                   std::to_string(j.from) + " it comes to another one before position " + std::to_string(j.to) + ".";
        case Refusal::kGap:
            return "The loop does not close between positions " + Both(j) +
                   ": the crank cannot go from one to the "
                   "other.";
        case Refusal::kFullTurn: return "The crank cannot turn fully.";
        case Refusal::kTransmission:
            return "The transmission angle falls to " + Degrees(j.amount) + ", below " +
                   (task.transmission > j.amount ? "the " + Degrees(task.transmission) + " of the task."
                                                 : "two degrees: the linkage jams.");
        case Refusal::kDigits:
            return "Seven digits do not hold the positions: the coupler point misses one by " +
                   Text_Of(Single(j.amount)) + " " + Shown_Length(task.units).unit + ".";
    }
    return "";
}

const char* Words_Of(Refusal refusal) {
    constexpr const char* kWords[] = {"nothing is wrong",
                                      "a link is too short or too long",
                                      "the links are too different in length",
                                      "a pivot lies outside its place",
                                      "the positions lie on different circuits",
                                      "a toggle lies between positions",
                                      "the crank stands between positions",
                                      "the positions come in another order",
                                      "the loop does not close on the way",
                                      "the crank cannot turn fully",
                                      "the transmission angle is too small",
                                      "seven digits do not hold the positions"};
    static_assert(std::size(kWords) == kRefusals);
    return kWords[static_cast<int>(refusal)];
}

const char* Advice_On(Refusal refusal) {
    switch (refusal) {
        case Refusal::kLength: return "allow shorter or longer links";
        case Refusal::kUnlike: return "move the pivots' places nearer to the positions";
        case Refusal::kPivot: return "widen the places of the pivots";
        case Refusal::kCircuit:
        case Refusal::kBranch:
        case Refusal::kGap: return "widen the places of the pivots, or turn the positions less";
        case Refusal::kStands:
        case Refusal::kOrder: return "give the positions in another order, or widen the places of the pivots";
        case Refusal::kFullTurn: return "do without the full turn of the crank";
        case Refusal::kTransmission: return "allow a smaller transmission angle";
        case Refusal::kDigits:
        case Refusal::kNone: break;
    }
    return "move a position a little";
}

}  // namespace verlink::design
