#pragma once
// The manual pages of `tally` and of the program, written from their own help texts, so that a
// new command or option is in the manual as soon as it is in the help.

#include <string>

namespace tt::cli {

// A help text as `tally COMMAND --help` prints it, in the man macros: the usage line, the
// paragraphs, and each "Title:" section's rows as tagged paragraphs.
std::string RoffOfHelp(const std::string& help);

// tally(1): the command list, then every command's help. DATE heads the page ("2026-11-23").
std::string TallyManPage(const std::string& date);
// tamberlin-tally(1): the program's own options.
std::string ProgramManPage(const std::string& date);

}  // namespace tt::cli
