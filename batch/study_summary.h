// What a study comes to, as tables and as what a part hands on.
#pragma once

#include <string>
#include <vector>

#include "study/summary.h"

namespace verlink {

/// A row for each number of the summary: the measure, what it is a number of, where, and the number. Counts of the
/// study first; then of each measure how many linkages have none, mean and standard deviation, quantiles, a histogram
/// of twenty equal bins from the least value to the greatest by their lower bounds, and the ten lowest and highest with
/// their linkages.
std::string Summary_Csv(const std::vector<std::string>& measures, const study::Summary& summary);

/// The line above what a part hands on, and what it hands on in lines; back again, false for lines that are none.
std::string Summary_Head(const std::vector<std::string>& measures);
std::string Summary_Text(const study::Summary& summary, const std::vector<float>& nominal);
/// `lines` are those of one part; what it has comes to what is in the summary already, if there is one.
bool Take_Summary(const std::vector<std::string>& lines, std::optional<study::Summary>& summary);
bool Is_Summary(const std::string& head);
/// The measures of such a line.
std::vector<std::string> Measures_Of(const std::string& head);

/// A row for each measure and tolerance.
std::string Sensitivity_Csv(const study::Bench& bench);

}  // namespace verlink
