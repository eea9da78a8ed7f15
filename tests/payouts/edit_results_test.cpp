// Edit Results: the lists, every check of OK in its order with its exact text, the race change
// and closing questions, and the calculation that follows a saved result.

#include "payout_card.h"
#include "payouts/edit_results_logic.h"

namespace tt::test {
namespace {

class EditResults : public PayoutCard {
  protected:
    void SetUp() override {
        PayoutCard::SetUp();
        // Slots 1 and 2 are the field 1 and 1A; slot 5 is scratched.
        Race(1, {1, 2, 3}, {1, 1, 2, 3, 4});
        RF.Racer(1, 5).Scratched = true;
        Race(2, {1}, {1, 2});
        G.CurrentRace = 0;
        form.handling = policy;
        form.Form_Load();
    }
    // The user chooses a racer slot in the list of a position.
    void Choose(int k, std::int64_t slot) {
        auto& list = form.comRacerName[k].list;
        for (int i = 0; i < list.ListCount(); ++i)
            if (list.ItemData(i) == slot) list.SetListIndex(i);
        form.comRacerName_Click(k);
    }
    std::string Stored() {
        std::string s;
        for (int k = 1; k <= 5; ++k) s += std::to_string(RF.Race(1).Result(k).Value());
        return s;
    }
    EditResultsLogic form;
};

TEST_F(EditResults, ListsFollowTheRacerSortAndLeaveOutScratchedRacers) {
    EXPECT_EQ(G.CurrentRace, 1);
    ASSERT_EQ(form.comRaceName.ListCount(), 2);
    EXPECT_EQ(form.comRaceName.Text(), "   1 - Race1");
    const auto& items = form.comRacerName[3].list.Items();
    std::vector<std::string> texts;
    for (const auto& i : items) texts.push_back(i.text);
    EXPECT_EQ(texts,
              (std::vector<std::string>{"     Not Available", "   1 - Racer1-1", "   1 - Racer1-2",
                                        "   2 - Racer1-3", "   3 - Racer1-4"}));

    RF.Race(1).Result(1) = 5, RF.Race(1).Result(2) = 3;
    RF.RacerSort = "Name";
    EditResultsLogic byName;
    byName.handling = policy;
    byName.Form_Load();
    EXPECT_EQ(byName.comRacerName[1].list.ListIndex(), -1);  // the scratched winner is not listed
    EXPECT_EQ(byName.comRacerName[2].list.Text(), "Racer1-3 (2)");
    RF.RacerSort = "Betting Number";
    RF.UseProgramNbr = true;
    byName.ListRacers();
    EXPECT_EQ(byName.comRacerName[2].list.Text(), "   2 - Racer1-3 (2)");
    // OK with a list that has nothing selected counts it as Not Available: a change.
    byName.cmdOK_Click();
    EXPECT_EQ(RF.Race(1).Result(1), 0);
}

TEST_F(EditResults, OkWithoutAChangeRecalculatesNothing) {
    form.cmdOK_Click();
    EXPECT_TRUE(form.unloaded);
    EXPECT_FALSE(bool(G.FileChanged));
    EXPECT_FALSE(bool(G.CancelFlag));
    EditResultsLogic again;
    again.handling = policy;
    again.Form_Load();
    again.comRacerName_Click(1);  // touched and put back
    again.cmdOK_Click();
    EXPECT_TRUE(bool(G.FileChanged));
    EXPECT_TRUE(world.shell.formsShown.empty());
}

TEST_F(EditResults, ChecksInOrderWithTheirTexts) {
    auto bet = Bet(1, 1, 2.00, {1});
    RF.TicketCount = 1;
    RF.Ticket.ReDimPreserve(2);
    RF.Ticket(1).TicketRace = 1, RF.Ticket(1).TicketBettor = 1;
    RF.Ticket(1).FirstBet = RF.Ticket(1).LastBet = static_cast<std::int32_t>(bet);
    RF.Ticket(1).Distributed = C(5);
    B(1, bet).TicketIdx = 1;

    Choose(2, 3), Choose(5, 3);
    world.messages.Answer(kCancel);
    form.cmdOK_Click();
    ASSERT_EQ(world.messages.shown.size(), 1u);
    EXPECT_EQ(
        world.messages.shown[0].text,
        "Bets have already been distributed!\n\rAre you sure you want to change the results?");
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kOKCancel);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_TRUE(bool(G.CancelFlag));
    EXPECT_FALSE(form.unloaded);

    // The distributed question is answered OK from here on; the same racer twice is refused.
    Choose(1, 1);
    world.messages.Clear();
    form.cmdOK_Click();
    EXPECT_EQ(world.messages.Texts()[1], "Same Racer cannot finish in two positions!");
    EXPECT_EQ(world.messages.shown[1].icon, Icon::kNone);
    EXPECT_EQ(world.messages.beeps, 2);
    EXPECT_EQ(form.comRacerName[2].backColor, kColorRed);
    EXPECT_EQ(form.comRacerName[5].backColor, kColorRed);
    EXPECT_EQ(form.comRacerName[1].backColor, kColorWhite);

