#include "betting/betting_state.h"

namespace tt {

BettingState Betting;

void ResetBettingState() {
    Betting = BettingState();
    Betting.TranTickets.ReDim(1);
    Betting.TranBets.ReDim(1);
    Betting.TicketBets.ReDim(1);
}

}  // namespace tt
