#pragma once
// The betting window as `tally sell` and `tally cash` work it: opened as the Edit menu opens
// it, each ticket window run by its own logic with the command's choices in place of the keys,
// and the transaction finished by the finish the Finish Transaction window uses, without a
// printer. Every box goes to the error stream and every question is answered Yes or OK.

#include <functional>
#include <string>

#include "betting/place_bets_logic.h"
#include "betting/ticket_header_logic.h"
#include "betting/transaction_logic.h"
#include "cli/console_ports.h"

namespace tt::cli {

class BettingWindow {
  public:
    explicit BettingWindow(ConsoleWorld& world);
    ~BettingWindow();

    // The window opened on the card: false when it refused (a card without racers).
    bool Open();

    // A button of the transaction window that opens the ticket window in `mode` ("New " or
    // "Cash"), with the host's part in each window; Place Bet only comes when the ticket window
    // opens it.
    using HeaderScript = std::function<void(TicketHeaderLogic&)>;
    using BetsScript = std::function<void(PlaceBetsLogic&)>;
    void Ticket(const char* mode, HeaderScript header, BetsScript bets = {});

    // Finish Transaction with the amount typed, or the total due as a plain decimal. Saves to
    // `out` when the periodic save question comes; false when the money did not add up.
    bool Finish(const std::string* paid, const std::string& out);

    TransactionLogic transaction;

  private:
    ConsoleWorld& world_;
    HeaderScript header_;
    BetsScript bets_;
    const std::string* paid_ = nullptr;
};

}  // namespace tt::cli
