#include "racecard/race_card_rules.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "model/bet_type.h"
#include "model/common.h"
#include "model/ports.h"

namespace tt {

namespace {

Currency MoneyOf(const ControlState& c) {
    return Currency::FromDouble(Val(c.text));
}
bool Whole(double v) {
    return v == std::floor(v);
}

WindowFailure Failure(std::string text, bool exclamation, int tab, std::string focus,
                      bool selectText) {
    return {std::move(text), exclamation, tab, std::move(focus), selectText};
}

// ---- SaveWork, step by step ------------------------------------------------------------------

// The card's settings as the window's boxes give them.
struct CardSettings {
    Int16 saveAfter, clearDays, reportFont, ticketFont, maxTrans;
    std::array<Currency, 6> quick{};  // the default quick bets, 1 to 5
};

// Every number is read before anything is written, so that a number too large for its field
// stops OK with the document as it was.
CardSettings ReadCardSettings(const RaceCardControls& w) {
    CardSettings s;
    s.saveAfter = IsChecked(w.chkBackup) ? RoundToInt16(Val(w.txtSaveAfter.text)) : Int16(0);
    s.clearDays = RoundToInt16(Val(w.txtClearDays.text));
    s.reportFont = RoundToInt16(Val(w.txtReportFontSize.text));
    s.ticketFont = RoundToInt16(Val(w.txtTicketFontSize.text));
    s.maxTrans = RoundToInt16(std::floor(Val(w.txtMaxTransInPrinter.text)));
    for (int q = 1; q <= 5; ++q) s.quick[static_cast<std::size_t>(q)] = MoneyOf(w.txtQuickBet[q]);
    return s;
}

// Races deleted in this session lose their bets; tickets keep their totals.
void EraseBetsOfDeletedRaces(const WorkCopies& work) {
    for (int i = 1; i <= kMaxRace; ++i) {
        if (RF.Race(i).RaceName.empty() || !work.WorkRace(i).RaceName.empty()) continue;
        for (std::int64_t n = 1; n <= RF.MaxBets; ++n) ClearBet(i, n);
    }
}

// Bets of a type no longer offered get their cost back as winnings.
void RefundBetTypesSwitchedOff(const WorkCopies& work) {
    for (int i = 1; i <= kMaxRace; ++i) {
        std::array<bool, kBetTypes + 1> off{};
        bool any = false;
        for (int t = 1; t <= kBetTypes; ++t) {
            off[static_cast<std::size_t>(t)] =
                RF.Race(i).BetType(t) && !work.WorkRace(i).BetType(t);
            any = any || off[static_cast<std::size_t>(t)];
        }
        if (!any) continue;
        for (std::int64_t n = 1; n <= RF.MaxBets; ++n) {
            BetRec& b = RF.Bet(i, n);
            const int t = b.BetType;
            if (t >= 1 && t <= kBetTypes && off[static_cast<std::size_t>(t)])
                b.BetWinnings = b.BetCost;
        }
    }
}

void StoreCardSettings(const RaceCardControls& w, const CardSettings& s) {
    RF.FileName = w.txtFileName.text;
    RF.SaveAfter = s.saveAfter;
    RF.RecoveryFile = w.txtRecoveryFile.text;
    RF.ClearDays = s.clearDays;
    RF.RecoveryFlag = IsChecked(w.chkRecoveryFlag);
    RF.ClearRecovery = IsChecked(w.chkClearRecovery);
    RF.RaceType = w.comRaceType.text;
    RF.ReportFontSize = s.reportFont;
    RF.TicketFontSize = s.ticketFont;
    RF.MaxTransInPrinter = s.maxTrans;
    RF.RacerSort = w.comRacerSortText;
    RF.PrintBets = IsChecked(w.chkPrintBets);
    RF.UseBetNbr = IsChecked(w.chkUseBetNbr);
    RF.UseProgramNbr = IsChecked(w.chkUseProgramNbr);
    RF.UsePostPosition = IsChecked(w.chkUsePostPosition);
    RF.DefaultToDummy = IsChecked(w.chkDefaultToDummy);
    RF.CollectZero = IsChecked(w.chkCollectZero);
    for (int q = 1; q <= 5; ++q) RF.Race(0).QuickBet(q) = s.quick[static_cast<std::size_t>(q)];
}

// The copies into the document: amounts at least 0.01, holdbacks at least 0, and a race without
// quick bets gets its minimum bet as the first.
void StoreRaces(const WorkCopies& work) {
    const Currency cent = Currency::FromRaw(100);
    for (int i = 0; i <= kMaxRace; ++i) {
        const RaceRec& w = work.WorkRace(i);
        RaceRec& r = RF.Race(i);
        r.RaceName = w.RaceName;
        r.MinBet = std::max(w.MinBet, cent);
        r.MinPayout = std::max(w.MinPayout, cent);
        r.BetIncr = std::max(w.BetIncr, cent);
        r.HoldbackAmt = std::max(w.HoldbackAmt, Currency());
        r.HoldbackPct = w.HoldbackPct < 0 ? 0.0f : w.HoldbackPct;
        r.RoundTo = w.RoundTo;
        for (int t = 1; t <= kBetTypes; ++t) r.BetType(t) = w.BetType(t);
        bool allZero = true;
        for (int q = 1; q <= 5; ++q) {
            r.QuickBet(q) = w.QuickBet(q);
            allZero = allZero && r.QuickBet(q).IsZero();
        }
        if (allZero) r.QuickBet(1) = r.MinBet;
        for (std::int64_t n = 1; n <= RF.MaxRacers; ++n) RF.Racer(i, n) = work.WorkRacer(i, n);
    }
}

}  // namespace

// ---- The copies ------------------------------------------------------------------------------

void CopyToWork(WorkCopies& work) {
    for (int i = 0; i <= kMaxRace; ++i) {
        const RaceRec& from = RF.Race(i);
        RaceRec& to = work.WorkRace(i);
        to.RaceName = from.RaceName;
        to.MinBet = from.MinBet;
        to.MinPayout = from.MinPayout;
        to.BetIncr = from.BetIncr;
        to.RoundTo = from.RoundTo;
        to.HoldbackAmt = from.HoldbackAmt;
        to.HoldbackPct = from.HoldbackPct;
        for (int q = 1; q <= 5; ++q) to.QuickBet(q) = from.QuickBet(q);
        for (int t = 1; t <= kBetTypes; ++t) to.BetType(t) = from.BetType(t);
        for (int n = 1; n <= RF.MaxRacers; ++n) work.WorkRacer(i, n) = RF.Racer(i, n);
    }
}

// ---- Checks ----------------------------------------------------------------------------------

std::optional<WindowFailure> CheckWindow(const RaceCardControls& w) {
    using C = RaceCardControls;
    const std::string minPayout = std::string("Minimum Payout must be at least as much") + kCrLf +
                                  "as the Minimum Bet amount";
    if (Val(w.txtMinBet.text) > Val(w.txtMinPayout.text))
        return Failure(minPayout, true, C::kDefaults, "txtMinPayout", true);
    if (Val(w.txtRMinBet.text) > Val(w.txtRMinPayout.text))
        return Failure(minPayout, true, C::kRaces, "txtRMinPayout", true);
    if (Val(w.txtRHoldbackAmt.text) < 0)
        return Failure("Holdback Amount can't be less than 0 !", true, C::kRaces, "txtRHoldbackAmt",
                       true);
    const double pct = Val(w.txtRHoldbackPct.text);
    if (pct < 0 || pct > 100)
        return Failure("Holdback Percent can't be less than 0 or greater than 100!", true,
                       C::kRaces, "txtRHoldbackPct", true);
    const std::string multiple =
        std::string("Quick Bet amounts must be a multiple") + kCrLf + "of the Bet Increment.";
    const double incr = Val(w.txtBetIncr.text), rIncr = Val(w.txtRBetIncr.text);
    const double minBet = Val(w.txtMinBet.text), rMinBet = Val(w.txtRMinBet.text);
    for (int i = 1; i <= 5; ++i) {
        const auto q = static_cast<std::size_t>(i);
        const double quick = Val(w.txtQuickBet[q].text), rQuick = Val(w.txtRQuickBet[q].text);
        // Rounded to four places, so that 0.30 over 0.10 counts as whole in binary floating point.
        if (incr != 0 && !Whole(RoundPlaces(quick / incr, -4)))
            return Failure(multiple, false, C::kDefaults, IndexedName("txtQuickBet", i), false);
        if (rIncr != 0 && !Whole(RoundPlaces(rQuick / rIncr, -4)))
            return Failure(multiple, false, C::kRaces, IndexedName("txtRQuickBet", i), false);
        if (minBet > quick && quick != 0)
            return Failure(std::string("Quick Bet amounts must be a greater") + kCrLf +
                               "than the minimum bet.",
                           false, C::kDefaults, IndexedName("txtQuickBet", i), false);
        if (rMinBet > rQuick && rQuick != 0)
            return Failure(
                std::string("Quick Bet amounts must be greater") + kCrLf + "than the minimum bet.",
                false, C::kRaces, IndexedName("txtRQuickBet", i), false);
    }
    if (IsChecked(w.chkPrintBets) && Val(w.txtMaxTransInPrinter.text) <= 0)
        return Failure("Maximum transactions per page must be 1 or greater.", true, C::kGeneral,
                       "txtMaxTransInPrinter", false);
    return std::nullopt;
}

// ---- Stores into the copies ------------------------------------------------------------------

void StoreRaceFromWindow(const RaceCardControls& window, WorkCopies& work, int race) {
    if (race == 0) return;
    const Currency minBet = MoneyOf(window.txtRMinBet), minPayout = MoneyOf(window.txtRMinPayout),
                   betIncr = MoneyOf(window.txtRBetIncr),
                   holdbackAmt = MoneyOf(window.txtRHoldbackAmt);
    std::array<Currency, 6> quick{};
    for (std::size_t q = 1; q <= 5; ++q) quick[q] = MoneyOf(window.txtRQuickBet[q]);
    RaceRec& w = work.WorkRace(race);
    w.RaceName = window.txtRaceName.text;
    w.MinBet = minBet;
    w.MinPayout = minPayout;
    w.BetIncr = betIncr;
    w.HoldbackAmt = holdbackAmt;
    w.HoldbackPct = static_cast<float>(Val(window.txtRHoldbackPct.text));
    for (int t = 1; t <= kBetTypes; ++t) w.BetType(t) = IsChecked(window.chkRBetType[t]);
    for (int q = 1; q <= 5; ++q) w.QuickBet(q) = quick[static_cast<std::size_t>(q)];
}

void StoreDefaultsFromWindow(const RaceCardControls& window, WorkCopies& work) {
    const Currency minBet = MoneyOf(window.txtMinBet), minPayout = MoneyOf(window.txtMinPayout),
                   betIncr = MoneyOf(window.txtBetIncr),
                   holdbackAmt = MoneyOf(window.txtHoldbackAmt);
    std::array<Currency, 6> quick{};
    for (std::size_t q = 1; q <= 5; ++q) quick[q] = MoneyOf(window.txtQuickBet[q]);
    RaceRec& d = work.WorkRace(0);
    d.MinBet = minBet;
    d.MinPayout = minPayout;
    d.BetIncr = betIncr;
    d.HoldbackAmt = holdbackAmt;
    d.HoldbackPct = static_cast<float>(Val(window.txtHoldbackPct.text));
    for (int t = 1; t <= kBetTypes; ++t) d.BetType(t) = IsChecked(window.chkBetType[t]);
    for (int q = 1; q <= 5; ++q) d.QuickBet(q) = quick[static_cast<std::size_t>(q)];
}

// ---- Deleting a race -------------------------------------------------------------------------

std::string DataOnFile(int race) {
    bool bets = false, racers = false;
    for (std::int64_t n = 1; n <= RF.MaxBets && !bets; ++n)
        bets = BetTypeOf(RF.Bet(race, n).BetType) != BetType::kNone;
    for (std::int64_t n = 1; n <= RF.MaxRacers && !racers; ++n)
        racers = RF.Racer(race, n).BetNbr != 0;
    return bets && racers ? "Racers and Bets " : bets ? "Bets " : racers ? "Racers " : "";
}

void FreeRacerSlot(RacerRec& racer) {
    racer.PostPosition = "0";
    racer.BetNbr = 0;
    racer.ProgramNbr.clear();
    racer.RacerName.clear();
    racer.Odds = 0;
    racer.Scratched = false;
}

void DeleteRaceInWork(WorkCopies& work, int race) {
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n) FreeRacerSlot(work.WorkRacer(race, n));
    RaceRec& w = work.WorkRace(race);
    w.RaceName.clear();
    w.MinBet = w.MinPayout = w.BetIncr = w.HoldbackAmt = Currency();
    for (int q = 1; q <= 5; ++q) w.QuickBet(q) = Currency();
    w.HoldbackPct = 0;
    w.RoundTo = 0;
    for (int t = 1; t <= kBetTypes; ++t) w.BetType(t) = false;
    for (int k = 1; k <= 4; ++k) w.Result(k) = 0;
}

