#pragma once
// Where a result is recorded: a race's five finishers checked against the bet types it offers
// and stored in Race.Result. A stored change is what the caller then settles (SettleRace).

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace tt {

// The two questions a change of result may put; OK goes on, Cancel keeps the old result.
enum class ResultQuestion {
    kBetsDistributed,  // money has been paid out on bets of the race
    kNoWinner,         // later positions are chosen without a winner: all are cleared
};
using ResultPolicy = std::function<bool(ResultQuestion)>;

enum class ResultStatus {
    kUnchanged,  // the same racers as stored: nothing to do
    kCancelled,  // a question was answered Cancel
    kSameRacer,  // one racer in two positions
    kNoSecond,   // Place, Show, Exacta or Trifecta offered, no second bet number
    kNoThird,    // Show or Trifecta offered, no third bet number
    kStored,     // Result(1..5) hold the new finishers
};

struct ResultOutcome {
    ResultStatus status = ResultStatus::kUnchanged;
    int first = 0, second = 0;  // kSameRacer: the two positions
    bool cleared = false;       // kStored: every position was cleared for want of a winner
};

// A racer that can be entered as a finisher: a named racer of the race that is not scratched.
bool CanFinish(int race, std::int64_t slot);

// Checks and stores the racer slots of positions 1 to 5 (index 0 unused; 0 for none). The
// checks go by bet number after merging a field, as the settlement counts finishers.
ResultOutcome RecordResult(int race, const std::array<std::int64_t, 6>& slots,
                           const ResultPolicy& ask);

// The text of a question.
std::string ResultQuestionText(ResultQuestion question);
// The question asked in a box: a beep, OK and Cancel with the warning mark.
bool AskResultQuestion(ResultQuestion question);
// A refused result told in its box, after a beep; nothing for the other outcomes.
void ShowResultRefusal(const ResultOutcome& outcome);

}  // namespace tt
