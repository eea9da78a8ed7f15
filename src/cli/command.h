#pragma once
// A command of the companion `tally`: its name, its line in the command list, its own options
// and arguments, its help, and the function that runs it. Each command lives in a file of its
// own (`*_command.cpp`) whose maker companion.cpp declares and lists.

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QStringList>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace tt::cli {

// What a command runs with. The parser holds the command's options; its positional arguments
// are the words after `tally`, the command's name first, so the card is the second.
struct Context {
    QCommandLineParser& parser;
    std::ostream& out;
    std::ostream& err;
};

// A positional argument as the help shows it.
struct Argument {
    std::string name;
    std::string description;
};

struct Command {
    // The word after `tally`.
    std::string name;
    // One short sentence: the command's line in `tally --help` and the top of its own help.
    std::string summary;
    // The command line after "usage: tally NAME ", required options included.
    std::string synopsis;
    std::vector<Argument> arguments;
    // Besides -h and --help, which every command has.
    QList<QCommandLineOption> options;
    // Anything the option lines cannot say; printed last. May be empty.
    std::string details;
    // Runs the command: 0 success, 1 failed or refused, -1 bad usage (the usage is printed).
    std::function<int(Context&)> run;

    // The command's help: "usage: tally NAME ...", its summary, arguments, options, details.
    std::string HelpText() const;

    // Parses ARGS (the command's name first) and runs the command. --help prints the help to
    // OUT; bad usage prints it to ERR and gives 2.
    int Execute(const QStringList& args, std::ostream& out, std::ostream& err) const;
};

// Every command of `tally`, in the order `tally --help` lists them.
const std::vector<Command>& Commands();

}  // namespace tt::cli
