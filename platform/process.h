// Processes as a later start can tell them apart: one that runs from one that is dead and whose number another has.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace verlink::platform {

/// A process of this machine since it was switched on.
struct Process {
    long number = 0;
    unsigned long long start = 0;  ///< clock ticks from when the machine was switched on; 0 for unknown
    unsigned boot = 0;             ///< the beginning of the mark that the system gives to each time that it starts
    bool operator==(const Process&) const = default;
};

Process This_Process();

/// "NUMBER-START-BOOT", fit for the name of a file, and back; nothing for any other text.
std::string Name_Of(const Process& process);
std::optional<Process> Process_Of(std::string_view name);

/// Whether it still runs. One that has ended and was not yet waited for by its parent does not.
bool Runs(const Process& process);

}  // namespace verlink::platform
