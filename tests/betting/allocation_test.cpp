// The money that really changed hands spread over the tickets of a transaction: the five
// passes each way with their signs and quirks, the check after them, and the offset.

#include <optional>

#include "betting/finish_transaction.h"
#include "betting_card.h"

namespace tt::test {
namespace {

class Allocation : public BettingCard {
  protected:
    // A ticket of the file with the given money, brought in as a cash or an edit.
    TranTicket& Existing(const char* action, double cost, double collected, double distributed,
                         double winnings, double newCost = -1) {
        const std::int32_t n = FileTicket(1, 1, {{cost, 1, {1}}});
        TicketRec& k = RF.Ticket(n);
        k.Collected = C(collected);
        k.Distributed = C(distributed);
        k.Winnings = C(winnings);
        TranTicket& t = std::string(action) == kCashTicket ? Cash(n) : BringIn(n, action);
        if (newCost >= 0) {
            // Accept Ticket of an edit.
            t.NewAmtBet = t.NewCollected = C(newCost);
            t.NewDistributed = t.Winnings;
        }
        return t;
    }
    // Settles in full, spreads the typed amount as Finish does, and checks it after pass 1.
    // What is due is taken once, as the Finish window takes it when it opens.
    bool Allocate(double typed) {
        if (!due_) due_ = TransactionTotal();
        const Currency due = *due_;
        const Currency excess = ExcessOf(C(typed), due);
        SettleTicketsInFull();
        if (excess < Currency())
            AllocateShort(excess);
        else if (excess > Currency())
            AllocateOver(excess);
        return CheckAllocation(1, C(typed), TransSignOf(due));
    }
    Currency Coll(int i) { return Tran(i).NewCollected; }
    Currency Dist(int i) { return Tran(i).NewDistributed; }
    std::optional<Currency> due_;
};

TEST_F(Allocation, TheSignOfWhatIsDueAndTheExcess) {
    EXPECT_EQ(TransSignOf(C(10)), -1);
    EXPECT_EQ(TransSignOf(C(0)), -1);
    EXPECT_EQ(TransSignOf(C(-20)), 1);
    EXPECT_EQ(ExcessOf(C(8), C(10)), C(-2));    // collected too little
    EXPECT_EQ(ExcessOf(C(12), C(10)), C(2));    // collected too much
    EXPECT_EQ(ExcessOf(C(15), C(-20)), C(5));   // paid out too little
    EXPECT_EQ(ExcessOf(C(25), C(-20)), C(-5));  // paid out too much
    EXPECT_EQ(ExcessOf(C(5), C(0)), C(5));      // nothing due: what came in counts as collected
    // The amount is read by the leading-number rule: a comma ends it.
    EXPECT_EQ(TypedAmount("1,000.00"), C(1));
    EXPECT_EQ(TypedAmount(" 12.5 dollars"), C(12.5));
    EXPECT_EQ(TypedAmount(""), C(0));
    EXPECT_EQ(TypedAmount("1.2512"), C(1.2512));
}

// ---- Nothing to spread ----------------------------------------------------------------------

TEST_F(Allocation, ExactAmountLeavesFullSettlement) {
    NewTicket(1, 1, {{5, 1, {1}}});
    EXPECT_TRUE(Allocate(0));
    EXPECT_EQ(Coll(1), C(0));
    // A second try starts again from full settlement.
    EXPECT_TRUE(Allocate(5));
    EXPECT_EQ(Coll(1), C(5));
    EXPECT_EQ(Dist(1), C(0));
    EXPECT_TRUE(Tran(1).CollectMore);
    EXPECT_FALSE(Tran(1).DistributeMore);
    EXPECT_TRUE(Tran(1).DistributeLess);
}

TEST_F(Allocation, NothingDueAndNothingTypedAllocatesNothing) {
    Cash(FileTicket(1, 1, {{4, 1, {2}}}));
    EXPECT_EQ(TransactionTotal(), C(0));
    EXPECT_TRUE(Allocate(0));
    EXPECT_EQ(Coll(1), C(4));
}

// ---- Less came in (Excess below 0) ----------------------------------------------------------

TEST_F(Allocation, ShortPass1GivesUpMoneyToBeTakenBackFromAnOverpaidTicket) {
    // Paid 10 on winnings now 6: 4 to take back, 3 came back.
    Existing(kCashTicket, 10, 10, 10, 6);
    EXPECT_EQ(TransactionTotal(), C(4));
    EXPECT_TRUE(Allocate(3));
    EXPECT_EQ(Dist(1), C(7));
}

TEST_F(Allocation, ShortPass1TakesAllItCanThenPass2ForgivesWhatWasToBeCollected) {
    Existing(kCashTicket, 10, 10, 10, 6);  // 4 to take back
    NewTicket(1, 2, {{3, 1, {1}}});        // 3 to collect
    EXPECT_TRUE(Allocate(2));              // 7 due, 2 came in: Excess -5
    EXPECT_EQ(Dist(1), C(10));             // nothing taken back
    EXPECT_EQ(Coll(2), C(2));              // 1 forgiven
}

TEST_F(Allocation, CollectTenTypedEightLeavesTwoToCollectOnTheFirstTicket) {
    NewTicket(1, 1, {{10, 1, {3}}});
    EXPECT_TRUE(Allocate(8));
    EXPECT_EQ(Coll(1), C(8));
}

TEST_F(Allocation, ShortPass4CutsWhatStandsCollected) {
    // A payout of 30 with 35 handed over: the cost collected before is taken for the 5.
    Existing(kCashTicket, 10, 10, 0, 30);
    EXPECT_EQ(TransactionTotal(), C(-30));
    EXPECT_TRUE(Allocate(35));
    EXPECT_EQ(Coll(1), C(5));
    EXPECT_EQ(Dist(1), C(30));
}

TEST_F(Allocation, ShortPass5PutsTheRestOnTheFirstTicketAsDistributed) {
    Existing(kCashTicket, 10, 10, 0, 30);
    EXPECT_TRUE(Allocate(45));  // 15 too much: 10 from what stands collected, 5 more paid
    EXPECT_EQ(Coll(1), C(0));
    EXPECT_EQ(Dist(1), C(35));
}

// ---- More came in (Excess above 0) ----------------------------------------------------------

TEST_F(Allocation, PayoutTwentyTypedFifteenKeepsFiveToCash) {
    Existing(kCashTicket, 2, 2, 0, 20);
    EXPECT_TRUE(Allocate(15));
    EXPECT_EQ(Dist(1), C(15));
    const TranTicket& t = Tran(1);
    EXPECT_EQ(t.OldCost - t.NewCollected + t.NewDistributed - t.Winnings, C(-5));
}

TEST_F(Allocation, OverPass1TakesAllOfAPayoutThenMovesOn) {
    Existing(kCashTicket, 2, 2, 0, 4);
    Existing(kCashTicket, 2, 2, 0, 20);
    EXPECT_TRUE(Allocate(18));  // 24 due out, 18 paid
    EXPECT_EQ(Dist(1), C(0));
    EXPECT_EQ(Dist(2), C(18));
}

TEST_F(Allocation, OverPass2RaisesTheExcessByARefundNotMadeAndEndsInTheCheckMessage) {
    // An edit lowered the ticket from 10 to 6: 4 to refund, 3 refunded.
    Existing(kEditTicket, 10, 10, 0, 0, 6);
    EXPECT_EQ(TransactionTotal(), C(-4));
    EXPECT_FALSE(Allocate(3));
    EXPECT_EQ(Coll(1), C(15));  // back to the 10 collected, then the raised Excess of 5
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{
                  "Unexpected error in allocated money to tickets!\r\nA difference of -8 "
                  "allocated in pass  1\r\nYou may need to change the dollar amount entered to "
                  "continue\r\nor you may cancel the transaction."});
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 1);
}