// ---- Results lock ----------------------------------------------------------------------------

void ApplyRaceProtection(RaceCardControls& w, int race) {
    const bool results = RaceFinished(race);
    for (ControlState* c : {&w.txtRMinBet, &w.txtRMinPayout, &w.txtRBetIncr, &w.txtRHoldbackAmt,
                            &w.txtRHoldbackPct, &w.cmdReset, &w.txtRaceName})
        c->enabled = !results;
    for (int t = 1; t <= kBetTypes; ++t)
        if (!IsMultiRace(BetTypeOf(t))) w.chkRBetType[t].enabled = !results;
    for (auto& o : w.optRRoundTo) o.enabled = !results;
    w.lblResultsMessage.visible = results;
    // A multi-race type locks only when every race of its span has results, and it is not
    // offered where the span runs past the last race.
    for (BetType t : kMultiRaceTypes) {
        const int last = LastLeg(race, t);
        ControlState& box = w.chkRBetType[Code(t)];
        if (!results) {
            box.enabled = true;
        } else if (last > kMaxRace) {
            box.enabled = false;
        } else {
            bool open = false;
            for (int r = race; r <= last && !open; ++r) open = !RaceFinished(r);
            box.enabled = open;
        }
        box.visible = last <= kMaxRace;
    }
}

// ---- OK
// ------------------------------------------------------------------------------------------

void SaveWork(const RaceCardControls& window, const WorkCopies& work) {
    G.CancelFlag = false;
    const CardSettings settings = ReadCardSettings(window);
    EraseBetsOfDeletedRaces(work);
    RefundBetTypesSwitchedOff(work);
    StoreCardSettings(window, settings);
    StoreRaces(work);
}

}  // namespace tt
