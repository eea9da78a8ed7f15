// List Bets: the filters, the grid with its separators and order, the picks text, Across the
// Board under Win, Place and Show, the totals and the due sentence, and what the window hides.

#include "betting/betting_state.h"
#include "large_card.h"
#include "model/common.h"
#include "report_card.h"
#include "reports/list_bets_logic.h"
#include "shell/main_commands.h"

namespace tt::test {
namespace {

class ListBets : public ReportCard {
  protected:
    void SetUp() override {
        ReportCard::SetUp();
        WinnersOnly = false;
    }
    // The window opened on a filter: race (0 all), bettor slot (0 all), bet type (0 all).
    void Open(int race, int bettor = 0, int type = 0) {
        list.Form_Load();
        Choose(list.comRaceName, race);
        list.comRaceName_Click();
        Choose(list.comBettor, bettor);
        list.comBettor_Click();
        Choose(list.comBetType, type);
        list.comBetType_Click();
    }
    static void Choose(ListData& l, std::int64_t data) {
        SelectByItemData(l, data);
        ASSERT_TRUE(l.HasSelection()) << "no entry " << data;
    }
    ListBetsLogic list;
};

using V = std::vector<std::string>;

// ---- The grid ----------------------------------------------------------------------------------

TEST_F(ListBets, RowsOfATicketAndTheSeparatorBehindThem) {
    Race(3, {1, 2, 3, 4}, {1, 2, 3}, "Derby");
    const int ann = Bettor("Ann");
    const auto t = Ticket(3, ann, 12, 0);
    Bet(t, 1, 2, {2});
    Bet(t, 4, 1.5, {1, 3}, true);
    Open(3);
    ASSERT_EQ(list.flxBets.Rows(), 4);
    EXPECT_EQ(Row(list.flxBets, 0),
              (V{"", "", "Ticket", "Race", "Bettor", "Coll'd", "Dist'd", "Tot Bet", "Won",
                 "Bet Amt", "Bet Type", "Box", "Picks", ""}));
    EXPECT_EQ(Row(list.flxBets, 1), (V{"3", "1", "1", " 3 - Derby", "Ann", "12.00", ".00", "2.00",
                                       ".00", "2.00", "Win", "", "2 ", "        1"}));
    EXPECT_EQ(Row(list.flxBets, 2), (V{"3", "2", "1", " 3 - Derby", "Ann", "12.00", ".00", "3.00",
                                       ".00", "1.50", "Exacta", "  x", "1,3 ", "        1"}));
    EXPECT_EQ(Row(list.flxBets, 3),
              (V{"", "", "", "", "", "", "", "", "", "", "", "", "", "        1a"}));
    EXPECT_TRUE(list.IsSeparatorRow(3));
    EXPECT_FALSE(list.IsSeparatorRow(2));
    EXPECT_EQ(list.flxBets.RowHeight(3), 10);
    EXPECT_EQ(list.flxBets.RowHeight(2), -1);
    EXPECT_EQ(list.flxBets.Row(), 1);
    const std::vector<int> widths = {0,   0,   600, 800, 800, 700,  700,
                                     700, 700, 700, 750, 400, 2500, 0};
    for (int c = 0; c < 14; ++c) EXPECT_EQ(list.flxBets.ColWidth(c), widths[c]) << c;
}

TEST_F(ListBets, TicketsInNumberOrderEachFollowedByItsSeparator) {
    Race(1, {1}, {1, 2});
    const int b = Bettor("Bo");
    const auto t1 = Ticket(1, b, 0, 0, 30), t2 = Ticket(1, b, 0, 0, 4),
               t3 = Ticket(1, b, 0, 0, 100);
    Bet(t1, 1, 1, {1}), Bet(t2, 1, 2, {1}), Bet(t1, 1, 3, {2}), Bet(t3, 1, 4, {2});
    Open(1);
    EXPECT_EQ(Column(list.flxBets, 2), (V{"4", "", "30", "30", "", "100", ""}));
    EXPECT_EQ(Column(list.flxBets, 9), (V{"2.00", "", "1.00", "3.00", "", "4.00", ""}));
}

// The grid built in the order of its sort key is the grid the generic sort gives: tickets in
// any order of their numbers, numbers that repeat, and bets of a ticket spread over the slots.
TEST_F(ListBets, BuiltOrderEqualsTheGenericSort) {
    Race(1, {1, 2, 3}, {1, 2, 3});
    Race(2, {1, 4}, {1, 2, 3});
    const int a = Bettor("A"), b = Bettor("B");
    const std::int32_t numbers[] = {7, 3, 12, 3, 99999999, 0, 12, 45, 1000, 7};
    std::vector<std::int64_t> tickets;
    for (int i = 0; i < 10; ++i)
        tickets.push_back(Ticket(1 + i % 2, i % 3 ? a : b, i, 0, numbers[i]));
    for (int round = 0; round < 3; ++round)
        for (std::size_t i = 0; i < tickets.size(); ++i)
            if ((i + round) % 4 != 3) Bet(tickets[i], 1, 1 + round, {1 + round});
    Open(0);
    const GridData built = list.flxBets;
    list.BuildBetList(ListBetsLogic::RowOrder::kGenericSort);
    ASSERT_EQ(built.Rows(), list.flxBets.Rows());
    for (int r = 0; r < built.Rows(); ++r) {
        EXPECT_EQ(Row(built, r), Row(list.flxBets, r)) << "row " << r;
        EXPECT_EQ(built.RowHeight(r), list.flxBets.RowHeight(r)) << "row " << r;
    }
    EXPECT_EQ(Column(built, 2).front(), "0");
}

// The same on a generated card whose ticket numbers are scrambled and often repeat, for every
// race and with winners only.
TEST_F(ListBets, BuiltOrderEqualsTheGenericSortOnAGeneratedCard) {
    bench::CardShape shape;
    shape.bettors = 40, shape.tickets = 900, shape.bets = 3000;
    bench::MakeLargeCard(shape);
    for (std::int64_t t = 1; t <= RF.TicketCount; ++t)
        RF.Ticket(t).TicketNbr = static_cast<std::int32_t>((t * 7919) % 613);
    for (int race : {0, 3, 7}) {
        for (bool winners : {false, true}) {
            WinnersOnly = winners;
            Open(race);
            const GridData built = list.flxBets;
            list.BuildBetList(ListBetsLogic::RowOrder::kGenericSort);
            ASSERT_EQ(built.Rows(), list.flxBets.Rows());
            ASSERT_GT(built.Rows(), 20) << race << " " << winners;
            for (int r = 0; r < built.Rows(); ++r)
                ASSERT_EQ(Row(built, r), Row(list.flxBets, r)) << race << " row " << r;
        }
    }
}

// Numbers whose keys no longer sort as numbers are left to the generic sort itself.
TEST_F(ListBets, TicketNumbersBeyondEightDigitsGoThroughTheGenericSort) {
    Race(1, {1}, {1});
    const int a = Bettor("A");
    Bet(Ticket(1, a, 0, 0, 123456789), 1, 1, {1});
    Bet(Ticket(1, a, 0, 0, 12345678), 1, 2, {1});
    Open(1);
    // The key of 123456789 is " 123456789 ", whose separator sorts before that of 12345678.
    EXPECT_EQ(Column(list.flxBets, 13),
              (V{" 12345678", " 123456789 ", " 123456789 a", " 12345678a"}));
}

TEST_F(ListBets, ATicketWithBetsOfTwoRacesListsUnderItsOwnRaceOnly) {
    Race(1, {1, 6}, {1, 2});
    Race(2, {1}, {1, 2});
    const int a = Bettor("A");
    const auto t = Ticket(1, a);
    Bet(t, 1, 1, {1});
    Bet(t, 6, 2, {1, 2});
    Bet(t, 1, 5, {2}, false, 2);  // a slot of race 2 that names the ticket
    Open(2);
    EXPECT_EQ(list.flxBets.Rows(), 1);
    Open(1);
    EXPECT_EQ(Column(list.flxBets, 10), (V{"Win", "Daily Double", ""}));
    Open(0);
    EXPECT_EQ(Column(list.flxBets, 3), (V{" 1 - Race1", " 1 - Race1", ""}));
}

TEST_F(ListBets, BetsOfAnotherTicketInTheSlotsAreLeftOut) {
    Race(1, {1}, {1});
    const int a = Bettor("A"), b = Bettor("B");
    const auto t1 = Ticket(1, a), t2 = Ticket(1, b);
    Bet(t1, 1, 1, {1});
    Bet(t2, 1, 2, {1});
    Bet(t1, 1, 3, {1});  // ticket 1 spans slots 1 to 3, slot 2 is ticket 2's
    Open(1, a);
    EXPECT_EQ(Column(list.flxBets, 9), (V{"1.00", "3.00", ""}));
    // A ticket that no longer counts is never listed.
    RF.Ticket(t1).TicketBettor = 0;
    Open(1);
    EXPECT_EQ(Column(list.flxBets, 9), (V{"2.00", ""}));
}

// ---- Across the Board ------------------------------------------------------------------------

TEST_F(ListBets, AcrossTheBoardUnderWinPlaceAndShowShowsAThirdAndThatPart) {
    Race(1, {1, 2, 3}, {1, 2});
    const int a = Bettor("A");
    const auto t = Ticket(1, a, 7, 0);
    const auto atb = Bet(t, 11, 1, {1});  // costs 3.00
    Bet(t, 1, 2, {1});
    B(1, atb).WinPart = C(4.5), B(1, atb).PlacePart = C(2.25), B(1, atb).ShowPart = C(1.1);
    B(1, atb).BetWinnings = C(7.85);
    struct Case {
        int type;
        V won;
        std::string total, totalWon;
    } cases[] = {{1, {"4.50", ".00"}, "3.00", "4.50"},
                 {2, {"2.25"}, "1.00", "2.25"},
                 {3, {"1.10"}, "1.00", "1.10"}};
    for (const Case& c : cases) {
        Open(1, 0, c.type);
        V won = c.won;
        won.push_back("");
        EXPECT_EQ(Column(list.flxBets, 7).front(), "1.00") << c.type;
        EXPECT_EQ(Column(list.flxBets, 8), won) << c.type;
        EXPECT_EQ(list.lblTotal.text, c.total) << c.type;
        EXPECT_EQ(list.lblWon.text, c.totalWon) << c.type;
        EXPECT_FALSE(list.lblCollected.visible);
    }
    // Under its own type, and with no type, the whole bet.
    Open(1, 0, 11);
    EXPECT_EQ(Column(list.flxBets, 7), (V{"3.00", ""}));
    EXPECT_EQ(Column(list.flxBets, 8), (V{"7.85", ""}));
}

// A third of the cost goes through floating point, and so does its total.
TEST_F(ListBets, AThirdOfAnOddCost) {
    Race(1, {1, 2, 3}, {1});
    const int a = Bettor("A");
    const auto t = Ticket(1, a);
    Bet(t, 11, 0.5, {1});         // 1.50: a third is .50
    Bet(t, 11, 1, {1});           // 3.00
    RF.Bet(1, 1).BetCost = C(1);  // 0.3333...
    Open(1, 0, 2);
    EXPECT_EQ(Column(list.flxBets, 7), (V{".33", "1.00", ""}));
    EXPECT_EQ(list.lblTotal.text, "1.33");
}

// ---- Totals, the due sentence and what is hidden -----------------------------------------------

TEST_F(ListBets, CollectedCountsOncePerTicket) {
    Race(1, {1, 2}, {1, 2});
    const int a = Bettor("A");
    const auto t = Ticket(1, a, 10, 1.5);
    Bet(t, 1, 2, {1}), Bet(t, 2, 3, {2}), Bet(t, 1, 4, {2});
    B(1, 3).BetWinnings = C(4.25);
    Open(0);
    EXPECT_EQ(Column(list.flxBets, 5), (V{"10.00", "10.00", "10.00", ""}));
    EXPECT_EQ(list.lblTotal.text, "9.00");
    EXPECT_EQ(list.lblWon.text, "4.25");
    EXPECT_EQ(list.lblCollected.text, "10.00");
    EXPECT_EQ(list.lblDistributed.text, "1.50");
    // 9.00 - 10.00 + 1.50 - 4.25
    EXPECT_EQ(list.lblDue.text, "A net of 3.75 is owed out for listed bets.");
    for (auto* c : {&list.lblCollectedCap, &list.lblCollected, &list.lblDistributedCap,
                    &list.lblDistributed, &list.lblDue})
        EXPECT_TRUE(c->visible);
    EXPECT_EQ(list.flxBets.ColWidth(5), 700);
}

TEST_F(ListBets, NetDueInAndNetExactlyZeroKeepsTheOldSentence) {
    Race(1, {1}, {1});
    const int a = Bettor("A"), b = Bettor("B");
    Bet(Ticket(1, a, 0), 1, 5, {1});
    Bet(Ticket(1, b, 2), 1, 2, {1});
    Open(1, a);
    EXPECT_EQ(list.lblDue.text, "A net of 5.00 is due in for listed bets.");
    Choose(list.comBettor, b);
    list.comBettor_Click();
    EXPECT_EQ(list.lblTotal.text, "2.00");
    EXPECT_EQ(list.lblCollected.text, "2.00");
    EXPECT_EQ(list.lblDue.text, "A net of 5.00 is due in for listed bets.");
}

TEST_F(ListBets, CollectedAndDistributedHiddenForPartOfATicket) {
    Race(1, {1, 2}, {1});
    const int a = Bettor("A"), nobody = Bettor("B");
    const auto t = Ticket(1, a, 5);
    Bet(t, 1, 2, {1}), Bet(t, 2, 3, {1});
    B(1, 1).BetWinnings = C(6);
    auto hidden = [&] {
        return !list.lblCollectedCap.visible && !list.lblCollected.visible &&
               !list.lblDistributedCap.visible && !list.lblDistributed.visible &&
               !list.lblDue.visible && list.flxBets.ColWidth(5) == 0 &&
               list.flxBets.ColWidth(6) == 0;
    };
    Open(1, 0, 1);
    EXPECT_TRUE(hidden()) << "a bet type";
    Open(1);
    EXPECT_FALSE(hidden());
    list.optWinnersOnly_Click();
    EXPECT_TRUE(hidden()) << "winners only";
    EXPECT_EQ(Column(list.flxBets, 10), (V{"Win", ""}));
    list.optAllBets_Click();
    EXPECT_FALSE(hidden());
    Open(1, nobody);
    EXPECT_TRUE(hidden()) << "no rows";
}

TEST_F(ListBets, ErasedBetsStayWithoutAFilterWithAnEmptyType) {
    Race(1, {1}, {1});
    const int a = Bettor("A");
    const auto t = Ticket(1, a);
    Bet(t, 1, 2, {1});
    const auto erased = Bet(t, 1, 3, {1});
    ClearBet(1, erased);
    Open(1);
    EXPECT_EQ(Column(list.flxBets, 10), (V{"Win", "", ""}));
    EXPECT_EQ(Column(list.flxBets, 9), (V{"2.00", ".00", ""}));
    Open(1, 0, 1);
    EXPECT_EQ(Column(list.flxBets, 10), (V{"Win", ""}));
}

// ---- Picks -------------------------------------------------------------------------------------

TEST_F(ListBets, PicksAndHowAnExoticBetDid) {
    Race(1, {1, 2, 3, 4, 5}, {1, 2, 3, 4, 5});
    const int a = Bettor("A");
    const auto t = Ticket(1, a);
    const auto exacta = Bet(t, 4, 1, {3, 5});
    const auto trifecta = Bet(t, 5, 1, {3, 5, 1});
    const auto box = Bet(t, 4, 1, {3, 5, 2}, true);
    const auto none = Bet(t, 4, 1, {1, 2});
    const auto win = Bet(t, 1, 1, {3});
    const auto atb = Bet(t, 11, 1, {3});
    const auto noPick = Bet(t, 11, 1, {});
    BetRec& e = B(1, exacta);
    e.CorrectPicks = 2, e.WinningCombos = 1;
    B(1, trifecta).CorrectPicks = 2, B(1, trifecta).WinningCombos = 1;
    B(1, box).CorrectPicks = 2, B(1, box).WinningCombos = 4;
    B(1, win).CorrectPicks = 1, B(1, atb).CorrectPicks = 1;
    RF.Race(1).CorrectPaid(4) = 2;
    RF.Race(1).CorrectPaid(5) = 3;

    auto picks = [&](std::int64_t slot) { return ListBetsLogic::PicksText(1, B(1, slot)); };
    // Before results: no bracket.
    EXPECT_EQ(picks(exacta), "3,5 ");
    Result(1, {3, 5, 1});
    EXPECT_EQ(picks(exacta), "3,5  (2 correct,  1 winning bet)");
    EXPECT_EQ(picks(trifecta), "3,5,1  (2 correct, not a winner)");
    EXPECT_EQ(picks(box), "3,5,2  (2 correct, 4 winning bets)");
    EXPECT_EQ(picks(none), "1,2 ");  // 0 correct
    EXPECT_EQ(picks(win), "3 ");
    EXPECT_EQ(picks(atb), "3 ");
    EXPECT_EQ(picks(noPick), " ");
}

TEST_F(ListBets, MultiRacePicksReadTheirOwnRacesCorrectPaid) {
    Race(1, {6}, {1, 2});
    Race(2, {6}, {1, 2});
    const auto t = Ticket(1, Bettor("A"));
    const auto dd = Bet(t, 6, 2, {1, 2});
    B(1, dd).CorrectPicks = 2, B(1, dd).WinningCombos = 1;
    Result(1, {1});
    Result(2, {2});
    RF.Race(2).CorrectPaid(6) = 2;  // the pool paid under its last race
    EXPECT_EQ(ListBetsLogic::PicksText(1, B(1, dd)), "1,2  (2 correct, not a winner)");
}

// ---- Filters and the window --------------------------------------------------------------------

TEST_F(ListBets, FiltersAsTheWindowOpens) {
    Race(2, {1, 2, 3, 4}, {1}, "Second");
    Race(5, {1, 3}, {1}, "Fifth");
    Bettor("zed"), Bettor("Amy"), Bettor("");
    RF.DefaultRace = 0;
    G.MainHeight = 9000, G.MainWidth = 7000;
    list.Form_Load();
    EXPECT_EQ(list.caption, "List Bets");
    EXPECT_EQ(list.Height, 7000);
    EXPECT_EQ(list.Width, 7700);
    EXPECT_EQ(list.comRaceName.Items().size(), 3u);
    EXPECT_EQ(list.comRaceName.Text(), "   2 - Second");
    EXPECT_EQ(RF.DefaultRace, 2);
    EXPECT_EQ(G.CurrentRace, 2);
    EXPECT_EQ(list.chkDefault.value, 1);
    EXPECT_EQ(list.comBettor.List(0), " All Bettors");
    EXPECT_EQ(list.comBettor.List(1), "Amy");
    EXPECT_EQ(list.comBettor.List(2), "zed");
    EXPECT_EQ(list.comBettor.ListCount(), 3);
    EXPECT_EQ(list.comBettor.Text(), " All Bettors");
    auto types = [&] {
        std::vector<std::string> t;
        for (const auto& item : list.comBetType.Items()) t.push_back(item.text);
        return t;
    };
    EXPECT_EQ(types(), (V{"All Bet Types", "Win", "Place", "Show", "Across the Board", "Exacta"}));
    EXPECT_EQ(list.comBetType.ListIndex(), 0);
    EXPECT_EQ(list.optAllBets.value, -1);

    Choose(list.comRaceName, 5);
    list.comRaceName_Click();
    EXPECT_EQ(types(), (V{"All Bet Types", "Win", "Show"}));
    EXPECT_EQ(list.chkDefault.value, 0);
    list.chkDefault.value = 1;
    list.chkDefault_Click();
    EXPECT_EQ(RF.DefaultRace, 5);
    Choose(list.comRaceName, 0);
    list.comRaceName_Click();
    EXPECT_EQ(types().size(), 12u);  // all ten and Across the Board
    EXPECT_EQ(G.CurrentRace, 0);
    list.chkDefault.value = 1;
    list.chkDefault_Click();
    EXPECT_EQ(list.chkDefault.value, 0);
    EXPECT_EQ(RF.DefaultRace, 5);

    G.MainHeight = 5000, G.MainWidth = 12000;
    list.Form_Load();
    EXPECT_EQ(list.Height, 3500);
    EXPECT_EQ(list.Width, 11600);
}

TEST_F(ListBets, WinnersOnlyIsKeptUntilTheMenuOpensTheListAgain) {
    Race(1, {1}, {1});
    const auto t = Ticket(1, Bettor("A"));
    Bet(t, 1, 2, {1}), Bet(t, 1, 3, {1});
    B(1, 2).BetWinnings = C(1);
    Open(1);
    list.optWinnersOnly_Click();
    ListBetsLogic again;
    again.Form_Load();
    EXPECT_EQ(again.optWinnersOnly.value, -1);
    EXPECT_EQ(Column(again.flxBets, 9), (V{"3.00", ""}));
    mnuViewListBets_Click();
    EXPECT_FALSE(WinnersOnly);
    EXPECT_EQ(world.shell.formsShown.back(), "frmListBets");
    // Brought to the front the list follows the flag, and so do its option buttons.
    again.Form_Activate();
    EXPECT_EQ(again.optAllBets.value, -1);
    EXPECT_EQ(Column(again.flxBets, 9), (V{"2.00", "3.00", ""}));
}

TEST_F(ListBets, ClickShowsTheBetOfTheRow) {
    Race(4, {1}, {1});
    const auto t = Ticket(4, Bettor("A"));
    Bet(t, 1, 2, {1}), Bet(t, 1, 3, {1});
    Open(4);
    Betting.LoadedTranBet = 9;
    list.flxBets_Click(0);
    EXPECT_TRUE(world.shell.formsShown.empty());
    G.CurrentRace = 0;
    list.flxBets_Click(2);
    EXPECT_EQ(G.CurrentRace, 4);
    EXPECT_EQ(G.CurrentBet, 2);
    EXPECT_EQ(Betting.LoadedTranBet, 0);
    EXPECT_EQ(world.shell.formsShown, (V{"frmBetDisplay (modal)"}));
}

}  // namespace
}  // namespace tt::test
