#pragma once
// Recovery records written as the betting window logs them, and a card to restore them into,
// for the tests of Restore.

#include <initializer_list>
#include <string>
#include <vector>

#include "files/recovery_file.h"
#include "model/race_file.h"

namespace tt::test {

inline constexpr const char* kLogPath = "day.tlr";

// One bet of a ticket as a line of the log.
struct LogBet {
    int type = 1;
    double amt = 2;
    std::vector<int> picks{1};
    int orig = 0;
    bool boxed = false;
};

// The lines of one ticket version: its action, number, time, race and bettor, one a bet.
inline std::vector<RecoveryRow> Version(const char* action, int ticket, DateTime when, int race,
                                        int bettor, std::initializer_list<LogBet> bets,
                                        int fileId = 77, double collected = 0) {
    std::vector<RecoveryRow> rows;
    for (const LogBet& bet : bets) {
        RecoveryRow row;
        row.When = when;
        row.FileId = fileId;
        row.Action = action;
        row.TicketNbr = ticket;
        row.Race = race;
        row.Bettor = bettor;
        row.Collected = Currency::FromDouble(collected);
        row.BetAmt = Currency::FromDouble(bet.amt);
        row.BetType = bet.type;
        row.Boxed = bet.boxed;
        row.BetCost = Currency::FromDouble(bet.amt * (bet.boxed ? 2 : 1));
        row.OrigBetIdx = bet.orig;
        for (std::size_t k = 0; k < bet.picks.size(); ++k)
            row.Pick(static_cast<std::int64_t>(k + 1)) = bet.picks[k];
        rows.push_back(row);
    }
    return rows;
}

// The text of the log holding these versions in order, each line stamped with its own card.
inline std::string LogText(std::initializer_list<std::vector<RecoveryRow>> versions) {
    std::string out;
    for (const auto& rows : versions)
        for (const RecoveryRow& row : rows) AppendRecoveryLine(out, row, row.FileId);
    return out;
}

// Card 77 with two named races, the bettors Ann and Ben, and its log "day.tlr" turned on.
inline void RestoreCard() {
    ClearRaceFile();
    RF.FileId = 77;
    RF.FileName = "Spring Day";
    RF.RecoveryFile = kLogPath;
    RF.RecoveryFlag = true;
    RF.Race(1).RaceName = "Opener";
    RF.Race(2).RaceName = "Closer";
    RF.BettorCount = 2;
    RF.Bettor.ReDim(3);
    RF.Bettor(1).BettorName = "Ann";
    RF.Bettor(2).BettorName = "Ben";
}

}  // namespace tt::test
