#include "betting/finish_transaction.h"

#include <algorithm>
#include <array>
#include <functional>
#include <queue>

#include "betting/betting_state.h"
#include "model/common.h"
#include "model/number_text.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

bool Removed(const TranTicket& t) {
    return t.Action == kCancelled;
}

// The first free bet slot of each race, as the writing of one transaction needs it. A slot is
// free when its BetType is 0. Within one writing only the writing itself frees slots (clearing
// a ticket's old bets), so a cursor that moves up over the slots in use, and the slots freed on
// the way, give the lowest free slot without going over the race again for each bet.
class FreeSlots {
  public:
    std::int64_t Take(int race) {
        Race& r = races_.at(static_cast<std::size_t>(race));
        while (!r.freed.empty() && RF.Bet(race, r.freed.top()).BetType != 0) r.freed.pop();
        while (r.cursor <= RF.MaxBets && RF.Bet(race, r.cursor).BetType != 0) ++r.cursor;
        std::int64_t slot = r.cursor <= RF.MaxBets ? r.cursor : 0;
        if (!r.freed.empty() && (slot == 0 || r.freed.top() < slot)) slot = r.freed.top();
        if (slot != 0) return slot;
        // No free slot in the race: every race gets one more.
        RF.MaxBets = RF.MaxBets + 1;
        RF.Bet.ReDimPreserve(RF.MaxBets + 1);
        return RF.MaxBets;
    }
    void Freed(int race, std::int64_t slot) {
        races_.at(static_cast<std::size_t>(race)).freed.push(slot);
    }

  private:
    struct Race {
        std::int64_t cursor = 1;
        std::priority_queue<std::int64_t, std::vector<std::int64_t>, std::greater<>> freed;
    };
    std::array<Race, 22> races_;
};

}  // namespace

Currency TicketAmt(int tranTicket) {
    const TranTicket& t = Betting.TranTickets(tranTicket);
    if (Removed(t)) return {};
    return (t.NewCollected - t.OldCollected) - t.NewDistributed + t.OldDistributed;
}

Currency TransactionTotal() {
    Currency total;
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) total += TicketAmt(i);
    return total;
}

int TransSignOf(Currency transTotal) {
    return transTotal >= Currency() ? -1 : 1;
}

Currency TypedAmount(std::string_view text) {
    return Currency::FromDouble(Val(text));
}

Currency ExcessOf(Currency typed, Currency transTotal) {
    return (Abs(transTotal) - typed) * TransSignOf(transTotal);
}

void SettleTicketsInFull() {
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
        TranTicket& t = Betting.TranTickets(i);
        if (Removed(t)) continue;
        t.NewCollected = t.NewAmtBet;
        t.NewDistributed = t.Winnings;
        t.DistributeChange = t.NewDistributed - t.OldDistributed;
        t.CollectChange = t.NewCollected - t.OldCollected;
        t.CollectMore = t.NewCollected > t.OldCollected;
        t.CollectLess = !t.CollectMore;
        t.DistributeMore = t.NewDistributed > t.OldDistributed;
        t.DistributeLess = !t.DistributeMore;
    }
}

// The passes compare signed amounts as they stand; where a test looks odd for the direction of
// the money it is still the test the books have always been kept by.
void AllocateShort(Currency excess) {
    const Currency zero;
    for (int pass = 1; pass <= 5; ++pass) {
        if (excess.IsZero()) return;
        for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
            TranTicket& t = Betting.TranTickets(i);
            if (Removed(t)) continue;
            switch (pass) {
                case 1:  // give up money that was to be taken back from overpaid tickets
                    if (!t.DistributeLess) continue;
                    if (t.DistributeChange <= excess) {
                        t.NewDistributed -= excess;
                        return;
                    }
                    t.NewDistributed = t.OldDistributed;
                    excess -= t.DistributeChange;
                    break;
                case 2:  // forgive what was to be collected in this transaction
                    if (!t.CollectMore) continue;
                    if (t.CollectChange >= Abs(excess)) {
                        t.NewCollected += excess;
                        return;
                    }
                    t.NewCollected = t.OldCollected;
                    excess += t.CollectChange;
                    break;
                case 3:  // money that left unaccounted for is taken for a payout of winnings
                    if (!(t.NewDistributed < t.Winnings)) continue;
                    if (t.Winnings - t.NewDistributed >= Abs(excess)) {
                        t.NewDistributed -= excess;
                        return;
                    }
                    excess += t.Winnings - t.NewDistributed;
                    t.NewDistributed = t.Winnings;
                    break;
                case 4:  // cut what stands collected
                    if (!(t.NewCollected > zero)) continue;
                    if (t.NewCollected >= Abs(excess)) {
                        t.NewCollected += excess;
                        return;
                    }
                    excess += t.NewCollected;
                    t.NewCollected = zero;
                    break;
                default:  // the rest falls on the first ticket as distributed
                    t.NewDistributed -= excess;
                    return;
            }
        }
    }
}

