#include <vector>

#include "files/file_commands.h"
#include "files/race_file_io.h"
#include "files/recovery_file.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

// Appends the fields of one line.
class LineWriter {
public:
    explicit LineWriter(std::string& out) : out_(out) {}

    LineWriter& Text(std::string_view s) {
        Sep();
        out_.push_back('"');
        out_.append(s);
        out_.push_back('"');
        return *this;
    }
    LineWriter& Int(std::int64_t v) {
        Sep();
        AppendFileNumber(v, out_);
        return *this;
    }
    LineWriter& Money(Currency c) {
        Sep();
        AppendFileNumber(out_, c);
        return *this;
    }
    LineWriter& Single(float f) {
        Sep();
        AppendFileNumber(out_, f);
        return *this;
    }
    LineWriter& Double(double d) {
        Sep();
        AppendFileNumber(out_, d);
        return *this;
    }
    LineWriter& Bool(Flag f) {
        Sep();
        out_.append(f ? "#TRUE#" : "#FALSE#");
        return *this;
    }
    LineWriter& Date(const DateTime& d) {
        Sep();
        out_.push_back('#');
        out_.append(d.Text());
        out_.push_back('#');
        return *this;
    }
    // Ends the line; a trailing comma stands before the line end where the format has one.
    void End(bool trailingComma = false) {
        if (trailingComma) out_.push_back(',');
        out_.append("\r\n");
        first_ = true;
    }

private:
    void Sep() {
        if (!first_) out_.push_back(',');
        first_ = false;
    }
    std::string& out_;
    bool first_ = true;
};

void Clean(std::string& s) {
    if (s.find('"') != std::string::npos) s = CleanText(std::move(s));
}

}  // namespace

std::string CleanText(std::string text) { return ReplaceAll(std::move(text), "\"", "'"); }

std::string ReplaceAll(std::string text, std::string_view search, std::string_view replacement) {
    if (search.empty()) return text;
    const std::size_t n = std::min(search.size(), replacement.size());
    std::size_t from = 0;
    for (std::size_t pos; (pos = text.find(search, from)) != std::string::npos;) {
        text.replace(pos, n, replacement.substr(0, n));
        // An occurrence can only reappear overlapping the overwritten place. One that still
        // stands exactly there would never go away: go on behind it.
        bool stillThere = text.compare(pos, search.size(), search) == 0;
        from = stillThere ? pos + 1 : (pos >= search.size() ? pos - search.size() + 1 : 0);
    }
    return text;
}

