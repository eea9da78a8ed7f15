#include "reports/report_writer.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <cmath>

#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/settlement.h"
#include "reports/list_bets_logic.h"

namespace tt {

Int16 OddsBetType;

namespace {

bool IsContinuationByte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::size_t CharCount(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuationByte(c); }));
}

// Today in the desktop's long date format.
std::string LongDate() {
    const DateTime now = Clock().Now();
    return QLocale()
        .toString(QDate(now.year, now.month, now.day), QLocale::LongFormat)
        .toStdString();
}

}  // namespace

ReportLine& ReportLine::Tab(int column) {
    if (length_ < column - 1) {
        text_.append(static_cast<std::size_t>(column - 1 - length_), ' ');
        length_ = column - 1;
    } else if (length_ >= column) {
        text_.push_back(' ');
        ++length_;
    }
    return *this;
}

ReportLine& ReportLine::Add(std::string_view text) {
    text_.append(text);
    length_ += static_cast<int>(CharCount(text));
    return *this;
}

std::string LeftChars(std::string_view text, std::size_t n) {
    std::size_t i = 0, chars = 0;
    while (i < text.size()) {
        if (!IsContinuationByte(text[i]) && chars++ == n) break;
        ++i;
    }
    return std::string(text.substr(0, i));
}

std::string AlignRight(const std::string& text, std::int16_t& width) {
    if (width > 80) return {};
    const std::string t = TrimBlanks(text);
    const int length = static_cast<int>(t.size());
    if (length >= width) {
        // From position length - width + 1 to the end: nothing where that lies past the end.
        if (width <= 0) return {};
        return t.substr(static_cast<std::size_t>(length - width));
    }
    return std::string(static_cast<std::size_t>(width - length), ' ') + t;
}

std::vector<int> RacersInCardOrder(int race) {
    // The racers go through a grid as the racer grid of the card sorts them.
    GridData flxPrint;
    flxPrint.SetCols(5);
    flxPrint.SetFixedRows(0);
    flxPrint.SetFixedCols(0);
    flxPrint.SetRows(0);
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = RF.Racer(race, n);
        if (r.BetNbr == 0) continue;
        flxPrint.SetRows(flxPrint.Rows() + 1);
        const int row = flxPrint.Rows() - 1;
        flxPrint.SetTextMatrix(row, 0, NumText(r.BetNbr.Value()));
        flxPrint.SetTextMatrix(row, 1, r.ProgramNbr);
        flxPrint.SetTextMatrix(row, 2, r.PostPosition);
        flxPrint.SetTextMatrix(row, 3, r.RacerName);
        flxPrint.SetTextMatrix(row, 4, NumText(n));
    }
    const int last = flxPrint.Rows() - 1;
    if (last > 0) {
        const std::string& sort = RF.RacerSort;
        if (sort == "Betting Number")
            flxPrint.SortAscending(0, last, 0, 1);
        else if (sort == "Name")
            flxPrint.SortAscending(0, last, 3, 3);
        else if (sort == "Program Number")
            flxPrint.SortAscending(0, last, 1, 1);
        else if (sort == "Post Position")
            flxPrint.SortAscending(0, last, 2, 2);
    }
    std::vector<int> order;
    for (int row = 0; row <= last; ++row)
        order.push_back(static_cast<int>(Val(flxPrint.TextMatrix(row, 4))));
    return order;
}

void ReportWriter::SetUp(int fontSize) {
    printer_.SetFont("Courier", fontSize);
    const double lines = std::floor((printer_.PageHeight() - 100) / printer_.TextHeight("1"));
    if (!(lines >= -32768 && lines <= 32767)) Raise(kErrOverflow);
    LinesPerPage = static_cast<std::int16_t>(lines);
    FirstPage = true;
}

void ReportWriter::Print(const ReportLine& line) {
    printer_.PrintLine(line.Text());
    ++lines_;
}

void ReportWriter::PageHeader(const std::string& title) {
    if (FirstPage) {
        PageNbr = 1;
        FirstPage = false;
    } else {
        PageNbr += 1;
        printer_.NewPage();
    }
    title_ = title;
    lines_ = 0;
    Print(" ");
    Print(" ");
    printer_.SetBold(true);
    Print(ReportLine()
              .At(4, "Tamberlin Tally")
              .At(50, title)
              .At(110, "Page " + NumText(PageNbr.Value())));
    Print(ReportLine().At(4, kMakerLine));
    printer_.SetBold(false);
    Print("");
    Print(LeftChars(RF.FileName, 30) + std::string(6, ' ') + LongDate() + std::string(6, ' ') +
          LeftChars(Shell().StatusText(), 60));
    Print("");
}

void ReportWriter::NewPageUnlessFresh(const std::string& title) {
    if (lines_ > kHeaderLines) PageHeader(title);
}

// ---- Report 1: the race card with results ----------------------------------------------------

