// verlink-batch: a model in, its table and picture out, without a display.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace verlink {

/// The whole program, given its arguments without the program's name. Expects the record as it is at the start of a
/// process. The exit status: 0 done, 1 when the model cannot be read, is refused, closes nowhere, or a file cannot
/// be written, 2 for wrong usage.
int Batch_Main(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace verlink