void AllocateOver(Currency excess) {
    const Currency zero;
    for (int pass = 1; pass <= 5; ++pass) {
        if (excess.IsZero()) return;
        for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
            TranTicket& t = Betting.TranTickets(i);
            if (Removed(t)) continue;
            switch (pass) {
                case 1:
                    if (!t.DistributeMore) continue;
                    if (t.DistributeChange >= excess) {
                        t.NewDistributed -= excess;
                        return;
                    }
                    t.NewDistributed = t.OldDistributed;
                    excess -= t.DistributeChange;
                    break;
                case 2:
                    if (!t.CollectLess) continue;
                    if (t.CollectChange >= excess) {
                        t.NewCollected += excess;
                        return;
                    }
                    t.NewCollected = t.OldCollected;
                    excess -= t.CollectChange;
                    break;
                case 3:
                    if (!(t.NewDistributed > zero)) continue;
                    if (t.NewDistributed >= excess) {
                        t.NewDistributed -= excess;
                        return;
                    }
                    excess -= t.NewDistributed;
                    t.NewDistributed = zero;
                    break;
                case 4:
                    if (!(t.NewCollected > t.OldCost)) continue;
                    if (t.OldCost - t.NewCollected > excess) {
                        t.NewCollected += excess;
                        return;
                    }
                    excess = excess - t.OldCost + t.NewCollected;
                    t.NewCollected = t.OldCost;
                    break;
                default:
                    t.NewCollected += excess;
                    return;
            }
        }
    }
}

std::string AllocationMessage(Currency difference, int pass) {
    return std::string("Unexpected error in allocated money to tickets!") + kCrLf +
           "A difference of " + PlainDecimal(difference) + " allocated in pass " + Str(pass) +
           kCrLf + "You may need to change the dollar amount entered to continue" + kCrLf +
           "or you may cancel the transaction.";
}

namespace {
Currency AllocationDifference(Currency typed, int transSign) {
    Currency sum;
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
        const TranTicket& t = Betting.TranTickets(i);
        if (Removed(t)) continue;
        sum = sum - t.NewCollected + t.OldCollected + t.NewDistributed - t.OldDistributed;
    }
    return sum - typed * transSign;
}
}  // namespace

bool CheckAllocation(int pass, Currency typed, int transSign) {
    const Currency difference = AllocationDifference(typed, transSign);
    if (difference.IsZero()) return true;
    Beep();
    MsgBox(AllocationMessage(difference, pass), Buttons::kOK, Icon::kExclamation);
    G.CancelFlag = true;
    return false;
}

void OffsetTickets() {
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
        TranTicket& t = Betting.TranTickets(i);
        if (Removed(t)) continue;
        const bool above = t.NewCollected > t.OldCost && t.NewDistributed > t.Winnings;
        const bool below = t.NewCollected < t.OldCost && t.NewDistributed < t.Winnings;
        if (above || below) {
            t.NewDistributed = t.NewDistributed - t.OldCost + t.NewCollected;
            t.NewCollected = t.OldCost;
        }
    }
}

