#pragma once
// The program's own command line: a race card to open at once, the odds board for the room, and
// the answers on the console (--help, --version) that need no screen.

#include <QStringList>
#include <string>
#include <vector>

namespace tt {

struct ProgramArguments {
    std::string file;      // a card to open instead of showing the chooser; empty: none
    bool board = false;    // --board
    bool help = false;     // --help: the help text goes to stdout
    bool version = false;  // --version
    std::string error;     // bad usage: the parser's complaint
};

// One option or argument as the help text and the manual page show it.
struct ProgramOptionHelp {
    std::string names;  // "-h, --help", or "FILE" for the argument
    std::string description;
};

// Reads the words of the command line, the program's name first.
ProgramArguments ParseProgramArguments(const QStringList& words);
// "tamberlin-tally 2.1.0".
std::string ProgramVersionText();
// What --help prints.
std::string ProgramHelpText();
// The pieces of the help, for the manual page.
std::string ProgramSynopsis();
std::string ProgramSummary();
std::vector<ProgramOptionHelp> ProgramArgumentHelp();
std::vector<ProgramOptionHelp> ProgramOptionsHelp();

// A card named on the command line is opened as the chooser opens a recent file. Returns
// whether a card is open afterwards; a card that cannot be read has had its message.
bool OpenFileArgument(const std::string& path);

}  // namespace tt
