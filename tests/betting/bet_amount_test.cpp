// The amount of a bet: the race's minimum and increment, tested on the typed text in double
// precision, and the amount stored as typed.

#include "ticket_card.h"

namespace tt::test {
namespace {

class BetAmount : public TicketCard {
  protected:
    void SetUp() override {
        TicketCard::SetUp();
        NewTicket(1, 1);
        p.Form_Load();
        p.focus.clear();
        p.selectText.clear();
        world.messages.Clear();
    }
    PlaceBetsLogic p;
};

TEST_F(BetAmount, BelowTheMinimumIsRefusedWithTheMinimumAsNumberText) {
    RF.Race(1).MinBet = C(2.5);
    PlaceBet(p, "2", 'W', {2});
    ASSERT_EQ(world.messages.shown.size(), 1u);
    EXPECT_EQ(world.messages.shown[0].text, "Minimum bet for this race is 2.5.");
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(p.focus, "txtBetAmt");
    EXPECT_EQ(p.selectText, "txtBetAmt");
    EXPECT_EQ(Betting.TicketBetCount, 0);

    RF.Race(1).MinBet = C(2);
    world.messages.Clear();
    TypeAmount(p, "1.75");
    p.cmdAcceptBet_Click();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Minimum bet for this race is 2."});
}

TEST_F(BetAmount, AQuotientMoreThanHalfACentOffAWholeNumberIsRefused) {
    PlaceBet(p, "1.255", 'W', {2});
    // 1.255 / 0.25 = 5.02: the increment follows the words at once.
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Bets can only be placed in increments of.25"});
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(p.focus, "") << "the focus stays where it is";
    EXPECT_EQ(Betting.TicketBetCount, 0);
}

TEST_F(BetAmount, AQuotientWithinHalfACentPassesAndTheAmountIsStoredAsTyped) {
    PlaceBet(p, "1.2512", 'W', {2});
    EXPECT_TRUE(world.messages.shown.empty());
    ASSERT_EQ(Betting.TicketBetCount, 1);
    EXPECT_EQ(Betting.TicketBets(1).BetAmt.Raw(), 12512);
    EXPECT_EQ(Betting.TicketBets(1).BetCost.Raw(), 12512);
    EXPECT_EQ(p.flxBets.TextMatrix(1, 2), "$1.25");
}

TEST_F(BetAmount, TheIncrementOfAWholeAmountShowsInMoneyForm) {
    RF.Race(1).BetIncr = C(1);
    PlaceBet(p, "2.5", 'W', {2});
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Bets can only be placed in increments of1.00"});
}

TEST_F(BetAmount, TheTextIsReadUpToTheFirstComma) {
    // 1000 written back as 1,000.00 when the box is left, which then reads as 1.
    TypeAmount(p, "1000");
    p.txtBetAmt_LostFocus();
    EXPECT_EQ(p.txtBetAmt.text, "1,000.00");
    EXPECT_EQ(p.lblExtendedBetAmt.text, "1.00");
    TypeKey(p, 'W');
    TypePick(p, 1, 2);
    p.cmdAcceptBet_Click();
    ASSERT_EQ(Betting.TicketBetCount, 1);
    EXPECT_EQ(Betting.TicketBets(1).BetAmt, C(1));
}

TEST_F(BetAmount, LeavingTheBoxWritesTheAmountBackWithoutMakingTheBetChanged) {
    p.txtBetAmt.text = "";
    p.txtBetAmt_LostFocus();
    EXPECT_EQ(p.txtBetAmt.text, ".00");
    EXPECT_FALSE(p.BetDirty);
    // A quick bet button types its amount.
    p.cmdBetAmt_Click(2);
    EXPECT_EQ(p.txtBetAmt.text, "5.00");
    EXPECT_TRUE(p.BetDirty);
    EXPECT_EQ(p.cmdBetAmt[2].text, "$5.00");
    EXPECT_FALSE(p.cmdBetAmt[3].visible);
}

TEST_F(BetAmount, AnIncrementOfZeroIsARunTimeError) {
    RF.Race(1).BetIncr = Currency();
    TypeAmount(p, "2");
    EXPECT_THROW(p.CheckBetAmt(), AppError);
}

}  // namespace
}  // namespace tt::test
