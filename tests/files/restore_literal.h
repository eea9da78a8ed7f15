#pragma once
// The restore as its loops read word for word, scanning every bet slot of the race for each
// new ticket version and for each ticket in the rebuild: the yardstick of the linear restore.

#include <string>
#include <vector>

#include "files/recovery_file.h"
#include "model/number_text.h"
#include "model/race_file.h"

namespace tt::test {

inline void LiteralRestore(const std::vector<RecoveryRow>& rows) {
    bool haveLast = false;
    Int32 lastTicket;
    DateTime lastDate;
    for (const RecoveryRow& row : rows) {
        if (!row.Include || row.Action == "Canc") continue;
        const Int32 t = row.TicketNbr;
        G.CurrentTicket = t;
        if (!haveLast || t != lastTicket || row.When != lastDate) {
            for (std::int64_t n = 1; n <= RF.MaxBets; ++n) {
                BetRec& b = RF.Bet(row.Race, n);
                if (b.TicketIdx == t) {
                    b.BetType = 0;
                    b.TicketIdx = 0;
                }
            }
            haveLast = true;
            lastTicket = t;
            lastDate = row.When;
        }
        if (RF.TicketCount < t) {
            RF.TicketCount = t;
            RF.Ticket.ReDimPreserve(t + 1);
        }
        if (row.Bettor > RF.BettorCount) {
            RF.Bettor.ReDimPreserve(row.Bettor + 1);
            RF.BettorCount += 1;
            RF.Bettor(row.Bettor).BettorName = "Restore Bettor " + Str(row.Bettor.Value());
        }
        TicketRec& tk = RF.Ticket(t);
        tk.TicketCost = row.BetAmt;
        tk.TicketBettor = row.Bettor;
        tk.TicketRace = row.Race;
        tk.TicketNbr = t;
        tk.Collected = row.Collected;
        tk.Distributed = row.Distributed;

        Int32 s = row.OrigBetIdx;
        if (s != 0 && s > RF.MaxBets) {
            RF.MaxBets = s;
            RF.Bet.ReDimPreserve(s + 1);
        }
        bool fresh = s == 0;
        if (!fresh) fresh = RF.Bet(row.Race, s).TicketIdx != t && RF.Bet(row.Race, s).BetType != 0;
        if (fresh) {
            s = 0;
            for (std::int64_t n = 1; n <= RF.MaxBets; ++n)
                if (RF.Bet(row.Race, n).BetType == 0) {
                    s = static_cast<std::int32_t>(n);
                    break;
                }
            if (s == 0) {
                RF.MaxBets += 1;
                RF.Bet.ReDimPreserve(RF.MaxBets + 1);
                s = RF.MaxBets;
            }
        }
        BetRec& b = RF.Bet(row.Race, s);
        if (b.BetType == 0) {
            b.BetAmt = row.BetAmt;
            b.Boxed = row.Boxed;
            b.BetCost = row.BetCost;
            b.TicketIdx = t;
            b.BetType = row.BetType;
            for (int k = 1; k <= 6; ++k) b.Pick(k) = row.Pick(k);
        }
        if (s < tk.FirstBet || tk.FirstBet == 0) tk.FirstBet = s;
        if (s > tk.LastBet) tk.LastBet = s;
    }
    for (std::int64_t t = 1; t <= RF.TicketCount; ++t) {
        TicketRec& tk = RF.Ticket(t);
        tk.TicketCost = Currency();
        tk.Winnings = Currency();
        tk.FirstBet = 999'999'999;
        tk.LastBet = 0;
        for (std::int64_t n = 1; n <= RF.MaxBets; ++n) {
            const BetRec& b = RF.Bet(tk.TicketRace, n);
            if (b.TicketIdx != t || b.BetType == 0) continue;
            tk.TicketCost += b.BetCost;
            tk.Winnings += b.BetWinnings;
            if (n < tk.FirstBet) tk.FirstBet = static_cast<std::int32_t>(n);
            if (n > tk.LastBet) tk.LastBet = static_cast<std::int32_t>(n);
        }
    }
}

// Everything a restore may change, as text, for comparing two documents.
inline std::string RestoredState() {
    std::string s = "MaxBets " + std::to_string(RF.MaxBets) + " ub " +
                    std::to_string(RF.Bet.UBound()) + "\nTicketCount " +
                    std::to_string(RF.TicketCount) + " ub " + std::to_string(RF.Ticket.UBound()) +
                    "\nBettorCount " + std::to_string(RF.BettorCount) + " ub " +
                    std::to_string(RF.Bettor.UBound()) + "\nCurrentTicket " +
                    std::to_string(G.CurrentTicket) + "\n";
    for (int r = 0; r < 22; ++r)
        for (std::int64_t n = 0; n <= RF.Bet.UBound(); ++n) {
            const BetRec& b = std::as_const(RF.Bet)(r, n);
            if (b.BetType == 0 && b.TicketIdx == 0 && b.BetAmt.Raw() == 0) continue;
            s += "bet " + std::to_string(r) + "/" + std::to_string(n) + ": " +
                 std::to_string(b.BetType) + " t" + std::to_string(b.TicketIdx) + " amt " +
                 std::to_string(b.BetAmt.Raw()) + " cost " + std::to_string(b.BetCost.Raw()) +
                 " won " + std::to_string(b.BetWinnings.Raw()) + (b.Boxed ? " box" : "") + " picks";
            for (int k = 1; k <= 6; ++k) s += " " + std::to_string(b.Pick(k));
            s += "\n";
        }
    for (std::int64_t t = 0; t <= RF.Ticket.UBound(); ++t) {
        const TicketRec& tk = std::as_const(RF.Ticket)(t);
        s += "ticket " + std::to_string(t) + ": nbr " + std::to_string(tk.TicketNbr) + " race " +
             std::to_string(tk.TicketRace) + " bettor " + std::to_string(tk.TicketBettor) +
             " cost " + std::to_string(tk.TicketCost.Raw()) + " coll " +
             std::to_string(tk.Collected.Raw()) + " dist " + std::to_string(tk.Distributed.Raw()) +
             " won " + std::to_string(tk.Winnings.Raw()) + " bets " + std::to_string(tk.FirstBet) +
             ".." + std::to_string(tk.LastBet) + "\n";
    }
    for (std::int64_t b = 0; b <= RF.Bettor.UBound(); ++b)
        s += "bettor " + std::to_string(b) + ": " + std::as_const(RF.Bettor)(b).BettorName + "\n";
    return s;
}

}  // namespace tt::test
