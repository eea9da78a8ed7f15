#include "cli/man_page.h"

#include <sstream>
#include <vector>

#include "cli/command.h"
#include "cli/companion.h"
#include "model/common.h"
#include "shell/command_line.h"

namespace tt::cli {

namespace {

std::string Version() {
    return std::to_string(TALLY_VERSION_MAJOR) + "." + std::to_string(TALLY_VERSION_MINOR) + "." +
           std::to_string(TALLY_VERSION_PATCH);
}

// Text safe in roff: backslashes and hyphens escaped, a line never starting with a control
// character.
std::string Escape(const std::string& text) {
    std::string out;
    for (char c : text) {
        if (c == '\\')
            out += "\\e";
        else if (c == '-')
            out += "\\-";
        else
            out += c;
    }
    if (!out.empty() && (out[0] == '.' || out[0] == '\'')) out.insert(0, "\\&");
    return out;
}

std::string Quoted(const std::string& text) {
    std::string out = Escape(text);
    std::string q;
    for (char c : out) q += c == '"' ? std::string("\\(dq") : std::string(1, c);
    return "\"" + q + "\"";
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::size_t Indent(const std::string& line) {
    std::size_t i = line.find_first_not_of(' ');
    return i == std::string::npos ? line.size() : i;
}

}  // namespace

std::string RoffOfHelp(const std::string& help) {
    std::ostringstream out;
    std::vector<std::string> lines = Lines(help);
    std::size_t i = 0;
    // The usage lines, kept as they stand.
    if (i < lines.size() && lines[i].rfind("usage: ", 0) == 0) {
        out << ".nf\n";
        while (i < lines.size() && !TrimBlanks(lines[i]).empty() &&
               (lines[i].rfind("usage: ", 0) == 0 || Indent(lines[i]) > 0)) {
            std::string l =
                lines[i].rfind("usage: ", 0) == 0 ? lines[i].substr(7) : TrimBlanks(lines[i]);
            out << "\\fB" << Escape(l) << "\\fR\n";
            ++i;
        }
        out << ".fi\n";
    }
    bool inParagraph = false;
    while (i < lines.size()) {
        const std::string& line = lines[i];
        if (TrimBlanks(line).empty()) {
            inParagraph = false;
            ++i;
            continue;
        }
        const bool title = Indent(line) == 0 && line.back() == ':' && i + 1 < lines.size() &&
                           Indent(lines[i + 1]) == 2 && !TrimBlanks(lines[i + 1]).empty();
        if (title) {
            // "Options:" and its rows: a label two blanks in, its description after two blanks
            // more or on the lines below, deeper in.
            out << ".PP\n\\fB" << Escape(line) << "\\fR\n";
            ++i;
            while (i < lines.size() && Indent(lines[i]) == 2 && !TrimBlanks(lines[i]).empty()) {
                const std::string row = lines[i].substr(2);
                const std::size_t gap = row.find("  ");
                std::string label = gap == std::string::npos ? row : row.substr(0, gap);
                std::string description =
                    gap == std::string::npos ? "" : TrimBlanks(row.substr(gap));
                ++i;
                while (i < lines.size() && Indent(lines[i]) > 2 && !TrimBlanks(lines[i]).empty()) {
                    description += (description.empty() ? "" : " ") + TrimBlanks(lines[i]);
                    ++i;
                }
                out << ".TP\n.B " << Quoted(label) << "\n" << Escape(description) << "\n";
            }
            inParagraph = false;
            continue;
        }
        if (!inParagraph) out << ".PP\n";
        inParagraph = true;
        out << Escape(TrimBlanks(line)) << "\n";
        ++i;
    }
    return out.str();
}

std::string TallyManPage(const std::string& date) {
    std::ostringstream help, ignored;
    RunTally({"--help"}, help, ignored);
    std::ostringstream out;
    out << ".TH TALLY 1 " << Quoted(date) << " " << Quoted("Tamberlin Tally " + Version())
        << " \"User Commands\"\n"
        << ".SH NAME\n"
        << "tally \\- the companion of Tamberlin Tally: a race card's work from a shell\n"
        << ".SH SYNOPSIS\n"
        << RoffOfHelp(help.str()) << ".SH COMMANDS\n";
    for (const Command& command : Commands())
        out << ".SS " << Quoted("tally " + command.name) << "\n" << RoffOfHelp(command.HelpText());
    out << ".SH SEE ALSO\n"
        << ".BR tamberlin\\-tally (1)\n";
    return out.str();
}

std::string ProgramManPage(const std::string& date) {
    std::ostringstream out;
    out << ".TH TAMBERLIN\\-TALLY 1 " << Quoted(date) << " "
        << Quoted("Tamberlin Tally " + Version()) << " \"User Commands\"\n"
        << ".SH NAME\n"
        << "tamberlin\\-tally \\- a betting manager for private race days\n"
        << ".SH SYNOPSIS\n"
        << RoffOfHelp(ProgramHelpText()) << ".SH FILES\n"
        << ".TP\n.I ~/.config/TamberlinTally/TamberlinTally.conf\n"
        << "The placement of the windows and the four most recent files.\n"
        << ".TP\n.I *.tly\n"
        << "Race cards. Saving keeps the card it replaces as its backup (card.tly becomes "
           "card.bkp).\n"
        << ".SH SEE ALSO\n"
        << ".BR tally (1)\n";
    return out.str();
}

}  // namespace tt::cli
