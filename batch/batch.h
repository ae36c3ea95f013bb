// verlink-batch: a model in, its table and picture out, without a display.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace verlink {

/// The terminal that messages go to.
struct Terminal {
    int columns = 0;            ///< 0 for none
    bool takes_output = false;  ///< whether standard output is one too
};

/// What a process ends with in the eyes of a shell when it writes into a pipe that nobody reads.
inline constexpr int kNobodyReads = 141;
/// What it ends with by itself.
inline constexpr int kDone = 0, kFailed = 1, kWrongUsage = 2;

/// The whole program, given its arguments without the program's name. The record is made afresh for each model. The
/// exit status: 0 done, 1 when a model cannot be read, is refused, closes nowhere, or a file cannot be written, 2 for
/// wrong usage, 3 when a check of the results fails, 141 when somebody who reads the results has gone, which is not
/// told. With a terminal, several models show how far they are.
int Batch_Main(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err, Terminal terminal = {});

}  // namespace verlink
