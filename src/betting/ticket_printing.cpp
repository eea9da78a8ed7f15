#include "betting/ticket_printing.h"

#include <cmath>
#include <string_view>

#include "betting/betting_state.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

// Characters, not bytes: names may hold letters beyond ASCII.
std::size_t CharCount(std::string_view s) {
    std::size_t n = 0;
    for (unsigned char c : s) n += (c & 0xC0) != 0x80;
    return n;
}

std::string LeftChars(std::string_view s, std::size_t count) {
    std::size_t n = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        if ((static_cast<unsigned char>(s[i]) & 0xC0) != 0x80 && n++ == count)
            return std::string(s.substr(0, i));
    }
    return std::string(s);
}

// One printed line built item by item. A tab to column c (from 1) pads with blanks so that the
// item starts at c; when the line already reaches c the item follows after one blank. An item
// with no text prints nothing, so that it leaves no trailing blanks.
class ColumnLine {
  public:
    ColumnLine& At(int column, std::string_view text) {
        if (text.empty()) return *this;
        const std::size_t used = CharCount(line_);
        const std::size_t before = static_cast<std::size_t>(column - 1);
        line_.append(used <= before ? before - used : 1, ' ');
        line_ += text;
        return *this;
    }
    ColumnLine& Then(std::string_view text) {
        line_ += text;
        return *this;
    }
    const std::string& Text() const { return line_; }

  private:
    std::string line_;
};

std::string TypeTextOf(std::int16_t code) {
    if (code == kAcrossTheBoard) return "ATB";
    if (code == Code(BetType::kDailyDouble)) return "D Double";
    return G.BetTypeName(code);
}

}  // namespace

void SetUpTicketPrinter() {
    PrinterPort& printer = Printer();
    if (RF.TicketFontSize < 2 || RF.TicketFontSize > 72) RF.TicketFontSize = 10;
    printer.SetFont("Courier", RF.TicketFontSize);
    printer.SetBold(true);
    const double height = printer.TextHeight("1");
    if (height == 0) Raise(kErrDivisionByZero);
    const double lines = std::floor((printer.PageHeight() - 100) / height);
    if (!(lines >= -32768 && lines <= 32767)) Raise(kErrOverflow);
    Betting.LinesPerPage = static_cast<std::int16_t>(lines);
}

std::vector<TicketLine> BuildTicketLines(int tranTicket) {
    const TranTicket& ticket = Betting.TranTickets(tranTicket);
    std::vector<TicketLine> lines;
    Int16 seq;
    for (std::int64_t j = 1; j <= Betting.TranBetCount; ++j) {
        const TempBet& bet = Betting.TranBets(j);
        if (bet.TicketNbr != ticket.TicketNbr) continue;
        ++seq;
        const BetType type = BetTypeOf(bet.BetType);
        for (int i = 1; i <= 6; ++i) {
            const std::int16_t pick = bet.Pick(i);
            if (pick == 0) continue;
            const int race = PickRace(ticket.Race, type, i);
            for (std::int64_t slot = 1; slot <= RF.MaxRacers; ++slot) {
                const RacerRec& racer = RF.Racer(race, slot);
                if (racer.BetNbr != pick) continue;
                TicketLine line;
                line.BetSeq = seq;
                line.BetAmt = bet.BetAmt;
                line.TypeText = TypeTextOf(bet.BetType);
                line.BetCost = bet.BetCost;
                line.PickNo = i;
                line.BetNbr = pick;
                line.NameText = LeftChars(racer.RacerName, 16);
                line.PostText = racer.PostPosition;
                line.ProgramText = racer.ProgramNbr;
                line.BoxText = bet.Boxed ? "Box" : " ";
                lines.push_back(std::move(line));
            }
        }
    }
    return lines;
}

