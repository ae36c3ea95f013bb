// Studies of verlink-batch: rows as they are solved, parts of a study, and parts put together.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "batch/options.h"
#include "batch/printout.h"

namespace verlink {

/// What a shell tells of a process that an interrupt has ended.
inline constexpr int kStopped = 130;

/// The study of the model in the record, to standard output or to the file of --csv: a head, and a row for each
/// linkage that is kept, in the order of their numbers, the same bytes with any number of threads. With columns of a
/// terminal it shows how far it is. The exit status: 0 done, 1 for a model or a file that fails, 2 for options that
/// do not fit the model, 130 when a signal has stopped it, after a line that says what is there.
int Run_Study(const BatchOptions& options, Printout& print, std::ostream& err, int columns);

/// Puts parts of one study together, in whatever order they are given; the result is the bytes of one call. 1, after a
/// line that says which, when one is missing, given twice, of another study or breaks off.
int Merge_Parts(const std::vector<std::string>& parts, const std::string& out, std::ostream& err);

/// The line in front of the head of a part, and that behind its rows.
struct Part_Lines {
    std::string begin, end;
};
Part_Lines Lines_Of_Part(std::uint64_t study, std::uint64_t shard, std::uint64_t shards, std::uint64_t all);

}  // namespace verlink