namespace {

const char* const kRaceCardTitle = "Race Card with Results";

// What one minimum bet returns at a ratio, rounded down as a bet's payment is; "No Pay" for a
// ratio not above 0, "Incomplt" for a multi-race pool whose races are not all run.
std::string PayoutText(double ratio, int race) {
    if (ratio == -3.0) return "Incomplt";
    if (!(ratio > 0)) return "No Pay";
    const RaceRec& rc = RF.Race(race);
    const Currency a = rc.MinBet;
    const Currency paid = Currency::FromDouble(a.ToDouble() * ratio) + a;
    return MoneyText(Currency::FromDouble(RoundDownTo(paid.ToDouble(), rc.RoundTo)));
}

}  // namespace

void ReportWriter::RaceHeader(int race) {
    if (lines_ > LinesPerPage) PageHeader(kRaceCardTitle);
    const RaceRec& rc = RF.Race(race);
    Print("");
    Print(ReportLine().At(4, std::string(77, '*')));
    Print("");
    Print(ReportLine().At(4, "Race " + NumText(race) + ": " + rc.RaceName));
    Print("");
    Print(ReportLine().At(4, "Bets Allowed for this race are:"));
    std::string offered;
    for (int t = 1; t <= kBetTypes; ++t) {
        if (!rc.BetType(t)) continue;
        if (!offered.empty()) offered += "  ";
        offered += G.BetTypeName(t);
    }
    Print(ReportLine().At(6, offered));
    Print("");
    Print(ReportLine().At(4, "Minimum Bet: " + MoneyText(rc.MinBet)));
    Print("");
    Print(ReportLine()
              .At(4, "Prgm#")
              .At(11, "Bet#")
              .At(18, "Post Pos")
              .At(28, RF.RaceType + " Name")
              .At(50, "Handicap Odds"));
}

void ReportWriter::RaceCard() {
    PageHeader(kRaceCardTitle);
    for (int i = 1; i <= kMaxRace; ++i) {
        if (!RaceExists(i)) continue;
        RaceHeader(i);
        for (int n : RacersInCardOrder(i)) {
            const RacerRec& r = RF.Racer(i, n);
            const auto [num, den] = OddsToFraction(r.Odds);
            Print(ReportLine()
                      .At(4, PadNumber(r.ProgramNbr, 5))
                      .At(11, PadNumber(NumText(r.BetNbr.Value()), 5))
                      .At(18, PadNumber(r.PostPosition, 5))
                      .At(28, r.RacerName)
                      .At(50, num + "-" + den));
        }
        const RaceRec& rc = RF.Race(i);
        if (rc.Result(1) == 0) continue;

        Print("");
        Print(ReportLine()
                  .At(4, "Results")
                  .At(36, "Bet#")
                  .At(46, "Win")
                  .At(56, "Place")
                  .At(66, "Show"));
        // The paying finishers by bet number: a field that finishes twice pays once, and the
        // next number moves up.
        FixedArray<Int16, 1, 3> finishers;
        GetFinishers(i, finishers);
        for (int k = 1; k <= 3; ++k) {
            if (finishers(k) == 0) continue;
            int slot = 0;
            for (int place = 1; place <= 5 && slot == 0; ++place)
                if (RF.Racer(i, rc.Result(place)).BetNbr == finishers(k)) slot = rc.Result(place);
            const RacerRec& r = RF.Racer(i, slot);
            ReportLine line;
            line.At(4, LeftChars(r.ProgramNbr + " - " + r.RacerName, 32))
                .At(36, NumText(finishers(k).Value()));
            for (int type = k; type <= 3; ++type)
                line.At(36 + 10 * type, PayoutText(RF.Payout(i, type, k).PayRatio, i));
            Print(line);
        }
        for (int code = Code(BetType::kExacta); code <= Code(BetType::kTrifecta); ++code) {
            if (!rc.BetType(code)) continue;
            const int m = PicksToWin(BetTypeOf(code));
            std::string text = G.BetTypeName(code) + " -";
            for (int k = 1; k <= m; ++k) text += (k > 1 ? "," : "") + NumText(finishers(k).Value());
            if (rc.CorrectPaid(code) < m)
                text += " (" + NumText(rc.CorrectPaid(code).Value()) + " cor)";
            Print(ReportLine().At(36, text).At(66, PayoutText(RF.Payout(i, code, 1).PayRatio, i)));
        }
        // The multi-race pools that end at this race, paid by the rules of their first race.
        for (BetType t : kMultiRaceTypes) {
            const int code = Code(t);
            const int k = i - LegCount(t) + 1;
            if (k < 1 || !RF.Race(k).BetType(code)) continue;
            std::string text = G.BetTypeName(code) + " -";
            for (int r = k; r <= i; ++r)
                text +=
                    (r > k ? "," : "") + NumText(RF.Racer(r, RF.Race(r).Result(1)).BetNbr.Value());
            if (rc.CorrectPaid(code) < LegCount(t))
                text += " (" + NumText(rc.CorrectPaid(code).Value()) + " cor)";
            Print(ReportLine().At(36, text).At(66, PayoutText(RF.Payout(i, code, 1).PayRatio, k)));
        }
    }
}

// ---- Report 2: the bettors ---------------------------------------------------------------------

