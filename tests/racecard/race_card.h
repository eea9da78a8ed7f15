#pragma once
// A small card for the race card tests: two races with racers and bets, one bettor, and the
// window's logic loaded on it.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "model/race_file.h"
#include "racecard/race_card_logic.h"
#include "support/fakes.h"
#include "support/money.h"

namespace tt::test {

class RaceCardTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ClearRaceFile();
        RF.FileName = "Spring Test";
        RF.RaceType = "Horse";
        RF.UseBetNbr = true;
        RF.MaxRacers = 3;
        RF.Racer.ReDim(4);
        for (int r = 1; r <= 2; ++r) {
            RF.Race(r).RaceName = r == 1 ? "Opener" : "Second";
            for (int n = 1; n <= 3; ++n) {
                RacerRec& racer = RF.Racer(r, n);
                racer.BetNbr = n;
                racer.RacerName = "Horse " + std::to_string(r) + std::to_string(n);
                racer.PostPosition = std::to_string(n);
                racer.Odds = 2.5;
            }
        }
        RF.Race(1).BetType(4) = true;
        RF.BettorCount = 1;
        RF.Bettor.ReDim(2);
        RF.Bettor(1).BettorName = "Alice";
        RF.TicketCount = 1;
        RF.Ticket.ReDim(2);
        RF.Ticket(1).TicketBettor = 1;
        RF.Ticket(1).TicketRace = 1;
        RF.MaxBets = 2;
        RF.Bet.ReDim(3);
        Bet(1, 1, 1, 2.0, {2});     // a Win bet on 2
        Bet(1, 2, 4, 1.0, {1, 2});  // an Exacta 1-2
        Bet(2, 1, 1, 5.0, {3});
        world.shell.onShow["frmEditRacer"] = [this] {
            if (onEditRacer) onEditRacer();
        };
        world.shell.onShow["frmCopyRacers"] = [this] {
            if (onCopyRacers) onCopyRacers();
        };
    }

    void Bet(int race, int slot, int type, double amt, std::initializer_list<int> picks) {
        BetRec& b = RF.Bet(race, slot);
        b.BetType = type;
        b.BetAmt = C(amt);
        b.BetCost = C(amt);
        b.TicketIdx = 1;
        int k = 0;
        for (int p : picks) b.Pick(++k) = p;
        RF.Race(race).BetCount = slot;
    }

    RaceCardLogic& Load() {
        card = std::make_unique<RaceCardLogic>();
        card->Form_Load();
        world.messages.Clear();
        return *card;
    }
    // Types into a text box as the user does.
    void Type(const std::string& name, const std::string& text) {
        card->Ctl(name).text = text;
        card->Text_Change(name);
    }
    void Click(const std::string& name, int value) {
        card->Ctl(name).value = value;
        card->Check_Click(name);
    }

    FakeWorld world;
    std::unique_ptr<RaceCardLogic> card;
    std::function<void()> onEditRacer, onCopyRacers;
};

}  // namespace tt::test
