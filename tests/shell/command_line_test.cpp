// The program's command line: a card named on it opens as a recent file does from the chooser,
// the board option, and the answers that need no screen.

#include <gtest/gtest.h>

#include <QDir>

#include "model/race_file.h"
#include "shell/command_line.h"
#include "support/fakes.h"

namespace tt {
namespace {

using test::FakeWorld;
using test::SavedCard;

TEST(CommandLine, AFileAndTheBoardAreRead) {
    ProgramArguments a = ParseProgramArguments({"tamberlin-tally", "--board", "/cards/june.tly"});
    EXPECT_EQ(a.file, "/cards/june.tly");
    EXPECT_TRUE(a.board);
    EXPECT_FALSE(a.help);
    EXPECT_TRUE(a.error.empty());
}

TEST(CommandLine, NothingGivenMeansTheChooser) {
    ProgramArguments a = ParseProgramArguments({"tamberlin-tally"});
    EXPECT_EQ(a.file, "");
    EXPECT_FALSE(a.board);
    EXPECT_TRUE(a.error.empty());
}

TEST(CommandLine, HelpAndVersionNeedNoScreen) {
    EXPECT_TRUE(ParseProgramArguments({"tamberlin-tally", "--help"}).help);
    EXPECT_TRUE(ParseProgramArguments({"tamberlin-tally", "-h"}).help);
    EXPECT_TRUE(ParseProgramArguments({"tamberlin-tally", "--version"}).version);
    EXPECT_EQ(ProgramVersionText(), "tamberlin-tally " + std::to_string(TALLY_VERSION_MAJOR) + "." +
                                        std::to_string(TALLY_VERSION_MINOR) + "." +
                                        std::to_string(TALLY_VERSION_PATCH));
}

TEST(CommandLine, UnknownOptionsAndASecondCardAreBadUsage) {
    EXPECT_EQ(ParseProgramArguments({"tamberlin-tally", "--bored"}).error,
              "Unknown option 'bored'.");
    EXPECT_EQ(ParseProgramArguments({"tamberlin-tally", "/a.tly", "/b.tly"}).error,
              "Only one race card can be opened at a time.");
}

TEST(CommandLine, HelpNamesEveryOptionAndTheFile) {
    const std::string help = ProgramHelpText();
    for (const auto& o : ProgramOptionsHelp()) EXPECT_NE(help.find(o.names), std::string::npos);
    EXPECT_NE(help.find("  FILE  "), std::string::npos);
    for (std::size_t start = 0, end; start < help.size(); start = end + 1) {
        end = help.find('\n', start);
        EXPECT_LE(end - start, 79u) << help.substr(start, end - start);
    }
}

TEST(FileArgument, OpensTheCardAsTheChooserOpensARecentFile) {
    FakeWorld w;
    w.files.files["/cards/june.tly"] = SavedCard("June Races", true);
    EXPECT_TRUE(OpenFileArgument("/cards/june.tly"));
    EXPECT_EQ(G.LastFile, "/cards/june.tly");
    EXPECT_EQ(G.FilePath, "/cards/june.tly");
    EXPECT_EQ(w.shell.title, "Tamberlin Tally - June Races   (File ID = 77)");
    EXPECT_EQ(w.shell.fileGroup, true);
    EXPECT_EQ(w.settings.values["MRU0"], "/cards/june.tly");
    EXPECT_TRUE(w.messages.shown.empty());
}

TEST(FileArgument, ARelativePathIsTakenFromWhereTheProgramStarted) {
    FakeWorld w;
    const std::string full = QDir::current().absoluteFilePath("june.tly").toStdString();
    w.files.files[full] = SavedCard("June Races", false);
    EXPECT_TRUE(OpenFileArgument("june.tly"));
    EXPECT_EQ(G.FilePath, full);
    EXPECT_EQ(w.settings.values["MRU0"], full);
}

TEST(FileArgument, AMissingCardGetsTheReadMessageAndLeavesNoFileOpen) {
    FakeWorld w;
    EXPECT_FALSE(OpenFileArgument("/cards/gone.tly"));
    EXPECT_EQ(w.messages.Texts(),
              (std::vector<std::string>{"Unable to read file\n\r\nFile not found"}));
    EXPECT_EQ(G.FilePath, "");
    EXPECT_EQ(w.shell.fileGroup, false);
}

}  // namespace
}  // namespace tt
