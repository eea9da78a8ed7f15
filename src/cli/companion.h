#pragma once
// The companion `tally`: the program's core run from a shell. Questions are answered by flags;
// every message box is printed to the error stream.

#include <iosfwd>
#include <string>
#include <vector>

namespace tt::cli {

// Runs one command line (without the program name). Returns the exit status: 0 success,
// 1 failed or refused, 2 bad usage.
int RunTally(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace tt::cli
