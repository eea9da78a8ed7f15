#include "payouts/settlement.h"

#include <algorithm>
#include <cmath>

#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/display_payouts_logic.h"

namespace tt {

std::string ChosenHandling;
Int16 HandlingBetType;
Int16 HandlingBestCorrect;

namespace {
PayoutCalc* g_running = nullptr;

bool IsAcross(std::int64_t type) {
    return type == kAcrossTheBoard;
}
}  // namespace

void ResetPayoutHandling() {
    ChosenHandling.clear();
    HandlingBetType = 0;
    HandlingBestCorrect = 0;
}

double RoundDownTo(double value, std::int16_t code) {
    if (code == 25) return std::floor(value * 4) / 4;
    if (code == 50) return std::floor(value + value) / 2;
    if (code >= 0) {
        double p = std::pow(10.0, code);
        return std::floor(value / p) * p;
    }
    double p = std::pow(10.0, -code);
    return std::floor(value * p) / p;
}

bool IsScratched(int race, std::int64_t betNbr) {
    if (betNbr == 0) return false;
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = RF.Racer(race, n);
        if (r.BetNbr == betNbr && !r.Scratched) return false;
    }
    return true;
}

void GetFinishers(int race, FixedArray<Int16, 1, 3>& finishers) {
    const RaceRec& rc = RF.Race(race);
    auto nbr = [&](int k) { return RF.Racer(race, rc.Result(k)).BetNbr; };
    finishers(1) = nbr(1);
    finishers(2) = 0;
    finishers(3) = 0;
    for (int k = 2; k <= 5; ++k) {
        if (nbr(k) != finishers(1)) {
            finishers(2) = nbr(k);
            break;
        }
    }
    for (int k = 3; k <= 5; ++k) {
        if (nbr(k) != finishers(1) && nbr(k) != finishers(2)) {
            finishers(3) = nbr(k);
            break;
        }
    }
}

void NormaliseRaceLimits(int race) {
    RaceRec& rc = RF.Race(race);
    if (rc.MinBet.IsZero()) rc.MinBet = Currency::FromRaw(100);
    if (rc.MinPayout < rc.MinBet) rc.MinPayout = rc.MinBet;
}

double MinimumRatio(int race) {
    const RaceRec& rc = RF.Race(race);
    return (rc.MinPayout - rc.MinBet).ToDouble() / rc.MinBet.ToDouble();
}

void RecalcRaceTickets(int race) {
    for (std::int64_t t = 1; t <= RF.TicketCount; ++t) {
        TicketRec& tk = RF.Ticket(t);
        if (tk.TicketRace != race || tk.TicketBettor == 0) continue;
        tk.TicketCost = Currency();
        tk.Winnings = Currency();
        for (std::int64_t n = tk.FirstBet; n <= tk.LastBet; ++n) {
            const BetRec& b = RF.Bet(race, n);
            if (b.TicketIdx == t && b.BetType != 0) {
                tk.TicketCost += b.BetCost;
                tk.Winnings += b.BetWinnings;
            }
        }
    }
}

void ClearRaceWinnings(int race) {
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) RF.Bet(race, i).BetWinnings = Currency();
    // A multi-race bet is cleared by the race that is current, not the one named.
    const int cur = G.CurrentRace;
    for (int k = std::max(race - 5, 1); k <= std::min(race + 5, kMaxRace); ++k) {
        for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
            BetRec& b = RF.Bet(k, i);
            if (b.BetType >= 6 && b.BetType <= 10 && cur >= k && cur <= k + b.BetType - 5)
                b.BetWinnings = Currency();
        }
    }
}

// ---- The calculation ----------------------------------------------------------------------

PayoutCalc::PayoutCalc() : outer_(g_running) {
    g_running = this;
}

PayoutCalc::~PayoutCalc() {
    g_running = outer_;
}

const PayoutCalc* RunningPayoutCalc() {
    return g_running;
}

void CalcPayouts() {
    PayoutCalc calc;
    calc.CalcPayouts();
}

