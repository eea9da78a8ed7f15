// The command line of `tally` itself: the command list, each command's help, the version, and
// what a wrong command or option prints.

#include <gtest/gtest.h>

#include <string>

#include "cli/command.h"
#include "support/companion_run.h"

namespace tt::cli {
namespace {

using namespace test;

const std::string kCommandList =
    "usage: tally COMMAND FILE [OPTIONS]\n"
    "       tally --help | --version\n"
    "Run \"tally COMMAND --help\" for the usage and options of a command.\n"
    "\n"
    "Commands:\n"
    "  info            Print a card's title, races, bettors, tickets and money.\n"
    "  resave          Read a card and save it again with the program's writer.\n"
    "  settle          Record a race's result, settle its payouts and save the card.\n"
    "  payouts         Print a race's payouts as the payout display shows them.\n"
    "  odds            Print a race's pools or odds as the odds display shows them.\n"
    "  recent          Put a card at the top of the program's recent files.\n"
    "  sell            Sell a new ticket at the betting window and save the card.\n"
    "  cash            Cash or collect a ticket at the betting window and save the card.\n"
    "  list            Print the bets of a card as List Bets shows them, with their totals.\n"
    "  report          Print one of the four reports as text, or save it as a PDF file.\n"
    "  recovery        List the card's records in its recovery file, newest first.\n"
    "  restore         Bring tickets back from the recovery file into the card and save it.\n"
    "  import-bettors  Bring the bettors of another race file into the card and save it.\n"
    "\n"
    "Every message box the program would show is printed to stderr.\n"
    "Exit status: 0 success, 1 failed or refused, 2 bad usage.\n";

const std::string kSettleHelp =
    "usage: tally settle FILE --race N [--result S1,S2,S3,S4,S5] [--handling most|payback|nopay] "
    "[-o OUT]\n"
    "\n"
    "Record a race's result, settle its payouts and save the card.\n"
    "\n"
    "Arguments:\n"
    "  FILE                           The race card.\n"
    "\n"
    "Options:\n"
    "  --race N                       The race, by its number on the card.\n"
    "  --result S1,S2,S3,S4,S5        The five finishers' racer slots, 0 for none.\n"
    "  --handling most|payback|nopay  How to pay a pool that has no winners.\n"
    "  -o, --output OUT               Save to OUT instead of over FILE.\n"
    "  -h, --help                     Show this help.\n"
    "\n"
    "A racer slot is the racer's place in the race's list on the card, as the results\n"
    "of \"tally info\" show them. Without --result the race's stored result is settled\n"
    "again.\n"
    "\n"
    "Without --handling, a pool without winners is paid as the Payout Handling window\n"
    "proposes: on the most correct picks where that is offered, otherwise the amounts\n"
    "bet back. --handling most, where it is not offered, keeps that proposal.\n"
    "\n"
    "Every other question is answered OK or Yes. The file a save replaces is kept as\n"
    "its backup (card.tly becomes card.bkp).\n";

const std::string kResaveHelp =
    "usage: tally resave FILE -o OUT [--yes]\n"
    "\n"
    "Read a card and save it again with the program's writer.\n"
    "\n"
    "Arguments:\n"
    "  FILE              The race card.\n"
    "\n"
    "Options:\n"
    "  -o, --output OUT  Where to save the card.\n"
    "  --yes             Answer OK to every question.\n"
    "  -h, --help        Show this help.\n"
    "\n"
    "The questions are whether to open a card from an older or later version, and\n"
    "whether to save when the backup cannot be made. Without --yes they are answered\n"
    "Cancel, which stops the command.\n";

TEST(Usage, HelpListsTheCommandsOnStdout) {
    for (std::vector<std::string> args : {std::vector<std::string>{"--help"}, {"-h"}, {"help"}}) {
        SCOPED_TRACE(args[0]);
        TallyRun r = Tally(args);
        EXPECT_EQ(r.rc, 0);
        EXPECT_EQ(r.out, kCommandList);
        EXPECT_EQ(r.err, "");
    }
}

TEST(Usage, NoCommandIsBadUsageWithTheListOnStderr) {
    TallyRun r = Tally({});
    EXPECT_EQ(r.rc, 2);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, kCommandList);
}

TEST(Usage, CommandHelpOnStdoutWhateverElseIsGiven) {
    for (std::vector<std::string> args : {std::vector<std::string>{"settle", "--help"},
                                          {"settle", "-h"},
                                          {"help", "settle"},
                                          {"--help", "settle"},
                                          // The help comes before the checks of the arguments.
                                          {"settle", "card.tly", "--result", "1,2", "--help"}}) {
        SCOPED_TRACE(args[0] + " " + args[1]);
        TallyRun r = Tally(args);
        EXPECT_EQ(r.rc, 0);
        EXPECT_EQ(r.out, kSettleHelp);
        EXPECT_EQ(r.err, "");
    }
}

TEST(Usage, EveryCommandIsListedAndHasItsOwnUsage) {
    const std::string list = Tally({"--help"}).out;
    for (const Command& command : Commands()) {
        SCOPED_TRACE(command.name);
        EXPECT_NE(list.find("\n  " + command.name + " "), std::string::npos);
        TallyRun r = Tally({command.name, "--help"});
        EXPECT_EQ(r.rc, 0);
        EXPECT_EQ(r.out.rfind("usage: tally " + command.name + " FILE", 0), 0u) << r.out;
        EXPECT_NE(r.out.find("\n  -h, --help "), std::string::npos);
    }
}

TEST(Usage, VersionIsTheProjectVersion) {
    TallyRun r = Tally({"--version"});
    EXPECT_EQ(r.rc, 0);
    EXPECT_EQ(r.out, "tally " + std::to_string(TALLY_VERSION_MAJOR) + "." +
                         std::to_string(TALLY_VERSION_MINOR) + "." +
                         std::to_string(TALLY_VERSION_PATCH) + "\n");
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(Tally({"-v"}).out, r.out);
}

TEST(Usage, UnknownCommandNamedWithTheList) {
    for (std::vector<std::string> args :
         {std::vector<std::string>{"frobnicate", "card.tly"}, {"help", "frobnicate"}}) {
        SCOPED_TRACE(args[0]);
        TallyRun r = Tally(args);
        EXPECT_EQ(r.rc, 2);
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(r.err, "tally: Unknown command 'frobnicate'.\n" + kCommandList);
    }
    TallyRun r = Tally({"--frobnicate"});
    EXPECT_EQ(r.rc, 2);
    EXPECT_EQ(r.err, "tally: Unknown option 'frobnicate'.\n" + kCommandList);
}

TEST(Usage, BadOptionNamedWithTheCommandsUsage) {
    TallyRun r = Tally({"resave", "card.tly", "-o", "out.tly", "--race", "1"});
    EXPECT_EQ(r.rc, 2);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "tally: Unknown option 'race'.\n" + kResaveHelp);

    r = Tally({"settle", "card.tly", "--race"});
    EXPECT_EQ(r.rc, 2);
    EXPECT_EQ(r.err, "tally: Missing value after '--race'.\n" + kSettleHelp);

    // Right options, wrong use: the usage alone.
    r = Tally({"resave", "card.tly"});
    EXPECT_EQ(r.rc, 2);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, kResaveHelp);
}

}  // namespace
}  // namespace tt::cli
