// How checks become rows.
#include "batch/check.h"

#include "batch/csv.h"
#include "checks/words.h"

namespace verlink {

std::string Check_Csv(const std::vector<Check>& checks) {
    std::string table = "Check,Verdict,Worst,Expected,Unit,Where,Meaning\n";
    for (const Check& check : checks)
        table += Csv_Field(check.name) + ',' + Words_Of(check.verdict) + ',' + Check_Number(check.worst) + ',' +
                 Check_Number(check.expected) + ',' + Csv_Field(check.unit) + ',' + Csv_Field(check.where) + ',' +
                 Csv_Field(check.meaning) + '\n';
    return table;
}

int Check_Status(const std::vector<Check>& checks) { return Any_Fails(checks) ? 3 : 0; }

}  // namespace verlink
