#pragma once
// A small card for the ticket windows: three races with coupled and scratched racers, bettors,
// and tickets written as a finished transaction leaves them; and a host who types into the
// windows' logic as the keys would.

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "betting/betting_state.h"
#include "betting/place_bets_logic.h"
#include "betting/ticket_header_logic.h"
#include "model/common.h"
#include "model/race_file.h"
#include "support/fakes.h"
#include "support/money.h"

namespace tt::test {

struct RacerDef {
    int betNbr;
    std::string name;
    std::string program;
    std::string post;
    bool scratched = false;
};

class TicketCard : public ::testing::Test {
  protected:
    void SetUp() override {
        ClearRaceFile();
        ResetBettingState();
        RF.RaceType = "Horse";
        RF.FileName = "Betting card";
        // Race 1: coupled 1 and 1A, 4 scratched; Win to Trifecta and the Daily Double.
        Race(1, "Opener", {1, 2, 3, 4, 5, 6},
             {{1, "Thistledown", "1", "2"},
              {1, "Thistle Bloom", "1A", "6"},
              {2, "Rusty Spur", "2", "1"},
              {3, "Paper Moon", "3", "3"},
              {4, "Gingersnap", "4", "4", true},
              {5, "Harbor Light", "5", "5"},
              {10, "Dusty Trail", "10", "10"}});
        // Race 2: Win, Place, Show and Exacta.
        Race(2, "Second", {1, 2, 3, 4},
             {{1, "Alpha", "1", "1"}, {2, "Bravo", "2", "2"}, {3, "Charlie", "3", "3"}});
        // Race 3: finished.
        Race(3, "Third", {1, 2, 3},
             {{1, "Xray", "1", "1"}, {2, "Yankee", "2", "2"}, {3, "Zulu", "3", "3"}});
        RF.Race(3).Result(1) = 2;
        for (int r = 1; r <= 3; ++r) {
            RF.Race(r).MinBet = C(1);
            RF.Race(r).BetIncr = C(0.25);
            RF.Race(r).QuickBet(1) = C(2);
            RF.Race(r).QuickBet(2) = C(5);
        }
        Bettor("Alice Hartley");
        Bettor("bob fenwick");
        Bettor("Carmen Ortiz");
        RF.DefaultRace = 1;
        G.CurrentRace = 1;
    }

    void Race(int race, const std::string& name, std::initializer_list<int> types,
              std::initializer_list<RacerDef> racers) {
        RaceRec& rc = RF.Race(race);
        rc.RaceName = name;
        for (int t = 1; t <= 10; ++t) rc.BetType(t) = false;
        for (int t : types) rc.BetType(t) = true;
        int n = 0;
        for (const RacerDef& d : racers) {
            ++n;
            if (n > RF.MaxRacers) {
                RF.MaxRacers = n;
                RF.Racer.ReDimPreserve(n + 1);
            }
            RacerRec& r = RF.Racer(race, n);
            r.BetNbr = d.betNbr;
            r.RacerName = d.name;
            r.ProgramNbr = d.program;
            r.PostPosition = d.post;
            r.Scratched = d.scratched;
        }
    }

    int Bettor(const std::string& name) {
        RF.BettorCount += 1;
        RF.Bettor.ReDimPreserve(RF.BettorCount + 1);
        RF.Bettor(RF.BettorCount).BettorName = name;
        return RF.BettorCount;
    }

