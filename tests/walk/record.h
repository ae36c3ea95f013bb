// The record and the screens in words, so that two moments can be compared and what differs be named.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/linkage_model.h"
#include "platform/screen.h"

namespace verlink::walk {

using Words = std::vector<std::pair<std::string, std::string>>;

/// Every digit of it.
std::string Word_Of(double value);

/// What the user has made: the fields of the model file, geometry, drive, loads, synthesis, units and flags.
Words Record_Words();
/// What stands on a screen: texts, captions, choices, what is open and what is shown, how much is drawn.
Words Screen_Words(const platform::Screen& screen);

/// The names that have another value in the second, each with both, up to a few.
struct Difference {
    std::string names;   ///< alone, for telling findings apart
    std::string values;  ///< with what they were and what they are
    bool Any() const { return !names.empty(); }
};
Difference Compare(const Words& before, const Words& after);

/// The arrays of results that differ at steps 0 to `last`.
/// Of forces: with the mass centres that were solved for last, or `kLoads` alone.
enum class Results { kMotion, kForces, kLoads, kBalance, kAll };
Difference Compare_Results(const RunResults& before, const RunResults& after, int last, Results which);
/// The first step at which an array of the motion differs, or -1; and whether all of it from a step on is empty.
int First_Difference(const RunResults& before, const RunResults& after, int last);
bool Empty_From(const RunResults& table, int step, int last);

}  // namespace verlink::walk
