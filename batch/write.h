// How what verlink-batch has made gets to its file.
#pragma once

#include <ostream>
#include <string>

#include "batch/printout.h"

namespace verlink {

struct Made {
    std::string path, content;
    bool table = false;
};

/// To its file whole, with signals held back meanwhile, or to standard output. False, with a line on the stream, when
/// it cannot be written; a reader who has gone is no failure here.
bool Write_Result(const Made& made, Printout& print, std::ostream& err);

/// A model's text as Save writes it.
bool Save_Model(const std::string& path, const std::string& content, Printout& print, std::ostream& err);

}  // namespace verlink
