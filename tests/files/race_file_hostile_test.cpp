#include <gtest/gtest.h>

#include <random>

#include "files/race_file_io.h"
#include "files/race_file_samples.h"
#include "model/number_text.h"
#include "model/race_file.h"
#include "support/fakes.h"

namespace tt::test {
namespace {

const std::string kCannotOpen =
    "File cannot be opened.  See the Help system for Tech Support information.";

std::string LoopError(const std::string& tag, int count, const std::string& error) {
    return "Error in processing the " + tag + " record.  Count = " + Str(count) + "\n\r\n" + error +
           "\n\r\n" + kCannotOpen;
}

std::string Sample() {
    return HeaderLine() + ParmsLine() + RaceLines("0", "") + RaceLines("1", "Mile") +
           RacerLine(1, "Rex") + RacerLine(2, "Bo") + BettorLine("Ann") + BetLines("1", 1) +
           BetLines("1", 2) + BettorLine("Bob") + BetLines("1", 3) + PayoutLine("1") +
           PayoutLine("2");
}

// Every message a damaged file may give.
bool KnownMessage(const std::string& text) {
    for (const char* lead : {"Error in processing the ", "Racer info found out of order",
                             "Bet info found out of order", "Tamberlin Tally file is from a ",
                             "Not a Tamberlin Tally file!", "Unexpected error processing file!"})
        if (text.rfind(lead, 0) == 0) return true;
    return false;
}

void ExpectKnownMessages(const FakeWorld& world) {
    for (const auto& m : world.messages.shown) EXPECT_TRUE(KnownMessage(m.text)) << m.text;
}

TEST(RaceFileHostile, TruncatedAtEveryOffset) {
    const std::string full = Sample();
    for (std::size_t cut = 0; cut <= full.size(); ++cut) {
        SCOPED_TRACE(cut);
        FakeWorld world;
        LoadBytes(world, full.substr(0, cut));
        ExpectKnownMessages(world);
        EXPECT_LE(world.messages.shown.size(), 2u);
        EXPECT_FALSE(world.shell.busy);
    }
}

TEST(RaceFileHostile, BinaryJunk) {
    std::mt19937 rng(7);
    for (int i = 0; i < 300; ++i) {
        std::string junk(1 + rng() % 3000, '\0');
        for (char& c : junk) c = static_cast<char>(rng());
        // Half of them behind a good header, so that the record loop sees them.
        if (i % 2) junk = HeaderLine() + junk;
        FakeWorld world;
        LoadBytes(world, junk);
        ExpectKnownMessages(world);
    }
}

TEST(RaceFileHostile, HugeTicketCountsAllocateNothing) {
    const struct {
        const char* count;
        const char* error;
    } cases[] = {{"2000000000", "Out of memory"},
                 {"16777216", "Out of memory"},
                 {"2147483647", "Overflow"},
                 {"-5", "Subscript out of range"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.count);
        FakeWorld world;
        LoadBytes(world, HeaderLine() + ParmsLine(c.count) + RaceLines("1", "Mile"));
        EXPECT_EQ(world.messages.Texts(),
                  std::vector<std::string>{LoopError("%Parms `", 1, c.error)});
        EXPECT_EQ(RF.Ticket.UBound(), 1);
        EXPECT_EQ(G.CancelFlag, Flag(true));
    }
}

TEST(RaceFileHostile, RaceNumbersOutOfRange) {
    const std::string top = HeaderLine() + ParmsLine() + RaceLines("1", "Mile") + BettorLine("Ann");
    struct Case {
        std::string file;
        std::vector<std::string> messages;
    };
    const Case cases[] = {
        {top + RaceLines("-1", "X") + RaceLines("21", "Y"), {}},
        {top + RaceLines("99999", "X"), {LoopError("%Race  `", 4, "Overflow")}},
        {top + BetLines("-1", 1), {LoopError("%Bet   `", 4, "Subscript out of range")}},
        {top + BetLines("21", 1), {}},
        {top + BetLines("99999", 1), {LoopError("%Bet   `", 4, "Overflow")}},
        {top + PayoutLine("-1"), {LoopError("%Payout`", 4, "Subscript out of range")}},
        {top + PayoutLine("21"), {}},
        {top + PayoutLine("99999"), {LoopError("%Payout`", 4, "Overflow")}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file.substr(top.size(), 20));
        FakeWorld world;
        LoadBytes(world, c.file);
        EXPECT_EQ(world.messages.Texts(), c.messages);
        EXPECT_EQ(RF.Race(1).RaceName, "Mile");
    }
    // The spare race takes what the file gives it.
    FakeWorld world;
    LoadBytes(world, top + BetLines("21", 1) + PayoutLine("21"));
    EXPECT_EQ(RF.Race(21).BetCount, 1);
    EXPECT_EQ(RF.Payout(21, 1, 1).PayRatio, 1.5);
}

TEST(RaceFileHostile, FailingBetKeepsWhatWasRead) {
    FakeWorld world;
    LoadBytes(world,
              HeaderLine() + ParmsLine() + RaceLines("1", "Mile") + BettorLine("Ann") +
                  BetLines("1", 1) +
                  "\"%Bet   `\",1,2,1,#FALSE#,2,0,0,0,0,0,0\r\n3,0,0,0,0,0,1,555,1,x,2,0,0\r\n");
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{LoopError("%Bet   `", 5, "Type mismatch")});
    // The second copy of ticket 1 got as far as its race; its range and bettor were not set.
    const TicketRec& t = RF.Ticket(1);
    EXPECT_EQ(t.TicketNbr, 555);
    EXPECT_EQ(t.TicketCost, Currency::FromInt(2));
    EXPECT_EQ(t.Collected, Currency::FromInt(2));
    EXPECT_EQ(t.FirstBet, 1);
    EXPECT_EQ(t.LastBet, 1);
    EXPECT_EQ(t.TicketBettor, 1);
    EXPECT_EQ(RF.Race(1).BetCount, 2);
}

TEST(RaceFileHostile, HugeAndUnclosedTexts) {
    FakeWorld world;
    const std::string name(3'000'000, 'n');
    LoadBytes(world, HeaderLine() + ParmsLine() + RaceLines("1", name) + BettorLine("Ann, \"B\"") +
                         BetLines("1", 1));
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(RF.Race(1).RaceName, name);
    EXPECT_EQ(RF.Bettor(1).BettorName, "Ann, ");
    EXPECT_EQ(RF.Race(1).BetCount, 1);

    // An unclosed quote takes the rest of the file, and the record runs out of fields.
    LoadBytes(world, HeaderLine() + ParmsLine() + RaceLines("1", "Mile") +
                         "\"%Bettor`\",\"Ann, Bo\r\n3,4\r\n");
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{LoopError("%Bettor`", 3, "Input past end of file")});
    EXPECT_EQ(RF.BettorCount, 1);
    EXPECT_EQ(RF.Bettor(1).BettorName, "Ann, Bo\r\n3,4\r\n");
}

