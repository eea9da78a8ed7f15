// Accept Bet: the amount, the type, the number of picks and the same racer twice, in that order;
// the two boxes after a repeated pick, and the error when the third list has no choice; the
// bet written into the ticket's list; loading a bet of the list back and deleting it.

#include "model/app_error.h"
#include "ticket_card.h"

namespace tt::test {
namespace {

class AcceptBet : public TicketCard {
  protected:
    void SetUp() override {
        TicketCard::SetUp();
        RF.Race(1).BetType(7) = true;  // Pick 3 over races 1 to 3
        NewTicket(1, 1);
        p.Form_Load();
        world.messages.Clear();
    }
    PlaceBetsLogic p;
};

TEST_F(AcceptBet, TheAmountIsCheckedBeforeTheTypeAndTheTypeBeforeThePicks) {
    TypeAmount(p, "0.5");
    p.cmdAcceptBet_Click();
    TypeAmount(p, "2");
    p.cmdAcceptBet_Click();
    TypeKey(p, 'W');
    p.cmdAcceptBet_Click();
    TypeKey(p, '3');
    TypePick(p, 1, 2);
    TypePick(p, 2, 1);
    p.cmdAcceptBet_Click();
    EXPECT_EQ(world.messages.Texts(), (std::vector<std::string>{
                                          "Minimum bet for this race is 1.",
                                          "Bet Type is not valid!",
                                          "Win bets require one pick.",
                                          "Pick 3 bets require three picks!",
                                      }));
    for (const MessageRequest& m : world.messages.shown) EXPECT_EQ(m.icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 4);
    EXPECT_EQ(Betting.TicketBetCount, 0);
}

TEST_F(AcceptBet, TheSameNumberTwiceInATrifectaTurnsBothListsRedAndShowsTheSecondAndThirdPick) {
    TypeAmount(p, "1");
    TypeKey(p, 'T');
    TypePick(p, 1, 2);
    TypePick(p, 2, 3);
    TypePick(p, 3, 2);
    p.cmdAcceptBet_Click();
    ASSERT_EQ(world.messages.shown.size(), 3u);
    EXPECT_EQ(world.messages.shown[0].text,
              "Same bet number chosen for two picks!\r\nThis is not allowed for Trifecta bets!");
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kNone);
    EXPECT_EQ(world.messages.shown[1].text, "3");
    EXPECT_EQ(world.messages.shown[2].text, "2");
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(p.comPick[1].state.backColor, kColorRed);
    EXPECT_EQ(p.comPick[2].state.backColor, kColorWhite);
    EXPECT_EQ(p.comPick[3].state.backColor, kColorRed);
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(p.focus, "comPick(1)");
    EXPECT_EQ(Betting.TicketBetCount, 0);

