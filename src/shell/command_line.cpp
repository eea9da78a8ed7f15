#include "shell/command_line.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <algorithm>

#include "files/file_commands.h"
#include "model/race_file.h"

namespace tt {

namespace {

QCommandLineOption BoardOption() {
    return {"board",
            "Open Display Odds with its full-screen board for the room, Auto Run on, as soon "
            "as a card with a race is open."};
}
QCommandLineOption HelpOption() {
    return {{"h", "help"}, "Show this help and leave."};
}
QCommandLineOption VersionOption() {
    return {{"v", "version"}, "Show the version and leave."};
}

std::string NamesOf(const QCommandLineOption& o) {
    std::string names;
    for (const QString& n : o.names()) {
        if (!names.empty()) names += ", ";
        names += (n.size() == 1 ? "-" : "--") + n.toStdString();
    }
    return names;
}

}  // namespace

ProgramArguments ParseProgramArguments(const QStringList& words) {
    QCommandLineParser parser;
    parser.addOption(BoardOption());
    parser.addOption(HelpOption());
    parser.addOption(VersionOption());
    parser.addPositionalArgument("FILE", "");
    ProgramArguments result;
    if (!parser.parse(words)) result.error = parser.errorText().toStdString();
    result.board = parser.isSet("board");
    result.help = parser.isSet("help");
    result.version = parser.isSet("version");
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1 && result.error.empty())
        result.error = "Only one race card can be opened at a time.";
    if (!files.isEmpty()) result.file = files.first().toStdString();
    return result;
}

std::string ProgramVersionText() {
    return "tamberlin-tally " + std::to_string(TALLY_VERSION_MAJOR) + "." +
           std::to_string(TALLY_VERSION_MINOR) + "." + std::to_string(TALLY_VERSION_PATCH);
}

std::string ProgramSynopsis() {
    return "tamberlin-tally [--board] [FILE]";
}

std::string ProgramSummary() {
    return "Tamberlin Tally, a betting manager for private race days: the race card, the\n"
           "betting window, pools and odds, results and payouts.";
}

std::vector<ProgramOptionHelp> ProgramArgumentHelp() {
    return {{"FILE",
             "A race card (.tly) to open at once, as the chooser of the first file opens a "
             "recent file. Without it the chooser is shown."}};
}

std::vector<ProgramOptionHelp> ProgramOptionsHelp() {
    std::vector<ProgramOptionHelp> help;
    for (const QCommandLineOption& o : {BoardOption(), HelpOption(), VersionOption()})
        help.push_back({NamesOf(o), o.description().toStdString()});
    return help;
}

std::string ProgramHelpText() {
    auto block = [](const std::vector<ProgramOptionHelp>& items) {
        std::size_t width = 0;
        for (const auto& i : items) width = std::max(width, i.names.size());
        // Descriptions wrapped to 79 columns, under the first line's start.
        const std::size_t indent = width + 4;
        std::string text;
        for (const auto& i : items) {
            std::string line = "  " + i.names + std::string(width - i.names.size() + 2, ' ');
            std::size_t start = 0;
            bool first = true;
            while (start < i.description.size()) {
                std::size_t end = i.description.find(' ', start);
                if (end == std::string::npos) end = i.description.size();
                const std::string word = i.description.substr(start, end - start);
                if (!first && line.size() + 1 + word.size() > 79) {
                    text += line + "\n";
                    line = std::string(indent, ' ');
                    first = true;
                }
                line += (first ? "" : " ") + word;
                first = false;
                start = end + 1;
            }
            text += line + "\n";
        }
        return text;
    };
    return "usage: " + ProgramSynopsis() + "\n       tamberlin-tally --help | --version\n\n" +
           ProgramSummary() + "\n\nArguments:\n" + block(ProgramArgumentHelp()) + "\nOptions:\n" +
           block(ProgramOptionsHelp()) +
           "\nThe companion \"tally\" runs the same work from a shell: see \"tally --help\".\n";
}

bool OpenFileArgument(const std::string& path) {
    // A file manager passes a full path; a shell may pass one relative to where it stands.
    const QFileInfo info(QString::fromStdString(path));
    G.LastFile = info.isRelative() ? info.absoluteFilePath().toStdString() : path;
    InitialOpen();
    return !G.FilePath.empty();
}

}  // namespace tt
