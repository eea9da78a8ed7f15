#pragma once
// Small steps on the transaction's lists that the ticket windows share: finding a ticket of the
// transaction, appending a ticket or a bet, and copying a bet from one list to the other.

#include <cstdint>

#include "betting/betting_state.h"

namespace tt {

// The TranTicket that holds this ticket number, 0 when none does.
std::int64_t FindTranTicket(std::int64_t ticketNbr);

// Appends an all-zero TranTicket and makes it current; the storage grows only when it must.
TranTicket& AppendTranTicket();
// Appends an all-zero TranBets element; returns its index.
std::int64_t AppendTranBet();

// A bet copied between TicketBets and TranBets: every field, and the whole-number copy of its
// prior winnings taken again.
void CopyTempBet(TempBet& to, const TempBet& from);

}  // namespace tt
