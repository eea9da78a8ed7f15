#pragma once
// The one document of the program: the race card with its settings, races, racers, bettors,
// tickets, bets and payouts, and the shared state that every window reads and changes.

#include <array>
#include <string>

#include "model/app_error.h"
#include "model/bet_type.h"
#include "model/checked_int.h"
#include "model/currency.h"
#include "model/date_time.h"
#include "model/flag.h"
#include "model/tables.h"

namespace tt {

inline constexpr int kMaxRace = 20;    // races are 1 to 20; 0 holds the defaults
inline constexpr int kSpareRace = 21;  // never saved, loaded or cleared

struct RaceRec {
    std::string RaceName;
    Currency MinBet;
    Currency MinPayout;
    Currency BetIncr;
    Int16 RoundTo;
    Currency HoldbackAmt;
    float HoldbackPct = 0;
    Int16 RacerCount;
    FixedArray<Flag, 1, 10> BetType;
    FixedArray<Int16, 1, 10> CorrectPaid;
    FixedArray<Int16, 0, 5> Result;
    FixedArray<Currency, 1, 5> QuickBet;
    Int32 BetCount;
};

struct RacerRec {
    std::string PostPosition;
    Int16 BetNbr;
    std::string ProgramNbr;
    std::string RacerName;
    double Odds = 0;
    Flag Scratched;
};

struct BettorRec {
    std::string BettorName;
    std::string BettorInfo;
    std::string BettorPhone;
    std::string BettorEmail;
    Currency TotalBet;
    Currency TotalWon;
    Flag ImportFlag;
};

struct TicketRec {
    Int32 TicketNbr;
    Int16 TicketRace;
    Int16 TicketBettor;
    Currency TicketCost;
    Currency Collected;
    Currency Distributed;
    Currency Winnings;
    Int32 FirstBet;
    Int32 LastBet;
};

struct BetRec {
    Currency BetAmt;
    Int16 BetType;
    Flag Boxed;
    Currency BetCost;
    FixedArray<Int16, 1, 6> Pick;
    Currency BetWinnings;
    Currency WinPart;
    Currency PlacePart;
    Currency ShowPart;
    Int16 CorrectPicks;
    Int16 WinningCombos;
    Int32 TicketIdx;
};

struct PayoutRec {
    double PayRatio = 0;
    Currency WinningAmt;
    Currency PoolAmt;
};

// Payout(race 0..21, bet type 0..11, position 0..7).
class PayoutTable {
  public:
    PayoutRec& operator()(std::int64_t race, std::int64_t type, std::int64_t pos) {
        return cells_.at(Index(race, type, pos));
    }
    const PayoutRec& operator()(std::int64_t race, std::int64_t type, std::int64_t pos) const {
        return cells_.at(Index(race, type, pos));
    }

  private:
    static std::size_t Index(std::int64_t race, std::int64_t type, std::int64_t pos) {
        if (race < 0 || race > 21 || type < 0 || type > 11 || pos < 0 || pos > 7)
            Raise(kErrSubscript);
        return static_cast<std::size_t>((race * 12 + type) * 8 + pos);
    }
    std::array<PayoutRec, 22 * 12 * 8> cells_{};
};

struct RaceFile {
    // Parms, in the order the file holds them.
    Int16 FileId;
    std::string FileName;
    std::string RaceType;
    Int16 DefaultRace;
    Int16 SaveAfter;
    Flag PrintBets;
    Int16 MaxTransInPrinter;
    Flag UseBetNbr;
    Flag UseProgramNbr;
    Flag UsePostPosition;
    std::string RacerSort;
    Int16 MaxRaces;
    Int32 TicketCount;
    Flag DefaultToDummy;
    std::string RecoveryFile;
    Flag RecoveryFlag;
    Flag ClearRecovery;
    Int16 ClearDays;
    Int16 ReportFontSize;
    Int16 TicketFontSize;
    Flag CollectZero;

    FixedArray<RaceRec, 0, 21> Race;
    RaceTable<RacerRec> Racer;       // Racer(race, 0 .. MaxRacers + 1)
    ZeroedRaceTable<BetRec> Bet;     // Bet(race, 0 .. MaxBets + 1)
    Table1<BettorRec> Bettor;        // Bettor(0 .. BettorCount + 1)
    ZeroedTable1<TicketRec> Ticket;  // Ticket(0 .. TicketCount + 1)
    PayoutTable Payout;

    Int16 MaxRacers;
    Int16 BettorCount;
    Int32 MaxBets;
};

// Shared state of the running program.
struct Globals {
    Flag FileChanged;
    Flag CancelFlag;
    std::string FilePath;
    std::string LastFile;
    DateTime FileSaved;
    Int16 TransSinceSave;
    Int16 CurrentRace;
    Int16 CurrentRacer;
    Int16 CurrentBettor;
    Int32 CurrentBet;
    Int32 CurrentTicket;
    FixedArray<std::string, 0, 11> BetTypeName;
    // Last known placement of the main window, twips.
    Int32 MainLeft;
    Int32 MainTop;
    Int32 MainWidth;
    Int32 MainHeight;
    // The captions of the four most recent files, newest first.
    std::array<std::string, 4> Mru;
};

extern RaceFile RF;
extern Globals G;

// A race exists when it has a name.
inline bool RaceExists(int race) {
    return !RF.Race(race).RaceName.empty();
}
// A race is finished when its first finisher is set.
inline bool RaceFinished(int race) {
    return RF.Race(race).Result(1) != 0;
}

// Fills BetTypeName: slot 0 empty, then the eleven names.
void FillBetTypeNames();

// Brings the document to the cleared state. Touches nothing else: TicketCount, the other
// settings, QuickBet, Result(0) and Payout keep their values.
void ClearRaceFile();

// Draws a file identity when the document has none.
void DrawFileId();

// Sets the four growable tables to their start-up sizes, as the program does before any
// file is opened, and names racer 0 of every race "Not Available".
void InitialiseTables();

// Brings the document and the shared state back to a fresh process; for the companion and
// the tests.
void ResetProcessState();

}  // namespace tt
