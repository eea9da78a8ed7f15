#pragma once
// The betting window's own data beside the race file: the tickets and bets of the open
// transaction, the ticket being composed, and what lives from one transaction to the next.
// Bets pass through three stages: Accept Bet writes TicketBets, Accept Ticket writes TranBets
// and the TranTicket, Finish Transaction writes Ticket and Bet. Only the last changes the race
// file.

#include <string>

#include "model/checked_int.h"
#include "model/currency.h"
#include "model/tables.h"

namespace tt {

// The key codes and shift masks the ticket windows' key handlers take.
inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyF2 = 113;
inline constexpr int kKeyF3 = 114;
inline constexpr int kShiftMask = 1;
inline constexpr int kCtrlMask = 2;
inline constexpr int kAltMask = 4;

// The action of a ticket in the transaction, and TicketMode: four characters, blank included.
inline constexpr const char* kNewTicket = "New ";   // a new ticket
inline constexpr const char* kNewAgain = "ENew";    // a new ticket opened again
inline constexpr const char* kEditTicket = "Edit";  // an existing ticket whose bets are edited
inline constexpr const char* kEditAgain = "ReEd";   // an edited ticket opened again
inline constexpr const char* kCashTicket = "Cash";  // an existing ticket settled up
inline constexpr const char* kCancelled = "Canc";   // removed from the transaction

// One ticket of the open transaction. A new element is all zero.
struct TranTicket {
    Int32 TicketNbr;
    Int16 Race;    // 0 after a cancelled new ticket
    Int16 Bettor;  // a bettor index; 0 after a cancelled new ticket
    Currency OldCost;
    Currency OldCollected;
    Currency OldDistributed;
    Currency Winnings;
    Currency Reserved;  // never used
    std::string Action;
    Currency NewAmtBet;
    Currency NewCollected;
    Currency NewDistributed;
    // The allocation of the money that changed hands.
    bool CollectMore = false;
    bool CollectLess = false;
    bool DistributeMore = false;
    bool DistributeLess = false;
    Currency DistributeChange;
    Currency CollectChange;
};

// One bet of a ticket being composed (TicketBets) or of the transaction (TranBets).
struct TempBet {
    Currency BetAmt;  // one single bet, as typed
    Int16 BetType;    // 0 marks a free or deleted element
    bool Boxed = false;
    Currency BetCost;              // Bet Total: what the bettor owes for this bet
    FixedArray<Int16, 1, 6> Pick;  // betting numbers packed from Pick(1), 0 unused
    Currency PriorWinnings;        // BetWinnings of the Bet it was loaded from, 0 for a new bet
    Int32 TicketNbr;
    Int16 Race;
    Int32 OrigBetIdx;     // the Bet slot it was loaded from, 0 for a new bet
    Int16 BetMark;        // WinningCombos of that Bet, only carried
    Int16 WinningsWhole;  // PriorWinnings as a whole number, set at each copy between lists
};

struct BettingState {
    Table1<TranTicket> TranTickets;  // 1..TranTicketCount
    Int16 TranTicketCount;
    Table1<TempBet> TranBets;  // 1..TranBetCount
    Int16 TranBetCount;
    Table1<TempBet> TicketBets;  // 1..TicketBetCount: the ticket open in Place Bets
    Int16 TicketBetCount;
    std::string TicketMode;  // the action of the ticket being worked on
    Int16 CurTranTicket;     // the TranTicket being worked on
    Int16 CurTempBet;        // the displayed bet in TicketBets, 0 a bet not yet in the list
    Int16 LoadedTranBet;     // the TranBets element whose picks are to be shown
    Int16 NewTicketCount;    // new tickets of this transaction, numbered on top of TicketCount
    // Across transactions.
    Int16 TransInPrinter;            // transactions waiting in the printer's open document
    Int16 LinesPerPage;              // ticket lines that fit a page
    bool KeepPrinterCopies = false;  // the operator chose to keep the printer's copy count
};

extern BettingState Betting;

// Back to the state of a fresh process: no transaction, nothing waiting in the printer.
void ResetBettingState();

}  // namespace tt
