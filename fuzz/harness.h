// What the fuzz targets share: a program without screens, what it told, and checks that end the process.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace verlink::fuzz {

/// The record as at the start of the process, with nothing told yet. No screen is known, so that whatever is read
/// goes into the record alone.
void Start_Afresh();

/// The messages told since, as the user would see them.
const std::vector<std::string>& Told();

/// Ends the process, with the words, when something does not hold: that is a finding.
void Check(bool holds, std::string_view words);

/// Each message is a failure report of one of these procedures, by one of the numbers that a file can cause, or one of
/// the refusals.
void Check_Told(const std::vector<std::string>& procedures, const std::vector<std::string>& refusals);

/// What holds of the record whatever was read: numbers are finite, the circuit has a sign, a count of cycles and a
/// zoom there are.
void Check_Record();

/// What holds of a record that was read whole: run type and unit system exist, derived values follow, and the model
/// file written from it reads as the same model, to the digits of the notation; a second round changes nothing.
void Check_Whole();

/// What holds after drive data of that run type, read whole or not.
void Check_Drive(bool read, int Calctype);

/// The program goes on: a short run of whatever was read comes to its end. A drive that was read stays as it was.
void Check_Run();

}  // namespace verlink::fuzz
