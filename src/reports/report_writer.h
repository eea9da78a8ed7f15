#pragma once
// The printed reports: plain lines in a fixed-pitch font laid out at character columns, a
// common page header and a counted page break. The reports run on any printer port: the
// printer, a print preview, a PDF file, or text.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/checked_int.h"

namespace tt {

class PrinterPort;
class ListBetsLogic;

// The report chosen for report 4: the item data of the bet type list of "Select Race to
// Print" (0 all, 99 the pools, a bet type, 62 the prior race's Daily Double).
extern Int16 OddsBetType;

// One line laid out at character columns counted from 1, as the printer's tab positions
// place its items: a tab pads with blanks to its column, and where the line already reaches
// the column the item follows after one blank. Columns count characters, not bytes.
class ReportLine {
  public:
    ReportLine() = default;
    explicit ReportLine(std::string_view text) { Add(text); }
    ReportLine& Tab(int column);
    ReportLine& Add(std::string_view text);
    // The item at a column.
    ReportLine& At(int column, std::string_view text) { return Tab(column).Add(text); }
    const std::string& Text() const { return text_; }

  private:
    std::string text_;
    int length_ = 0;  // in characters
};

// The first n characters of a text (not bytes).
std::string LeftChars(std::string_view text, std::size_t n);

// A text right-aligned in a width taken from 80 blanks: a width above 80 gives an empty text;
// a text as long as the width or longer keeps its last `width` characters.
std::string AlignRight(const std::string& text, std::int16_t& width);

// The racer slots of a race in use (bet number not 0), in the order of the card's racer sort.
std::vector<int> RacersInCardOrder(int race);

// The line naming the maker, under the program's name at the top of every page.
inline constexpr const char* kMakerLine = "Race-day betting for friends";
// The lines the page header takes.
inline constexpr int kHeaderLines = 7;

class ReportWriter {
  public:
    explicit ReportWriter(PrinterPort& printer) : printer_(printer) {}

    // The report font, "Courier" at the size given, and the lines a page holds.
    void SetUp(int fontSize);

    // Starts a page: its number, the program's name, the title, the card, the date and the
    // status text.
    void PageHeader(const std::string& title);
    void RaceHeader(int race);

    // Report 1: every race of the card with its racers and, once it is run, its results.
    void RaceCard();
    // Report 2: the bettors by name with their phone, e-mail and information.
    void BettorListing();
    // Report 3: what the List Bets window shows, read from its grid and labels.
    void BetListing(const ListBetsLogic& list);
    // Report 4: the pools and odds of a race, the sections chosen by OddsBetType.
    void PrintOdds(int race, int oddsBetType);

    // The lines printed on the page so far, header included.
    int Lines() const { return lines_; }

    bool FirstPage = true;
    Int16 PageNbr;
    Int16 LinesPerPage;

  private:
    void Print(const ReportLine& line);
    void Print(std::string_view text) { Print(ReportLine(text)); }
    // Starts a new page unless the page holds nothing but its header.
    void NewPageUnlessFresh(const std::string& title);
    // A block of lines after its heads: a new page when the block would pass the page, and
    // the heads again on a page that the block runs onto.
    void Section(const std::string& title, const std::vector<ReportLine>& heads,
                 const std::vector<ReportLine>& rows);

    PrinterPort& printer_;
    std::string title_;
    int lines_ = 0;
};

// What the Print window sends: the report, the font, and what the report reads.
struct ReportJob {
    int report = 0;  // 1 race card, 2 bettors, 3 listed bets, 4 odds
    int fontSize = 8;
    int race = 0;                         // report 4
    int oddsBetType = 0;                  // report 4
    const ListBetsLogic* list = nullptr;  // report 3
};

// The report's pages on a printer: its font, the lines a page holds, the pages. The document
// stays open; the caller ends it.
void PrintReport(PrinterPort& printer, const ReportJob& job);

}  // namespace tt
