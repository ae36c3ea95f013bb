// What the checks found.
#include "checks/check.h"
#include "checks/words.h"
#include "report/pieces.h"

namespace verlink::report {

Pieces Check_Pieces(const LinkageModel& model) {
    const std::vector<Check> checks = Checks_Of(model);
    Report_Table table{{"Check", "Verdict", "Worst", "Expected", "Unit", "Where"}, {}, 2, 2};
    Pieces meanings;
    for (const Check& check : checks) {
        table.rows.push_back({check.name, Words_Of(check.verdict), Check_Number(check.worst),
                              Check_Number(check.expected), check.unit, check.where});
        if (check.verdict != Verdict::kGood) meanings.emplace_back(Report_Text{check.name + ": " + check.meaning});
    }
    Pieces pieces{Report_Text{Summary_Of(checks)}, std::move(table)};
    pieces.insert(pieces.end(), meanings.begin(), meanings.end());
    return pieces;
}

}  // namespace verlink::report
