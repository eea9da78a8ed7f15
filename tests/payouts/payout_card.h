#pragma once
// A small race card built through the records, and the Payout Handling dialog answered by
// script, for the settlement tests.

#include <gtest/gtest.h>

#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

#include "model/race_file.h"
#include "payouts/payout_handling_logic.h"
#include "payouts/settlement.h"
#include "support/fakes.h"
#include "support/money.h"

namespace tt::test {

class PayoutCard : public ::testing::Test {
  protected:
    void SetUp() override {
        ClearRaceFile();  // races with the settings of a new card
        RF.RaceType = "Horse";
    }

    static std::string HandlingText(PoolHandling h) {
        return h == PoolHandling::kMost      ? "Most"
               : h == PoolHandling::kPayback ? "Payback"
                                             : "NoPay";
    }
    static PoolHandling HandlingOf(const std::string& text) {
        return text == "Most"      ? PoolHandling::kMost
               : text == "Payback" ? PoolHandling::kPayback
                                   : PoolHandling::kNoPay;
    }

    // The Payout Handling dialog answered by script: what it asked is kept as "Win Bets
    // Payback" (type, whether Most is offered, its preselection), and the next answer chosen.
    HandlingPolicy policy = [this](const HandlingQuestion& question) {
        PayoutHandlingLogic dlg(question);
        dlg.Form_Load();
        asked.push_back(dlg.lblBetType.text + (dlg.optMost.enabled ? " most " : " ") +
                        HandlingText(dlg.Selected()));
        if (!answers.empty()) {
            dlg.Choose(HandlingOf(answers.front()));
            answers.pop_front();
        }
        dlg.cmdOK_Click();
        return dlg.answer;
    };

    // Names the race, offers exactly the bet types given, and gives it racers with these bet
    // numbers in slots 1, 2, ...
    void Race(int race, std::initializer_list<int> types, std::initializer_list<int> betNbrs) {
        RaceRec& rc = RF.Race(race);
        rc.RaceName = "Race" + std::to_string(race);
        for (int t = 1; t <= 10; ++t) rc.BetType(t) = false;
        for (int t : types) rc.BetType(t) = true;
        int n = 0;
        for (int nbr : betNbrs) {
            ++n;
            if (n > RF.MaxRacers) {
                RF.MaxRacers = n;
                RF.Racer.ReDimPreserve(n + 1);
            }
            RF.Racer(race, n).BetNbr = nbr;
            RF.Racer(race, n).RacerName = "Racer" + std::to_string(race) + "-" + std::to_string(n);
            RF.Racer(race, n).ProgramNbr = std::to_string(nbr);
        }
    }

    // A bet in the next free slot of the race; its cost follows from the type and the box.
    std::int64_t Bet(int race, int type, double amt, std::initializer_list<int> picks,
                     bool boxed = false) {
        std::int64_t slot = ++RF.Race(race).BetCount;
        if (slot > RF.MaxBets) {
            RF.MaxBets = static_cast<std::int32_t>(slot);
            RF.Bet.ReDimPreserve(slot + 1);
        }
        BetRec& b = RF.Bet(race, slot);
        b.BetType = type;
        b.BetAmt = C(amt);
        b.Boxed = boxed;
        int j = 0, n = static_cast<int>(picks.size());
        for (int p : picks) b.Pick(++j) = p;
        std::int64_t combos = 1;
        if (type == 11) combos = 3;
        if (boxed && type == 4) combos = n * (n - 1);
        if (boxed && type == 5) combos = n * (n - 1) * (n - 2);
        b.BetCost = b.BetAmt * combos;
        return slot;
    }
    BetRec& B(int race, std::int64_t slot) { return RF.Bet(race, slot); }
    // BetWinnings of bets 1, 2, ... of a race.
    std::vector<Currency> Won(int race) {
        std::vector<Currency> v;
        for (std::int64_t i = 1; i <= RF.Race(race).BetCount; ++i)
            v.push_back(RF.Bet(race, i).BetWinnings);
        return v;
    }
    static std::vector<Currency> Cs(std::initializer_list<double> amounts) {
        std::vector<Currency> v;
        for (double a : amounts) v.push_back(C(a));
        return v;
    }

    // Stores a result (racer slots) and settles the race.
    void Settle(int race, std::initializer_list<int> slots) {
        int k = 0;
        for (int k2 = 1; k2 <= 5; ++k2) RF.Race(race).Result(k2) = 0;
        for (int s : slots) RF.Race(race).Result(++k) = s;
        SettleRace(race, policy);
    }
    double Ratio(int race, int type, int pos = 1) { return RF.Payout(race, type, pos).PayRatio; }

    FakeWorld world;
    std::deque<std::string> answers;  // "Most", "Payback", "NoPay"; none: the dialog's choice
    std::vector<std::string> asked;   // "Win Bets Payback", "Exacta Bets most Most"
};

}  // namespace tt::test
