// The file of the tasks that are kept beside a model: NAME.vld beside NAME.vlk, JSON.
#pragma once

#include <string>

#include "core/record/tasks.h"

namespace verlink {

/// The one that goes with the model in this file.
std::string Tasks_Path(const std::string& model_path);

/// Both tasks as one text: that of design, and under its key "studies" the settings of studies. Empty where nothing is
/// set.
std::string Tasks_Text(const Tasks& tasks);

/// Takes such a text apart; whether each task is sound is seen by who uses it. False, and the fault in words, for what
/// is none of the program's or was written by a newer one; `tasks` is as it was then.
bool Take_Tasks(const std::string& text, Tasks& tasks, std::string& fault);

/// What lies beside a model's file.
struct Tasks_Found {
    Tasks tasks;
    std::string text;   ///< the file's
    std::string fault;  ///< why it could not be read; empty where it could, or there is none
};
Tasks_Found Find_Tasks(const std::string& model_path);

/// Writes the tasks beside the model's file and gives back what lies there then; where nothing is set any more the file
/// goes. `known` is what was last read or written there: a file with another content is not replaced, but kept under
/// the first free of `path~`, `path~~` and so on, and that is said. One that could not be read (`unread`) and has
/// nothing to make room for stays. Failures as `Write_File` and `Read_File`.
std::string Write_Tasks(const Tasks& tasks, const std::string& model_path, const std::string& known, bool unread);

}  // namespace verlink
