// "Restore from Recovery File": the grid of the open card's records, marks over whole ticket
// versions, Restore with its versions, cancellations and stray bettors, Clear with its count
// and the records of other cards, and the warnings that turn the log off.

#include <gtest/gtest.h>

#include "files/restore_logic.h"
#include "model/race_file.h"
#include "restore_log.h"
#include "support/fakes.h"

namespace tt {
namespace {

using namespace test;

const DateTime kAt1400{2026, 5, 2, 14, 0, 0};
const DateTime kAt1405{2026, 5, 2, 14, 5, 0};
const DateTime kAt1410{2026, 5, 2, 14, 10, 0};

class RestoreTest : public ::testing::Test {
  protected:
    void SetUp() override { RestoreCard(); }

    // The window loaded over this log.
    void Open(const std::string& log) {
        world.files.files[kLogPath] = log;
        logic.Form_Load();
    }
    std::string Cell(int row, int col) const { return logic.flxRecovery.TextMatrix(row, col); }
    std::vector<std::string> Column(int col) const {
        std::vector<std::string> cells;
        for (int r = 1; r < logic.flxRecovery.Rows(); ++r) cells.push_back(Cell(r, col));
        return cells;
    }
    void Select(int from, int to) {
        logic.flxRecovery.SetRow(from);
        logic.flxRecovery.SetRowSel(to);
    }
    void RestoreAll() {
        Select(1, logic.flxRecovery.Rows() - 1);
        logic.cmdInclude_Click();
        logic.cmdOK_Click();
    }

