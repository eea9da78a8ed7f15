// Bet Total: what the bettor owes for one bet. A box costs every order of its picks, Across the
// Board three bets; the combinations themselves are not stored.

#include "ticket_card.h"

namespace tt::test {
namespace {

class BetTotal : public TicketCard {
  protected:
    void SetUp() override {
        TicketCard::SetUp();
        NewTicket(1, 1);
        p.Form_Load();
        world.messages.Clear();
    }
    void Box() {
        p.chkBoxed.value = 1;
        p.chkBoxed_Click();
    }
    PlaceBetsLogic p;
};

TEST_F(BetTotal, ABoxedExactaOfThreePicksCostsSixBets) {
    TypeAmount(p, "2");
    TypeKey(p, 'E');
    Box();
    for (int i = 1; i <= 3; ++i) TypePick(p, i, i == 3 ? 5 : i);
    EXPECT_EQ(p.lblExtendedBetAmt.text, "12.00");
    p.cmdAcceptBet_Click();
    ASSERT_EQ(Betting.TicketBetCount, 1);
    const TempBet& b = Betting.TicketBets(1);
    EXPECT_EQ(b.BetAmt, C(2));
    EXPECT_EQ(b.BetCost, C(12));
    EXPECT_TRUE(b.Boxed);
    EXPECT_EQ(p.flxBets.TextMatrix(1, 1), "$12.00");
    EXPECT_EQ(p.flxBets.TextMatrix(1, 4), "X");
    EXPECT_EQ(p.flxBets.TextMatrix(1, 5), " 1,  2,  5");
    EXPECT_EQ(p.lblAmtBet.text, "$12.00");
}

TEST_F(BetTotal, ABoxedTrifectaOfFourPicksCostsTwentyFourBets) {
    TypeAmount(p, "1");
    TypeKey(p, 'T');
    Box();
    // A list for each runner, six at most: the coupled pair counts twice, the scratched racer
    // not at all.
    EXPECT_TRUE(p.comPick[6].state.visible);
    RF.Racer(1, 7).Scratched = true;
    p.chkBoxed_Click();
    EXPECT_TRUE(p.comPick[5].state.visible);
    EXPECT_FALSE(p.comPick[6].state.visible);
    for (int i = 1; i <= 4; ++i) TypePick(p, i, i);
    EXPECT_EQ(p.lblExtendedBetAmt.text, "24.00");
    EXPECT_EQ(p.ShownBetTotal, C(24));
}

TEST_F(BetTotal, ABoxWithTooFewPicksCostsTheAmountUntilAcceptBetRefusesIt) {
    TypeAmount(p, "2");
    TypeKey(p, 'E');
    Box();
    TypePick(p, 1, 3);
    EXPECT_EQ(p.lblExtendedBetAmt.text, "2.00");
    p.cmdAcceptBet_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Exacta bets require at least two picks!"});
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(Betting.TicketBetCount, 0);
}

TEST_F(BetTotal, AcrossTheBoardCostsThreeTimesAndGoesThroughWithoutAPick) {
    TypeAmount(p, "2");
    TypeKey(p, 'a');
    EXPECT_EQ(p.lblExtendedBetAmt.text, "6.00");
    p.cmdAcceptBet_Click();
    EXPECT_TRUE(world.messages.shown.empty());
    ASSERT_EQ(Betting.TicketBetCount, 1);
    EXPECT_EQ(Betting.TicketBets(1).BetType, 11);
    EXPECT_EQ(Betting.TicketBets(1).BetCost, C(6));
    EXPECT_EQ(Betting.TicketBets(1).Pick(1), 0);
    EXPECT_EQ(p.flxBets.TextMatrix(1, 3), "ATB");
    EXPECT_EQ(p.flxBets.TextMatrix(1, 5), "");
}

TEST_F(BetTotal, AMultiRaceBetCostsItsAmountAndTakesItsLegsFromTheNextRaces) {
    TypeAmount(p, "3");
    TypeKey(p, 'D');
    EXPECT_EQ(p.lblPick[2].text, "Race 2:");
    EXPECT_EQ(p.comPick[2].list.List(0), "   1 - Alpha");
    TypePick(p, 1, 2);
    TypePick(p, 2, 2);
    p.cmdAcceptBet_Click();
    EXPECT_TRUE(world.messages.shown.empty()) << world.messages.Texts()[0];
    ASSERT_EQ(Betting.TicketBetCount, 1);
    EXPECT_EQ(Betting.TicketBets(1).BetCost, C(3));
    EXPECT_EQ(p.flxBets.TextMatrix(1, 3), "Daily Dbl");
    EXPECT_EQ(p.flxBets.TextMatrix(1, 5), " 2,  2");
}

}  // namespace
}  // namespace tt::test
