// How the worst is kept and told.
#include "checks/worst.h"

#include <cmath>
#include <utility>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"

namespace verlink::checks {

namespace {

/// The roundings of each operation are followed to first order; where they meet, a few times as much can be left.
constexpr double kFirstOrder = 4;

}  // namespace

void Worst::Take(Found found) {
    if (!std::isfinite(found.expected)) return;
    any_ = true;
    // Below what a single can hold nothing counts.
    constexpr double kNothing = 1e-38;
    found.ratio = std::isfinite(found.departure) ? found.departure / (found.expected + kNothing) : HUGE_VAL;
    if (found.ratio > most_beyond_.ratio) most_beyond_ = found;
    if (largest_.ratio < 0 || found.departure > largest_.departure) largest_ = found;
}

void Worst::Add(double departure, double expected, int step, const char* place) {
    Take({departure, kFirstOrder * expected, step, place});
}

void Worst::Add_By_Design(double departure, double expected, double design, int step, const char* place) {
    if (design <= kFirstOrder * expected) return Add(departure, expected, step, place);
    // Departure is what is left when the design is taken out.
    Take({departure, kFirstOrder * expected, step, place});
    if (design > design_.departure) design_ = {design, kFirstOrder * expected, step, place};
}

Check Worst::Told(const LinkageModel& model, std::string meaning, const std::string& design) const {
    Check check;
    check.name = name_;
    check.unit = unit_;
    const bool fails = Fails(), by_design = !fails && design_.departure > 0;
    const Found& told = fails ? most_beyond_ : by_design ? design_ : largest_;
    check.worst = told.departure;
    check.expected = told.expected;
    check.verdict = fails ? Verdict::kFails : by_design ? Verdict::kByDesign : Verdict::kGood;
    check.where = Place_Of(model, told.step);
    if (*told.place) check.where += (check.where.empty() ? "" : ", ") + std::string(told.place);
    check.meaning = std::move(meaning);
    if (by_design) check.meaning += " " + design;
    return check;
}

std::string Place_Of(const LinkageModel& model, int step) {
    if (step < 0) return "";
    return "step " + std::to_string(step) + ", " + Text_Of(FNRound(model.RunTable.Theta(step, 0), 2)) + " deg";
}

}  // namespace verlink::checks