    FakeWorld world;
    RestoreLogic logic;
};

const char* const kRestored = "Restore process completed successfully.";
const char* const kQuestion =
    "All rows marked with a 'Yes' in the Include column, are about to be restored.\n\r\n"
    "Do you want to continue?";

// ---- The grid -----------------------------------------------------------------------------

TEST_F(RestoreTest, GridShowsEachRecordNewestFirstAsTheWindowDoes) {
    G.FileSaved = DateTime{2026, 5, 2, 13, 59, 30};
    Open(LogText({Version("New ", 12, kAt1400, 1, 2, {{4, 2.5, {3, 5}, 0, true}}, 77, 5),
                  Version("Edit", 3, kAt1405, 2, 9, {{1, 10, {4}, 7}})}));

    EXPECT_EQ(logic.lblSaved.text, "2026-05-02 13:59:30");
    ASSERT_EQ(logic.flxRecovery.Rows(), 3);
    ASSERT_EQ(logic.flxRecovery.Cols(), 14);
    const std::vector<std::string> header = {
        "Include?",  "Ticket#", "Date/Time", "Race", "Bettor",    "Action", "Coll'd",
        "Distrib'd", "Bet Amt", "Bet Type",  "Box",  "Bet Total", "Picks",  ""};
    for (int c = 0; c < 14; ++c) EXPECT_EQ(Cell(0, c), header[static_cast<std::size_t>(c)]);
    const std::vector<std::string> newest = {"No",
                                             "3",
                                             "2026-05-02 14:05:00",
                                             "2",
                                             "Unknown Bettor",
                                             "Edit",
                                             "$.00",
                                             "$.00",
                                             "$10.00",
                                             "Win",
                                             "",
                                             "$10.00",
                                             " 4",
                                             "2"};
    const std::vector<std::string> oldest = {"No",     "12",   "2026-05-02 14:00:00",
                                             "1",      "Ben",  "New ",
                                             "$5.00",  "$.00", "$2.50",
                                             "Exacta", "X",    "$5.00",
                                             " 3 5",   "1"};
    for (int c = 0; c < 14; ++c) {
        EXPECT_EQ(Cell(1, c), newest[static_cast<std::size_t>(c)]) << "column " << c;
        EXPECT_EQ(Cell(2, c), oldest[static_cast<std::size_t>(c)]) << "column " << c;
    }
    // The row index is hidden; the header centred, the money to the right.
    EXPECT_EQ(logic.flxRecovery.ColWidth(13), 0);
    EXPECT_EQ(logic.flxRecovery.CellAlignment(0, 4), CellAlign::kCenter);
    for (int c : {6, 7, 8, 11}) EXPECT_EQ(logic.flxRecovery.CellAlignment(1, c), CellAlign::kRight);
    EXPECT_EQ(logic.flxRecovery.Row(), 0);
}

TEST_F(RestoreTest, RecordsOfAnotherCardAreLeftOutOfTheGrid) {
    Open(LogText({Version("New ", 1, kAt1400, 1, 1, {{}}, 88),
                  Version("New ", 2, kAt1405, 1, 1, {{}, {}}),
                  Version("New ", 3, kAt1410, 1, 1, {{}}, 88)}));
    EXPECT_EQ(Column(RestoreLogic::kTicket), (std::vector<std::string>{"2", "2"}));
}

TEST_F(RestoreTest, AnEmptyLogShowsTheHeaderAndBothButtonsSayNothingIsSelected) {
    Open("");
    EXPECT_EQ(logic.flxRecovery.Rows(), 1);
    EXPECT_EQ(logic.flxRecovery.Cols(), 14);
    logic.cmdOK_Click();
    logic.cmdClear_Click();
    ASSERT_EQ(world.messages.shown.size(), 2u);
    EXPECT_EQ(world.messages.shown[0].text,
              "No tickets selected to include in recovery.\n\r\n"
              "Please change the desired records to be restored to\n\r\n"
              "say 'Yes' in the Include column.");
    EXPECT_EQ(world.messages.shown[1].text,
              "No tickets selected to include in clear process.\n\r\n"
              "Please change the desired records to be restored to\n\r\n"
              "say 'Yes' in the Include column.");
    for (const auto& box : world.messages.shown) EXPECT_EQ(box.icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 2);
    EXPECT_FALSE(G.FileChanged);
}

// ---- Failures turn the log off ------------------------------------------------------------

TEST_F(RestoreTest, ARecordOfAnotherVersionTurnsTheLogOffAndShowsNoRows) {
    std::string log = LogText({Version("New ", 1, kAt1400, 1, 1, {{}})});
    std::string old = log;
    old.replace(old.find("\"2.0\""), 5, "\"1.9\"");
    world.files.files[kLogPath] = log + old;
    logic.Form_Load();
    EXPECT_FALSE(RF.RecoveryFlag);
    EXPECT_EQ(world.messages.Texts(),
              (std::vector<std::string>{"Recovery File is not for this version of the software!"
                                        "\n\r\nRecovery will be turned off!"}));
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(logic.flxRecovery.Rows(), 1);
    EXPECT_TRUE(logic.RecoveryRows.empty());
}

TEST_F(RestoreTest, AFileThatCannotBeReadTurnsTheLogOffWithTheErrorLine) {
    EXPECT_FALSE(logic.LoadRecoveryGrid());  // no file at all
    world.files.files[kLogPath] = "\"%TTRecv`\",\"2.0\",#2026-05-02 14:00:00#,77,\"New \",x,\r\n";
    RF.RecoveryFlag = true;
    EXPECT_FALSE(logic.LoadRecoveryGrid());
    EXPECT_FALSE(RF.RecoveryFlag);
    const std::string lead =
        "The system has detected an unexpected error\r\nprocessing the Recovery File!\n\r\n"
        "Use of Recovery File has been turned off!\n\r\nUse Edit/RaceCard to reset it!\n\r\n";
    EXPECT_EQ(
        world.messages.Texts(),
        (std::vector<std::string>{lead + "Error #53:  File not found, Source:  TamberlinTally",
                                  lead + "Error #13:  Type mismatch, Source:  TamberlinTally"}));
    EXPECT_EQ(logic.flxRecovery.Rows(), 1);
}

// ---- Marks over whole ticket versions -----------------------------------------------------

class MarkTest : public RestoreTest {
  protected:
    void SetUp() override {
        RestoreTest::SetUp();
        // Grid rows: 1 ticket 2; 2-3 ticket 1 at 14:05; 4-6 ticket 1 at 14:00.
        Open(LogText({Version("New ", 1, kAt1400, 1, 1, {{}, {}, {}}),
                      Version("Edit", 1, kAt1405, 1, 1, {{}, {}}),
                      Version("New ", 2, kAt1410, 1, 2, {{}})}));
    }
    std::vector<std::string> Marks() const { return Column(RestoreLogic::kInclude); }
};

TEST_F(MarkTest, NothingIsMarkedWhileOnlyTheHeaderIsCurrent) {
    logic.cmdInclude_Click();
    EXPECT_EQ(Marks(), std::vector<std::string>(6, "No"));
}

TEST_F(MarkTest, ADoubleClickTogglesTheWholeVersionUnderTheSelection) {
    Select(5, 5);
    logic.flxRecovery_DblClick();
    EXPECT_EQ(Marks(), (std::vector<std::string>{"No", "No", "No", "Yes", "Yes", "Yes"}));
    Select(3, 3);
    logic.flxRecovery_DblClick();
    EXPECT_EQ(Marks(), (std::vector<std::string>{"No", "Yes", "Yes", "Yes", "Yes", "Yes"}));
    Select(4, 4);
    logic.flxRecovery_DblClick();
    EXPECT_EQ(Marks(), (std::vector<std::string>{"No", "Yes", "Yes", "No", "No", "No"}));
}

TEST_F(MarkTest, IncludeAndDoNotIncludeReachEveryVersionTheSelectionTouches) {
    Select(3, 1);  // the selection may run upwards
    logic.cmdInclude_Click();
    EXPECT_EQ(Marks(), (std::vector<std::string>{"Yes", "Yes", "Yes", "No", "No", "No"}));
    Select(2, 2);
    logic.cmdDoNotInclude_Click();
    EXPECT_EQ(Marks(), (std::vector<std::string>{"Yes", "No", "No", "No", "No", "No"}));
    EXPECT_EQ(logic.flxRecovery.Row(), 2);  // the selection stays
}

// ---- Restore ------------------------------------------------------------------------------

TEST_F(RestoreTest, ATicketLoggedNewThenEditComesBackInItsLaterForm) {
    Open(LogText({Version("New ", 1, kAt1400, 1, 1, {{1, 2, {3}}, {2, 3, {5}}}, 77, 5),
                  Version("Edit", 1, kAt1405, 1, 1, {{3, 4, {2}, 1}, {0, 3, {5}, 2}}, 77, 4)}));
    RestoreAll();

    EXPECT_EQ(world.messages.Texts(), (std::vector<std::string>{kQuestion, kRestored}));
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kOKCancel);
    EXPECT_EQ(RF.MaxBets, 2);
    EXPECT_EQ(RF.Bet(1, 1).BetType, 3);
    EXPECT_EQ(RF.Bet(1, 1).BetAmt, Currency::FromInt(4));
    EXPECT_EQ(RF.Bet(1, 1).Pick(1), 2);
    EXPECT_EQ(RF.Bet(1, 1).TicketIdx, 1);
    EXPECT_EQ(RF.Bet(1, 2).BetType, 0);  // deleted in the edit
    EXPECT_EQ(RF.TicketCount, 1);
    const TicketRec& tk = RF.Ticket(1);
    EXPECT_EQ(tk.TicketCost, Currency::FromInt(4));
    EXPECT_EQ(tk.Collected, Currency::FromInt(4));
    EXPECT_EQ(tk.TicketBettor, 1);
    EXPECT_EQ(tk.TicketRace, 1);
    EXPECT_EQ(tk.FirstBet, 1);
    EXPECT_EQ(tk.LastBet, 1);
    EXPECT_TRUE(G.FileChanged);
}

TEST_F(RestoreTest, ALastCancelledVersionIsPassedOver) {
    const auto bets = {LogBet{1, 2, {3}}, LogBet{2, 3, {5}}};
    Open(LogText({Version("New ", 1, kAt1400, 1, 1, bets),
                  Version("Canc", 1, kAt1405, 1, 1, {{1, 2, {3}, 1}, {2, 3, {5}, 2}})}));
    RestoreAll();
    EXPECT_EQ(RF.Bet(1, 1).BetType, 1);
    EXPECT_EQ(RF.Bet(1, 2).BetType, 2);
    EXPECT_EQ(RF.Ticket(1).TicketCost, Currency::FromInt(5));
}

TEST_F(RestoreTest, ABettorTheCardDoesNotHaveComesBackNamedByItsNumber) {
    RF.BettorCount = 0;
    RF.Bettor.ReDim(1);
    Open(LogText({Version("New ", 4, kAt1400, 1, 5, {{}})}));
    RestoreAll();
    EXPECT_EQ(RF.BettorCount, 1);
    EXPECT_EQ(RF.Bettor.UBound(), 6);
    EXPECT_EQ(RF.Bettor(5).BettorName, "Restore Bettor  5");
    EXPECT_EQ(RF.Ticket(4).TicketBettor, 5);
    EXPECT_EQ(RF.TicketCount, 4);
}

TEST_F(RestoreTest, TheFirstRunOfATicketInTheGridDecidesForAllItsVersions) {
    // The newer version stands first and is not marked, so the older one marked below it is
    // not restored either.
    Open(LogText(
        {Version("New ", 1, kAt1400, 1, 1, {{}}), Version("Edit", 1, kAt1405, 1, 1, {{}})}));
    Select(2, 2);
    logic.cmdInclude_Click();
    logic.cmdOK_Click();
    EXPECT_EQ(world.messages.Texts(), (std::vector<std::string>{kQuestion, kRestored}));
    EXPECT_EQ(RF.MaxBets, 0);
    EXPECT_EQ(RF.TicketCount, 0);
}

TEST_F(RestoreTest, CancelOnTheQuestionLeavesTheCardAsItWas) {
    Open(LogText({Version("New ", 1, kAt1400, 1, 1, {{}})}));
    world.messages.Answer(kCancel);
    RestoreAll();
    EXPECT_EQ(world.messages.Texts(), (std::vector<std::string>{kQuestion}));
    EXPECT_EQ(RF.MaxBets, 0);
    EXPECT_FALSE(G.FileChanged);
}

TEST_F(RestoreTest, RestoreNeverWritesTheLog) {
    const std::string log = LogText({Version("New ", 1, kAt1400, 1, 1, {{}})});
    Open(log);
    world.files.log.clear();
    RestoreAll();
    EXPECT_EQ(world.files.log, std::vector<std::string>{});
    EXPECT_EQ(world.files.files[kLogPath], log);
}

// ---- Clear --------------------------------------------------------------------------------

TEST_F(RestoreTest, ClearKeepsTheUnmarkedRecordsOfThisCardAndDropsEveryOtherCard) {
    const auto first = Version("New ", 1, kAt1400, 1, 1, {{}, {2, 4, {1}}});
    const auto theirs = Version("New ", 1, kAt1400, 1, 1, {{}}, 88);
    const auto second = Version("New ", 2, kAt1405, 2, 2, {{}});
    Open(LogText({first, theirs, second}));
    Select(2, 2);
    logic.cmdInclude_Click();
    logic.cmdClear_Click();

    EXPECT_EQ(world.files.files[kLogPath], LogText({second}));
    EXPECT_EQ(world.messages.Texts(),
              (std::vector<std::string>{"All rows with marked with 'Yes' are about to be deleted "
                                        "from the recovery file.\n\r\nDo you want to continue?",
                                        "Clear process has been completed.\r\n 2 were deleted."}));
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(Column(RestoreLogic::kTicket), std::vector<std::string>{"2"});
    EXPECT_FALSE(world.shell.busy);
}

TEST_F(RestoreTest, ClearCancelledLeavesTheLogAsItWas) {
    const std::string log = LogText({Version("New ", 1, kAt1400, 1, 1, {{}})});
    Open(log);
    Select(1, 1);
    logic.cmdInclude_Click();
    world.messages.Answer(kCancel);
    logic.cmdClear_Click();
    EXPECT_EQ(world.files.files[kLogPath], log);
}

TEST_F(RestoreTest, ClearOnAFullDiskLeavesTheOldLogWhole) {
    const std::string log =
        LogText({Version("New ", 1, kAt1400, 1, 1, {{}}), Version("New ", 2, kAt1405, 2, 2, {{}})});
    Open(log);
    Select(1, 1);
    logic.cmdInclude_Click();
    world.files.writeLimit = 10;
    EXPECT_THROW(logic.cmdClear_Click(), AppError);
    EXPECT_EQ(world.files.files[kLogPath], log);
    EXPECT_EQ(world.files.Temporaries(), std::vector<std::string>{});
    EXPECT_FALSE(world.shell.busy);

    // With room again the same Clear goes through a temporary renamed over the log.
    world.files.writeLimit.reset();
    world.files.log.clear();
    logic.cmdClear_Click();
    // The grid is newest first: its first row was ticket 2.
    EXPECT_EQ(world.files.files[kLogPath], LogText({Version("New ", 1, kAt1400, 1, 1, {{}})}));
    EXPECT_TRUE(std::find_if(world.files.log.begin(), world.files.log.end(), [](auto& step) {
                    return step.rfind("rename ", 0) == 0 &&
                           step.ends_with(std::string(" ") + kLogPath);
                }) != world.files.log.end());
}

TEST_F(RestoreTest, ClearNeverRewritesAFileThatHoldsNoRecord) {
    Open(LogText({Version("New ", 1, kAt1400, 1, 1, {{}})}));
    Select(1, 1);
    logic.cmdInclude_Click();
    // Meanwhile the name has come to stand for something else.
    world.files.files[kLogPath] = "Dear host,\r\nthese are my notes.\r\n";
    logic.cmdClear_Click();
    EXPECT_EQ(world.files.files[kLogPath], "Dear host,\r\nthese are my notes.\r\n");
    EXPECT_FALSE(RF.RecoveryFlag);
    EXPECT_EQ(world.messages.Texts().back(),
              "The system has detected an unexpected error\r\nprocessing the Recovery File!\n\r\n"
              "Use of Recovery File has been turned off!\n\r\nUse Edit/RaceCard to reset it!\n\r\n"
              "Error #75:  Path/File access error, Source:  TamberlinTally");
    EXPECT_FALSE(world.shell.busy);
}

}  // namespace
}  // namespace tt
