#pragma once
// The recovery file: a log of closed transactions, one line per bet, from which lost tickets
// can be put back.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/race_file.h"

namespace tt {

class FieldReader;

inline constexpr const char* kRecoveryTag = "%TTRecv`";
inline constexpr const char* kRecoveryVersion = "2.0";
// A recovery file larger than this is not read: out of memory, through the recovery file's
// error path.
inline constexpr std::uint64_t kRecoveryReadLimit = 256ull << 20;

// One line of the recovery file.
struct RecoveryRow {
    DateTime When;
    Int16 FileId;
    std::string Action;  // four characters, such as "New "
    Int32 TicketNbr;
    Int16 Race;
    Int16 Bettor;
    Currency Collected;
    Currency Distributed;
    Currency OldCost;
    Currency Winnings;
    Currency BetAmt;
    Int16 BetType;
    Flag Boxed;
    Currency BetCost;
    Currency PriorWinnings;
    Int16 WinningsWhole;
    Int32 OrigBetIdx;
    FixedArray<Int16, 1, 6> Pick;
    Flag Include;
};

// Appends the line of a row, stamped with the given file identity.
void AppendRecoveryLine(std::string& out, const RecoveryRow& row, std::int16_t fileId);
// Reads the fields after a row's FileId, and the empty field that ends the line.
void ReadRecoveryRest(FieldReader& in, RecoveryRow& row);
// The warning shown when the recovery file fails; "opening" or "processing" names the stage.
void RecoveryFailure(const char* stage, int number, const std::string& text,
                     const std::string& source);

// The whole recovery file named by the card, at most kRecoveryReadLimit bytes; only a regular
// file is read.
std::string ReadRecoveryText();
// Whether the text holds a record of the log (a "%TTRecv`" field). A file that is not empty
// and holds none is someone else's: the log neither adds to it nor rewrites it (rewrite a
// recovery file with ReplaceFileContents of files/safe_file.h).
bool HoldsRecoveryRecord(std::string_view data);

// Raises the path/file access error when the log may not write to the recovery file whose text
// this is: the file is the open card itself, or it is not empty and holds no record of the log
// (someone else's file, added to or rewritten by mistake).
void CheckRecoveryText(std::string_view data);

// The file is never held open between operations; closing the channel is a no-op kept for
// the places that close it.
inline void CloseRecoveryChannel() {}

// With RecoveryFlag on, opens the recovery file for append and closes it again, turning the
// log off with a message when that fails or the file is not the log's.
void TestRecoveryFile();

// Appends the lines of a closed transaction, one a bet, stamped with the open file's identity;
// a failure, or a file that is not the log's, turns the log off with a message, and the
// transaction stands.
void LogTransaction(const std::vector<RecoveryRow>& rows);

// Drops the records of the open file older than the given number of days, rewriting the file
// atomically; a file that is not the log's is left as it is and the log turned off.
void ClearOldRecovery(std::int16_t days);

}  // namespace tt
