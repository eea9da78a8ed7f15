// The manual pages follow the help texts: every command, argument and option of `tally` and of
// the program is in them, as the help words it.

#include <gtest/gtest.h>

#include "cli/command.h"
#include "cli/man_page.h"
#include "shell/command_line.h"

namespace tt::cli {
namespace {

// The help's words as the man macros carry them.
std::string Roff(const std::string& s) {
    std::string out;
    for (char c : s) out += c == '-' ? std::string("\\-") : std::string(1, c);
    return out;
}

TEST(ManPage, EveryCommandHasItsSectionWithItsUsageAndOptions) {
    const std::string page = TallyManPage("2026-11-23");
    for (const Command& c : Commands()) {
        SCOPED_TRACE(c.name);
        EXPECT_NE(page.find(".SS \"tally " + Roff(c.name) + "\""), std::string::npos);
        EXPECT_NE(page.find("\\fBtally " + Roff(c.name)), std::string::npos);
        for (const QCommandLineOption& o : c.options)
            for (const QString& n : o.names())
                EXPECT_NE(page.find(Roff((n.size() == 1 ? "-" : "--") + n.toStdString())),
                          std::string::npos);
    }
}

TEST(ManPage, HelpRowsBecomeTaggedParagraphsAndTextIsEscaped) {
    EXPECT_EQ(RoffOfHelp("usage: tally x FILE [-o OUT]\n"
                         "\n"
                         "Does x.\n"
                         "\n"
                         "Options:\n"
                         "  -o, --output OUT  Where to\n"
                         "                    save.\n"
                         "  --a-very-long-option-name-indeed\n"
                         "                    Below.\n"
                         "\n"
                         ".dot and \\back\n"),
              ".nf\n\\fBtally x FILE [\\-o OUT]\\fR\n.fi\n"
              ".PP\nDoes x.\n"
              ".PP\n\\fBOptions:\\fR\n"
              ".TP\n.B \"\\-o, \\-\\-output OUT\"\nWhere to save.\n"
              ".TP\n.B \"\\-\\-a\\-very\\-long\\-option\\-name\\-indeed\"\nBelow.\n"
              ".PP\n\\&.dot and \\eback\n");
}

TEST(ManPage, TheProgramsPageHasItsOptions) {
    const std::string page = ProgramManPage("2026-11-23");
    for (const auto& o : ProgramOptionsHelp())
        EXPECT_NE(page.find(Roff(o.names)), std::string::npos);
    EXPECT_NE(page.find(".TH TAMBERLIN\\-TALLY 1 \"2026\\-11\\-23\""), std::string::npos);
}

}  // namespace
}  // namespace tt::cli
