// Display Payouts: the finishers, both grids as the window shows them, a race without results,
// Auto Run and Record Results.

#include "payout_card.h"
#include "payouts/display_payouts_logic.h"

namespace tt::test {
namespace {

using DisplayPayouts = PayoutCard;

std::vector<std::string> Row(const GridData& g, int r) {
    std::vector<std::string> cells;
    for (int c = 0; c < g.Cols(); ++c) cells.push_back(g.TextMatrix(r, c));
    return cells;
}

TEST_F(DisplayPayouts, GridsOfASettledRace) {
    Race(1, {1, 2, 3, 4, 5}, {1, 2, 3, 4});
    Bet(1, 1, 2.00, {1}), Bet(1, 1, 2.00, {2});
    Bet(1, 2, 1.00, {1}), Bet(1, 2, 1.00, {2});
    Bet(1, 4, 1.00, {1, 3});
    Bet(1, 5, 1.00, {1, 2, 3});
    answers = {"Payback", "NoPay"};  // Show, nobody on it; Exacta, one correct pick at best
    Settle(1, {1, 2, 3});
    ASSERT_EQ(asked, (std::vector<std::string>{"Show Bets Payback", "Exacta Bets most Most"}));

    G.CurrentRace = 0;
    DisplayPayoutsLogic view;
    view.Form_Load();
    EXPECT_EQ(view.caption, "Display Payouts");
    EXPECT_EQ(view.txtRacerName(1).text, "1 - Racer1-1");
    EXPECT_EQ(view.txtRacerName(4).text, " - ");
    EXPECT_EQ(view.chkDefault.value, 1);
    using V = std::vector<std::string>;
    EXPECT_EQ(Row(view.flxWPS, 0), (V{"Bet #", "Win", "Place", "Show"}));
    EXPECT_EQ(Row(view.flxWPS, 1), (V{"1", "4.00", "2.00", "Payback"}));
    EXPECT_EQ(Row(view.flxWPS, 2), (V{"2", "", "2.00", "Payback"}));
    EXPECT_EQ(Row(view.flxWPS, 3), (V{"3", "", "", "Payback"}));
    EXPECT_EQ(view.flxWPS.ColWidth(2), 805);
    ASSERT_EQ(view.flxPayouts.Rows(), 3);
    EXPECT_EQ(Row(view.flxPayouts, 0), (V{"Bet Type", "Wins"}));
    EXPECT_EQ(Row(view.flxPayouts, 1), (V{"Exacta - 1, 2 ( 1 correct)", "No Pay"}));
    EXPECT_EQ(Row(view.flxPayouts, 2), (V{"Trifecta - 1, 2, 3", "2.00"}));
}

TEST_F(DisplayPayouts, RaceWithoutResultsShowsBlanksAndTakesWinningsBack) {
    Race(1, {1, 6}, {1, 2});
    Race(2, {1}, {1, 2});
    auto win = Bet(2, 1, 2.00, {1}), dd = Bet(1, 6, 2.00, {1, 1});
    B(2, win).BetWinnings = C(5), B(1, dd).BetWinnings = C(7);
    DisplayPayoutsLogic view;
    G.CurrentRace = 2;
    view.Form_Load();
    EXPECT_EQ(view.chkDefault.value, 0);
    EXPECT_EQ(Row(view.flxWPS, 2), (std::vector<std::string>{"0", " ", " ", " "}));
    EXPECT_EQ(view.flxPayouts.Rows(), 1);
    EXPECT_EQ(B(2, win).BetWinnings, C(0));
    EXPECT_EQ(B(1, dd).BetWinnings, C(0));  // the double covers race 2
    view.chkDefault.value = 1;
    view.chkDefault_Click();
    EXPECT_EQ(RF.DefaultRace, 2);

    view.cmdEditResults_Click();
    EXPECT_TRUE(view.unloaded);
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmEditResults (modal)"});
}

TEST_F(DisplayPayouts, AutoRunStepsThroughFinishedRacesAndNeverHangs) {
    for (int r = 1; r <= 4; ++r) Race(r, {}, {1, 2});
    DisplayPayoutsLogic view;
    view.Form_Load();
    view.txtInterval.text = "2";
    view.Timer1_Timer();  // Auto Run is off
    EXPECT_EQ(view.Timer1Interval, 5000);
    view.optAutoOff.value = 0, view.optAutoOn.value = -1;
    view.Timer1_Timer();  // no finished race: the display stays as it is
    EXPECT_EQ(view.CurRace, 1);
    EXPECT_EQ(view.Timer1Interval, 2000);

    RF.Race(2).Result(1) = 1, RF.Race(4).Result(1) = 2;
    std::vector<int> shown;
    for (int i = 0; i < 3; ++i) {
        view.Timer1_Timer();
        shown.push_back(view.comRaceName.SelectedData() * 10 + G.CurrentRace);
    }
    EXPECT_EQ(shown, (std::vector<int>{22, 44, 22}));
    EXPECT_EQ(view.txtRacerName(1).text, "1 - Racer2-1");

    RF.Race(4).Result(1) = 0;  // one finished race: found again at each tick
    view.Timer1_Timer();
    EXPECT_EQ(view.CurRace, 2);
    view.txtInterval.text = "0";
    view.Timer1_Timer();
    EXPECT_EQ(view.Timer1Interval, 0);
}

TEST_F(DisplayPayouts, NoRacesToDisplay) {
    DisplayPayoutsLogic view;
    view.Form_Load();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"No races to display"});
    EXPECT_EQ(world.messages.beeps, 1);
}

}  // namespace
}  // namespace tt::test
