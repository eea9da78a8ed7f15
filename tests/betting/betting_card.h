#pragma once
// A small card for the betting window's tests, and transactions filled as the ticket windows
// leave them: new tickets after Accept Ticket, and tickets of the file brought in to be edited
// or cashed.

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "betting/betting_state.h"
#include "model/race_file.h"
#include "support/fakes.h"
#include "support/money.h"

namespace tt::test {

// One bet as typed: amount, type code, picks, boxed; its cost follows from the type.
struct TypedBet {
    double amt = 2;
    int type = 1;
    std::vector<int> picks;
    bool boxed = false;
};

inline Currency CostOf(const TypedBet& b) {
    const auto n = static_cast<std::int64_t>(b.picks.size());
    std::int64_t combos = 1;
    if (b.type == 11) combos = 3;
    if (b.boxed && b.type == 4) combos = n * (n - 1);
    if (b.boxed && b.type == 5) combos = n * (n - 1) * (n - 2);
    return C(b.amt) * combos;
}

class BettingCard : public ::testing::Test {
  protected:
    void SetUp() override {
        ResetBettingState();
        ClearRaceFile();
        RF.FileId = 4172;
        RF.FileName = "Tamberlin Downs Spring Meet";
        RF.RaceType = "Horse";
        RF.RecoveryFile = "/r/spring.tlr";
        Race(1, "Maiden Sprint",
             {"Dandelion Dancer", "Copper Kettle", "Miss Puddleby", "Long Shot Larry", "April Fool",
              "Clover Hill"});
        Race(2, "Meadowlark Handicap",
             {"Thistledown", "Rusty Spur", "Paper Moon", "Gingersnap", "Harbor Light"});
        Race(3, "Tamberlin Stakes", {"Sir Wobbles", "Blue Bonnet", "Quickstep", "Marmalade"});
        for (const char* name : {"Ann Archer", "Bob Bellweather", "Cy Coldwater"}) Bettor(name);
        RF.DefaultRace = 1;
    }
    void TearDown() override { ResetBettingState(); }

    // A race of racers with bet numbers 1, 2, ... in slots 1, 2, ...
    void Race(int race, const std::string& name, std::initializer_list<const char*> racers) {
        RaceRec& r = RF.Race(race);
        r.RaceName = name;
        for (int t = 1; t <= 10; ++t) r.BetType(t) = true;
        int n = 0;
        for (const char* racer : racers) {
            ++n;
            if (n > RF.MaxRacers) {
                RF.MaxRacers = n;
                RF.Racer.ReDimPreserve(n + 1);
            }
            RacerRec& rec = RF.Racer(race, n);
            rec.BetNbr = n;
            rec.RacerName = racer;
            rec.PostPosition = std::to_string(n);
            rec.ProgramNbr = std::to_string(n);
        }
    }
    int Bettor(const std::string& name) {
        RF.BettorCount = RF.BettorCount + 1;
        RF.Bettor.ReDimPreserve(RF.BettorCount + 1);
        RF.Bettor(RF.BettorCount).BettorName = name;
        return RF.BettorCount;
    }

    // A bet of the transaction, appended to TranBets.
    void AddTranBet(std::int32_t ticketNbr, int race, const TypedBet& typed,
                    std::int32_t origBetIdx = 0) {
        Betting.TranBetCount = Betting.TranBetCount + 1;
        Betting.TranBets.ReDimPreserve(Betting.TranBetCount);
        TempBet& b = Betting.TranBets(Betting.TranBetCount);
        b.BetAmt = C(typed.amt);
        b.BetType = typed.type;
        b.Boxed = typed.boxed;
        b.BetCost = CostOf(typed);
        int k = 0;
        for (int p : typed.picks) b.Pick(++k) = p;
        b.TicketNbr = ticketNbr;
        b.Race = race;
        b.OrigBetIdx = origBetIdx;
    }

    TranTicket& AppendTranTicket() {
        Betting.TranTicketCount = Betting.TranTicketCount + 1;
        Betting.TranTickets.ReDimPreserve(Betting.TranTicketCount);
        Betting.CurTranTicket = Betting.TranTicketCount;
        return Betting.TranTickets(Betting.TranTicketCount);
    }