    struct BetDef {
        int type;
        double amt;
        std::vector<int> picks;
        bool boxed = false;
    };
    // A ticket as a finished transaction writes it: its bets in the next slots of the race,
    // collected in full unless told.
    int Ticket(int race, int bettor, std::initializer_list<BetDef> bets) {
        const std::int64_t t = RF.TicketCount + 1;
        RF.Ticket.ReDimPreserve(t + 1);
        RF.TicketCount = static_cast<std::int32_t>(t);
        TicketRec& ticket = RF.Ticket(t);
        ticket.TicketNbr = static_cast<std::int32_t>(t);
        ticket.TicketRace = race;
        ticket.TicketBettor = bettor;
        RaceRec& rc = RF.Race(race);
        ticket.FirstBet = rc.BetCount + 1;
        for (const BetDef& d : bets) {
            const std::int64_t slot = rc.BetCount + 1;
            rc.BetCount = static_cast<std::int32_t>(slot);
            if (slot > RF.MaxBets) {
                RF.Bet.ReDimPreserve(slot + 1);
                RF.MaxBets = static_cast<std::int32_t>(slot);
            }
            BetRec& b = RF.Bet(race, slot);
            b.BetType = d.type;
            b.BetAmt = C(d.amt);
            b.Boxed = d.boxed;
            int j = 0;
            for (int p : d.picks) b.Pick(++j) = p;
            b.BetCost = b.BetAmt * (d.type == 11 ? 3 : 1);
            b.TicketIdx = static_cast<std::int32_t>(t);
            ticket.TicketCost += b.BetCost;
        }
        ticket.LastBet = rc.BetCount;
        ticket.Collected = ticket.TicketCost;
        return static_cast<int>(t);
    }

    // ---- The host at the windows ----

    // Types a text into the amount box, as keys would, and leaves it.
    static void TypeAmount(PlaceBetsLogic& p, const std::string& text) {
        p.txtBetAmt.text = text;
        p.txtBetAmt_Change();
    }
    // Presses the key of a bet type in the type list.
    static void TypeKey(PlaceBetsLogic& p, char key) {
        int k = key;
        p.comBetType_KeyPress(k);
    }
    // Types a betting number into pick list i and presses Enter there.
    static void TypePick(PlaceBetsLogic& p, int i, int betNbr) {
        p.comPick[static_cast<std::size_t>(i)].text = std::to_string(betNbr);
        p.comPick_Change(i);
        int enter = 13;
        p.comPick_KeyPress(i, enter);
    }
    // A whole bet: amount, type key, picks, the box when asked, then Accept Bet.
    static void PlaceBet(PlaceBetsLogic& p, const std::string& amount, char type,
                         std::initializer_list<int> picks, bool boxed = false) {
        TypeAmount(p, amount);
        TypeKey(p, type);
        if (boxed) {
            p.chkBoxed.value = 1;
            p.chkBoxed_Click();
        }
        int i = 0;
        for (int pick : picks) TypePick(p, ++i, pick);
        p.cmdAcceptBet_Click();
    }

    // Opens the ticket window in a mode, with Place Bet scripted.
    void OnPlaceBets(std::function<void(PlaceBetsLogic&)> script) {
        world.shell.onShow["frmPlaceBets"] = [script] {
            PlaceBetsLogic p;
            p.Form_Load();
            script(p);
        };
    }

    // A new ticket of the transaction, as the ticket window hands it to Place Bet.
    void NewTicket(int race, int bettor) {
        Betting.TicketMode = kNewTicket;
        Betting.NewTicketCount += 1;
        Betting.TranTicketCount += 1;
        Betting.TranTickets.ReDimPreserve(Betting.TranTicketCount);
        Betting.CurTranTicket = Betting.TranTicketCount;
        TranTicket& t = Betting.TranTickets(Betting.TranTicketCount);
        t = TranTicket();
        t.Action = kNewTicket;
        t.TicketNbr = RF.TicketCount + Betting.NewTicketCount;
        t.Race = race;
        t.Bettor = bettor;
        G.CurrentRace = race;
        G.CurrentBettor = bettor;
        G.CurrentTicket = 0;
    }

    // A new transaction, as the betting window starts one.
    static void StartTransaction() {
        ResetBettingState();
        G.CurrentRace = RF.DefaultRace;
    }

    FakeWorld world;
};

}  // namespace tt::test
