#pragma once
// The writing of a transaction's tickets word for word: every slot 1 to MaxBets of the race
// looked at for the ticket's old bets, and again from slot 1 for each free slot. Slow on a large
// card; the tests hold the program's writing to the same slots in the same order, and the
// benchmark measures the difference.

#include "betting/betting_state.h"
#include "model/common.h"
#include "model/race_file.h"

namespace tt::test {

inline void WriteTransactionTicketsLiterally() {
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
        const TranTicket& t = Betting.TranTickets(i);
        if (t.Action == kNewTicket || t.Action == kNewAgain) {
            RF.TicketCount = t.TicketNbr;
            RF.Ticket.ReDimPreserve(RF.TicketCount + 1);
        }
        if (t.Action == kCancelled) continue;
        TicketRec& ticket = RF.Ticket(t.TicketNbr);
        ticket.TicketCost = t.NewAmtBet;
        ticket.TicketBettor = t.Bettor;
        ticket.TicketRace = t.Race;
        ticket.TicketNbr = t.TicketNbr;
        ticket.Collected = t.NewCollected;
        ticket.Distributed = t.NewDistributed;
        for (std::int64_t s = 1; s <= RF.MaxBets; ++s)
            if (RF.Bet(t.Race, s).TicketIdx == t.TicketNbr) ClearBet(t.Race, s);
        for (std::int64_t j = 1; j <= Betting.TranBetCount; ++j) {
            const TempBet& b = Betting.TranBets(j);
            if (b.TicketNbr != t.TicketNbr || b.BetType == 0) continue;
            std::int64_t s = 1;
            while (s <= RF.MaxBets && RF.Bet(t.Race, s).BetType != 0) ++s;
            if (s > RF.MaxBets) {
                RF.MaxBets = RF.MaxBets + 1;
                RF.Bet.ReDimPreserve(RF.MaxBets + 1);
                s = RF.MaxBets;
            }
            BetRec& bet = RF.Bet(t.Race, s);
            bet.BetAmt = b.BetAmt;
            bet.Boxed = b.Boxed;
            bet.BetCost = b.BetCost;
            bet.TicketIdx = t.TicketNbr;
            bet.BetType = b.BetType;
            for (int k = 1; k <= 6; ++k) bet.Pick(k) = b.Pick(k);
            if (ticket.FirstBet == 0 || ticket.FirstBet > s) ticket.FirstBet = s;
            if (ticket.LastBet < s) ticket.LastBet = s;
        }
    }
}

}  // namespace tt::test
