#include "payouts/record_result.h"

#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {
// The four lines that tell the operator which finisher is missing.
std::string MissingFinisher(const std::string& bets, const std::string& finisher) {
    return bets + kLfCr + finisher + kLfCr + "or those bets disallowed in the Race Card." + kLfCr +
           "(Remember that a bet number will only be used for one position.)";
}

// Money paid out on a bet of the race. Multi-race bets of neighbouring races are not looked at.
bool BetsDistributed(int race) {
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if (b.BetType != 0 && RF.Ticket(b.TicketIdx).Distributed > Currency()) return true;
    }
    return false;
}
}  // namespace

bool CanFinish(int race, std::int64_t slot) {
    if (slot < 1 || slot > RF.MaxRacers) return false;
    const RacerRec& r = RF.Racer(race, slot);
    return !r.RacerName.empty() && !r.Scratched;
}

std::string ResultQuestionText(ResultQuestion question) {
    if (question == ResultQuestion::kBetsDistributed)
        return std::string("Bets have already been distributed!") + kLfCr +
               "Are you sure you want to change the results?";
    return "Winning " + RF.RaceType + " not entered!" + kLfCr +
           "All other positions will be set to 'Not Available'";
}

bool AskResultQuestion(ResultQuestion question) {
    Beep();
    return MsgBox(ResultQuestionText(question), Buttons::kOKCancel, Icon::kExclamation) != kCancel;
}

void ShowResultRefusal(const ResultOutcome& outcome) {
    switch (outcome.status) {
        case ResultStatus::kSameRacer:
            Beep();
            MsgBox("Same Racer cannot finish in two positions!");
            break;
        case ResultStatus::kNoSecond:
            Beep();
            MsgBox(MissingFinisher("Place, Show, Exacta, and/or Trifecta bets allowed.",
                                   "2nd place finisher must be entered"),
                   Buttons::kOK, Icon::kExclamation);
            break;
        case ResultStatus::kNoThird:
            Beep();
            MsgBox(MissingFinisher("Show and/or Trifecta bets allowed.",
                                   "3rd place finisher must be entered"),
                   Buttons::kOK, Icon::kExclamation);
            break;
        default:
            break;
    }
}

ResultOutcome RecordResult(int race, const std::array<std::int64_t, 6>& slots,
                           const ResultPolicy& ask) {
    ResultOutcome outcome;
    RaceRec& rc = RF.Race(race);
    std::array<std::int64_t, 6> nbr{};
    bool differs = false;
    for (int k = 1; k <= 5; ++k) {
        nbr[k] = RF.Racer(race, slots[k]).BetNbr;
        if (slots[k] != rc.Result(k)) differs = true;
    }
    if (!differs) return outcome;

    outcome.status = ResultStatus::kCancelled;
    if (BetsDistributed(race) && !ask(ResultQuestion::kBetsDistributed)) return outcome;

    std::array<std::int64_t, 6> store = slots;
    if (slots[1] == 0) {
        if (slots[2] != 0 || slots[3] != 0 || slots[4] != 0 || slots[5] != 0) {
            if (!ask(ResultQuestion::kNoWinner)) return outcome;
            store.fill(0);
            outcome.cleared = true;
        }
        // An empty result can always be saved.
    } else {
        for (int a = 1; a <= 4; ++a) {
            for (int b = a + 1; b <= 5; ++b) {
                if (slots[a] == slots[b] && slots[a] != 0) {
                    outcome.status = ResultStatus::kSameRacer;
                    outcome.first = a;
                    outcome.second = b;
                    return outcome;
                }
            }
        }
        // Judged by bet numbers: a field counts for one position only.
        std::int64_t second = 0, third = 0;
        for (int k = 2; k <= 5; ++k) {
            if (nbr[k] != nbr[1]) {
                second = nbr[k];
                break;
            }
        }
        for (int k = 3; k <= 5; ++k) {
            if (nbr[k] != nbr[1] && nbr[k] != second) {
                third = nbr[k];
                break;
            }
        }
        auto offered = [&rc](BetType t) { return bool(rc.BetType(Code(t))); };
        if (second == 0 && (offered(BetType::kPlace) || offered(BetType::kShow) ||
                            offered(BetType::kExacta) || offered(BetType::kTrifecta))) {
            outcome.status = ResultStatus::kNoSecond;
            return outcome;
        }
        if (third == 0 && (offered(BetType::kShow) || offered(BetType::kTrifecta))) {
            outcome.status = ResultStatus::kNoThird;
            return outcome;
        }
    }

    for (int k = 1; k <= 5; ++k) rc.Result(k) = store[k];
    outcome.status = ResultStatus::kStored;
    return outcome;
}

}  // namespace tt
