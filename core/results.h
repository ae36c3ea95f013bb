// The owner of the flags of results: what holds, and what falls with what.
#pragma once

#include <string>

namespace verlink {

/// The run in `RunTable` is that of the model as it stands, and counts. What was found out from an earlier run falls.
void Run_Holds();
/// The run that stands, if one does, counts from now on: the user has acted.
void Run_Counts();
/// The input screen is up: the run that stands counts again only from the user's next action.
void Run_Held_Back();
/// The model is another, or its run failed: nothing that was found of the old one holds, and a run that is being
/// made is yet to hold.
void Run_Dropped();

/// Pin forces and torques of the whole run that stands, by the masses and loads as they stand.
void Forces_Hold();
/// Falls with a run, and with any change of masses or loads; balance and transform fall too.
void Forces_Dropped();

void Balance_Holds();
void Balance_Dropped();

void Transform_Holds();
void Transform_Dropped();

/// The model lies in `FilePath` as it stands; or no longer does.
void Model_Saved();
void Model_Unsaved();
/// The text of a task becomes one of the record's; its file has it, too.
void Take_Task_Text(std::string& kept, const std::string& text);

}  // namespace verlink
