#include "cli/command.h"

#include <algorithm>
#include <ostream>
#include <sstream>

namespace tt::cli {

namespace {

constexpr std::size_t kLineWidth = 80;
// Labels longer than this stand on a line of their own, the description below them.
constexpr std::size_t kMaxLabel = 30;

// TEXT broken into lines of at most kLineWidth characters, every line after the first starting
// with INDENT blanks; the first line is taken to start at column FIRST.
std::string Wrap(const std::string& text, std::size_t indent, std::size_t first) {
    std::istringstream words(text);
    std::string result, word;
    std::size_t column = first;
    bool lineEmpty = true;
    while (words >> word) {
        if (!lineEmpty && column + 1 + word.size() > kLineWidth) {
            result += "\n" + std::string(indent, ' ');
            column = indent;
            lineEmpty = true;
        }
        if (!lineEmpty) {
            result += ' ';
            ++column;
        }
        result += word;
        column += word.size();
        lineEmpty = false;
    }
    return result;
}

// "-o, --output OUT" for an option with the names o and output and the value OUT.
std::string Label(const QCommandLineOption& option) {
    std::string label;
    for (const QString& name : option.names()) {
        if (!label.empty()) label += ", ";
        label += (name.size() == 1 ? "-" : "--") + name.toStdString();
    }
    if (!option.valueName().isEmpty()) label += " " + option.valueName().toStdString();
    return label;
}

using Rows = std::vector<std::pair<std::string, std::string>>;

// A section of labels and their descriptions, the descriptions starting at column 2 + WIDTH + 2.
void Section(std::ostream& out, const char* title, const Rows& rows, std::size_t width) {
    if (rows.empty()) return;
    const std::size_t indent = 2 + width + 2;
    out << "\n" << title << ":\n";
    for (const auto& [label, description] : rows) {
        out << "  " << label;
        if (label.size() > width)
            out << "\n" << std::string(indent, ' ');
        else
            out << std::string(width - label.size() + 2, ' ');
        out << Wrap(description, indent, indent) << "\n";
    }
}

QCommandLineOption HelpOption() {
    return QCommandLineOption({"h", "help"}, "Show this help.");
}

}  // namespace

std::string Command::HelpText() const {
    std::ostringstream text;
    text << "usage: tally " << name << (synopsis.empty() ? "" : " ") << synopsis << "\n\n";
    text << Wrap(summary, 0, 0) << "\n";
    Rows args, opts;
    for (const Argument& a : arguments) args.emplace_back(a.name, a.description);
    for (const QCommandLineOption& o : options + QList{HelpOption()})
        opts.emplace_back(Label(o), o.description().toStdString());
    // Both sections line their descriptions up in one column.
    std::size_t width = 0;
    for (const Rows* rows : {&args, &opts})
        for (const auto& row : *rows)
            if (row.first.size() <= kMaxLabel) width = std::max(width, row.first.size());
    Section(text, "Arguments", args, width);
    Section(text, "Options", opts, width);
    if (!details.empty()) {
        std::size_t start = 0;
        while (start < details.size()) {
            std::size_t end = details.find("\n\n", start);
            if (end == std::string::npos) end = details.size();
            text << "\n" << Wrap(details.substr(start, end - start), 0, 0) << "\n";
            start = end + 2;
        }
    }
    return text.str();
}

int Command::Execute(const QStringList& args, std::ostream& out, std::ostream& err) const {
    QCommandLineParser parser;
    parser.addOptions(options);
    parser.addOption(HelpOption());
    if (!parser.parse(QStringList{"tally"} + args)) {
        err << "tally: " << parser.errorText().toStdString() << "\n" << HelpText();
        return 2;
    }
    if (parser.isSet("help")) {
        out << HelpText();
        return 0;
    }
    Context c{parser, out, err};
    const int rc = run(c);
    if (rc < 0) {
        err << HelpText();
        return 2;
    }
    return rc;
}

}  // namespace tt::cli