TEST_F(Allocation, OverPass3TakesBackWhatStandsPaidOut) {
    // Owes 4, has been paid its winnings of 4; 10 handed over.
    Existing(kCashTicket, 10, 6, 4, 4);
    EXPECT_EQ(TransactionTotal(), C(4));
    EXPECT_TRUE(Allocate(6));
    EXPECT_EQ(Dist(1), C(2));
    EXPECT_TRUE(Allocate(10));
    EXPECT_EQ(Dist(1), C(0));
    EXPECT_EQ(Coll(1), C(12));  // pass 5 puts the 2 left on it as collected
}

TEST_F(Allocation, CollectTenOnTwoTicketsTypedTwelvePutsTwelveOnTheFirst) {
    NewTicket(1, 1, {{5, 1, {1}}});
    NewTicket(2, 2, {{5, 2, {2}}});
    EXPECT_TRUE(Allocate(12));
    EXPECT_EQ(Coll(1), C(12));
    EXPECT_EQ(Coll(2), C(0));  // 5.00 still to collect on the second ticket
}

TEST_F(Allocation, NothingDueAndFiveTypedEndsOnTheFirstTicketAsCollected) {
    Cash(FileTicket(1, 1, {{4, 1, {2}}}));
    EXPECT_TRUE(Allocate(5));
    EXPECT_EQ(Coll(1), C(9));
}