    // The field finishing first and second gives no second bet number.
    const std::string tail =
        "\n\ror those bets disallowed in the Race Card.\n\r"
        "(Remember that a bet number will only be used for one position.)";
    Choose(2, 2), Choose(5, 0);
    EXPECT_EQ(form.comRacerName[2].backColor, kColorWhite);
    world.messages.Clear();
    form.cmdOK_Click();
    EXPECT_EQ(
        world.messages.Texts()[1],
        "Place, Show, Exacta, and/or Trifecta bets allowed.\n\r2nd place finisher must be entered" +
            tail);
    EXPECT_EQ(world.messages.shown[1].icon, Icon::kExclamation);

    Choose(3, 3);
    world.messages.Clear();
    form.cmdOK_Click();
    EXPECT_EQ(world.messages.Texts()[1],
              "Show and/or Trifecta bets allowed.\n\r3rd place finisher must be entered" + tail);
    EXPECT_EQ(Stored(), "00000");

    // A third number comes from the fourth position: saved, settled and shown.
    Choose(4, 4);
    form.cmdOK_Click();
    EXPECT_EQ(Stored(), "12340");
    EXPECT_TRUE(form.unloaded);
    EXPECT_FALSE(bool(G.CancelFlag));
    EXPECT_EQ(B(1, bet).BetWinnings, C(2));
    EXPECT_EQ(RF.Ticket(1).Winnings, C(2));
    EXPECT_EQ(world.shell.formsShown.back(), "frmDisplayPayouts");
}

TEST_F(EditResults, EmptyWinnerQuestionAndClearedResult) {
    RF.Race(1).Result(1) = 1, RF.Race(1).Result(2) = 3, RF.Race(1).Result(3) = 4;
    auto bet = Bet(1, 1, 2.00, {1});
    B(1, bet).BetWinnings = C(9);
    form.Form_Load();
    Choose(1, 0);
    world.messages.Answer(kCancel);
    form.cmdOK_Click();
    EXPECT_EQ(
        world.messages.Texts(),
        std::vector<std::string>{
            "Winning Horse not entered!\n\rAll other positions will be set to 'Not Available'"});
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kOKCancel);
    EXPECT_EQ(Stored(), "13400");

    form.cmdOK_Click();  // OK: every position is emptied and saved
    EXPECT_EQ(Stored(), "00000");
    EXPECT_EQ(form.comRacerName[3].list.ListIndex(), 0);
    EXPECT_EQ(B(1, bet).BetWinnings, C(0));
    EXPECT_TRUE(world.shell.formsShown.empty());  // nothing to show for a cleared result

    // Win only: the first finisher is enough.
    G.CurrentRace = 2;
    EditResultsLogic win;
    win.handling = policy;
    win.Form_Load();
    win.comRacerName[1].list.SetListIndex(1);
    win.comRacerName_Click(1);
    world.messages.Clear();
    win.cmdOK_Click();
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(RF.Race(2).Result(1), 1);
}

TEST_F(EditResults, RaceChangeAndClosingQuestions) {
    Choose(1, 3);
    form.comRaceName.SetListIndex(1);
    world.messages.Answer(kCancel);
    form.comRaceName_Click();
    EXPECT_EQ(
        world.messages.Texts(),
        std::vector<std::string>{"You will lose the changes made to current race!\n\rContinue?"});
    EXPECT_EQ(form.comRaceName.SelectedData(), 1);
    EXPECT_EQ(form.comRacerName[1].list.SelectedData(), 3);
    EXPECT_FALSE(bool(G.CancelFlag));

    form.comRaceName.SetListIndex(1);
    form.comRaceName_Click();  // OK
    EXPECT_EQ(G.CurrentRace, 2);
    EXPECT_FALSE(form.ResultsChanged);
    EXPECT_EQ(form.comRacerName[1].list.ListCount(), 3);

    // Closing with a change: Cancel keeps the window, Yes with a refused OK keeps it too,
    // No closes without saving.
    form.cmdClear_Click();
    Choose(2, 1);  // a second without a winner: refused by the empty winner question
    bool cancel = false;
    world.messages.Clear();
    world.messages.Answer(kCancel);
    form.Form_QueryUnload(cancel);
    EXPECT_TRUE(cancel);
    EXPECT_EQ(world.messages.shown[0].text, "Do you wish to keep your changes?");
    EXPECT_EQ(world.messages.shown[0].title, "Edit Results");
    cancel = false;
    world.messages.Answer(kYes);
    world.messages.Answer(kCancel);
    form.Form_QueryUnload(cancel);
    EXPECT_TRUE(cancel);
    cancel = false;
    world.messages.Answer(kNo);
    form.Form_QueryUnload(cancel);
    EXPECT_FALSE(cancel);
    EXPECT_TRUE(bool(G.CancelFlag));
    EXPECT_EQ(RF.Race(2).Result(2), 0);
}

}  // namespace
}  // namespace tt::test
