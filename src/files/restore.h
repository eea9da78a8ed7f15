#pragma once
// Restore: the tickets logged in the recovery file put back into the open card. The engine
// never asks anything itself: the question before a restore is the caller's policy, and the
// window and the companion both come here. A restore changes the document only, never the log.

#include <functional>
#include <string_view>
#include <vector>

#include "files/recovery_file.h"

namespace tt {

// The records of the open card in the text of a recovery file, in file order, Include off.
// Records of any other card are passed over. Raises the program's error on a field that
// cannot be read.
enum class RecoveryReadStatus {
    kRead,
    kWrongVersion,  // a record of another version: reading stopped there
};
RecoveryReadStatus ReadRecoveryRows(std::string_view data, std::vector<RecoveryRow>& rows);

// The warning of a record of another version; the log is turned off.
void WrongRecoveryVersion();

// Asked before the marked rows are restored: true goes on.
using RestoreConfirm = std::function<bool()>;
// The question in its box, OK and Cancel.
bool AskRestoreQuestion();

// Puts back the tickets of the rows whose Include is set, in file order: each new version of a
// ticket (another ticket or another time than the row before) wipes the ticket's bets in its
// race, each bet goes back to its slot or the first free one, a bettor the card does not have
// comes back as "Restore Bettor" and its number, "Canc" rows are passed over; then every
// ticket is summed again from its bets. Time linear in rows and bet slots.
void RestoreTickets(const std::vector<RecoveryRow>& rows);

// Rewrites the recovery file whole with the text, through a flushed temporary renamed over it,
// so that a failure leaves the old log. The open card itself, or a file that is not empty and
// holds no record of the log, is left as it is and the log is turned off with the recovery
// file's warning, false then. Other failures raise the program's error.
bool RewriteRecoveryLog(std::string_view text);

enum class RestoreStatus { kCancelled, kRestored };
// The restore of marked rows as the window runs it: the question, the tickets put back under
// the busy pointer, FileChanged, and the closing message.
RestoreStatus RestoreMarkedRows(const std::vector<RecoveryRow>& rows,
                                const RestoreConfirm& confirm);

}  // namespace tt
