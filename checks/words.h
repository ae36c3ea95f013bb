// Checks in words, as every place that tells of them says it.
#pragma once

#include <string>
#include <vector>

#include "checks/check.h"

namespace verlink {

/// Three digits, which are enough for a departure, in any locale: "0.000123", "1.2E-07", "INF".
std::string Check_Number(double value);
/// "good", "by design", "fails".
std::string Words_Of(Verdict verdict);
/// "All 21 checks are good.", "2 of 21 checks fail.", or what there is to do first.
std::string Summary_Of(const std::vector<Check>& checks);

}  // namespace verlink