std::vector<std::string> TicketBlockText(int tranTicket, const std::vector<TicketLine>& lines) {
    const TranTicket& ticket = Betting.TranTickets(tranTicket);
    std::vector<std::string> out;
    out.emplace_back();
    out.push_back(
        ColumnLine()
            .At(4, std::string("**** Tamberlin Tally - ") + kMakerAddress + " ****")
            .Then(Str(RF.FileId.Value()) + " - " + TrimBlanks(LeftChars(RF.FileName, 20)) + " ****")
            .Text());
    out.push_back(ColumnLine()
                      .At(4, "Ticket#: " + NumText(std::int64_t{ticket.TicketNbr}))
                      .At(21, "Race: " + Str(ticket.Race.Value()) + " - " +
                                  LeftChars(RF.Race(ticket.Race).RaceName, 15))
                      .At(51, "Bettor: " + LeftChars(RF.Bettor(ticket.Bettor).BettorName, 20))
                      .Text());
    if (lines.empty()) return out;
    out.push_back(ColumnLine()
                      .At(4, "Amount")
                      .At(12, "Type")
                      .At(25, "Pick")
                      .At(31, "Bet#")
                      .At(38, "Name")
                      .At(55, "Pgm#")
                      .At(62, "PP")
                      .At(69, "Bet Total")
                      .Text());
    const TicketLine none;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const TicketLine& line = lines[i];
        const TicketLine& before = i == 0 ? none : lines[i - 1];
        const bool newBet = line.BetSeq != before.BetSeq;
        ColumnLine text;
        if (newBet) text.At(4, DollarText(line.BetAmt)).At(12, line.TypeText).At(21, line.BoxText);
        if (newBet || line.PickNo != before.PickNo) text.At(25, NumText(std::int64_t{line.PickNo}));
        text.At(31, NumText(std::int64_t{line.BetNbr}))
            .At(38, line.NameText)
            .At(56, line.ProgramText)  // one column right of its head, as tickets always had it
            .At(62, line.PostText);
        if (newBet) text.At(69, DollarText(line.BetCost));
        out.push_back(text.Text());
    }
    return out;
}

void PrintTicket(TicketPage& page) {
    const int tranTicket = Betting.CurTranTicket;
    const std::vector<TicketLine> lines = BuildTicketLines(tranTicket);
    const std::int64_t block = static_cast<std::int64_t>(lines.size()) + 4;
    if (page.LinesUsed + block <= Betting.LinesPerPage) {
        page.LinesUsed += block;
    } else {
        // The block does not fit: the whole document goes out, and the block starts a new one.
        Printer().EndDoc();
        page.LinesUsed = block;
        Betting.TransInPrinter = 0;
    }
    for (const std::string& text : TicketBlockText(tranTicket, lines)) Printer().PrintLine(text);
}

bool AskResetCopies() {
    return MsgBox(std::string("Printer is set to multiple copies.") + kCrLf +
                      "Do you want to reset to 1?",
                  Buttons::kYesNo, Icon::kQuestion) == kYes;
}

void PrintTransaction(TicketPage& page, const CopiesPolicy& resetCopies) {
    PrinterPort& printer = Printer();
    if (printer.Copies() == 1) {
        Betting.KeepPrinterCopies = false;
    } else if (Betting.TranTicketCount > 0 && printer.Copies() > 1 && !Betting.KeepPrinterCopies) {
        if (resetCopies && resetCopies())
            printer.SetCopies(1);
        else
            Betting.KeepPrinterCopies = true;
    }
    if (Betting.TransInPrinter > RF.MaxTransInPrinter) ReleaseTickets();
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
        Betting.CurTranTicket = i;
        const std::string& action = Betting.TranTickets(i).Action;
        // A ticket opened again in the same transaction prints no second block.
        if (action == kNewTicket || action == kNewAgain || action == kEditTicket) PrintTicket(page);
    }
    ++Betting.TransInPrinter;
    if (Betting.TransInPrinter >= RF.MaxTransInPrinter) ReleaseTickets();
}

void ReleaseTickets() {
    Printer().EndDoc();
    Betting.TransInPrinter = 0;
}

}  // namespace tt
