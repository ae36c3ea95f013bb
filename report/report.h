// What a report says: chapters of texts, tables and pictures, however they are set.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace verlink {

struct Report_Heading {
    std::string words;
};

struct Report_Text {
    std::string words;
};

/// Rows of texts, all as long as the longest; what they lack is empty.
struct Report_Table {
    /// Of the columns; empty for a table whose first column says what stands beside it.
    std::vector<std::string> heads;
    std::vector<std::vector<std::string>> rows;
    /// From this column on, from 0, so many columns are numbers.
    int first_number = 1, numbers = 1;
};

/// A vector picture.
struct Report_Picture {
    std::string svg;
    double wide = 0, high = 0;  ///< on the paper, millimetres
    std::string caption;        ///< under it
};

using Report_Piece = std::variant<Report_Heading, Report_Text, Report_Table, Report_Picture>;

struct Report_Chapter {
    std::string title;
    std::vector<Report_Piece> pieces;
};

struct Report {
    std::string title;
    Report_Table block;  ///< whose it is, under the title
    std::vector<Report_Chapter> chapters;
    std::string foot;  ///< of each page
};

}  // namespace verlink
