// Display Odds: every grid as the window shows it after its sort, the race and bet type lists,
// "No races to display", "Set as default", and Auto Run's pages, bet types and races.

#include "payout_card.h"
#include "payouts/display_odds_logic.h"
#include "payouts/odds_grids.h"

namespace tt::test {
namespace {

using V = std::vector<std::string>;

V Row(const GridData& g, int r) {
    V cells;
    for (int c = 0; c < g.Cols(); ++c) cells.push_back(g.TextMatrix(r, c));
    return cells;
}
std::vector<int> Widths(const GridData& g) {
    std::vector<int> w;
    for (int c = 0; c < g.Cols(); ++c) w.push_back(g.ColWidth(c));
    return w;
}
V Items(const ListData& l) {
    V v;
    for (const auto& i : l.Items()) v.push_back(i.text + "=" + std::to_string(i.itemData));
    return v;
}

// Race 1 offers Win, Place, Exacta and the Daily Double into race 2, with #3, #1, #2 and a
// scratched #1 in slots 1 to 4; race 2 offers Win, Place and Show.
class DisplayOdds : public PayoutCard {
  protected:
    void SetUp() override {
        PayoutCard::SetUp();
        Race(1, {1, 2, 4, 6}, {3, 1, 2, 1});
        Race(2, {1, 2, 3}, {1, 2});
        RF.Racer(1, 4).Scratched = true;
        RF.Racer(1, 1).Odds = 2.5;
        RF.Racer(1, 3).Odds = 7.4;
        RF.Racer(1, 4).Odds = 1.2;
        Bet(1, 1, 6, {1});
        Bet(1, 1, 2, {3});
        Bet(1, 2, 4, {1});
        Bet(1, 2, 3, {9});  // nobody bears 9
        Bet(1, 4, 2, {1, 3});
        Bet(1, 6, 5, {1, 1});
    }
    GridData Grid(int race, int item) {
        GridData g;
        FillOddsGrid(race, item, g);
        return g;
    }
};

// ---- The grids ------------------------------------------------------------------------------

TEST_F(DisplayOdds, WinGridSortsOnTheHiddenLabelAndMarksScratchesBeforeFigures) {
    GridData g = Grid(1, 1);
    EXPECT_EQ(Row(g, 0), (V{"Bet#", "Horse Name", "Cur Odds", "Hcap Odds", ""}));
    EXPECT_EQ(Widths(g), (std::vector<int>{450, 2000, 1000, 1000, 0}));
    ASSERT_EQ(g.Rows(), 5);
    EXPECT_EQ(Row(g, 1), (V{"   1", "Racer1-2", "  2 -  5", "  0 - 0", "   1"}));
    EXPECT_EQ(Row(g, 2), (V{"   1", "Racer1-4", " Scratched", "  6 -  5", "   1"}));
    EXPECT_EQ(Row(g, 3), (V{"   2", "Racer1-3", "No Bets", "  7 -  1", "   2"}));
    EXPECT_EQ(Row(g, 4), (V{"   3", "Racer1-1", "  3 -  1", "  5 -  2", "   3"}));
    EXPECT_EQ(g.RowData(2), 4);

    EXPECT_EQ(Row(Grid(1, 2), 0), (V{"Bet#", "Horse Name", "Avg Odds", "Hcap Odds", ""}));
    // A place share below 0 shows as 0 to 1, not as a scratch.
    RF.Race(1).HoldbackAmt = C(50);
    EXPECT_EQ(Row(Grid(1, 2), 1)[2], "  0 -  1");
    EXPECT_EQ(Row(Grid(1, 1), 1)[2], "No Bets");
}

TEST_F(DisplayOdds, NamesFollowTheRacerSortAndAGridWithoutRacersKeepsAnEmptyRow) {
    RF.RacerSort = "Name";
    RF.Racer(1, 1).RacerName = "Zed";
    GridData g = Grid(1, 1);
    EXPECT_EQ(Row(g, 1)[1], "Racer1-2");
    EXPECT_EQ(Row(g, 4), (V{"   3", "Zed", "  3 -  1", "  5 -  2", "Zed"}));

    RF.RacerSort = "Program Number";
    RF.Racer(1, 1).ProgramNbr = "12";
    EXPECT_EQ(Row(Grid(1, 1), 4)[1], "  12 - Zed");

    Race(3, {1}, {});
    GridData empty = Grid(3, 1);
    ASSERT_EQ(empty.Rows(), 2);
    EXPECT_EQ(Row(empty, 1), (V{"", "", "", "", ""}));
}

TEST_F(DisplayOdds, PoolsGridShowsInvalidBetsFirstTotalsLastAndAFieldsMoneyOnce) {
    GridData g = Grid(1, 0);
    EXPECT_EQ(Row(g, 0), (V{"Bet#", "Horse Name", "Win", "Place", "Show", ""}));
    EXPECT_EQ(Widths(g), (std::vector<int>{450, 1600, 800, 800, 800, 0}));
    ASSERT_EQ(g.Rows(), 9);
    EXPECT_EQ(Row(g, 1), (V{"", "Invalid bets", ".00", "3.00", "", ""}));
    EXPECT_EQ(Row(g, 2), (V{"   1", "Racer1-2", "6.00", "4.00", "", "   1"}));
    EXPECT_EQ(Row(g, 3), (V{"   1", "Racer1-4", "", "", "", "   1"}));
    EXPECT_EQ(Row(g, 4), (V{"   2", "Racer1-3", ".00", ".00", "", "   2"}));
    EXPECT_EQ(Row(g, 5), (V{"   3", "Racer1-1", "2.00", ".00", "", "   3"}));
    EXPECT_EQ(Row(g, 6), (V{"", "Totals:", "8.00", "7.00", "", ""}));
    EXPECT_EQ(Row(g, 7), (V{"", "Exacta Totals:", "2.00", "", "", ""}));
    EXPECT_EQ(Row(g, 8), (V{"", "Daily Double Totals:", "5.00", "", "", ""}));

    // In another order a field's racers stand apart and each shows what it holds.
    RF.RacerSort = "Name";
    RF.Racer(1, 4).RacerName = "A field mate";
    GridData byName = Grid(1, 0);
    EXPECT_EQ(Row(byName, 2), (V{"   1", "A field mate", ".00", ".00", "", "A field mate"}));
    EXPECT_EQ(Row(byName, 4), (V{"   1", "Racer1-2", "6.00", "4.00", "", "Racer1-2"}));

    // Without money on unknown numbers there is no "Invalid bets" row.
    RF.Bet(1, 4).BetType = 0;
    EXPECT_EQ(Row(Grid(1, 0), 1)[1], "A field mate");
}

TEST_F(DisplayOdds, ExactaGridLeavesOutPairsOfOneNumber) {
    GridData g = Grid(1, 4);
    EXPECT_EQ(Row(g, 0), (V{"Win Horse", "Place Horse", "Cur Odds", ""}));
    EXPECT_EQ(Widths(g), (std::vector<int>{1800, 1800, 1000, 0}));
    const std::string nine(9, ' ');
    const std::vector<V> rows = {
        {"   1 - Racer1-2", "   2 - Racer1-3", "No Bets", "   1" + nine + "   2"},
        {"   1 - Racer1-4", "   2 - Racer1-3", " Scratched", "   1" + nine + "   2"},
        {"   1 - Racer1-2", "   3 - Racer1-1", "  0 - 0", "   1" + nine + "   3"},
        {"   1 - Racer1-4", "   3 - Racer1-1", " Scratched", "   1" + nine + "   3"},
        {"   2 - Racer1-3", "   1 - Racer1-2", "No Bets", "   2" + nine + "   1"},
        {"   2 - Racer1-3", "   1 - Racer1-4", " Scratched", "   2" + nine + "   1"},
        {"   2 - Racer1-3", "   3 - Racer1-1", "No Bets", "   2" + nine + "   3"},
        {"   3 - Racer1-1", "   1 - Racer1-2", "No Bets", "   3" + nine + "   1"},
        {"   3 - Racer1-1", "   1 - Racer1-4", " Scratched", "   3" + nine + "   1"},
        {"   3 - Racer1-1", "   2 - Racer1-3", "No Bets", "   3" + nine + "   2"},
    };
    ASSERT_EQ(g.Rows(), 11);
    for (int r = 1; r <= 10; ++r) EXPECT_EQ(Row(g, r), rows[static_cast<std::size_t>(r - 1)]);
}

TEST_F(DisplayOdds, DoubleGridsKeepTheirTwoHeaderWordings) {
    GridData from = Grid(1, kOddsDoubleFromHere);
    EXPECT_EQ(Row(from, 0), (V{"Winner of Race 1", "Winner or Race  2", "Cur Odds", ""}));
    ASSERT_EQ(from.Rows(), 9);
    EXPECT_EQ(Row(from, 1), (V{"   1 - Racer1-2", "   1 - Racer2-1", "  0 - 0",
                               "   1" + std::string(10, ' ') + "   1"}));
    EXPECT_EQ(Row(from, 2)[2], " Scratched");
    EXPECT_EQ(Row(from, 3)[2], "No Bets");
    GridData into = Grid(2, kOddsDoubleIntoHere);
    for (int r = 0; r < from.Rows(); ++r) EXPECT_EQ(Row(into, r), Row(from, r));
}

// ---- The lists ------------------------------------------------------------------------------

TEST_F(DisplayOdds, BetTypeListOffersTheDoubleOnBothOfItsRaces) {
    RF.DefaultRace = 1;
    DisplayOddsLogic view;
    view.Form_Load();
    EXPECT_EQ(view.caption, "Display Odds");
    EXPECT_EQ(Items(view.comRaceName), (V{"   1 - Race1=1", "   2 - Race2=2"}));
    EXPECT_EQ(Items(view.comBetType),
              (V{"Betting Pools=0", "Win=1", "Place=2", "Exacta=4", "Daily Double ( 1, 2 )=61"}));
    EXPECT_EQ(view.flxOdds.TextMatrix(1, 1), "Invalid bets");

    // Another race keeps the bet type shown where it has it, else shows the pools.
    view.comBetType.SetListIndex(1);
    view.comBetType_Click();
    EXPECT_EQ(view.flxOdds.TextMatrix(0, 2), "Cur Odds");
    view.comRaceName.SetListIndex(1);
    view.comRaceName_Click();
    EXPECT_EQ(Items(view.comBetType),
              (V{"Betting Pools=0", "Win=1", "Place=2", "Show=3", "Daily Double ( 1, 2 )=62"}));
    EXPECT_EQ(view.comBetType.SelectedData(), 1);
    EXPECT_EQ(view.chkDefault.value, 0);
    view.comBetType.SetListIndex(4);
    view.comBetType_Click();
    view.comRaceName.SetListIndex(0);
    view.comRaceName_Click();
    EXPECT_EQ(view.comBetType.SelectedData(), 0);
    EXPECT_EQ(view.chkDefault.value, 1);
}

TEST_F(DisplayOdds, RaceListStartsOnTheDefaultOrTheNextUnfinishedRace) {
    Race(3, {1}, {1});
    Settle(2, {1, 2});
    RF.DefaultRace = 2;
    DisplayOddsLogic view;
    view.Form_Load();
    // The default race is finished: all races, the default selected.
    EXPECT_EQ(view.optRacesAll.value, -1);
    EXPECT_EQ(view.comRaceName.SelectedData(), 2);
    EXPECT_EQ(view.chkDefault.value, 1);

    // Unfinished: the next unfinished race after the default.
    view.optRacesUnfinished_Click();
    EXPECT_EQ(Items(view.comRaceName), (V{"   1 - Race1=1", "   3 - Race3=3"}));
    EXPECT_EQ(view.comRaceName.SelectedData(), 3);
    EXPECT_EQ(view.CurRace, 3);
    // ... round from race 1 when nothing comes after it.
    RF.DefaultRace = 3;
    Settle(3, {1});
    view.optRacesUnfinished_Click();
    EXPECT_EQ(view.comRaceName.SelectedData(), 1);
    EXPECT_EQ(DisplayOddsLogic::NextUnfinishedRace(21), 1);

    // Set as default on stores the race; off changes nothing.
    view.chkDefault.value = 1;
    view.chkDefault_Click();
    EXPECT_EQ(RF.DefaultRace, 1);
    view.chkDefault.value = 0;
    view.chkDefault_Click();
    EXPECT_EQ(RF.DefaultRace, 1);
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(DisplayOdds, NoUnfinishedRaceFallsBackToAllAndNoRaceAtAllUnloads) {
    Settle(1, {1, 2});
    Settle(2, {1, 2});
    RF.DefaultRace = 0;
    DisplayOddsLogic view;
    view.Form_Load();
    EXPECT_EQ(view.optRacesAll.value, -1);
    EXPECT_EQ(view.optRacesUnfinished.value, 0);
    EXPECT_EQ(view.CurRace, 1);
    EXPECT_FALSE(view.unloaded);

    ClearRaceFile();
    DisplayOddsLogic none;
    none.Form_Load();
    EXPECT_EQ(world.messages.Texts(), V{"No races to display"});
    EXPECT_TRUE(none.unloaded);
}

// ---- Auto Run -------------------------------------------------------------------------------

// Three races of five racers: race 1 offers Win and Place, race 2 Win, race 3 Show.
class AutoRun : public PayoutCard {
  protected:
    void SetUp() override {
        PayoutCard::SetUp();
        Race(1, {1, 2}, {1, 2, 3, 4, 5});
        Race(2, {1}, {1, 2, 3, 4, 5});
        Race(3, {3}, {1, 2, 3, 4, 5});
        RF.DefaultRace = 1;
        view.Form_Load();
        view.VisibleRows = 2;
        view.optAutoOn_Click();
        view.comBetType.SetListIndex(1);  // Win
        view.comBetType_Click();
    }
    // Race, bet type and top row after each of n ticks.
    V Ticks(int n) {
        V seen;
        for (int i = 0; i < n; ++i) {
            view.Timer1_Timer();
            seen.push_back(std::to_string(view.CurRace) + "/" + std::to_string(view.CurBetType) +
                           "@" + std::to_string(view.TopRowShown));
            EXPECT_EQ(view.flxOdds.TopRow(), view.TopRowShown);
        }
        return seen;
    }
    DisplayOddsLogic view;
};

TEST_F(AutoRun, SelectedBetsAndRacesTurnThePagesOfOneGridAndStartAgain) {
    view.optAutoBetSelected_Click();
    view.txtInterval.text = "2";
    EXPECT_EQ(Ticks(4), (V{"1/1@3", "1/1@5", "1/1@1", "1/1@3"}));
    EXPECT_EQ(view.Timer1Interval, 2000);
}

TEST_F(AutoRun, AllBetsGoRoundTheTypesOfTheSelectedRace) {
    // Win has 5 rows: pages at 1, 3, 5; Place the same; the pools 6 rows: 1, 3, 5.
    EXPECT_EQ(Ticks(9),
              (V{"1/1@3", "1/1@5", "1/2@1", "1/2@3", "1/2@5", "1/0@1", "1/0@3", "1/0@5", "1/1@1"}));
}

TEST_F(AutoRun, AllBetsAndAllRacesMoveToTheNextRaceAfterTheLastType) {
    view.optAutoRaceAll_Click();
    view.VisibleRows = 5;
    // Going round from the last type moves on at once to the next race's first.
    EXPECT_EQ(Ticks(7), (V{"1/2@1", "2/0@1", "2/0@6", "2/1@1", "3/0@1", "3/0@6", "3/3@1"}));
}

TEST_F(AutoRun, SelectedBetsOnAllRacesKeepTheTypeWhereTheRaceHasIt) {
    view.optAutoBetSelected_Click();
    view.optAutoRaceAll_Click();
    view.VisibleRows = 10;
    EXPECT_EQ(Ticks(4), (V{"2/1@1", "3/0@1", "1/0@1", "2/0@1"}));
    EXPECT_EQ(view.comRaceName.SelectedData(), 2);
}

TEST_F(AutoRun, OffDoesNothingAndAnIntervalOfZeroStopsTheTimer) {
    view.optAutoOff_Click();
    view.txtInterval.text = "0";
    EXPECT_EQ(Ticks(1), V{"1/1@1"});
    EXPECT_EQ(view.Timer1Interval, 5000);
    view.optAutoOn_Click();
    Ticks(1);
    EXPECT_EQ(view.Timer1Interval, 0);
    int key = 'x';
    view.txtInterval_KeyPress(key);
    EXPECT_EQ(key, 0);
}

}  // namespace
}  // namespace tt::test
