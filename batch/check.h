// The checks of a run as text.
#pragma once

#include <string>
#include <vector>

#include "checks/check.h"

namespace verlink {

/// A header line and a row for each check; no row where there are no results. Lines end in LF.
std::string Check_Csv(const std::vector<Check>& checks);

/// 3 when one of them fails, else 0.
int Check_Status(const std::vector<Check>& checks);

}  // namespace verlink
