#include "large_card.h"

#include <algorithm>
#include <string>
#include <vector>

#include "model/race_file.h"

namespace tt::bench {

namespace {

// splitmix64: small, fast and the same on every machine.
class Rng {
  public:
    explicit Rng(std::uint64_t seed) : s_(seed) {}
    std::uint64_t Next() {
        std::uint64_t z = (s_ += 0x9e3779b97f4a7c15ull);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
        return z ^ (z >> 31);
    }
    int Below(int n) { return static_cast<int>(Next() % static_cast<std::uint64_t>(n)); }
    bool OneIn(int n) { return Below(n) == 0; }

  private:
    std::uint64_t s_;
};

Currency Cents(std::int64_t cents) {
    return Currency::FromRaw(cents * 100);
}

int Legs(int type) {
    return type >= 6 && type <= 10 ? type - 4 : 1;
}

void MakeRaces(const CardShape& s, Rng& rng) {
    static const char* const kStakes[] = {"Maiden", "Handicap", "Sprint", "Derby", "Classic",
                                          "Cup",    "Stakes",   "Mile",   "Plate", "Trophy"};
    for (int r = 0; r <= s.races; ++r) {
        RaceRec& race = RF.Race(r);
        if (r > 0) race.RaceName = "Race " + std::to_string(r) + " - The " + kStakes[r % 10];
        race.MinBet = Cents(200);
        race.MinPayout = Cents(210);
        race.BetIncr = Cents(50);
        race.RoundTo = r % 2 ? -1 : 25;
        race.HoldbackAmt = Cents(r % 3 == 0 ? 500 : 0);
        race.HoldbackPct = r % 4 == 0 ? 15.5f : 10.0f;
        for (int t = 1; t <= kBetTypes; ++t) race.BetType(t) = true;
        for (int q = 1; q <= 5; ++q) race.QuickBet(q) = Cents(std::int64_t{100} << q);
    }
    RF.MaxRacers = s.racersPerRace;
    RF.Racer.ReDim(s.racersPerRace + 1);
    for (int r = 1; r <= s.races; ++r) {
        RF.Racer(r, 0).RacerName = "Not Available";
        for (int n = 1; n <= s.racersPerRace; ++n) {
            RacerRec& racer = RF.Racer(r, n);
            racer.BetNbr = n;
            racer.PostPosition = std::to_string(n);
            racer.ProgramNbr = std::to_string(n) + (n % 7 == 0 ? "A" : "");
            racer.RacerName = "Runner " + std::to_string(r) + "-" + std::to_string(n);
            racer.Odds = 0.5 + rng.Below(60) * 0.25;
            racer.Scratched = n == s.racersPerRace && r % 5 == 0;
        }
    }
}

void MakeBettors(const CardShape& s) {
    RF.BettorCount = s.bettors;
    RF.Bettor.ReDim(s.bettors + 1);
    for (int b = 1; b <= s.bettors; ++b) {
        BettorRec& bettor = RF.Bettor(b);
        bettor.BettorName = "Bettor " + std::to_string(b);
        bettor.BettorInfo = "Table " + std::to_string(b % 40 + 1);
        bettor.BettorPhone = "555-" + std::to_string(1000 + b % 9000);
        bettor.BettorEmail = "bettor" + std::to_string(b) + "@example.org";
    }
}

// Picks distinct racers of one race into Pick(1) to Pick(count).
void DistinctPicks(BetRec& bet, int count, int racers, Rng& rng) {
    for (int k = 1; k <= count; ++k) {
        int n;
        bool taken;
        do {
            n = 1 + rng.Below(racers);
            taken = false;
            for (int j = 1; j < k; ++j) taken = taken || bet.Pick(j) == n;
        } while (taken);
        bet.Pick(k) = n;
    }
}

void FillBet(BetRec& bet, int race, const CardShape& s, Rng& rng) {
    int type = 1 + rng.Below(11);
    if (race + Legs(type) - 1 > s.races) type = 4;
    static const std::int64_t kAmounts[] = {200, 500, 1000, 250, 2000, 300};
    bet.BetAmt = Cents(kAmounts[rng.Below(6)]);
    bet.BetType = type;
    std::int64_t combos = 1;
    const int racers = s.racersPerRace;
    if (type == 4 || type == 5) {
        int need = type == 4 ? 2 : 3;
        bet.Boxed = rng.OneIn(3);
        int picks = bet.Boxed ? need + rng.Below(3) : need;
        DistinctPicks(bet, picks, racers, rng);
        if (bet.Boxed) combos = type == 4 ? picks * (picks - 1) : picks * (picks - 1) * (picks - 2);
    } else if (type >= 6 && type <= 10) {
        for (int j = 1; j <= Legs(type); ++j) bet.Pick(j) = 1 + rng.Below(racers);
    } else {
        bet.Pick(1) = 1 + rng.Below(racers);
        if (type == kAcrossTheBoard) combos = 3;
    }
    bet.BetCost = bet.BetAmt * combos;

    // Settled when the last race of its span has run.
    if (race + Legs(type) - 1 <= s.settledRaces) {
        bet.CorrectPicks = rng.Below(Legs(type) + 1);
        if (rng.OneIn(4)) {
            bet.WinningCombos = 1;
            bet.BetWinnings = Cents(bet.BetAmt.Raw() / 100 * (2 + rng.Below(30)) / 2);
            if (type == kAcrossTheBoard) {
                bet.ShowPart = Cents(bet.BetWinnings.Raw() / 100 / 3);
                bet.PlacePart = bet.ShowPart;
                bet.WinPart = bet.BetWinnings - bet.PlacePart - bet.ShowPart;
            } else if (type == 1) {
                bet.WinPart = bet.BetWinnings;
            }
        }
    }
    // Now and then a bet taken back at the window stays as a deleted slot.
    if (rng.OneIn(250)) bet.BetType = 0;
}

void MakeResults(const CardShape& s, Rng& rng) {
    for (int r = 1; r <= s.settledRaces && r <= s.races; ++r) {
        RaceRec& race = RF.Race(r);
        BetRec finish;
        DistinctPicks(finish, 5, s.racersPerRace, rng);
        for (int k = 1; k <= 5; ++k) race.Result(k) = finish.Pick(k);
        for (int t = 1; t <= kBetTypes; ++t) {
            race.CorrectPaid(t) = t <= 3 ? 1 : (t <= 5 ? t - 2 : t - 4);
            for (int p = 1; p <= 6; ++p) {
                PayoutRec& pay = RF.Payout(r, t, p);
                if (p > 3 && t <= 3) continue;
                int roll = rng.Below(20);
                pay.PayRatio = roll == 0 ? -1.0 : roll == 1 ? -2.0 : 0.05 + rng.Below(2000) / 100.0;
                pay.PoolAmt = Cents(50000 + rng.Below(500000));
                pay.WinningAmt = Cents(rng.Below(50000));
            }
        }
    }
}

}  // namespace

void MakeLargeCard(const CardShape& s) {
    ClearRaceFile();
    Rng rng(s.seed);

    RF.FileId = 4321;
    RF.FileName = "Spring Meet at Tamberlin Downs";
    RF.RaceType = "Horses";
    RF.DefaultRace = 1;
    RF.SaveAfter = 10;
    RF.PrintBets = true;
    RF.MaxTransInPrinter = 1;
    RF.UseBetNbr = true;
    RF.UseProgramNbr = true;
    RF.UsePostPosition = false;
    RF.RacerSort = "Betting Number";
    RF.MaxRaces = 20;
    RF.DefaultToDummy = false;
    RF.RecoveryFile = "spring-meet.tlr";
    RF.RecoveryFlag = false;
    RF.ClearRecovery = false;
    RF.ClearDays = 7;
    RF.CollectZero = false;

    MakeRaces(s, rng);
    MakeBettors(s);

    // Bets per ticket: one each, the rest spread at random.
    std::vector<int> perTicket(static_cast<std::size_t>(s.tickets) + 1, 1);
    perTicket[0] = 0;
    for (int k = s.tickets; k < s.bets; ++k)
        ++perTicket[static_cast<std::size_t>(1 + rng.Below(s.tickets))];
    std::vector<int> raceOf(perTicket.size(), 0);
    std::vector<std::int64_t> slots(22, 0);
    for (int t = 1; t <= s.tickets; ++t) {
        raceOf[static_cast<std::size_t>(t)] = 1 + rng.Below(s.races);
        slots[static_cast<std::size_t>(raceOf[static_cast<std::size_t>(t)])] +=
            perTicket[static_cast<std::size_t>(t)];
    }
    RF.MaxBets = static_cast<std::int32_t>(*std::max_element(slots.begin(), slots.end()));
    RF.Bet.ReDim(RF.MaxBets + 1);
    RF.TicketCount = s.tickets;
    RF.Ticket.ReDim(s.tickets + 1);

    for (int t = 1; t <= s.tickets; ++t) {
        const int race = raceOf[static_cast<std::size_t>(t)];
        TicketRec& ticket = RF.Ticket(t);
        ticket.TicketNbr = 1000 + t;
        ticket.TicketRace = race;
        ticket.TicketBettor = 1 + rng.Below(s.bettors);
        RaceRec& r = RF.Race(race);
        ticket.FirstBet = r.BetCount + 1;
        for (int k = 0; k < perTicket[static_cast<std::size_t>(t)]; ++k) {
            r.BetCount = r.BetCount + 1;
            BetRec& bet = RF.Bet(race, r.BetCount);
            FillBet(bet, race, s, rng);
            bet.TicketIdx = t;
            ticket.TicketCost += bet.BetCost;
            ticket.Winnings += bet.BetWinnings;
        }
        ticket.LastBet = r.BetCount;
        if (!rng.OneIn(10)) ticket.Collected = ticket.TicketCost;
        if (!ticket.Winnings.IsZero() && rng.OneIn(2)) ticket.Distributed = ticket.Winnings;
    }

    MakeResults(s, rng);
    G.FileChanged = false;
}

}  // namespace tt::bench
