// The writing of a finished transaction into Ticket and Bet: new numbers, the first free slots,
// FirstBet and LastBet that only widen, blank numbers of removed new tickets, and the same
// slots in the same order as the word-for-word writing on a card of any shape.

#include <random>
#include <sstream>

#include "betting/finish_transaction.h"
#include "betting_card.h"
#include "large_card.h"
#include "literal_writer.h"
#include "model/common.h"

namespace tt::test {
namespace {

class TicketWriting : public BettingCard {
  protected:
    void Write() {
        SettleTicketsInFull();
        WriteTransactionTickets();
        ClearTransactionLists();
        Betting.NewTicketCount = 0;
    }
    // Drops bet j of the transaction as Place Bets does when a bet is deleted.
    void DropTranBet(std::int64_t j) {
        TempBet& b = Betting.TranBets(j);
        b.BetType = 0;
        b.TicketNbr = 0;
        b.BetAmt = b.BetCost = Currency();
    }
    static std::string Slot(int race, std::int64_t s) {
        const BetRec& b = RF.Bet(race, s);
        std::ostringstream out;
        out << "type " << b.BetType << " amt " << b.BetAmt.Raw() / 10000.0 << " ticket "
            << b.TicketIdx << " pick " << b.Pick(1);
        return out.str();
    }
};

TEST_F(TicketWriting, ANewTicketTakesTheFirstFreeSlotsAndMaxBetsGrowsWhenThereAreNone) {
    FileTicket(1, 1, {{2, 1, {1}}, {2, 1, {2}}, {2, 1, {3}}});
    ClearBet(1, 2);  // a bet taken back: its slot is free, its winnings stay with the slot
    RF.Bet(1, 2).BetWinnings = C(7);
    NewTicket(1, 2, {{5, 1, {4}}, {3, 2, {5}}});
    Write();

    EXPECT_EQ(RF.TicketCount, 2);
    EXPECT_EQ(RF.Ticket.UBound(), 3);
    const TicketRec& t = RF.Ticket(2);
    EXPECT_EQ(t.TicketNbr, 2);
    EXPECT_EQ(t.TicketRace, 1);
    EXPECT_EQ(t.TicketBettor, 2);
    EXPECT_EQ(t.TicketCost, C(8));
    EXPECT_EQ(t.Collected, C(8));
    EXPECT_EQ(t.Distributed, C(0));
    EXPECT_EQ(Slot(1, 2), "type 1 amt 5 ticket 2 pick 4");
    EXPECT_EQ(RF.Bet(1, 2).BetWinnings, C(7));
    EXPECT_EQ(RF.MaxBets, 4);
    EXPECT_EQ(RF.Bet.UBound(), 5);
    EXPECT_EQ(Slot(1, 4), "type 2 amt 3 ticket 2 pick 5");
    EXPECT_EQ(t.FirstBet, 2);
    EXPECT_EQ(t.LastBet, 4);
    EXPECT_TRUE(G.FileChanged == false);  // the writing alone; Finish sets it
}

TEST_F(TicketWriting, EditsNeverNarrowFirstBetAndLastBet) {
    FileTicket(1, 1, {{2, 1, {1}}, {2, 1, {2}}, {2, 1, {3}}});  // #1 in slots 1 to 3
    FileTicket(1, 2, {{4, 2, {4}}, {6, 3, {5}}});               // #2 in slots 4 and 5

    // #2 loses its first bet: the other moves down into slot 4, slot 5 is left free but still
    // marked as #2's.
    BringIn(2, kEditTicket);
    DropTranBet(1);
    Tran(1).NewAmtBet = Tran(1).NewCollected = C(6);
    Write();
    EXPECT_EQ(Slot(1, 4), "type 3 amt 6 ticket 2 pick 5");
    EXPECT_EQ(Slot(1, 5), "type 0 amt 0 ticket 2 pick 0");
    EXPECT_EQ(RF.Ticket(2).FirstBet, 4);
    EXPECT_EQ(RF.Ticket(2).LastBet, 5);
    EXPECT_EQ(RF.Ticket(2).TicketCost, C(6));

    // #1 gains a bet: it takes slot 5, inside #2's bounds.
    BringIn(1, kEditTicket);
    AddTranBet(1, 1, {10, 1, {6}});
    Tran(1).NewAmtBet = Tran(1).NewCollected = C(16);
    Write();
    EXPECT_EQ(Slot(1, 5), "type 1 amt 10 ticket 1 pick 6");
    EXPECT_EQ(RF.Ticket(1).FirstBet, 1);
    EXPECT_EQ(RF.Ticket(1).LastBet, 5);

    // #2 written again leaves #1's bet in its bounds alone.
    Cash(2);
    Write();
    EXPECT_EQ(Slot(1, 4), "type 3 amt 6 ticket 2 pick 5");
    EXPECT_EQ(Slot(1, 5), "type 1 amt 10 ticket 1 pick 6");
    EXPECT_EQ(RF.MaxBets, 5);
}

TEST_F(TicketWriting, ACashRewritesTheBetsIntoTheFirstFreeSlots) {
    FileTicket(2, 1, {{2, 1, {1}}});
    FileTicket(2, 2, {{3, 4, {2, 3}}, {1, 5, {1, 2, 3}, true}});
    RF.Bet(2, 2).BetWinnings = C(40);
    RF.Ticket(2).Winnings = C(40);
    ClearBet(2, 1);  // #1's only bet taken back earlier
    Cash(2);
    Write();
    // The same bets, one slot lower; each slot keeps its own winnings.
    EXPECT_EQ(Slot(2, 1), "type 4 amt 3 ticket 2 pick 2");
    EXPECT_EQ(RF.Bet(2, 1).BetWinnings, C(0));
    EXPECT_EQ(Slot(2, 2), "type 5 amt 1 ticket 2 pick 1");
    EXPECT_TRUE(bool(RF.Bet(2, 2).Boxed));
    EXPECT_EQ(RF.Bet(2, 2).BetCost, C(6));
    EXPECT_EQ(RF.Bet(2, 2).Pick(3), 3);
    EXPECT_EQ(Slot(2, 3), "type 0 amt 0 ticket 2 pick 0");
    EXPECT_EQ(RF.Ticket(2).FirstBet, 1);
    EXPECT_EQ(RF.Ticket(2).LastBet, 3);
    EXPECT_EQ(RF.Ticket(2).Distributed, C(40));
    EXPECT_EQ(RF.Ticket(2).Winnings, C(40));  // never written by the window
}

TEST_F(TicketWriting, NumbersOfRemovedNewTicketsStayBlank) {
    FileTicket(1, 1, {{2, 1, {1}}});
    // #2 accepted with no bets keeps its number; #3 was removed from the summary.
    NewTicket(1, 2, {});
    Tran(1).Action = kCancelled;
    Tran(1).Race = 0;
    Tran(1).Bettor = 0;
    NewTicket(2, 3, {{2, 2, {3}}});
    Tran(2).Action = kCancelled;
    Tran(2).TicketNbr = 0;
    Betting.TranBets(1).TicketNbr = 0;
    Betting.TranBets(1).BetType = 0;
    NewTicket(3, 1, {{2, 3, {2}}});
    Write();
    EXPECT_EQ(RF.TicketCount, 4);
    EXPECT_EQ(RF.Ticket(2).TicketBettor, 0);
    EXPECT_EQ(RF.Ticket(2).TicketNbr, 0);
    EXPECT_EQ(RF.Ticket(3).TicketBettor, 0);
    EXPECT_EQ(RF.Ticket(4).TicketBettor, 1);
    EXPECT_EQ(RF.Ticket(4).TicketRace, 3);
    EXPECT_EQ(Slot(3, 1), "type 3 amt 2 ticket 4 pick 2");
    EXPECT_EQ(Slot(2, 1), "type 0 amt 0 ticket 0 pick 0");
}

// ---- The same slots as the word-for-word writing -------------------------------------------

class SameAsLiteral : public TicketWriting {
  protected:
    // Sixty transactions of new, edited, cashed and removed tickets on a generated card.
    void Run(std::uint32_t seed, void (*write)()) {
        std::mt19937 rng(seed);
        auto below = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
        auto randomBet = [&]() {
            TypedBet b;
            b.amt = 2 + below(4);
            b.type = 1 + below(5);
            b.picks = {1 + below(8)};
            if (b.type >= 4) b.picks.push_back(1 + (b.picks[0] % 8));
            if (b.type == 5) b.picks.push_back(1 + ((b.picks[1]) % 8));
            return b;
        };
        for (int n = 0; n < 60; ++n) {
            std::vector<std::int32_t> inTransaction;
            const int tickets = 1 + below(3);
            for (int k = 0; k < tickets; ++k) {
                const int op = below(6);
                if (op <= 1) {
                    const std::int32_t number = NewTicket(1 + below(6), 1 + below(40), {});
                    const int bets = below(4);
                    Currency total;
                    for (int b = 0; b < bets; ++b) {
                        const TypedBet typed = randomBet();
                        AddTranBet(number, Tran(Betting.TranTicketCount).Race, typed);
                        total += CostOf(typed);
                    }
                    TranTicket& t = Tran(Betting.TranTicketCount);
                    t.NewAmtBet = t.NewCollected = total;
                    if (bets == 0) {
                        t.Action = kCancelled;
                        t.Race = 0;
                        t.Bettor = 0;
                    }
                    continue;
                }
                const std::int32_t number = 1 + below(RF.TicketCount);
                if (RF.Ticket(number).TicketBettor == 0 ||
                    std::count(inTransaction.begin(), inTransaction.end(), number))
                    continue;
                inTransaction.push_back(number);
                if (op == 2) {
                    Cash(number);
                    continue;
                }
                const std::int64_t first = Betting.TranBetCount + 1;
                TranTicket& t = BringIn(number, kEditTicket);
                for (std::int64_t j = first; j <= Betting.TranBetCount; ++j)
                    if (below(3) == 0) DropTranBet(j);
                for (int b = below(3); b > 0; --b) AddTranBet(number, t.Race, randomBet());
                if (op == 5) {  // removed from the summary again
                    for (std::int64_t j = first; j <= Betting.TranBetCount; ++j)
                        if (Betting.TranBets(j).TicketNbr == number) DropTranBet(j);
                    t.Action = kCancelled;
                    t.TicketNbr = 0;
                }
            }
            SettleTicketsInFull();
            write();
            ClearTransactionLists();
            Betting.NewTicketCount = 0;
        }
    }
    static std::string Book() {
        std::ostringstream out;
        out << "tickets " << RF.TicketCount << " maxbets " << RF.MaxBets << "\n";
        for (std::int64_t t = 0; t <= RF.Ticket.UBound(); ++t) {
            const TicketRec& k = RF.Ticket(t);
            out << "T" << t << " " << k.TicketNbr << " " << k.TicketRace << " " << k.TicketBettor
                << " " << k.TicketCost.Raw() << " " << k.Collected.Raw() << " "
                << k.Distributed.Raw() << " " << k.FirstBet << "-" << k.LastBet << "\n";
        }
        for (int r = 0; r <= 21; ++r)
            for (std::int64_t s = 0; s <= RF.Bet.UBound(); ++s) {
                const BetRec& b = RF.Bet(r, s);
                if (b.BetType == 0 && b.TicketIdx == 0) continue;
                out << "B" << r << "." << s << " " << b.BetType << " " << b.BetAmt.Raw() << " "
                    << b.BetCost.Raw() << " " << bool(b.Boxed) << " " << b.TicketIdx << " "
                    << b.BetWinnings.Raw();
                for (int p = 1; p <= 6; ++p) out << " " << b.Pick(p);
                out << "\n";
            }
        return out.str();
    }
};

TEST_F(SameAsLiteral, GeneratedCardsEndTheSame) {
    for (std::uint32_t seed : {1u, 2u, 3u}) {
        bench::CardShape shape;
        shape.races = 6;
        shape.racersPerRace = 8;
        shape.bettors = 40;
        shape.tickets = 300;
        shape.bets = 900;
        shape.settledRaces = 2;
        shape.seed = seed;
        bench::MakeLargeCard(shape);
        const RaceFile start = RF;

        Run(seed, WriteTransactionTickets);
        const std::string fast = Book();
        RF = start;
        ResetBettingState();
        Run(seed, WriteTransactionTicketsLiterally);
        EXPECT_EQ(fast, Book()) << "seed " << seed;
        EXPECT_GT(RF.TicketCount, shape.tickets);
        ResetBettingState();
    }
}

}  // namespace
}  // namespace tt::test
