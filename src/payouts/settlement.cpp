#include "payouts/settlement.h"

#include <algorithm>
#include <cmath>

#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {
// Who is told of a settled race, by subscription.
std::vector<std::pair<int, SettledListener>>& Listeners() {
    static std::vector<std::pair<int, SettledListener>> listeners;
    return listeners;
}
}  // namespace

bool MostCorrectOffered(const HandlingQuestion& question) {
    return !IsWinPlaceShow(question.type) && question.bestCorrect != 0;
}

SettledSubscription::SettledSubscription(SettledListener listener) {
    static int next = 0;
    id_ = ++next;
    Listeners().emplace_back(id_, std::move(listener));
}

SettledSubscription::~SettledSubscription() {
    std::erase_if(Listeners(), [this](const auto& l) { return l.first == id_; });
}

void SettleRace(int race, const HandlingPolicy& policy) {
    G.CurrentRace = race;
    PayoutCalc calc(race, policy);
    calc.CalcPayouts();
    // A copy: a listener may subscribe or leave while it is told.
    auto listeners = Listeners();
    for (const auto& [id, listener] : listeners) listener(race);
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

void ClearRaceWinnings(int race, int currentRace) {
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) RF.Bet(race, i).BetWinnings = Currency();
    // A multi-race bet is cleared by the race that is current, not the one named.
    for (int k = std::max(race - 5, 1); k <= std::min(race + 5, kMaxRace); ++k) {
        for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
            BetRec& b = RF.Bet(k, i);
            const BetType t = BetTypeOf(b.BetType);
            if (IsMultiRace(t) && currentRace >= k && currentRace <= LastLeg(k, t))
                b.BetWinnings = Currency();
        }
    }
}

// ---- The calculation ----------------------------------------------------------------------

PayoutCalc::PayoutCalc(int race, const HandlingPolicy& policy) : CurRace(race), policy_(policy) {}

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

const std::vector<std::int32_t>& PayoutCalc::Slots(int race, BetType betType) {
    const int type = Code(betType);
    RF.Race(race);  // checks the race index
    auto r = static_cast<std::size_t>(race);
    if (!slotsBuilt_[r]) {
        for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
            std::int16_t t = RF.Bet(race, i).BetType;
            if (IsBetType(t))
                slots_[r][static_cast<std::size_t>(t)].push_back(static_cast<std::int32_t>(i));
        }
        slotsBuilt_[r] = true;
    }
    if (!IsBetType(type)) Raise(kErrSubscript);
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

void PayoutCalc::AskHandling(BetType type, int bestCorrect) {
    if (!policy_) return;
    if (std::optional<PoolHandling> answer = policy_({CurRace, type, bestCorrect}))
        handling_ = *answer;
}