bool PayoutCalc::Scratched(int race, std::int64_t betNbr) {
    if (betNbr == 0) return false;
    if (betNbr < INT16_MIN || betNbr > INT16_MAX) return true;  // no racer can bear it
    auto& running = running_.at(static_cast<std::size_t>(race));
    if (running.empty()) {
        RF.Racer(race, 0);  // the race index is checked as the scan would check it
        running.assign(65536, 0);
        for (std::int64_t n = 1; n <= RF.MaxRacers; ++n) {
            const RacerRec& r = RF.Racer(race, n);
            if (!r.Scratched) running[static_cast<std::size_t>(r.BetNbr.Value() + 32768)] = 1;
        }
    }
    return running[static_cast<std::size_t>(betNbr + 32768)] == 0;
}

const std::vector<std::int32_t>& PayoutCalc::Slots(int race, int type) {
    RF.Race(race);  // checks the race index
    auto r = static_cast<std::size_t>(race);
    if (!slotsBuilt_[r]) {
        for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
            std::int16_t t = RF.Bet(race, i).BetType;
            if (t >= 1 && t <= 11)
                slots_[r][static_cast<std::size_t>(t)].push_back(static_cast<std::int32_t>(i));
        }
        slotsBuilt_[r] = true;
    }
    if (type < 1 || type > 11) Raise(kErrSubscript);
    return slots_[r][static_cast<std::size_t>(type)];
}

Currency PayoutCalc::Payment(Currency a, double ratio, int race) const {
    Currency sum = Currency::FromDouble(a.ToDouble() * ratio) + a;
    return Currency::FromDouble(RoundDownTo(sum.ToDouble(), RF.Race(race).RoundTo));
}

Currency PayoutCalc::LessPercentHoldback(Currency pool, int race) const {
    double pct = static_cast<double>(RF.Race(race).HoldbackPct);
    return pool - Currency::FromDouble(pool.ToDouble() * pct / 100);
}

void PayoutCalc::AskHandling(int type) {
    HandlingBetType = type;
    Shell().ShowForm("frmPayoutHandling", true);
}

void PayoutCalc::CalcPayouts() {
    CurRace = G.CurrentRace;
    GetFinishers(CurRace, Finishers);
    G.FileChanged = true;
    for (int t = 1; t <= kBetTypes; ++t)
        for (int p = 1; p <= 6; ++p) RF.Payout(CurRace, t, p) = PayoutRec();

    BuildPools();

    const RaceRec& rc = RF.Race(CurRace);
    if (rc.Result(1) != 0) {
        for (int t = 1; t <= 5; ++t) {
            CurBetType = t;
            if (!rc.BetType(t)) continue;
            if (t == 1)
                DivideWinPool();
            else if (t <= 3)
                DividePlaceOrShowPool(t);
            else
                CalcExotic(t);
        }
        for (int k = std::max(CurRace.Value() - 5, 1); k <= CurRace; ++k) {
            for (int t = 6; t <= 10; ++t) {
                CurBetType = t;
                if (RF.Race(k).BetType(t)) {
                    // A group that would run past race 20 does not exist.
                    if (k + t - 5 <= kMaxRace) CalcMultiRace(k, t);
                } else {
                    // The stake is read from the same slot of the race being calculated.
                    for (std::int32_t i : Slots(k, t))
                        RF.Bet(k, i).BetWinnings = RF.Bet(CurRace, i).BetCost;
                }
            }
        }
    }

    RecalcAllTickets();
    DisplayPayoutsLogic view;
    view.ShowCalculatedRace(CurRace);
    RecalcRaceTickets(G.CurrentRace);
}

void PayoutCalc::BuildPools() {
    for (int t = 1; t <= kBetTypes; ++t)
        for (int p = 1; p <= 6; ++p) RF.Payout(CurRace, t, p) = PayoutRec();

    if (RF.Race(CurRace).Result(1) == 0) {
        for (std::int64_t i = 1; i <= RF.MaxBets; ++i) RF.Bet(CurRace, i).BetWinnings = Currency();
    } else {
        for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
            if (RF.Bet(CurRace, i).BetType != 0) AddToSingleRacePools(i);
        }
    }
    BuildMultiRacePools();
}