void WriteTransactionTickets() {
    FreeSlots free;
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
        const TranTicket& t = Betting.TranTickets(i);
        if (t.Action == kNewTicket || t.Action == kNewAgain) {
            // A number skipped by a removed new ticket stays a blank ticket.
            RF.TicketCount = t.TicketNbr;
            RF.Ticket.ReDimPreserve(RF.TicketCount + 1);
        }
        if (Removed(t)) continue;
        const int race = t.Race;
        TicketRec& ticket = RF.Ticket(t.TicketNbr);
        ticket.TicketCost = t.NewAmtBet;
        ticket.TicketBettor = t.Bettor;
        ticket.TicketRace = t.Race;
        ticket.TicketNbr = t.TicketNbr;
        ticket.Collected = t.NewCollected;
        ticket.Distributed = t.NewDistributed;

        // The ticket's old bets. FirstBet and LastBet bound every slot that ever held one of
        // them, so the rest of the race need not be looked at.
        const std::int64_t last = std::min<std::int64_t>(ticket.LastBet, RF.MaxBets);
        for (std::int64_t s = std::max<std::int64_t>(ticket.FirstBet, 1); s <= last; ++s) {
            if (RF.Bet(race, s).TicketIdx != t.TicketNbr) continue;
            ClearBet(race, s);
            free.Freed(race, s);
        }

        for (std::int64_t j = 1; j <= Betting.TranBetCount; ++j) {
            const TempBet& b = Betting.TranBets(j);
            if (b.TicketNbr != t.TicketNbr || b.BetType == 0) continue;
            const std::int64_t s = free.Take(race);
            BetRec& bet = RF.Bet(race, s);
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

std::vector<RecoveryRow> TransactionRecoveryRows(const DateTime& when) {
    std::vector<RecoveryRow> rows;
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
        const TranTicket& t = Betting.TranTickets(i);
        for (std::int64_t j = 1; j <= Betting.TranBetCount; ++j) {
            const TempBet& b = Betting.TranBets(j);
            if (b.TicketNbr != t.TicketNbr) continue;
            RecoveryRow row;
            row.When = when;
            row.FileId = RF.FileId;
            row.Action = t.Action;
            row.TicketNbr = t.TicketNbr;
            row.Race = t.Race;
            row.Bettor = t.Bettor;
            row.Collected = t.NewCollected;
            row.Distributed = t.NewDistributed;
            row.OldCost = t.OldCost;
            row.Winnings = t.Winnings;
            row.BetAmt = b.BetAmt;
            row.BetType = b.BetType;
            row.Boxed = b.Boxed;
            row.BetCost = b.BetCost;
            row.PriorWinnings = b.PriorWinnings;
            row.WinningsWhole = b.WinningsWhole;
            row.OrigBetIdx = b.OrigBetIdx;
            for (int k = 1; k <= 6; ++k) row.Pick(k) = b.Pick(k);
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

void ClearTransactionLists() {
    Betting.TranBetCount = 0;
    Betting.TranTicketCount = 0;
    Betting.TranTickets.ReDim(1);
    Betting.TranBets.ReDim(1);
}

FinishOutcome FinishTransaction(Currency typed, Currency transTotal, const FinishChoices& choices) {
    Shell().SetBusy(true);
    const bool printing = choices.print && RF.PrintBets;
    if (printing) SetUpTicketPrinter();

    const int sign = TransSignOf(transTotal);
    const Currency excess = ExcessOf(typed, transTotal);
    SettleTicketsInFull();
    if (excess < Currency())
        AllocateShort(excess);
    else if (excess > Currency())
        AllocateOver(excess);
    // A failed check leaves the busy pointer on until a later finish goes through.
    for (int pass = 1; pass <= 2; ++pass) {
        if (pass == 2) OffsetTickets();
        if (!CheckAllocation(pass, typed, sign))
            return {FinishStatus::kNotAllocated, pass, AllocationDifference(typed, sign)};
    }

    WriteTransactionTickets();
    G.CancelFlag = false;
    G.FileChanged = true;
    if (RF.RecoveryFlag) LogTransaction(TransactionRecoveryRows(Clock().Now()));
    if (printing) {
        TicketPage own;
        PrintTransaction(choices.page ? *choices.page : own, choices.resetCopies);
    }
    ClearTransactionLists();
    Shell().SetBusy(false);
    if (choices.countForSave) choices.countForSave();
    return {};
}

FinishOutcome FinishTransaction(std::string_view typedText, Currency transTotal,
                                const FinishChoices& choices) {
    return FinishTransaction(TypedAmount(typedText), transTotal, choices);
}

}  // namespace tt
