// What is to be done with the linkage, and kept beside its file.
#pragma once

#include <string>

namespace verlink {

/// Each is JSON as the file NAME.vld has it, or empty where nothing was set. Rooms above read and write them.
struct Tasks {
    std::string DesignTask;     ///< the positions that linkages are looked for
    std::string StudySettings;  ///< what moves, and what is measured
};

}  // namespace verlink