void PayoutCalc::AddToSingleRacePools(std::int64_t i) {
    RaceRec& rc = RF.Race(CurRace);
    BetRec& b = RF.Bet(CurRace, i);
    const int type = b.BetType;

    b.BetWinnings = Currency();
    if (IsAcross(type)) {
        if (!rc.BetType(1)) {
            b.BetWinnings = b.BetAmt;
            b.WinPart = b.BetAmt;
        }
        if (!rc.BetType(2)) {
            b.BetWinnings += b.BetAmt;
            b.PlacePart = b.BetAmt;
        }
        if (!rc.BetType(3)) {
            b.BetWinnings += b.BetAmt;
            b.ShowPart = b.BetAmt;
        }
    } else if (!rc.BetType(type)) {
        b.BetWinnings = b.BetCost;
    }

    int s = 0;
    for (int j = 1; j <= 6; ++j)
        if (b.Pick(j) != 0 && Scratched(CurRace, b.Pick(j))) ++s;

    if (s >= 1) {
        switch (type) {
            case 1:
            case 2:
            case 3:
                b.BetWinnings = b.BetCost;
                break;
            case 4:
            case 5:
                if (!rc.BetType(type)) break;
                if (!b.Boxed) {
                    b.BetWinnings = b.BetCost;
                } else {
                    int live = CountPicks(CurRace, i) - s;
                    if (type == 4) {
                        b.BetWinnings = b.BetCost - b.BetAmt * (Int16(live) * Int16(live - 1));
                    } else {
                        b.BetWinnings = b.BetCost - b.BetAmt * live * (live - 1) * (live - 2);
                    }
                }
                break;
            case kAcrossTheBoard:
                if (rc.BetType(1)) {
                    b.BetWinnings = b.BetCost;
                    b.WinPart = b.BetAmt;
                    b.PlacePart = b.BetAmt;
                    b.ShowPart = b.BetAmt;
                }
                break;
            default:
                break;  // multi-race bets are refunded with their group
        }
    }

    // The whole of BetWinnings comes off each pool, not the side concerned.
    const Currency amt = b.BetAmt;
    if (type == 1 || IsAcross(type)) {
        RF.Payout(CurRace, 1, 1).PoolAmt += amt - b.BetWinnings;
        if (b.Pick(1) == Finishers(1) && rc.BetType(1)) RF.Payout(CurRace, 1, 1).WinningAmt += amt;
    }
    if (type == 2 || IsAcross(type)) {
        RF.Payout(CurRace, 2, 1).PoolAmt += amt - b.BetWinnings;
        if (rc.BetType(2)) {
            for (int p = 1; p <= 2; ++p)
                if (b.Pick(1) == Finishers(p)) RF.Payout(CurRace, 2, p).WinningAmt += amt;
        }
    }
    if (type == 3 || IsAcross(type)) {
        RF.Payout(CurRace, 3, 1).PoolAmt += amt - b.BetWinnings;
        if (rc.BetType(3)) {
            for (int p = 1; p <= 3; ++p)
                if (b.Pick(1) == Finishers(p)) RF.Payout(CurRace, 3, p).WinningAmt += amt;
        }
    }
    if (type == 4 || type == 5) {
        RF.Payout(CurRace, type, 1).PoolAmt += b.BetCost - b.BetWinnings;
        CountCorrectPicks(CurRace, i);
        if (rc.BetType(type) && b.CorrectPicks >= 1)
            RF.Payout(CurRace, type, b.CorrectPicks).WinningAmt += amt * b.WinningCombos.Value();
    }
}

int PayoutCalc::CountPicks(int race, std::int64_t i) {
    const BetRec& b = RF.Bet(race, i);
    int n = 0;
    for (int j = 1; j <= 6; ++j)
        if (b.Pick(j) > 0) ++n;
    return n;
}

// ---- Win, Place and Show ------------------------------------------------------------------