    // A new choice whitens its list; the next Accept Bet whitens all of them.
    TypePick(p, 3, 5);
    EXPECT_EQ(p.comPick[3].state.backColor, kColorWhite);
    EXPECT_EQ(p.comPick[1].state.backColor, kColorRed);
    world.messages.Clear();
    p.cmdAcceptBet_Click();
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(p.comPick[1].state.backColor, kColorWhite);
    EXPECT_EQ(Betting.TicketBetCount, 1);
}

TEST_F(AcceptBet, AnExactaWithTheSameNumberTwiceEndsInTheErrorPathWithoutAThirdPick) {
    TypeAmount(p, "2");
    TypeKey(p, 'e');
    TypePick(p, 1, 5);
    TypePick(p, 2, 5);
    try {
        p.cmdAcceptBet_Click();
        ADD_FAILURE() << "the third list has nothing to read";
    } catch (const AppError& e) {
        EXPECT_EQ(e.Number(), 381);
        EXPECT_EQ(e.Text(), "Invalid property array index");
    }
    EXPECT_EQ(
        world.messages.Texts(),
        (std::vector<std::string>{
            "Same bet number chosen for two picks!\r\nThis is not allowed for Exacta bets!", "5"}));
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(Betting.TicketBetCount, 0);
}

TEST_F(AcceptBet, TheLegsOfADailyDoubleMayHoldTheSameNumber) {
    TypeAmount(p, "2");
    TypeKey(p, 'D');
    TypePick(p, 1, 1);
    TypePick(p, 2, 1);
    p.cmdAcceptBet_Click();
    EXPECT_TRUE(world.messages.shown.empty());
    ASSERT_EQ(Betting.TicketBetCount, 1);
    EXPECT_EQ(Betting.TicketBets(1).Pick(1), 1);
    EXPECT_EQ(Betting.TicketBets(1).Pick(2), 1);
}

TEST_F(AcceptBet, AnAcceptedBetGoesToTheTicketAndTheBetAreaEmpties) {
    PlaceBet(p, "2", 'w', {3});
    EXPECT_FALSE(G.CancelFlag);
    ASSERT_EQ(Betting.TicketBetCount, 1);
    const TempBet& b = Betting.TicketBets(1);
    EXPECT_EQ(b.Race, 1);
    EXPECT_EQ(b.TicketNbr, 1);
    EXPECT_EQ(b.BetType, 1);
    EXPECT_EQ(b.OrigBetIdx, 0);
    EXPECT_TRUE(p.TicketDirty);
    EXPECT_FALSE(p.BetDirty);
    EXPECT_EQ(p.txtBetAmt.text, " ");
    EXPECT_EQ(p.lblExtendedBetAmt.text, "$0.00");
    EXPECT_FALSE(p.comBetType.list.HasSelection());
    EXPECT_FALSE(p.comPick[1].list.HasSelection());
    EXPECT_EQ(p.focus, "txtBetAmt");
    EXPECT_EQ(p.flxBets.Rows(), 2);
    EXPECT_EQ(p.flxBets.TextMatrix(1, 0), "0");
    EXPECT_EQ(p.flxBets.TextMatrix(1, 3), "Win");
    EXPECT_EQ(p.flxBets.TextMatrix(1, 4), " ");
    EXPECT_EQ(p.flxBets.TextMatrix(1, 6), "1");
    EXPECT_EQ(p.flxBets.ColWidth(0), 0);
    EXPECT_EQ(p.flxBets.ColWidth(6), 0);
    EXPECT_FALSE(p.lblOriginal.visible);
}

TEST_F(AcceptBet, ALoadedBetIsOverwrittenAndAnUntouchedOneLeavesTheTicketAsItWas) {
    PlaceBet(p, "2", 'W', {3});
    PlaceBet(p, "5", 'S', {5});
    p.TicketDirty = false;
    p.flxBets_Click(2);
    EXPECT_EQ(Betting.CurTempBet, 2);
    EXPECT_EQ(p.txtBetAmt.text, "5.00");
    EXPECT_EQ(p.comBetType.list.Text(), "Show");
    EXPECT_EQ(p.comPick[1].list.SelectedData(), 5);
    EXPECT_FALSE(p.BetDirty);
    p.cmdAcceptBet_Click();
    EXPECT_FALSE(p.TicketDirty);
    EXPECT_EQ(Betting.TicketBetCount, 2);

    p.flxBets_Click(1);
    TypeAmount(p, "4");
    p.cmdAcceptBet_Click();
    EXPECT_TRUE(p.TicketDirty);
    EXPECT_EQ(Betting.TicketBetCount, 2);
    EXPECT_EQ(Betting.TicketBets(1).BetAmt, C(4));
    EXPECT_EQ(p.lblAmtBet.text, "$9.00");
}

TEST_F(AcceptBet, ChoosingAnotherBetWhileTheDisplayedOneChangedAsksFirst) {
    PlaceBet(p, "2", 'W', {3});
    TypeAmount(p, "7");
    world.messages.Answer(kCancel);
    p.flxBets_Click(1);
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Do you want to save your changes to the displayed bet?"});
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kYesNoCancel);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(p.txtBetAmt.text, "7");
    EXPECT_EQ(Betting.CurTempBet, 0);
    world.messages.Answer(kNo);
    p.flxBets_Click(1);
    EXPECT_EQ(p.txtBetAmt.text, "2.00");
    EXPECT_EQ(Betting.CurTempBet, 1);
}

TEST_F(AcceptBet, DeleteBetAsksAndLeavesAFreeElement) {
    PlaceBet(p, "2", 'W', {3});
    PlaceBet(p, "5", 'P', {5});
    p.TicketDirty = false;
    p.flxBets_Click(1);
    world.messages.Answer(kCancel);
    p.cmdDelete_Click();
    EXPECT_EQ(Betting.TicketBets(1).BetType, 1);
    world.messages.Answer(kOK);
    p.cmdDelete_Click();
    EXPECT_EQ(world.messages.Texts(),
              (std::vector<std::string>{"Are you sure you want to delete this bet?",
                                        "Are you sure you want to delete this bet?"}));
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kOKCancel);
    EXPECT_EQ(Betting.TicketBetCount, 2);
    EXPECT_EQ(Betting.TicketBets(1).BetType, 0);
    EXPECT_EQ(Betting.TicketBets(1).Pick(1), 0);
    EXPECT_TRUE(p.TicketDirty);
    EXPECT_EQ(p.flxBets.Rows(), 2);
    EXPECT_EQ(p.flxBets.TextMatrix(1, 3), "Place");
    EXPECT_EQ(p.lblAmtBet.text, "$5.00");
    // Nothing displayed: nothing to delete.
    world.messages.Clear();
    p.cmdDelete_Click();
    EXPECT_TRUE(world.messages.shown.empty());
}

}  // namespace
}  // namespace tt::test
