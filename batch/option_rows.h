// The options of verlink-batch as a table: reading, usage, help and the completion of the shell go by it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "batch/options.h"

namespace verlink {

struct OptionRow {
    std::string group;  ///< its title in the help
    std::string name;   ///< with both hyphens
    std::string value;  ///< what stands for its value; empty for an option that takes none
    std::string words;  ///< of the help, in lines of 64 letters
    /// Takes the value, which is empty where none is taken. False, with the fault, when it is refused.
    std::function<bool(const std::string& value, BatchOptions& options, std::string& fault)> take;
    std::string usage{};  ///< how it stands in the usage, where that is not the name and the value
};

/// Group by group.
const std::vector<OptionRow>& Option_Rows();

}  // namespace verlink
