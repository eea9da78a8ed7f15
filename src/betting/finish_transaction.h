#pragma once
// Finishing a transaction: the one place where the betting window changes the race file.
//
// A transaction is the list of TranTickets and TranBets in the betting state (betting_state.h)
// that the ticket windows, or the companion, have filled. Finishing it takes the amount that
// really changed hands, spreads any difference from what was due over the tickets, checks that
// the tickets add up to the amount, writes Ticket and Bet records, sets FileChanged, logs the
// transaction to the recovery file, prints its tickets and offers the periodic save. It never
// opens a window: the caller passes the operator's choices.
//
// Typical use, by the Finish Transaction window or by the companion:
//
//     const Currency due = TransactionTotal();      // what the bettor owes (+) or gets (-)
//     FinishChoices choices;                        // printing as the card says, no copies
//     choices.resetCopies = AskResetCopies;         //   question unless a policy is given
//     FinishOutcome done = FinishTransaction("12.50", due, choices);
//     if (!done.Finished()) { /* message shown, nothing written: change the amount */ }
//
// What the caller leaves in the betting state, as Ticket Header and Place Bets leave it:
// - TranTickets(1..TranTicketCount): Action ("New ", "ENew", "Edit", "ReEd", "Cash" or "Canc"),
//   TicketNbr (a new ticket numbered TicketCount + its place among the transaction's new
//   tickets; 0 for one removed from the summary), Race, Bettor, the ticket's old money (OldCost,
//   OldCollected, OldDistributed, Winnings; all 0 for a new ticket) and NewAmtBet, the sum of
//   BetCost of its bets. NewCollected and NewDistributed count for what is due (TicketAmt) and
//   are set to full settlement again before the allocation.
// - TranBets(1..TranBetCount): the bets of every ticket, by TicketNbr; an element with BetType 0
//   is free and is not written. A bet loaded from the card keeps its slot in OrigBetIdx and its
//   winnings in PriorWinnings; these go to the recovery file only, the bet itself goes to the
//   first free slot of its race.
// The Ticket table is indexed by ticket number. The writing finds a ticket's old bets between
// its FirstBet and LastBet, which loading, restoring and this writing keep wide enough to hold
// every slot marked with the ticket's number.
//
// The companion: no printer (print = false, so no set-up and no copies question), and, since it
// saves once itself, its own countForSave (or none) instead of the save question, whose OK
// would save to FilePath.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "betting/ticket_printing.h"
#include "files/file_commands.h"
#include "files/recovery_file.h"
#include "model/currency.h"
#include "model/date_time.h"

namespace tt {

// ---- What is due ----------------------------------------------------------------------------

// The Trans Amt of TranTicket i as it stands: (NewCollected - OldCollected) - NewDistributed +
// OldDistributed; 0 for a removed ("Canc") ticket. Positive is money due in.
Currency TicketAmt(int tranTicket);
// TransTotal: the sum of TicketAmt over the transaction.
Currency TransactionTotal();
// TransSign: -1 when the transaction takes money in or is 0, +1 when it pays out.
int TransSignOf(Currency transTotal);
// The amount typed in the amount box, read by the leading-number rule: "1,000.00" reads as 1,
// "" and "abc" as 0.
Currency TypedAmount(std::string_view text);
// Excess: what came in beyond what should have, (|TransTotal| - typed) x TransSign. When
// collecting a positive Excess means too much was taken; when paying out, too little was paid.
Currency ExcessOf(Currency typed, Currency transTotal);

// ---- The steps, in the order FinishTransaction runs them ------------------------------------

// Every ticket not removed set to full settlement (NewCollected = NewAmtBet, NewDistributed =
// Winnings), with the changes and directions the allocation goes by.
void SettleTicketsInFull();
// The five passes that spread a negative Excess (less came in) over the tickets in order.
void AllocateShort(Currency excess);
// The five passes that spread a positive Excess (more came in).
void AllocateOver(Currency excess);
// Whether the tickets' money adds up to typed x TransSign. When not: a beep, the message below
// with the difference and the pass (1 after the allocation, 2 after the offset), and
// CancelFlag set.
bool CheckAllocation(int pass, Currency typed, int transSign);
std::string AllocationMessage(Currency difference, int pass);
// Nets a ticket that both collects above its old cost and pays above its winnings, or falls
// short of both, against its old cost.
void OffsetTickets();
// Writes each TranTicket in order into Ticket and its bets into Bet: new tickets raise
// TicketCount; the ticket's old bet slots are cleared and its bets go to the first free slots of
// its race, MaxBets growing when there are none; FirstBet and LastBet only ever widen.
void WriteTransactionTickets();
// The recovery lines of the transaction, one a bet of each ticket, all stamped with `when`.
std::vector<RecoveryRow> TransactionRecoveryRows(const DateTime& when);
// Empties the transaction's lists.
void ClearTransactionLists();

// ---- The whole finish -----------------------------------------------------------------------

// The operator's choices for a finish.
struct FinishChoices {
    // Print the tickets when the card says so (PrintBets): the printer is set up before the
    // allocation and the tickets go out after the log. False never touches the printer (the
    // companion has none).
    bool print = true;
    // Asked once while the printer is set to several copies; true resets it to one copy. Unset
    // keeps the copies, as No does.
    CopiesPolicy resetCopies;
    // The page count of the Finish window that prints, so that tickets printed by its Print
    // Tickets button and by the finish share the page; null counts from an empty page.
    TicketPage* page = nullptr;
    // Run last, after the lists are emptied: counts the transaction for the periodic save and
    // asks to save after SaveAfter of them. Unset skips the count and the question.
    std::function<void()> countForSave = CountTransactionForSave;
};

enum class FinishStatus {
    kFinished,      // written, logged, printed; the lists are empty
    kNotAllocated,  // the money did not add up: the box was shown, nothing was written
};

struct FinishOutcome {
    FinishStatus status = FinishStatus::kFinished;
    int pass = 0;         // kNotAllocated: the check that failed, 1 or 2
    Currency difference;  // kNotAllocated: what the tickets hold beyond the amount
    bool Finished() const { return status == FinishStatus::kFinished; }
};

// Finishes the open transaction with `typed` as the amount that changed hands and `transTotal`
// as what was due when the operator was shown it (TransactionTotal() then). On success
// CancelFlag is cleared; on kNotAllocated it is set, the tickets keep the amounts of the failed
// allocation and the next attempt starts them again from full settlement. The busy pointer is
// shown from the start and taken back only by a finish that succeeds. A run-time error (an
// overflow, a printer failure) propagates to the caller's error path: whatever was written
// before it stays written.
FinishOutcome FinishTransaction(Currency typed, Currency transTotal,
                                const FinishChoices& choices = {});
// The same with the amount as typed, read by the leading-number rule.
FinishOutcome FinishTransaction(std::string_view typedText, Currency transTotal,
                                const FinishChoices& choices = {});

}  // namespace tt
