#pragma once
// A small card with tickets built through the records, for the tests of the bet listing and
// the printed reports: races with racers, bettors, tickets with their bets.

#include <gtest/gtest.h>

#include <QLocale>

#include <initializer_list>
#include <string>
#include <vector>

#include "model/grid_data.h"
#include "model/race_file.h"
#include "support/fakes.h"
#include "support/money.h"

namespace tt::test {

class ReportCard : public ::testing::Test {
  protected:
    void SetUp() override {
        ClearRaceFile();
        RF.FileName = "Spring Meet";
        RF.RaceType = "Horse";
        RF.RacerSort = "Betting Number";
        // The long date of the page header in a known format.
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }
    void TearDown() override { QLocale::setDefault(QLocale::system()); }

    // Names the race, offers exactly the bet types given, and gives it racers with these bet
    // numbers in slots 1, 2, ...
    void Race(int race, std::initializer_list<int> types, std::initializer_list<int> betNbrs,
              const std::string& name = {}) {
        RaceRec& rc = RF.Race(race);
        rc.RaceName = name.empty() ? "Race" + std::to_string(race) : name;
        for (int t = 1; t <= 10; ++t) rc.BetType(t) = false;
        for (int t : types) rc.BetType(t) = true;
        int n = 0;
        for (int nbr : betNbrs) {
            ++n;
            if (n > RF.MaxRacers) {
                RF.MaxRacers = n;
                RF.Racer.ReDimPreserve(n + 1);
            }
            RacerRec& r = RF.Racer(race, n);
            r.BetNbr = nbr;
            r.RacerName = "Racer" + std::to_string(race) + "-" + std::to_string(n);
            r.ProgramNbr = std::to_string(nbr);
            r.PostPosition = std::to_string(n);
        }
    }

    int Bettor(const std::string& name, const std::string& info = {}, const std::string& phone = {},
               const std::string& email = {}) {
        const int b = ++RF.BettorCount;
        RF.Bettor.ReDimPreserve(b + 1);
        BettorRec& rec = RF.Bettor(b);
        rec.BettorName = name;
        rec.BettorInfo = info;
        rec.BettorPhone = phone;
        rec.BettorEmail = email;
        return b;
    }

    // A ticket of a race and a bettor; its number is its index unless given.
    std::int64_t Ticket(int race, int bettor, double collected = 0, double distributed = 0,
                        std::int32_t number = -1) {
        const std::int64_t t = ++RF.TicketCount;
        RF.Ticket.ReDimPreserve(t + 1);
        TicketRec& tk = RF.Ticket(t);
        tk.TicketNbr = number >= 0 ? number : static_cast<std::int32_t>(t);
        tk.TicketRace = race;
        tk.TicketBettor = bettor;
        tk.Collected = C(collected);
        tk.Distributed = C(distributed);
        return t;
    }

    // A bet of a ticket in the next free slot of a race (the ticket's own unless given); its
    // cost follows from the type and the box.
    std::int64_t Bet(std::int64_t ticket, int type, double amt, std::initializer_list<int> picks,
                     bool boxed = false, int race = 0) {
        TicketRec& tk = RF.Ticket(ticket);
        if (race == 0) race = tk.TicketRace;
        const std::int64_t slot = ++RF.Race(race).BetCount;
        if (slot > RF.MaxBets) {
            RF.MaxBets = static_cast<std::int32_t>(slot);
            RF.Bet.ReDimPreserve(slot + 1);
        }
        BetRec& b = RF.Bet(race, slot);
        b.BetType = type;
        b.BetAmt = C(amt);
        b.Boxed = boxed;
        b.TicketIdx = static_cast<std::int32_t>(ticket);
        int j = 0, n = static_cast<int>(picks.size());
        for (int p : picks) b.Pick(++j) = p;
        std::int64_t combos = 1;
        if (type == 11) combos = 3;
        if (boxed && type == 4) combos = n * (n - 1);
        if (boxed && type == 5) combos = n * (n - 1) * (n - 2);
        b.BetCost = b.BetAmt * combos;
        if (race == tk.TicketRace) {
            if (tk.FirstBet == 0) tk.FirstBet = static_cast<std::int32_t>(slot);
            tk.LastBet = static_cast<std::int32_t>(slot);
            tk.TicketCost += b.BetCost;
        }
        return slot;
    }
    BetRec& B(int race, std::int64_t slot) { return RF.Bet(race, slot); }

    // Stores a result by racer slots, without settling.
    void Result(int race, std::initializer_list<int> racers) {
        int k = 0;
        for (int s : racers) RF.Race(race).Result(++k) = s;
    }

    static std::vector<std::string> Row(const GridData& g, int r) {
        std::vector<std::string> cells;
        for (int c = 0; c < g.Cols(); ++c) cells.push_back(g.TextMatrix(r, c));
        return cells;
    }
    // One column of every row below the header.
    static std::vector<std::string> Column(const GridData& g, int c) {
        std::vector<std::string> cells;
        for (int r = 1; r < g.Rows(); ++r) cells.push_back(g.TextMatrix(r, c));
        return cells;
    }

    FakeWorld world;
};

using Lines = std::vector<std::string>;

// A line with items at character columns counted from 1: {column, text} pairs in order.
inline std::string At(std::initializer_list<std::pair<int, std::string>> items) {
    std::string line;
    for (const auto& [column, text] : items) {
        if (line.size() < static_cast<std::size_t>(column - 1)) line.resize(column - 1, ' ');
        line += text;
    }
    return line;
}

}  // namespace tt::test