// ---- Inputs found by fuzzing and probing, kept in fuzz/regressions -----------------------

std::string Regression(const std::string& name) {
    return ReadSourceFile("fuzz/regressions/" + name);
}

TEST(RaceFileRegressions, AHugeTicketCountStoresNothing) {
    FakeWorld world;
    const std::size_t before = ResidentBytes();
    LoadBytes(world, Regression("huge-ticket-count.tly"));
    EXPECT_LT(ResidentBytes(), before + (16u << 20));  // 16 million tickets would take 800 MB
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(RF.TicketCount, 16777214);
    EXPECT_EQ(RF.Ticket.UBound(), 16777215);
    EXPECT_EQ(RF.Ticket(16777215).TicketNbr, 0);  // a slot never written reads empty
}

TEST(RaceFileRegressions, OneRaceWithManyBetsSizesOnlyThatRace) {
    FakeWorld world;
    LoadBytes(world, Regression("one-race-many-bets.tly"));
    EXPECT_EQ(RF.Race(20).BetCount, 599);
    EXPECT_EQ(RF.MaxBets, 599);
    EXPECT_EQ(RF.Bet(20, 599).TicketIdx, 599);
    EXPECT_EQ(RF.Bet(1, 599).BetType, 0);
}

TEST(RaceFileRegressions, TicketsFarApartLoadWhileTheyFitTheRoom) {
    FakeWorld world;
    // Small enough here to load; the reader stops the same kind of file with out of memory
    // once its far-apart tickets have taken four times the file and 56 MB.
    LoadBytes(world, Regression("tickets-far-apart.tly"));
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(RF.Ticket(26669).TicketBettor, 1);
}

TEST(RaceFileRegressions, ParmsAfterBetsLoadsButCannotBeSavedAndTheFileStays) {
    FakeWorld world;
    const std::string original = Regression("parms-after-bets.tly");
    LoadBytes(world, original);
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(RF.Ticket.UBound(), 5);  // the second %Parms cut the table below tickets 7 and 9
    G.FileChanged = true;
    WriteRaceFile();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Error saving file\n\r\nSubscript out of range"});
    EXPECT_EQ(world.files.files, (std::map<std::string, std::string>{{kCardPath, original}}));
    EXPECT_EQ(G.FileChanged, Flag(true));
}

TEST(RaceFileRegressions, ATranslatedCardWhoseLastRecordResetTheTicketCountSavesButWontReload) {
    FakeWorld world;
    world.messages.Answer(kOK);  // translate
    LoadBytes(world, Regression("translated-ticket-count.tly"));
    EXPECT_EQ(RF.TicketCount, 0);
    EXPECT_EQ(RF.Ticket(2).TicketBettor, 1);
    WriteRaceFile();
    EXPECT_EQ(G.CancelFlag, Flag(false));
    world.messages.Clear();
    const std::string saved = world.files.files[kCardPath];
    LoadBytes(world, saved);
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{LoopError("%Bet   `", 26, "Subscript out of range")});
}

TEST(RaceFileRegressions, TextsSavedUncleanedChangeOnceMore) {
    // RecoveryFile is written as it stands; a double quote in it ends the text when read back.
    FakeWorld world;
    LoadBytes(world, Regression("recovery-file-name-with-a-quote.tly"));
    EXPECT_EQ(RF.RecoveryFile, "\x1f\"");
    WriteRaceFile();
    LoadBytes(world, world.files.files[kCardPath]);
    EXPECT_EQ(RF.RecoveryFile, "\x1f");
}

TEST(RaceFileRegressions, ATicketZeroWithABettorComesToRestAtTheSecondSave) {
    // A bet naming ticket 0 gives that ticket a bettor: every empty slot up to MaxBets is then
    // written as one of that bettor's bets, and read back as a bet.
    FakeWorld world;
    LoadBytes(world, Regression("ticket-zero-with-a-bettor.tly"));
    EXPECT_NE(RF.Ticket(0).TicketBettor, 0);
    std::vector<std::string> saves;
    for (int i = 0; i < 3; ++i) {
        WriteRaceFile();
        saves.push_back(world.files.files[kCardPath]);
        LoadBytes(world, saves.back());
    }
    EXPECT_NE(saves[1], saves[0]);
    EXPECT_EQ(saves[2], saves[1]);
}

}  // namespace
}  // namespace tt::test
