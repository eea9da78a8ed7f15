#include "model/race_file.h"

#include <algorithm>
#include <cmath>

#include "model/ports.h"

namespace tt {

RaceFile RF;
Globals G;

void FillBetTypeNames() {
    static const char* const kNames[] = {"",       "Win",      "Place",        "Show",
                                         "Exacta", "Trifecta", "Daily Double", "Pick 3",
                                         "Pick 4", "Pick 5",   "Pick 6",       "Across the Board"};
    for (int i = 0; i <= kAcrossTheBoard; ++i) G.BetTypeName(i) = kNames[i];
}

const std::string& Name(BetType t) {
    return G.BetTypeName(Code(t));
}

void ClearRaceFile() {
    RF.FileId = 0;
    RF.FileName.clear();

    RF.Bettor.ReDim(1);
    RF.Bet.ReDim(1);
    RF.Racer.ReDim(1);
    RF.Ticket.ReDim(1);

    RF.RacerSort = "Betting Number";
    RF.ReportFontSize = 8;
    RF.TicketFontSize = 10;
    RF.MaxTransInPrinter = 1;

    for (int r = 0; r <= kMaxRace; ++r) {
        RaceRec& race = RF.Race(r);
        race.RaceName.clear();
        race.MinBet = Currency::FromInt(1);
        race.MinPayout = Currency::FromInt(1);
        race.BetIncr = Currency::FromRaw(1000);
        race.RoundTo = -2;
        race.HoldbackAmt = Currency();
        race.HoldbackPct = 0;
        race.RacerCount = 0;
        for (int t = 1; t <= kBetTypes; ++t) {
            race.BetType(t) = IsWinPlaceShow(BetTypeOf(t));
            race.CorrectPaid(t) = 0;
        }
        for (int k = 1; k <= 5; ++k) race.Result(k) = 0;
        race.BetCount = 0;
    }

    RF.MaxBets = 0;
    RF.BettorCount = 0;
    RF.MaxRacers = 0;
    RF.DefaultRace = 1;
    G.FileChanged = false;
}

void DrawFileId() {
    if (RF.FileId != 0) return;
    Random().Randomize();
    // The identity must stay within 1 to 30,000 even if a generator hands back its bound.
    double r = std::clamp(Random().Rnd(), 0.0, std::nextafter(1.0, 0.0));
    if (std::isnan(r)) r = 0.0;
    RF.FileId = static_cast<std::int16_t>(std::floor(r * 30000.0 + 1.0));
}

void InitialiseTables() {
    RF.Racer.ReDim(1);
    RF.Bet.ReDim(1);
    RF.Bettor.ReDim(1);
    RF.Ticket.ReDim(1);
    for (int r = 1; r <= kMaxRace; ++r) RF.Racer(r, 0).RacerName = "Not Available";
}

void ResetProcessState() {
    RF = RaceFile();
    G = Globals();
    FillBetTypeNames();
    InitialiseTables();
}

}  // namespace tt