    // A new ticket as Accept Ticket leaves it: numbered TicketCount + NewTicketCount, its bets
    // in TranBets, NewAmtBet and NewCollected the sum of their costs. Returns its number.
    std::int32_t NewTicket(int race, int bettor, std::initializer_list<TypedBet> bets) {
        Betting.NewTicketCount = Betting.NewTicketCount + 1;
        const std::int32_t number = RF.TicketCount + Betting.NewTicketCount;
        TranTicket& t = AppendTranTicket();
        t.Action = kNewTicket;
        t.TicketNbr = number;
        t.Race = race;
        t.Bettor = bettor;
        Currency total;
        for (const TypedBet& b : bets) {
            AddTranBet(number, race, b);
            total += CostOf(b);
        }
        Betting.TranTickets(Betting.TranTicketCount).NewAmtBet = total;
        Betting.TranTickets(Betting.TranTicketCount).NewCollected = total;
        return number;
    }

    // A ticket of the file brought into the transaction as Ticket Header brings it: the
    // ticket's money as it stands, its bets copied from FirstBet to LastBet.
    TranTicket& BringIn(std::int32_t number, const char* action) {
        const TicketRec& k = RF.Ticket(number);
        TranTicket& t = AppendTranTicket();
        t.TicketNbr = number;
        t.Race = k.TicketRace;
        t.Bettor = k.TicketBettor;
        t.OldCost = k.TicketCost;
        t.OldCollected = k.Collected;
        t.OldDistributed = k.Distributed;
        t.Winnings = k.Winnings;
        t.NewAmtBet = t.OldCost;
        t.NewCollected = t.OldCollected;
        t.NewDistributed = t.OldDistributed;
        t.Action = action;
        const int race = k.TicketRace;
        for (std::int64_t s = k.FirstBet; s >= 1 && s <= k.LastBet; ++s) {
            const BetRec& bet = RF.Bet(race, s);
            if (bet.TicketIdx != number) continue;
            Betting.TranBetCount = Betting.TranBetCount + 1;
            Betting.TranBets.ReDimPreserve(Betting.TranBetCount);
            TempBet& b = Betting.TranBets(Betting.TranBetCount);
            b.BetAmt = bet.BetAmt;
            b.BetType = bet.BetType;
            b.Boxed = bool(bet.Boxed);
            b.BetCost = bet.BetCost;
            for (int p = 1; p <= 6; ++p) b.Pick(p) = bet.Pick(p);
            b.PriorWinnings = bet.BetWinnings;
            b.BetMark = bet.WinningCombos;
            b.TicketNbr = number;
            b.Race = race;
            b.OrigBetIdx = s;
        }
        Betting.CurTranTicket = Betting.TranTicketCount;
        return Betting.TranTickets(Betting.TranTicketCount);
    }
    // Cash/Collect: full settlement of the ticket.
    TranTicket& Cash(std::int32_t number) {
        TranTicket& t = BringIn(number, kCashTicket);
        t.NewDistributed = t.Winnings;
        t.NewCollected = t.OldCost;
        return t;
    }

    // A ticket in the file: its bets in the next slots of its race, collected in full.
    std::int32_t FileTicket(int race, int bettor, std::initializer_list<TypedBet> bets) {
        const std::int32_t number = RF.TicketCount + 1;
        RF.TicketCount = number;
        RF.Ticket.ReDimPreserve(number + 1);
        TicketRec& k = RF.Ticket(number);
        k.TicketNbr = number;
        k.TicketRace = race;
        k.TicketBettor = bettor;
        for (const TypedBet& typed : bets) {
            const std::int64_t slot = ++RF.Race(race).BetCount;
            if (slot > RF.MaxBets) {
                RF.MaxBets = static_cast<std::int32_t>(slot);
                RF.Bet.ReDimPreserve(slot + 1);
            }
            BetRec& b = RF.Bet(race, slot);
            b.BetAmt = C(typed.amt);
            b.BetType = typed.type;
            b.Boxed = typed.boxed;
            b.BetCost = CostOf(typed);
            int j = 0;
            for (int p : typed.picks) b.Pick(++j) = p;
            b.TicketIdx = number;
            k.TicketCost += b.BetCost;
            if (k.FirstBet == 0) k.FirstBet = static_cast<std::int32_t>(slot);
            k.LastBet = static_cast<std::int32_t>(slot);
        }
        k.Collected = k.TicketCost;
        return number;
    }

    TranTicket& Tran(int i) { return Betting.TranTickets(i); }

    FakeWorld world;
};

}  // namespace tt::test