namespace {

// A bettor's information as printed lines: broken at a line feed within the first 71
// characters of what remains (the break pair left out), otherwise after 70 characters.
std::vector<std::string> InfoLines(std::string_view info) {
    std::vector<std::string> lines;
    while (!info.empty()) {
        const std::size_t lf = info.find('\n');
        std::string_view piece;
        if (lf != std::string_view::npos && lf < 71) {
            piece = info.substr(0, lf);
            if (!piece.empty() && piece.back() == '\r') piece.remove_suffix(1);
            info.remove_prefix(lf + 1);
        } else {
            const std::string cut = LeftChars(info, 70);
            piece = info.substr(0, cut.size());
            info.remove_prefix(cut.size());
        }
        lines.push_back(TrimBlanks(piece));
    }
    return lines;
}

}  // namespace

void ReportWriter::BettorListing() {
    const std::string title = "Bettor Listing";
    PageHeader(title);
    GridData flxPrint;
    flxPrint.SetCols(2);
    flxPrint.SetFixedRows(0);
    flxPrint.SetFixedCols(0);
    flxPrint.SetRows(0);
    for (std::int64_t b = 1; b <= RF.BettorCount; ++b) {
        if (RF.Bettor(b).BettorName.empty()) continue;
        flxPrint.SetRows(flxPrint.Rows() + 1);
        flxPrint.SetTextMatrix(flxPrint.Rows() - 1, 0, RF.Bettor(b).BettorName);
        flxPrint.SetTextMatrix(flxPrint.Rows() - 1, 1, NumText(b));
    }
    if (flxPrint.Rows() > 1) flxPrint.SortAscending(0, flxPrint.Rows() - 1, 0, 0);
    for (int row = 0; row < flxPrint.Rows(); ++row) {
        const BettorRec& b = RF.Bettor(static_cast<std::int64_t>(Val(flxPrint.TextMatrix(row, 1))));
        const std::vector<std::string> info = InfoLines(b.BettorInfo);
        const int entry = 2 + static_cast<int>(info.size());
        if (lines_ + entry > LinesPerPage) NewPageUnlessFresh(title);
        Print(ReportLine()
                  .At(4, LeftChars(TrimBlanks(b.BettorName), 26))
                  .At(30, LeftChars(TrimBlanks(b.BettorPhone), 16))
                  .At(46, TrimBlanks(b.BettorEmail)));
        for (const std::string& piece : info) Print(ReportLine().At(10, piece));
        Print("");
    }
}

// ---- Report 3: the listed bets ----------------------------------------------------------------

void ReportWriter::BetListing(const ListBetsLogic& list) {
    const std::string title = "Bet Listing";
    // Grid columns 2 to 12 at their print columns; the five money columns right-aligned.
    static constexpr int kFirstCol = ListBetsLogic::kColTicket;
    static constexpr int kColumns[] = {4, 11, 24, 37, 46, 55, 64, 73, 82, 95, 99};
    const GridData& grid = list.flxBets;
    auto row = [&](int r) {
        ReportLine line;
        for (int c = kFirstCol; c <= ListBetsLogic::kColPicks; ++c) {
            std::string text = grid.TextMatrix(r, c);
            if (r == 0 && c == ListBetsLogic::kColCollected) text = "Coll'd";
            if (r == 0 && c == ListBetsLogic::kColDistributed) text = "Dist'd";
            if (c >= ListBetsLogic::kColCollected && c <= ListBetsLogic::kColBetAmt) {
                std::int16_t width = 8;
                text = AlignRight(text, width);
            }
            line.At(kColumns[c - kFirstCol], text);
        }
        return line;
    };
    auto pageFull = [&](int needed) {
        if (lines_ + needed <= LinesPerPage || lines_ <= kHeaderLines + 1) return;
        PageHeader(title);
        Print(row(0));
    };

    PageHeader(title);
    Print(ReportLine()
              .At(4, list.comRaceName.Text())
              .At(25, list.comBetType.Text())
              .At(46, list.comBettor.Text())
              .At(68, list.optWinnersOnly.value ? "Winners Only" : "All Bets"));
    Print("");
    Print(row(0));
    for (int r = 1; r < grid.Rows(); ++r) {
        pageFull(1);
        Print(row(r));
    }
    pageFull(2);
    Print("");
    Print("Amount Bet: " + list.lblTotal.text + "  Won: " + list.lblWon.text +
          "  Collected: " + list.lblCollected.text + "  Distributed: " + list.lblDistributed.text +
          "   " + list.lblDue.text);
}

// ---- Choosing the report ----------------------------------------------------------------------

void PrintReport(PrinterPort& printer, const ReportJob& job) {
    ReportWriter w(printer);
    w.SetUp(job.fontSize);
    switch (job.report) {
        case 1:
            w.RaceCard();
            break;
        case 2:
            w.BettorListing();
            break;
        case 3:
            if (job.list) w.BetListing(*job.list);
            break;
        case 4:
            w.PrintOdds(job.race, job.oddsBetType);
            break;
        default:
            break;
    }
}

}  // namespace tt
