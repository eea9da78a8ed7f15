#include "betting/ticket_lists.h"

namespace tt {

std::int64_t FindTranTicket(std::int64_t ticketNbr) {
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i)
        if (Betting.TranTickets(i).TicketNbr == ticketNbr) return i;
    return 0;
}

TranTicket& AppendTranTicket() {
    BettingState& b = Betting;
    b.TranTicketCount += 1;
    if (b.TranTickets.UBound() < b.TranTicketCount) b.TranTickets.ReDimPreserve(b.TranTicketCount);
    b.CurTranTicket = b.TranTicketCount;
    // A rolled-back ticket leaves its element behind: the new one starts from zero.
    TranTicket& t = b.TranTickets(b.TranTicketCount);
    t = TranTicket();
    return t;
}

std::int64_t AppendTranBet() {
    BettingState& b = Betting;
    b.TranBetCount += 1;
    if (b.TranBets.UBound() < b.TranBetCount) b.TranBets.ReDimPreserve(b.TranBetCount);
    b.TranBets(b.TranBetCount) = TempBet();
    return b.TranBetCount;
}

void CopyTempBet(TempBet& to, const TempBet& from) {
    to = from;
    to.WinningsWhole = RoundToInt16(from.PriorWinnings.ToDouble());
}

}  // namespace tt
