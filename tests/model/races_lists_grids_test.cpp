// The shared procedures over races, bets, tickets, lists and grids, and the keyboard and
// question helpers.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "model/common.h"
#include "model/race_file.h"
#include "support/fakes.h"

namespace tt {
namespace {

std::vector<std::string> Entries(const ListData& l) {
    std::vector<std::string> out;
    for (const auto& i : l.Items()) out.push_back(i.text + "=" + std::to_string(i.itemData));
    return out;
}

TEST(Races, DefaultAndCurrentRace) {
    test::FakeWorld world;
    RF.Race(3).RaceName = "Third";
    RF.Race(5).RaceName = "Fifth";
    const std::vector<std::pair<int, int>> cases{{1, 3}, {0, 3}, {4, 5}, {5, 5}, {6, 6}};
    for (auto [given, expected] : cases) {
        RF.DefaultRace = given;
        MakeDefaultRaceValid();
        EXPECT_EQ(RF.DefaultRace, expected) << given;
    }
    RF.DefaultRace = 4;
    G.CurrentRace = 9;
    SetCurrentRaceToDefault();
    EXPECT_EQ(RF.DefaultRace, 5);
    EXPECT_EQ(G.CurrentRace, 5);

    EXPECT_EQ(LastFinishedRace(), 0);
    RF.Race(2).Result(1) = 1;
    RF.Race(7).Result(1) = 4;
    RF.Race(9).Result(2) = 1;  // only the winner counts
    EXPECT_EQ(LastFinishedRace(), 7);
}

TEST(Races, RunnersAreCountedInTheCurrentRace) {
    test::FakeWorld world;
    RF.Racer.ReDim(4);
    RF.MaxRacers = 3;
    RF.Racer(3, 1).RacerName = "A";
    RF.Racer(3, 2).RacerName = "B";
    RF.Racer(3, 2).Scratched = true;
    RF.Racer(3, 3).BetNbr = 3;                                    // no name
    for (int n = 1; n <= 4; ++n) RF.Racer(7, n).RacerName = "R";  // slot 4 is past MaxRacers
    G.CurrentRace = 3;
    EXPECT_EQ(RunnersInRace(7), 1);
    EXPECT_EQ(RunnersInRace(0), 0);
    EXPECT_EQ(RunnersInRace(21), 0);
    G.CurrentRace = 7;
    EXPECT_EQ(RunnersInRace(3), 3);
}

TEST(Bets, ClearBetKeepsTicketAndWinnings) {
    test::FakeWorld world;
    BetRec& b = RF.Bet(2, 1);
    b.BetAmt = Currency::FromInt(2);
    b.BetCost = Currency::FromInt(12);
    b.BetType = 5;
    b.Boxed = true;
    for (int k = 1; k <= 6; ++k) b.Pick(k) = k;
    b.BetWinnings = Currency::FromRaw(123456);
    b.WinPart = Currency::FromRaw(7);
    b.CorrectPicks = 3;
    b.TicketIdx = 9;
    ClearBet(2, 1);
    EXPECT_EQ(b.BetAmt.Raw(), 0);
    EXPECT_EQ(b.BetCost.Raw(), 0);
    EXPECT_EQ(b.BetType, 0);
    EXPECT_FALSE(bool(b.Boxed));
    for (int k = 1; k <= 6; ++k) EXPECT_EQ(b.Pick(k), 0);
    EXPECT_EQ(b.BetWinnings.Raw(), 123456);
    EXPECT_EQ(b.WinPart.Raw(), 7);
    EXPECT_EQ(b.CorrectPicks, 3);
    EXPECT_EQ(b.TicketIdx, 9);
}

TEST(Bets, RecalcAllTicketsSumsLiveBetsOfTheTicketInItsRace) {
    test::FakeWorld world;
    RF.Bet.ReDim(5);
    RF.Ticket.ReDim(3);
    RF.TicketCount = 2;
    auto bet = [](int race, int slot, int ticket, int type, std::int64_t cost, std::int64_t won) {
        BetRec& b = RF.Bet(race, slot);
        b.TicketIdx = ticket;
        b.BetType = type;
        b.BetCost = Currency::FromRaw(cost);
        b.BetWinnings = Currency::FromRaw(won);
    };
    bet(1, 1, 1, 1, 20000, 50000);
    bet(1, 2, 2, 1, 70000, 0);      // another ticket inside ticket 1's range
    bet(1, 3, 1, 0, 30000, 30000);  // deleted
    bet(1, 4, 1, 4, 10000, 1);
    bet(2, 1, 1, 6, 90000, 90000);  // ticket 1's number in another race
    TicketRec& t1 = RF.Ticket(1);
    t1.TicketRace = 1;
    t1.FirstBet = 1;
    t1.LastBet = 4;
    t1.TicketCost = Currency::FromInt(99);
    t1.Collected = Currency::FromInt(5);
    TicketRec& t2 = RF.Ticket(2);
    t2.TicketRace = 1;
    t2.FirstBet = 2;
    t2.LastBet = 2;
    t2.TicketBettor = 0;  // no longer counts, yet it is summed too
    RecalcAllTickets();
    EXPECT_EQ(t1.TicketCost.Raw(), 30000);
    EXPECT_EQ(t1.Winnings.Raw(), 50001);
    EXPECT_EQ(t1.Collected.Raw(), 50000);
    EXPECT_EQ(t2.TicketCost.Raw(), 70000);
    EXPECT_EQ(t2.Winnings.Raw(), 0);
}

TEST(Lists, RaceComboSelectsTheDefaultRace) {
    test::FakeWorld world;
    ListData list;
    RF.DefaultRace = 1;
    BuildRaceCombo(list, true);
    EXPECT_EQ(Entries(list), std::vector<std::string>{"All Races=0"});
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(G.CurrentRace, 1);

    RF.Race(2).RaceName = "Opener";
    RF.Race(10).RaceName = "Derby";
    BuildRaceCombo(list, true);
    EXPECT_EQ(Entries(list),
              (std::vector<std::string>{"All Races=0", "   2 - Opener=2", "  10 - Derby=10"}));
    EXPECT_EQ(RF.DefaultRace, 2);
    EXPECT_EQ(G.CurrentRace, 2);
    EXPECT_EQ(list.ListIndex(), 1);
    RF.DefaultRace = 10;
    BuildRaceCombo(list, false);
    EXPECT_EQ(list.ListCount(), 2);
    EXPECT_EQ(list.Text(), "  10 - Derby");
}

TEST(Lists, BetTypeComboForReports) {
    test::FakeWorld world;
    ClearRaceFile();
    ListData list;
    RF.Race(3).BetType(2) = false;  // no Place, so no Across the Board
    RF.Race(3).BetType(4) = true;
    RF.Race(3).BetType(6) = true;
    RF.Race(2).BetType(6) = true;
    BuildBetTypeCombo(list, true, true, true, true, 3);
    EXPECT_EQ(Entries(list), (std::vector<std::string>{
                                 "All Bet Types=0", "Betting Pools=99", "Win=1", "Show=3",
                                 "Exacta=4", "Daily Double=6", "Daily Double (prior race)=62"}));
    EXPECT_EQ(list.ListIndex(), 0);

    BuildBetTypeCombo(list, false, false, true, true, 4);  // race 3 offers the double
    EXPECT_EQ(Entries(list),
              (std::vector<std::string>{"Win=1", "Place=2", "Show=3", "Across the Board=11",
                                        "Daily Double (prior race)=62"}));
    BuildBetTypeCombo(list, false, false, false, true, 3);
    EXPECT_EQ(list.ListCount(), 5);  // Win, Show, Exacta, Daily Double and the prior double
    BuildBetTypeCombo(list, false, false, true, true, 1);  // race 0 offers no double
    EXPECT_EQ(Entries(list).back(), "Across the Board=11");

    BuildBetTypeCombo(list, false, false, true, true, 0);
    EXPECT_EQ(list.ListCount(), 12);
    EXPECT_EQ(list.List(3), "Across the Board");
    EXPECT_EQ(list.List(11), "Daily Double (prior race)");

    for (int t = 1; t <= 10; ++t) RF.Race(5).BetType(t) = false;
    BuildBetTypeCombo(list, false, false, true, false, 5);
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST(Lists, SelectByItemDataTakesTheFirstMatch) {
    ListData list;
    list.AddItem("a", 5);
    list.AddItem("b", 7);
    list.AddItem("c", 7);
    SelectByItemData(list, 7);
    EXPECT_EQ(list.ListIndex(), 1);
    SelectByItemData(list, 9);
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST(Keyboard, NumericKeyFilter) {
    test::FakeWorld world;
    for (int key : {8, 13, 32, 46, 48, 57, 128, 200}) EXPECT_EQ(NumericKeyFilter(key, false), key);
    EXPECT_EQ(NumericKeyFilter(45, true), 45);
    EXPECT_EQ(world.messages.beeps, 0);
    for (int key : {45, 33, 43, 44, 47, 58, 65, 101, 127})
        EXPECT_EQ(NumericKeyFilter(key, false), 0);
    EXPECT_EQ(world.messages.beeps, 9);
}

TEST(Question, KeepChangesAsksOnlyWhenChanged) {
    test::FakeWorld world;
    EXPECT_EQ(KeepChangesQuestion(false, "Race Card Setup"), 0);
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(world.messages.beeps, 0);

    world.messages.Answer(kNo);
    EXPECT_EQ(KeepChangesQuestion(true, "Race Card Setup"), kNo);
    ASSERT_EQ(world.messages.shown.size(), 1u);
    const MessageRequest& r = world.messages.shown[0];
    EXPECT_EQ(r.text, "Do you wish to keep your changes?");
    EXPECT_EQ(r.title, "Race Card Setup");
    EXPECT_EQ(r.buttons, Buttons::kYesNoCancel);
    EXPECT_EQ(world.messages.beeps, 1);

    world.messages.Answer(kCancel);
    EXPECT_EQ(KeepChangesQuestion(true, "Bettors", "Save this bettor?"), kCancel);
    EXPECT_EQ(world.messages.shown.back().text, "Save this bettor?");
}

std::string Alignments(const GridData& g) {
    std::string s;
    for (int r = 0; r < g.Rows(); ++r) {
        for (int c = 0; c < g.Cols(); ++c) s += "GLCR"[static_cast<int>(g.CellAlignment(r, c))];
        s += '/';
    }
    return s;
}

TEST(Grids, AlignmentBlocksAreClampedToTheGrid) {
    GridData g;
    g.SetRows(4);
    g.SetCols(3);
    CenterGridCells(g, -5, -1, -2, 1);
    EXPECT_EQ(Alignments(g), "CCG/CCG/CCG/CCG/");
    RightGridCells(g, 1, 99, 2, 99);
    EXPECT_EQ(Alignments(g), "CCG/CCR/CCR/CCR/");
    g.Clear();
    RightGridCells(g, 3, 2, 0, 0);  // corners in either order
    EXPECT_EQ(Alignments(g), "GGG/GGG/RGG/RGG/");
    GridData empty;
    empty.SetRows(0);
    CenterGridCells(empty, 0, -1, 0, -1);  // nothing to align, no error
}

std::vector<std::string> Column(const GridData& g, int col) {
    std::vector<std::string> out;
    for (int r = 1; r < g.Rows(); ++r) out.push_back(g.TextMatrix(r, col));
    return out;
}

TEST(Grids, GenericSortNumbersOnlyWhenBothAreNumbers) {
    GridData g;
    g.SetRows(1);
    for (const char* row : {"10\ta", "9\tb", "-1.5\tc", " 2\td", "2.\te", "1E5\tf", "+.5\tg"})
        g.AddItem(row);
    g.SortAscending(1, 3, 0, 0);  // the three rows 10, 9, -1.5 only
    EXPECT_EQ(Column(g, 0),
              (std::vector<std::string>{"-1.5", "9", "10", " 2", "2.", "1E5", "+.5"}));
    g.SortAscending(4, 5, 0, 0);  // " 2" and "2." are equal numbers and keep their order
    EXPECT_EQ(Column(g, 1)[3], "d");
    g.SortAscending(5, 6, 0, 0);  // "1E5" is text, and "1" comes before "2"
    EXPECT_EQ(Column(g, 0)[4], "1E5");

    double v = 0;
    EXPECT_TRUE(SortsAsNumber(" +3 ", v));
    EXPECT_EQ(v, 3.0);
    for (const char* text : {"1E5", ".", "-", "", "1.2.3", "1 2", "$5"})
        EXPECT_FALSE(SortsAsNumber(text, v)) << text;
    EXPECT_TRUE(SortsAsNumber("1" + std::string(400, '0'), v));
    EXPECT_GT(v, 1e300);
}

TEST(Grids, BetListingKeysPutTheSeparatorBehindItsTicket) {
    // The keys of the bet listing: PadNumber of the ticket number at width 10, and the same
    // followed by "a" for the separator row; ties keep their order and a second column breaks
    // none of them.
    GridData g;
    g.SetRows(1);
    auto key = [](int ticket) { return PadNumber(Str(ticket), 10); };
    for (const std::string& row :
         {key(12) + "\tA", key(12) + "\tB", key(12) + "a\t-", key(100) + "\tD", key(100) + "a\t-",
          key(9) + "\tC", key(9) + "a\t-"})
        g.AddItem(row);
    g.SortAscending(1, g.Rows() - 1, 0, 0);
    EXPECT_EQ(Column(g, 1), (std::vector<std::string>{"C", "-", "A", "B", "-", "D", "-"}));
    g.SortAscending(1, g.Rows() - 1, 1, 0);  // columns in either order: by key, then letter
    EXPECT_EQ(Column(g, 1), (std::vector<std::string>{"C", "-", "A", "B", "-", "D", "-"}));
}

}  // namespace
}  // namespace tt
