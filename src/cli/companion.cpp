#include "cli/companion.h"

#include <QCommandLineParser>
#include <QStringList>
#include <algorithm>
#include <ostream>
#include <sstream>

#include "cli/command.h"

namespace tt::cli {

// Each command's maker, defined in the command's own file.
Command InfoCommand();
Command ResaveCommand();
Command SettleCommand();
Command PayoutsCommand();
Command OddsCommand();
Command RecentCommand();
Command SellCommand();
Command CashCommand();
Command ListCommand();
Command ReportCommand();
Command RecoveryCommand();
Command RestoreCommand();
Command ImportBettorsCommand();

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        InfoCommand(),          ResaveCommand(), SettleCommand(),   PayoutsCommand(),
        OddsCommand(),          RecentCommand(), SellCommand(),     CashCommand(),
        ListCommand(),          ReportCommand(), RecoveryCommand(), RestoreCommand(),
        ImportBettorsCommand(),
    };
    return commands;
}

namespace {

const Command* FindCommand(const QString& name) {
    for (const Command& command : Commands())
        if (QString::fromStdString(command.name) == name) return &command;
    return nullptr;
}

// What `tally --help` prints: how to call, then one line for each command.
std::string CommandList() {
    std::size_t width = 0;
    for (const Command& command : Commands()) width = std::max(width, command.name.size());
    std::ostringstream text;
    text << "usage: tally COMMAND FILE [OPTIONS]\n"
            "       tally --help | --version\n"
            "Run \"tally COMMAND --help\" for the usage and options of a command.\n"
            "\n"
            "Commands:\n";
    for (const Command& command : Commands())
        text << "  " << command.name << std::string(width - command.name.size() + 2, ' ')
             << command.summary << "\n";
    text << "\n"
            "Every message box the program would show is printed to stderr.\n"
            "Exit status: 0 success, 1 failed or refused, 2 bad usage.\n";
    return text.str();
}

}  // namespace

int RunTally(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    QStringList words;
    for (const auto& a : args) words << QString::fromStdString(a);
    QCommandLineParser parser;
    // Everything from the command on is the command's own.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.addOption({{"h", "help"}, "Show the commands."});
    parser.addOption({{"v", "version"}, "Show the version."});
    if (!parser.parse(QStringList{"tally"} + words)) {
        err << "tally: " << parser.errorText().toStdString() << "\n" << CommandList();
        return 2;
    }
    if (parser.isSet("version")) {
        out << "tally " << TALLY_VERSION_MAJOR << "." << TALLY_VERSION_MINOR << "."
            << TALLY_VERSION_PATCH << "\n";
        return 0;
    }
    QStringList command = parser.positionalArguments();
    // `tally help COMMAND` and `tally --help COMMAND` are `tally COMMAND --help`.
    const bool help = parser.isSet("help") || (!command.isEmpty() && command[0] == "help");
    if (!command.isEmpty() && command[0] == "help") command.removeFirst();
    if (command.isEmpty()) {
        // Without a command, help is asked for or the usage was wrong.
        (help ? out : err) << CommandList();
        return help ? 0 : 2;
    }
    const Command* found = FindCommand(command[0]);
    if (found == nullptr) {
        err << "tally: Unknown command '" << command[0].toStdString() << "'.\n" << CommandList();
        return 2;
    }
    if (help) {
        out << found->HelpText();
        return 0;
    }
    return found->Execute(command, out, err);
}

}  // namespace tt::cli
