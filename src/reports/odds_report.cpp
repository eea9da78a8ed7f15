// Report 4: the pools and odds of a race, section by section, from the same calculations as the
// odds display.

#include "model/common.h"
#include "model/number_text.h"
#include "model/race_file.h"
#include "payouts/odds_grids.h"
#include "payouts/pools_odds.h"
#include "reports/report_writer.h"

namespace tt {

namespace {

// The print columns of the sections.
constexpr int kPrgm = 4, kBet = 11, kPost = 18, kName = 28;
constexpr int kWin = 56, kPlace = 64, kShow = 72;  // the pools
constexpr int kOdds = 56, kHandicap = 68;          // Win, Place and Show odds
constexpr int kFirst = 4, kSecond = 30;            // the racers of a pair; their odds at kOdds
// Pool money right-aligned in the room before the next column.
constexpr std::size_t kMoneyWidth = 7;

std::string Money(Currency c) {
    std::string text = MoneyText(c);
    if (text.size() < kMoneyWidth) text.insert(0, kMoneyWidth - text.size(), ' ');
    return text;
}

bool Offered(int race, int type) {
    return bool(RF.Race(race).BetType(type));
}

// The first columns of a racer's row: program number, bet number, post position, name.
ReportLine RacerColumns(const RacerRec& r) {
    ReportLine line;
    line.At(kPrgm, PadNumber(r.ProgramNbr, 5))
        .At(kBet, PadNumber(NumText(r.BetNbr.Value()), 5))
        .At(kPost, PadNumber(r.PostPosition, 5))
        .At(kName, r.RacerName);
    return line;
}

ReportLine Heads(const std::string& last, int lastColumn, const std::string& more = {},
                 int moreColumn = 0) {
    ReportLine line;
    line.At(kPrgm, "Prgm#")
        .At(kBet, "Bet#")
        .At(kPost, "Post Pos")
        .At(kName, RF.RaceType + " Name")
        .At(lastColumn, last);
    if (!more.empty()) line.At(moreColumn, more);
    return line;
}

// A racer of a pair: its bet number, " - ", its name.
std::string PairRacer(const RacerRec& r) {
    return PadNumber(NumText(r.BetNbr.Value()), 5) + " - " + r.RacerName;
}

// "Scratched" for a single racer, " Scratched" for a pair, "No Bets" for odds below 0.
std::string OddsText(bool scratched, const char* scratchedText, double odds) {
    if (scratched) return scratchedText;
    if (odds < 0) return "No Bets";
    return OddsCellText(odds);
}

}  // namespace

void ReportWriter::Section(const std::string& title, const std::vector<ReportLine>& heads,
                           const std::vector<ReportLine>& rows) {
    const int size = static_cast<int>(heads.size() + rows.size());
    if (lines_ + size > LinesPerPage) NewPageUnlessFresh(title);
    for (const ReportLine& h : heads) Print(h);
    for (const ReportLine& r : rows) {
        // A section longer than a page goes on under the heads again.
        if (lines_ + 1 > LinesPerPage && lines_ > kHeaderLines + static_cast<int>(heads.size())) {
            PageHeader(title);
            for (const ReportLine& h : heads) Print(h);
        }
        Print(r);
    }
}

void ReportWriter::PrintOdds(int race, int oddsBetType) {
    const std::string title =
        "Betting Pool and Odds for Race #" + NumText(race) + " - " + RF.Race(race).RaceName;
    PageHeader(title);
    const std::vector<int> racers = RacersInCardOrder(race);
    auto wanted = [&](int code) { return oddsBetType == 0 || oddsBetType == code; };
    auto sectionTitle = [](const std::string& text) { return ReportLine().At(4, text); };

    if (wanted(99)) {
        PoolTotals totals;
        CalcPoolTotals(race, totals);
        const int total = totals.TotalSlot();
        auto moneyLine = [&](ReportLine line, int slot) {
            const int columns[] = {kWin, kPlace, kShow};
            for (int t = 1; t <= 3; ++t)
                if (Offered(race, t)) line.At(columns[t - 1], Money(totals(t, slot)));
            return line;
        };
        std::vector<ReportLine> rows;
        for (int n : racers) {
            const RacerRec& r = RF.Racer(race, n);
            // A field's money stands once, on the racer that holds it.
            if (RacerSlotOfBetNbr(race, r.BetNbr) == n)
                rows.push_back(moneyLine(RacerColumns(r), n));
            else
                rows.push_back(RacerColumns(r));
        }
        rows.push_back(moneyLine(ReportLine().At(kName, "Totals:"), total));
        for (int t = Code(BetType::kExacta); t <= kBetTypes; ++t)
            if (Offered(race, t))
                rows.push_back(ReportLine()
                                   .At(kName, G.BetTypeName(t) + " Totals:")
                                   .At(kWin, Money(totals(t, total))));
        if (!totals(1, 0).IsZero() || !totals(2, 0).IsZero() || !totals(3, 0).IsZero())
            rows.push_back(moneyLine(ReportLine().At(kName, "Invalid bets"), 0));
        Section(title,
                {ReportLine(), sectionTitle("****  Betting Pools  ****"), ReportLine(),
                 Heads("Win", kWin, "Place", kPlace).At(kShow, "Show")},
                rows);
    }

    for (int t = 1; t <= 3; ++t) {
        if (!wanted(t) || !Offered(race, t)) continue;
        RacerOdds odds;
        if (t == 1)
            CalcWinOdds(race, odds);
        else
            CalcPlaceShowOdds(race, odds, t);
        std::vector<ReportLine> rows;
        for (int n : racers) {
            const RacerRec& r = RF.Racer(race, n);
            rows.push_back(RacerColumns(r)
                               .At(kOdds, OddsText(bool(r.Scratched), "Scratched", odds(n)))
                               .At(kHandicap, OddsCellText(r.Odds)));
        }
        Section(
            title,
            {ReportLine(), sectionTitle("****  " + G.BetTypeName(t) + " Odds  ****"), ReportLine(),
             Heads(t == 1 ? "Win Odds" : "Avg Odds", kOdds, "Hndicp Odds", kHandicap)},
            rows);
    }

    auto pairs = [&](int first, int second, const PairOdds& odds) {
        std::vector<ReportLine> rows;
        for (int a : RacersInCardOrder(first)) {
            const RacerRec& ra = RF.Racer(first, a);
            for (int b : RacersInCardOrder(second)) {
                const RacerRec& rb = RF.Racer(second, b);
                // A racer paired with its own number wins no Exacta.
                if (first == second && ra.BetNbr == rb.BetNbr) continue;
                rows.push_back(ReportLine()
                                   .At(kFirst, PairRacer(ra))
                                   .At(kSecond, PairRacer(rb))
                                   .At(kOdds, OddsText(ra.Scratched || rb.Scratched, " Scratched",
                                                       odds(a, b))));
            }
        }
        return rows;
    };

    if (wanted(4) && Offered(race, 4)) {
        PairOdds odds;
        CalcExactaOdds(race, odds);
        Section(title,
                {ReportLine(), sectionTitle("****  Exacta Odds  ****"), ReportLine(),
                 ReportLine()
                     .At(kFirst, "Winning " + RF.RaceType)
                     .At(kSecond, "Place " + RF.RaceType)
                     .At(kOdds, " Odds")},
                pairs(race, race, odds));
    }

    auto doubleSection = [&](int first, const std::string& heading) {
        PairOdds odds;
        CalcDoubleOdds(first, odds);
        Section(title,
                {ReportLine(), sectionTitle(heading), ReportLine(),
                 ReportLine().At(4, "First Race  - " + RF.Race(first).RaceName),
                 ReportLine().At(4, "Second Race - " + RF.Race(first + 1).RaceName), ReportLine(),
                 ReportLine()
                     .At(kFirst, "Winner First Race")
                     .At(kSecond, "Winner Second Race")
                     .At(kOdds, " Odds")},
                pairs(first, first + 1, odds));
    };
    const int dd = Code(BetType::kDailyDouble);
    if (wanted(62) && race > 1 && Offered(race - 1, dd) && RaceFinished(race - 1))
        doubleSection(race - 1, "****  Daily Double Odds (prior race) ****");
    if (wanted(dd) && Offered(race, dd)) doubleSection(race, "****  Daily Double Odds  ****");
}

}  // namespace tt
