// What a check of the results found.
#pragma once

#include <string>
#include <vector>

namespace verlink {

struct LinkageModel;

/// `kByDesign`: what is off is what the program leaves out or takes in its own way, and no more.
enum class Verdict { kGood, kByDesign, kFails };

struct Check {
    std::string name;
    double worst = 0;  ///< the largest departure; of a check that fails, the one that is most beyond what is expected
    double expected = 0;  ///< the largest that is expected of single precision there
    std::string unit;     ///< of both
    std::string where;    ///< step, crank angle and what of it; empty for none
    Verdict verdict = Verdict::kGood;
    std::string meaning;  ///< one sentence or two
};

/// All that can be checked of the results that stand: of the run, and of forces, balance and transform as far as they
/// hold; of cognates, and of a linkage that was synthesised. None where no run stands. The formulas share nothing with
/// those that made the numbers, and everything is computed in double precision; what is expected is four times what the
/// rounding of each of the solver's own operations adds up to, to first order, unless `meaning` says otherwise. Beside
/// sizes beyond 1E+12 and angles beyond 1E+06 there is one check alone, which names them. Nothing is changed.
std::vector<Check> Checks_Of(const LinkageModel& model);

/// Whether one of them fails.
bool Any_Fails(const std::vector<Check>& checks);

}  // namespace verlink
