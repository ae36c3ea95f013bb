// What a benchmark starts from: the program as it stands after its start, on a desktop that nobody looks at.
#pragma once

#include <string>

namespace verlink::bench {

/// Starts the program once, in a folder of its own that goes away with the process; later calls do nothing.
void Start_Program();
/// A path in that folder.
std::string Scratch(const std::string& name);

/// The default linkage, to be run at so many steps over so many turns of the crank.
void Take_Default_Linkage(int steps, int turns = 2);
/// Runs it by angle (3) or in time (2).
void Run(int mode = 3);

/// Seconds that this thread has had a processor: others on the machine do not count.
double Processor_Time();

}  // namespace verlink::bench