TEST_F(Allocation, RemovedTicketsTakeNoPartAndAloneLeaveNoTicketForPass5) {
    NewTicket(1, 1, {{5, 1, {1}}});
    Tran(1).Action = kCancelled;
    NewTicket(1, 2, {{3, 1, {2}}});
    EXPECT_EQ(TransactionTotal(), C(3));
    EXPECT_TRUE(Allocate(4));
    EXPECT_EQ(Coll(1), C(5));  // untouched
    EXPECT_EQ(Coll(2), C(4));

    Tran(2).Action = kCancelled;
    EXPECT_FALSE(Allocate(5));
    EXPECT_EQ(world.messages.Texts().back(),
              "Unexpected error in allocated money to tickets!\r\nA difference of 5 allocated in "
              "pass  1\r\nYou may need to change the dollar amount entered to continue\r\nor you "
              "may cancel the transaction.");
}

// ---- The offset -----------------------------------------------------------------------------

TEST_F(Allocation, OffsetNetsATicketAboveOrBelowBothItsCostAndItsWinnings) {
    TranTicket& above = Existing(kEditTicket, 10, 0, 5, 0);
    above.NewCollected = C(14);
    above.NewDistributed = C(2);
    TranTicket& below = Existing(kCashTicket, 10, 10, 0, 20);
    below.NewCollected = C(7);
    below.NewDistributed = C(15);
    TranTicket& neither = Existing(kCashTicket, 10, 10, 0, 20);
    neither.NewCollected = C(12);
    neither.NewDistributed = C(15);
    TranTicket& removed = Existing(kCashTicket, 10, 10, 0, 20);
    removed.NewCollected = C(12);
    removed.NewDistributed = C(25);
    removed.Action = kCancelled;
    OffsetTickets();
    EXPECT_EQ(Coll(1), C(10));
    EXPECT_EQ(Dist(1), C(6));  // 2 - 10 + 14
    EXPECT_EQ(Coll(2), C(10));
    EXPECT_EQ(Dist(2), C(12));  // 15 - 10 + 7
    EXPECT_EQ(Coll(3), C(12));
    EXPECT_EQ(Dist(3), C(15));
    EXPECT_EQ(Coll(4), C(12));
    EXPECT_EQ(Dist(4), C(25));
}

TEST_F(Allocation, AnOffsetAfterASpreadDifferenceIsReportedByTheSecondCheck) {
    // An edit that adds 4 to a ticket of 10 that was once paid 5 it never won.
    Existing(kEditTicket, 10, 0, 5, 0, 14);
    FinishChoices quiet;
    quiet.countForSave = nullptr;
    const Currency due = TransactionTotal();
    const FinishOutcome done = FinishTransaction("17", due, quiet);
    EXPECT_FALSE(done.Finished());
    EXPECT_EQ(done.pass, 2);
    EXPECT_EQ(done.difference, C(8));
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{
                  "Unexpected error in allocated money to tickets!\r\nA difference of 8 "
                  "allocated in pass  2\r\nYou may need to change the dollar amount entered to "
                  "continue\r\nor you may cancel the transaction."});
    // Nothing written; the busy pointer stays until a finish goes through.
    EXPECT_EQ(RF.Ticket(1).Distributed, C(5));
    EXPECT_FALSE(G.FileChanged);
    EXPECT_TRUE(world.shell.busy);
    EXPECT_EQ(Betting.TranTicketCount, 1);

    // The next attempt starts again from full settlement.
    EXPECT_TRUE(FinishTransaction("19", due, quiet).Finished());
    EXPECT_EQ(RF.Ticket(1).Collected, C(14));
    EXPECT_EQ(RF.Ticket(1).Distributed, C(0));
    EXPECT_FALSE(world.shell.busy);
    EXPECT_FALSE(G.CancelFlag);
}

}  // namespace
}  // namespace tt::test
