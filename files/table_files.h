// Saving tables and drawings: their dialogs, and the one way by which each is written.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "files/sheet.h"

namespace verlink {

/// What is to be saved: the table with a row for each so many steps, made when the user has chosen how many.
struct Table_To_Save {
    std::function<Sheet(int every)> sheet;
    int every = 1;  ///< as the table has them; the dialog offers every step as well
    std::vector<Sheet_Fact> model;
    std::string author;
    std::string name;  ///< of the file, without its end
};

/// Asks where to and as what, and writes it. What cannot be written is told.
void Save_Table(const Table_To_Save& table);
/// The list of the dialog: "words|pattern|" for a workbook, commas and tabs, each with every step and every so many.
std::string Table_Filter(int every);

/// Asks where to, and writes the content of a drawing, which is made after the asking.
void Save_Drawing(const std::function<std::string()>& content, const std::string& name);

}  // namespace verlink