std::string BuildRaceFileText(const DateTime& saved) {
    std::string out;
    out.reserve(4096 + static_cast<std::size_t>(RF.MaxBets.Value()) * 22 * 96 +
                static_cast<std::size_t>(RF.MaxRacers.Value()) * 22 * 64);
    LineWriter w(out);

    w.Text("%Header`").Text(kProduct).Text(kFormatVersion).Date(saved).End();

    Clean(RF.FileName);
    Clean(RF.RaceType);
    w.Text("%Parms `")
        .Int(RF.FileId)
        .Text(RF.FileName)
        .Text(RF.RaceType)
        .Int(RF.DefaultRace)
        .Int(RF.SaveAfter)
        .Bool(RF.PrintBets)
        .Int(RF.MaxTransInPrinter)
        .Bool(RF.UseBetNbr)
        .Bool(RF.UseProgramNbr)
        .Bool(RF.UsePostPosition)
        .Text(RF.RacerSort)
        .Int(RF.MaxRaces)
        .Int(RF.TicketCount)
        .Bool(RF.DefaultToDummy)
        .Text(RF.RecoveryFile)
        .Bool(RF.RecoveryFlag)
        .Bool(RF.ClearRecovery)
        .Int(RF.ClearDays)
        .Int(RF.ReportFontSize)
        .Int(RF.TicketFontSize)
        .Bool(RF.CollectZero)
        .End();

    for (int r = 0; r <= kMaxRace; ++r) {
        RaceRec& race = RF.Race(r);
        Clean(race.RaceName);
        w.Text("%Race  `")
            .Int(r)
            .Text(race.RaceName)
            .Money(race.MinBet)
            .Money(race.MinPayout)
            .Money(race.BetIncr)
            .Int(race.RoundTo)
            .Money(race.HoldbackAmt)
            .Single(race.HoldbackPct);
        for (int t = 1; t <= kBetTypes; ++t) w.Bool(race.BetType(t)).Int(race.CorrectPaid(t));
        for (int k = 0; k <= 5; ++k) w.Int(race.Result(k));
        w.End(true);
        for (int q = 1; q <= 5; ++q) w.Money(race.QuickBet(q));
        w.End(true);
        for (int n = 1; n <= RF.MaxRacers; ++n) {
            RacerRec& racer = RF.Racer(r, n);
            if (racer.BetNbr == 0) continue;
            Clean(racer.RacerName);
            Clean(racer.ProgramNbr);
            Clean(racer.PostPosition);
            w.Text("%Racer `")
                .Int(racer.BetNbr)
                .Text(racer.PostPosition)
                .Text(racer.ProgramNbr)
                .Text(racer.RacerName)
                .Double(racer.Odds)
                .Bool(racer.Scratched)
                .End();
        }
    }

    // Each bettor's bets, race by race and slot by slot. The bets are grouped by the bettor of
    // their ticket in one pass rather than scanned once per bettor.
    const int bettors = RF.BettorCount;
    std::vector<std::int64_t> start(static_cast<std::size_t>(bettors) + 2, 0);
    std::vector<std::pair<std::int8_t, std::int32_t>> order;
    if (bettors >= 1) {
        auto bettorOf = [](int r, std::int64_t n) -> int {
            return RF.Ticket(RF.Bet(r, n).TicketIdx).TicketBettor;
        };
        for (int r = 1; r <= kMaxRace; ++r)
            for (std::int64_t n = 1; n <= RF.MaxBets; ++n) {
                int b = bettorOf(r, n);
                if (b >= 1 && b <= bettors) ++start[static_cast<std::size_t>(b) + 1];
            }
        for (int b = 1; b <= bettors; ++b) start[static_cast<std::size_t>(b) + 1] += start[static_cast<std::size_t>(b)];
        order.resize(static_cast<std::size_t>(start[static_cast<std::size_t>(bettors) + 1]));
        std::vector<std::int64_t> fill(start.begin(), start.end());
        for (int r = 1; r <= kMaxRace; ++r)
            for (std::int64_t n = 1; n <= RF.MaxBets; ++n) {
                int b = bettorOf(r, n);
                if (b >= 1 && b <= bettors)
                    order[static_cast<std::size_t>(fill[static_cast<std::size_t>(b)]++)] = {
                        static_cast<std::int8_t>(r), static_cast<std::int32_t>(n)};
            }
    }
    for (int b = 1; b <= bettors; ++b) {
        BettorRec& bettor = RF.Bettor(b);
        Clean(bettor.BettorName);
        Clean(bettor.BettorInfo);
        Clean(bettor.BettorEmail);
        Clean(bettor.BettorPhone);
        w.Text("%Bettor`")
            .Text(bettor.BettorName)
            .Text(bettor.BettorInfo)
            .Text(bettor.BettorEmail)
            .Text(bettor.BettorPhone)
            .End();
        for (std::int64_t i = start[static_cast<std::size_t>(b)]; i < start[static_cast<std::size_t>(b) + 1]; ++i) {
            auto [r, n] = order[static_cast<std::size_t>(i)];
            const BetRec& bet = RF.Bet(r, n);
            const TicketRec& t = RF.Ticket(bet.TicketIdx);
            w.Text("%Bet   `")
                .Int(r)
                .Money(bet.BetAmt)
                .Int(bet.BetType)
                .Bool(bet.Boxed)
                .Money(bet.BetCost)
                .Money(bet.BetWinnings)
                .Money(bet.WinPart)
                .Money(bet.PlacePart)
                .Money(bet.ShowPart)
                .Int(bet.CorrectPicks)
                .Int(bet.WinningCombos)
                .End();
            for (int k = 1; k <= 6; ++k) w.Int(bet.Pick(k));
            w.Int(bet.TicketIdx)
                .Int(t.TicketNbr)
                .Int(t.TicketRace)
                .Money(t.TicketCost)
                .Money(t.Collected)
                .Money(t.Distributed)
                .Money(t.Winnings)
                .End();
        }
    }

    for (int r = 1; r <= kMaxRace; ++r) {
        w.Text("%Payout`").Int(r);
        for (int t = 1; t <= kBetTypes; ++t)
            for (int p = 1; p <= 6; ++p) {
                const PayoutRec& pay = RF.Payout(r, t, p);
                w.Double(pay.PayRatio).Money(pay.WinningAmt).Money(pay.PoolAmt);
            }
        w.End(true);
    }
    return out;
}

void WriteRaceFile() {
    G.CancelFlag = false;
    MakeBackup(G.FilePath);
    if (G.CancelFlag) return;
    Shell().SetBusy(true);
    try {
        std::string text = BuildRaceFileText(Clock().Now());
        Files().WriteAll(G.FilePath, text);
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        Beep();
        Shell().SetBusy(false);
        MsgBox(JoinParts({"Error saving file", err.Text()}));
        G.CancelFlag = true;
        return;
    }
    AddMRU(G.FilePath);
    if (RF.RecoveryFlag && RF.ClearRecovery) ClearOldRecovery(RF.ClearDays);
    G.FileChanged = false;
    G.TransSinceSave = 0;
    Shell().SetBusy(false);
}

}  // namespace tt
