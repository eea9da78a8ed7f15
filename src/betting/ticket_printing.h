#pragma once
// Tickets on paper: each new or edited ticket of a transaction as a small block of fixed-pitch
// lines at character columns. The blocks of several transactions wait in one open print
// document until the operator releases them or MaxTransInPrinter is reached, so that a run of
// tickets comes out on as few sheets as possible.

#include <functional>
#include <string>
#include <vector>

#include "model/checked_int.h"
#include "model/currency.h"

namespace tt {

// The maker's address in the banner of every ticket.
inline constexpr const char* kMakerAddress = "tamberlin-tally.example.org";

// One printed line of a ticket: one racer picked by one bet.
struct TicketLine {
    Int16 BetSeq;  // the bet's number within the ticket, from 1
    Currency BetAmt;
    std::string TypeText;  // "ATB", "D Double", or the bet type's name
    Currency BetCost;
    Int16 PickNo;  // the pick's position, 1 to 6
    Int16 BetNbr;
    std::string NameText;  // the first 16 characters of the racer's name
    std::string PostText;
    std::string ProgramText;
    std::string BoxText;  // "Box" or " "
};

// The lines used on the page by the tickets printed from one Finish Transaction window; a new
// window starts at 0.
struct TicketPage {
    Int16 LinesUsed;
};

// The ticket printer at Finish: Courier at TicketFontSize (a size outside 2 to 72 becomes 10,
// in the card too), bold, and LinesPerPage from the page height.
void SetUpTicketPrinter();

// The lines of one TranTicket: for each of its bets in TranBets, one line for every racer of
// the pick's race that carries the picked number. Coupled racers give a line each; a pick that
// matches no racer gives none.
std::vector<TicketLine> BuildTicketLines(int tranTicket);

// The text of a ticket's block as it goes to the printer, columns counted from 1: an empty
// line, the banner, the ticket's race and bettor, and with any lines the column heads and one
// line a racer.
std::vector<std::string> TicketBlockText(int tranTicket, const std::vector<TicketLine>& lines);

// Prints the ticket CurTranTicket, first ending the document when its block does not fit on
// the page.
void PrintTicket(TicketPage& page);

// Asked when the printer is set to several copies: true resets it to one copy. Unset keeps the
// copies, as No does.
using CopiesPolicy = std::function<bool()>;
// The question in its box: "Printer is set to multiple copies." ... "Do you want to reset to 1?"
bool AskResetCopies();

// Prints the new and edited tickets of the transaction; tickets opened again ("ReEd"), cashed
// or removed print nothing. Counts the transaction in TransInPrinter and ends the document when
// MaxTransInPrinter is reached.
void PrintTransaction(TicketPage& page, const CopiesPolicy& resetCopies);

// Ends the document with the tickets waiting in it.
void ReleaseTickets();

}  // namespace tt