void PayoutCalc::CalcPayouts() {
    GetFinishers(CurRace, Finishers);
    G.FileChanged = true;
    for (int t = 1; t <= kBetTypes; ++t)
        for (int p = 1; p <= 6; ++p) RF.Payout(CurRace, t, p) = PayoutRec();

    BuildPools();

    const RaceRec& rc = RF.Race(CurRace);
    if (rc.Result(1) != 0) {
        for (int code = 1; code <= Code(BetType::kTrifecta); ++code) {
            const BetType t = BetTypeOf(code);
            CurBetType = code;
            if (!rc.BetType(code)) continue;
            if (t == BetType::kWin)
                DivideWinPool();
            else if (IsWinPlaceShow(t))
                DividePlaceOrShowPool(t);
            else
                CalcExotic(t);
        }
        for (int k = std::max(CurRace.Value() - 5, 1); k <= CurRace; ++k) {
            for (BetType t : kMultiRaceTypes) {
                CurBetType = Code(t);
                if (RF.Race(k).BetType(Code(t))) {
                    // A group that would run past race 20 does not exist.
                    if (LastLeg(k, t) <= kMaxRace) CalcMultiRace(k, t);
                } else {
                    // The stake is read from the same slot of the race being calculated.
                    for (std::int32_t i : Slots(k, t))
                        RF.Bet(k, i).BetWinnings = RF.Bet(CurRace, i).BetCost;
                }
            }
        }
    }

    RecalcAllTickets();
    // What showing the settled race on the payout display does to the document: the default
    // race made valid, the race current, and a race without result cleared of its winnings.
    MakeDefaultRaceValid();
    G.CurrentRace = CurRace;
    if (rc.Result(1) == 0) ClearRaceWinnings(CurRace, CurRace);
    RecalcRaceTickets(CurRace);
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
    const BetType type = BetTypeOf(b.BetType);
    auto offered = [&rc](BetType t) { return bool(rc.BetType(Code(t))); };

    b.BetWinnings = Currency();
    if (type == BetType::kAcrossTheBoard) {
        if (!offered(BetType::kWin)) {
            b.BetWinnings = b.BetAmt;
            b.WinPart = b.BetAmt;
        }
        if (!offered(BetType::kPlace)) {
            b.BetWinnings += b.BetAmt;
            b.PlacePart = b.BetAmt;
        }
        if (!offered(BetType::kShow)) {
            b.BetWinnings += b.BetAmt;
            b.ShowPart = b.BetAmt;
        }
    } else if (!offered(type)) {
        b.BetWinnings = b.BetCost;
    }

    int s = 0;
    for (int j = 1; j <= 6; ++j)
        if (b.Pick(j) != 0 && Scratched(CurRace, b.Pick(j))) ++s;

    if (s >= 1) {
        if (IsWinPlaceShow(type)) {
            b.BetWinnings = b.BetCost;
        } else if (IsExotic(type)) {
            if (offered(type)) {
                if (!b.Boxed) {
                    b.BetWinnings = b.BetCost;
                } else {
                    int live = CountPicks(CurRace, i) - s;
                    if (type == BetType::kExacta) {
                        b.BetWinnings = b.BetCost - b.BetAmt * (Int16(live) * Int16(live - 1));
                    } else {
                        b.BetWinnings = b.BetCost - b.BetAmt * live * (live - 1) * (live - 2);
                    }
                }
            }
        } else if (type == BetType::kAcrossTheBoard) {
            if (offered(BetType::kWin)) {
                b.BetWinnings = b.BetCost;
                b.WinPart = b.BetAmt;
                b.PlacePart = b.BetAmt;
                b.ShowPart = b.BetAmt;
            }
        }
        // Multi-race bets are refunded with their group.
    }

    // The whole of BetWinnings comes off each pool, not the side concerned; Across the Board
    // feeds all three.
    const Currency amt = b.BetAmt;
    const bool across = type == BetType::kAcrossTheBoard;
    for (BetType pool : {BetType::kWin, BetType::kPlace, BetType::kShow}) {
        if (type != pool && !across) continue;
        const int row = Code(pool);
        RF.Payout(CurRace, row, 1).PoolAmt += amt - b.BetWinnings;
        if (!offered(pool)) continue;
        // Win pays the first finisher, Place the first two, Show the first three.
        for (int p = 1; p <= row; ++p) {
            if (b.Pick(1) == Finishers(p)) RF.Payout(CurRace, row, p).WinningAmt += amt;
        }
    }
    if (IsExotic(type)) {
        RF.Payout(CurRace, Code(type), 1).PoolAmt += b.BetCost - b.BetWinnings;
        CountCorrectPicks(CurRace, i);
        if (offered(type) && b.CorrectPicks >= 1)
            RF.Payout(CurRace, Code(type), b.CorrectPicks).WinningAmt +=
                amt * b.WinningCombos.Value();
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
    if (!rc.BetType(Code(BetType::kWin))) return;
    NormaliseRaceLimits(CurRace);

    PayoutRec& row = RF.Payout(CurRace, Code(BetType::kWin), 1);
    const Currency pool = row.PoolAmt;
    const Currency pct =
        Currency::FromDouble(pool.ToDouble() * static_cast<double>(rc.HoldbackPct) / 100);
    const Currency net = pool - rc.HoldbackAmt - pct;
    const Currency w = row.WinningAmt;

    if (w.IsZero())
        AskHandling(BetType::kWin);
    else
        handling_ = PoolHandling::kMost;

    if (handling_ == PoolHandling::kNoPay) {
        row.PayRatio = kNoPay;
        return;
    }
    if (handling_ == PoolHandling::kPayback || w.IsZero()) {
        row.PayRatio = kPayback;
        for (BetType type : {BetType::kWin, BetType::kAcrossTheBoard}) {
            for (std::int32_t i : Slots(CurRace, type)) {
                BetRec& b = RF.Bet(CurRace, i);
                if (Scratched(CurRace, b.Pick(1))) continue;
                b.BetWinnings += b.BetAmt;
                b.WinPart = b.BetAmt;
            }
        }
        return;
    }

    double ratio = (net - w).ToDouble() / w.ToDouble();
    double minimum = MinimumRatio(CurRace);
    if (minimum > ratio) ratio = minimum;
    row.PayRatio = ratio;

    for (BetType type : {BetType::kWin, BetType::kAcrossTheBoard}) {
        for (std::int32_t i : Slots(CurRace, type)) {
            BetRec& b = RF.Bet(CurRace, i);
            if (b.Pick(1) != Finishers(1)) continue;
            b.WinPart = Payment(b.BetAmt, ratio, CurRace);
            b.BetWinnings += b.WinPart;
        }
    }
}

void PayoutCalc::DividePlaceOrShowPool(BetType betType) {
    const RaceRec& rc = RF.Race(CurRace);
    const int type = Code(betType);
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
        AskHandling(betType);
    else
        handling_ = PoolHandling::kMost;

    auto side = [betType](BetRec& b) -> Currency& {
        return betType == BetType::kPlace ? b.PlacePart : b.ShowPart;
    };
    auto store = [&] {
        for (int p = 1; p <= positions; ++p) RF.Payout(CurRace, type, p).PayRatio = ratio[p];
    };

    if (handling_ == PoolHandling::kNoPay) {
        for (int p = 1; p <= positions; ++p) ratio[p] = kNoPay;
        store();
        return;
    }
    if (handling_ == PoolHandling::kPayback || ways == 0) {
        for (int p = 1; p <= positions; ++p) ratio[p] = kPayback;
        for (BetType bt : {betType, BetType::kAcrossTheBoard}) {
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

    for (BetType bt : {betType, BetType::kAcrossTheBoard}) {
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