void PayoutCalc::DivideWinPool() {
    const RaceRec& rc = RF.Race(CurRace);
    if (!rc.BetType(1)) return;
    NormaliseRaceLimits(CurRace);

    PayoutRec& row = RF.Payout(CurRace, 1, 1);
    const Currency pool = row.PoolAmt;
    const Currency pct =
        Currency::FromDouble(pool.ToDouble() * static_cast<double>(rc.HoldbackPct) / 100);
    const Currency net = pool - rc.HoldbackAmt - pct;
    const Currency w = row.WinningAmt;

    if (w.IsZero())
        AskHandling(1);
    else
        ChosenHandling = "Most";

    if (ChosenHandling == "NoPay") {
        RF.Payout(CurRace, 1, 1).PayRatio = kNoPay;
        return;
    }
    if (ChosenHandling == "Payback" || w.IsZero()) {
        RF.Payout(CurRace, 1, 1).PayRatio = kPayback;
        for (std::int32_t i : Slots(CurRace, 1)) {
            BetRec& b = RF.Bet(CurRace, i);
            if (Scratched(CurRace, b.Pick(1))) continue;
            b.BetWinnings += b.BetAmt;
            b.WinPart = b.BetAmt;
        }
        for (std::int32_t i : Slots(CurRace, kAcrossTheBoard)) {
            BetRec& b = RF.Bet(CurRace, i);
            if (Scratched(CurRace, b.Pick(1))) continue;
            b.BetWinnings += b.BetAmt;
            b.WinPart = b.BetAmt;
        }
        return;
    }

    double ratio = (net - w).ToDouble() / w.ToDouble();
    double minimum = MinimumRatio(CurRace);
    if (minimum > ratio) ratio = minimum;
    RF.Payout(CurRace, 1, 1).PayRatio = ratio;

    for (int type : {1, static_cast<int>(kAcrossTheBoard)}) {
        for (std::int32_t i : Slots(CurRace, type)) {
            BetRec& b = RF.Bet(CurRace, i);
            if (b.Pick(1) != Finishers(1)) continue;
            b.WinPart = Payment(b.BetAmt, ratio, CurRace);
            b.BetWinnings += b.WinPart;
        }
    }
}

void PayoutCalc::DividePlaceOrShowPool(int type) {
    const RaceRec& rc = RF.Race(CurRace);
    if (!rc.BetType(type)) return;
    NormaliseRaceLimits(CurRace);

    const int positions = type;  // Place pays two finishers, Show three
    const Currency net = LessPercentHoldback(RF.Payout(CurRace, type, 1).PoolAmt, CurRace);
    std::array<Currency, 4> w{};
    std::array<double, 4> ratio{};
    int ways = positions;
    for (int p = 1; p <= positions; ++p) {
        w[p] = RF.Payout(CurRace, type, p).WinningAmt;
        if (w[p].IsZero()) {
            ratio[p] = kNoPay;
            --ways;
        }
    }

    if (ways == 0)
        AskHandling(type);
    else
        ChosenHandling = "Most";

    auto side = [type](BetRec& b) -> Currency& { return type == 2 ? b.PlacePart : b.ShowPart; };
    auto store = [&] {
        for (int p = 1; p <= positions; ++p) RF.Payout(CurRace, type, p).PayRatio = ratio[p];
    };

    if (ChosenHandling == "NoPay") {
        for (int p = 1; p <= positions; ++p) ratio[p] = kNoPay;
        store();
        return;
    }
    if (ChosenHandling == "Payback" || ways == 0) {
        for (int p = 1; p <= positions; ++p) ratio[p] = kPayback;
        for (int bt : {type, static_cast<int>(kAcrossTheBoard)}) {
            for (std::int32_t i : Slots(CurRace, bt)) {
                BetRec& b = RF.Bet(CurRace, i);
                if (Scratched(CurRace, b.Pick(1))) continue;
                b.BetWinnings += b.BetAmt;
                side(b) = b.BetAmt;
            }
        }
        store();
        return;
    }

    Currency profit = net;
    for (int p = 1; p <= positions; ++p) profit -= w[p];
    const double minimum = MinimumRatio(CurRace);
    for (int p = 1; p <= positions; ++p) {
        if (w[p].IsZero()) continue;
        ratio[p] = profit.ToDouble() / ways / w[p].ToDouble();
        if (minimum > ratio[p]) ratio[p] = minimum;
    }

    for (int bt : {type, static_cast<int>(kAcrossTheBoard)}) {
        for (std::int32_t i : Slots(CurRace, bt)) {
            BetRec& b = RF.Bet(CurRace, i);
            for (int p = 1; p <= positions; ++p) {
                if (b.Pick(1) == Finishers(p)) {
                    side(b) = Payment(b.BetAmt, ratio[p], CurRace);
                    b.BetWinnings += side(b);
                    break;
                }
            }
        }
    }
    store();
}

}  // namespace tt
