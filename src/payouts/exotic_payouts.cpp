// Exacta and Trifecta in one race, and the Daily Double and Pick 3 to Pick 6 over consecutive
// races: bets that can be partly right, whose pool may go to the most correct picks.

#include <algorithm>

#include "model/race_file.h"
#include "payouts/settlement.h"

namespace tt {

namespace {
// The amount a bet with the most correct picks receives: its stake at the ratio, times its
// winning combinations, rounded down by the race's code.
Currency ComboPayment(const BetRec& b, double ratio, int race) {
    Currency each = Currency::FromDouble(b.BetAmt.ToDouble() * ratio) + b.BetAmt;
    Currency all = each * b.WinningCombos.Value();
    return Currency::FromDouble(RoundDownTo(all.ToDouble(), RF.Race(race).RoundTo));
}

bool GroupIncomplete(int k, int e) {
    for (int r = k; r <= e; ++r)
        if (RF.Race(r).Result(1) == 0) return true;
    return false;
}
}  // namespace

void PayoutCalc::CountCorrectPicks(int race, std::int64_t i) {
    BetRec& b = RF.Bet(race, i);
    const int m = PicksToWin(BetTypeOf(b.BetType));

    if (!b.Boxed) {
        b.CorrectPicks = 0;
        for (int j = 1; j <= m; ++j) {
            if (b.Pick(j) != 0 && b.Pick(j) == Finishers(j)) ++b.CorrectPicks;
            if (Scratched(race, b.Pick(j))) {
                b.CorrectPicks = 0;
                break;
            }
        }
        if (b.CorrectPicks > 0) b.WinningCombos = 1;
        return;
    }

    // A box stands for every order of its live picks.
    Int16 n = 0;
    Int16 correct = 0;
    for (int j = 1; j <= 6; ++j) {
        const std::int16_t pick = b.Pick(j);
        if (pick == 0 || Scratched(race, pick)) continue;
        ++n;
        for (int p = 1; p <= m; ++p)
            if (pick == Finishers(p)) ++correct;
    }
    b.CorrectPicks = correct;
    if (m == 2) {
        if (correct == 2)
            b.WinningCombos = 1;
        else if (correct == 1)
            b.WinningCombos = n - 1;
        else if (correct == 0)
            b.WinningCombos = 0;
    } else {
        // Two correct in a box of three gives (3 - 2) * (3 - 3) = 0 combinations: so it stands.
        if (correct == 3)
            b.WinningCombos = 1;
        else if (correct == 2)
            b.WinningCombos = (n - 2) * (n - 3);
        else if (correct == 1)
            b.WinningCombos = (n - 2) * (n - 1);
    }
}

void PayoutCalc::CountLegsCorrect(int k, std::int64_t i) {
    BetRec& b = RF.Bet(k, i);
    b.CorrectPicks = 0;
    const BetType t = BetTypeOf(b.BetType);
    const int m = LegCount(t);
    for (int j = 1; j <= m; ++j) {
        const int r = PickRace(k, t, j);
        const RaceRec& leg = RF.Race(r);
        if (b.Pick(j) == RF.Racer(r, leg.Result(1)).BetNbr) {
            b.WinningCombos = 1;
            ++b.CorrectPicks;
        }
        if (Scratched(r, b.Pick(j))) {
            b.CorrectPicks = 0;
            b.WinningCombos = 0;
            break;
        }
    }
}

void PayoutCalc::CalcExotic(BetType type) {
    RaceRec& rc = RF.Race(CurRace);
    const int t = Code(type);
    if (!rc.BetType(t)) return;
    const int m = PicksToWin(type);

    MostCorrect = 0;
    for (int c = m; c >= 1; --c) {
        if (RF.Payout(CurRace, t, c).WinningAmt > Currency()) {
            MostCorrect = c;
            break;
        }
    }
    rc.CorrectPaid(t) = MostCorrect;

    if (!RF.Payout(CurRace, t, m).WinningAmt.IsZero())
        handling_ = PoolHandling::kMost;
    else
        AskHandling(type, MostCorrect);

    double ratio;
    if (handling_ == PoolHandling::kNoPay) {
        // Takes back the refunds of the pool pass too.
        ratio = kNoPay;
        for (std::int32_t i : Slots(CurRace, type)) RF.Bet(CurRace, i).BetWinnings = Currency();
    } else if (handling_ == PoolHandling::kPayback || MostCorrect == 0) {
        ratio = kPayback;
        for (std::int32_t i : Slots(CurRace, type)) {
            BetRec& b = RF.Bet(CurRace, i);
            b.BetWinnings = b.BetCost;
        }
    } else {
        const Currency net = LessPercentHoldback(RF.Payout(CurRace, t, 1).PoolAmt, CurRace);
        const Currency w = RF.Payout(CurRace, t, MostCorrect).WinningAmt;
        ratio = w.IsZero() ? kPayback : (net - w).ToDouble() / w.ToDouble();
        NormaliseRaceLimits(CurRace);
        // Only a pool paid on the whole combination has a minimum.
        const double minimum = MinimumRatio(CurRace);
        if (minimum > ratio && MostCorrect == m) ratio = minimum;
        if (ratio >= 0) {
            for (std::int32_t i : Slots(CurRace, type)) {
                BetRec& b = RF.Bet(CurRace, i);
                if (b.CorrectPicks == MostCorrect) b.BetWinnings += ComboPayment(b, ratio, CurRace);
            }
        }
    }
    RF.Payout(CurRace, t, 1).PayRatio = ratio;
}

void PayoutCalc::BuildMultiRacePools() {
    const int cur = CurRace;
    for (int k = 1; k <= cur; ++k) {
        for (BetType t : kMultiRaceTypes) {
            const int e = LastLeg(k, t);
            // A group that would run past race 20 does not exist.
            if (e > kMaxRace) break;
            CurBetType = Code(t);
            // Groups that ended before this race keep their rows and their bets.
            if (cur > e) continue;
            const bool incomplete = GroupIncomplete(k, e);
            for (int p = 1; p <= 6; ++p) RF.Payout(e, Code(t), p) = PayoutRec();

            const std::vector<std::int32_t>& slots = Slots(k, t);
            if (incomplete) {
                for (std::int32_t i : slots) RF.Bet(k, i).BetWinnings = Currency();
                continue;
            }
            if (!RF.Race(k).BetType(Code(t))) {
                for (std::int32_t i : slots) {
                    BetRec& b = RF.Bet(k, i);
                    b.BetWinnings = b.BetAmt;
                }
                continue;
            }
            for (std::int32_t i : slots) {
                BetRec& b = RF.Bet(k, i);
                // A scratch in any leg, even one still to run, returns the bet whole.
                bool off = false;
                for (int j = 1; j <= 6; ++j) {
                    if (b.Pick(j) != 0 && Scratched(PickRace(k, t, j), b.Pick(j))) {
                        off = true;
                        break;
                    }
                }
                if (off) {
                    b.BetWinnings = b.BetAmt;
                    continue;
                }
                RF.Payout(e, Code(t), 1).PoolAmt += b.BetAmt;
                b.BetWinnings = Currency();
                CountLegsCorrect(k, i);
                if (b.CorrectPicks > 0)
                    RF.Payout(e, Code(t), b.CorrectPicks).WinningAmt += b.BetAmt;
            }
        }
    }
}

void PayoutCalc::CalcMultiRace(int k, BetType type) {
    const int t = Code(type);
    const int e = LastLeg(k, type);
    const int m = LegCount(type);
    if (!RF.Race(k).BetType(t)) return;

    int best = 0;
    for (int c = m; c >= 1; --c) {
        if (RF.Payout(e, t, c).WinningAmt > Currency()) {
            best = c;
            break;
        }
    }
    RF.Race(e).CorrectPaid(t) = best;

    const std::vector<std::int32_t>& slots = Slots(k, type);
    if (GroupIncomplete(k, e)) {
        RF.Payout(e, t, 1).PayRatio = kIncomplete;
        for (std::int32_t i : slots) RF.Bet(k, i).BetWinnings = Currency();
        return;
    }

    // The winners are looked for under the race being calculated, not under the group's last
    // race: for an older group this reads another group's row.
    if (!RF.Payout(CurRace, t, m).WinningAmt.IsZero())
        handling_ = PoolHandling::kMost;
    else
        AskHandling(type, best);

    double ratio;
    if (handling_ != PoolHandling::kMost || best == 0) {
        // No Pay returns the stakes just as Payback does.
        ratio = handling_ == PoolHandling::kNoPay ? kNoPay : kPayback;
        for (std::int32_t i : slots) {
            BetRec& b = RF.Bet(k, i);
            b.BetWinnings = b.BetCost;
        }
    } else {
        const PayoutRec& row = RF.Payout(e, t, 1);
        const Currency net =
            row.PoolAmt - Currency::FromDouble(row.PoolAmt.ToDouble() *
                                               static_cast<double>(RF.Race(k).HoldbackPct) / 100);
        const Currency w = RF.Payout(e, t, best).WinningAmt;
        ratio = w.IsZero() ? kPayback : (net - w).ToDouble() / w.ToDouble();
        NormaliseRaceLimits(k);
        const double minimum = MinimumRatio(k);
        if (minimum > ratio && best == m) ratio = minimum;
        if (ratio >= 0) {
            // An older group's bets were not cleared by the pool pass: they receive it again.
            for (std::int32_t i : slots) {
                BetRec& b = RF.Bet(k, i);
                if (b.CorrectPicks == best) b.BetWinnings += ComboPayment(b, ratio, k);
            }
        }
    }
    RF.Payout(e, t, 1).PayRatio = ratio;
}

}  // namespace tt
