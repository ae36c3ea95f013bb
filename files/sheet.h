// Tables of numbers that leave the program for spreadsheets: what one holds, and how it becomes a file.
#pragma once

#include <limits>
#include <string>
#include <variant>
#include <vector>

#include "core/number.h"

namespace verlink {

/// The number that has the fewest digits among those that round to this one: a stored 0.1 is 0.1.
double Decimal_Of(Single value);

inline constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

struct Sheet_Column {
    // Heads, from the top; what they lack is empty.
    std::string name, component, unit;
    std::vector<double> values = {};  ///< by row; what is not a number is an empty cell
    // Of all steps of the run, whether they have a row or not; no numbers where there is none.
    double least = kNoNumber, mean = kNoNumber, most = kNoNumber;
    int decimals = 3;  ///< as a spreadsheet shows them; the number itself has all of its digits
};

struct Sheet {
    std::string name;                   ///< at most 31 letters, without :\/?*[]
    std::vector<Sheet_Column> columns;  ///< the first says where a row stands
    bool statistics = false;            ///< of all columns but the first
};

/// What there is to know of a model, one by one.
struct Sheet_Fact {
    std::string what;
    std::variant<std::string, double> value;
    std::string unit;
};

enum class Sheet_Kind { kXlsx, kCsv, kTabs };
/// By the end of a path: .csv; .txt, .tsv or .dat for tabs; else a workbook.
Sheet_Kind Sheet_Kind_Of(const std::string& path);

/// A line of heads, each with its unit in brackets, and a line for each row, all numbers with all of their digits.
std::string Separated_Text(const Sheet& sheet, char separator);
/// A workbook of two sheets: the table with its heads, statistics and rows, the heads frozen, and the model. A failure
/// when the space for the making of it does not suffice.
std::string Workbook(const Sheet& sheet, const std::vector<Sheet_Fact>& model, const std::string& author);

/// A whole file of that kind.
std::string Sheet_File(Sheet_Kind kind, const Sheet& sheet, const std::vector<Sheet_Fact>& model,
                       const std::string& author);

}  // namespace verlink
