// The printed reports line by line at their columns, as the printer receives them: the page
// header, the race card with results, the bettors, the listed bets, and where pages break.

#include "model/common.h"
#include "report_card.h"
#include "reports/list_bets_logic.h"
#include "reports/report_writer.h"
#include "reports/text_printer.h"

namespace tt::test {
namespace {

class ReportPages : public ReportCard {
  protected:
    // The lines of a report after its first page header, the header checked on the way.
    Lines Body(std::size_t from = 7) const {
        const Lines& all = world.printer.lines;
        return Lines(all.begin() + static_cast<std::ptrdiff_t>(std::min(from, all.size())),
                     all.end());
    }
    // Pages of n lines: the printer's page holds n text heights and the 100 twips kept free.
    void PageOfLines(int n) {
        world.printer.textHeight = 100;
        world.printer.pageHeight = 100.0 * n + 100;
    }
    static Lines Header(const std::string& title, int page = 1) {
        return {" ",
                " ",
                At({{4, "Tamberlin Tally"}, {50, title}, {110, "Page " + std::to_string(page)}}),
                At({{4, "Race-day betting for friends"}}),
                "",
                "Spring Meet      Saturday, May 2, 2026      Status",
                ""};
    }
    static Lines Join(std::initializer_list<Lines> parts) {
        Lines all;
        for (const Lines& p : parts) all.insert(all.end(), p.begin(), p.end());
        return all;
    }
};

// ---- Layout ------------------------------------------------------------------------------------

TEST_F(ReportPages, TabsPadToTheirColumnOrFollowAfterOneBlank) {
    EXPECT_EQ(ReportLine().At(4, "ab").At(7, "c").Text(), "   ab c");
    EXPECT_EQ(ReportLine().At(4, "abc").At(7, "d").Text(), "   abcd");
    EXPECT_EQ(ReportLine().At(4, "abcd").At(7, "e").Text(), "   abcd e");
    EXPECT_EQ(ReportLine().At(1, "x").At(1, "y").Text(), "x y");
    // Columns count characters: a name with an accent takes one column for it.
    EXPECT_EQ(ReportLine().At(2, "Jos\xC3\xA9").At(8, "|").Text(), " Jos\xC3\xA9  |");
    EXPECT_EQ(LeftChars("Jos\xC3\xA9 Ruiz", 4), "Jos\xC3\xA9");
}

TEST_F(ReportPages, AlignRight) {
    std::int16_t w = 8;
    EXPECT_EQ(AlignRight("12.50", w), "   12.50");
    EXPECT_EQ(AlignRight("  7 ", w), "       7");
    EXPECT_EQ(AlignRight("123,456.00", w), "3,456.00");  // the last eight characters
    EXPECT_EQ(AlignRight("1,234.00", w), "1,234.00");
    EXPECT_EQ(AlignRight("", w), std::string(8, ' '));
    std::int16_t wide = 81, none = 0;
    EXPECT_EQ(AlignRight("x", wide), "");
    EXPECT_EQ(AlignRight("x", none), "");
    EXPECT_EQ(w, 8);
}

TEST_F(ReportPages, PageHeaderAndItsBoldLines) {
    ReportWriter w(world.printer);
    w.SetUp(8);
    w.PageHeader("Bettor Listing");
    w.PageHeader("Bettor Listing");
    EXPECT_EQ(world.printer.lines,
              Join({Header("Bettor Listing"), {"<new page>"}, Header("Bettor Listing", 2)}));
    EXPECT_EQ(world.printer.boldLines, (std::vector<std::size_t>{2, 3, 10, 11}));
    EXPECT_EQ(world.printer.font, "Courier");
    EXPECT_EQ(world.printer.fontSize, 8);
    EXPECT_EQ(w.Lines(), 7);
}

TEST_F(ReportPages, HeaderCutsTheCardNameAndTheStatusText) {
    RF.FileName = std::string(35, 'N');
    world.shell.statusText = std::string(70, 's');
    ReportWriter w(world.printer);
    w.SetUp(8);
    w.PageHeader("T");
    EXPECT_EQ(world.printer.lines[5],
              std::string(30, 'N') + "      Saturday, May 2, 2026      " + std::string(60, 's'));
}

TEST_F(ReportPages, LinesPerPageFollowsTheFont) {
    std::ostringstream out;
    TextPrinter text(out);
    ReportWriter w(text);
    w.SetUp(8);
    EXPECT_EQ(w.LinesPerPage, 78);
    w.SetUp(10);
    EXPECT_EQ(w.LinesPerPage, 62);
    w.SetUp(72);
    EXPECT_EQ(w.LinesPerPage, 8);
    ReportWriter r(world.printer);
    world.printer.textHeight = 300;
    r.SetUp(12);
    EXPECT_EQ(r.LinesPerPage, 52);  // (15840 - 100) / 300
}

// ---- Report 1 ----------------------------------------------------------------------------------

TEST_F(ReportPages, ACardWithoutRacesPrintsOnlyItsHeader) {
    PrintReport(world.printer, {.report = 1});
    EXPECT_EQ(world.printer.lines, Header("Race Card with Results"));
}

TEST_F(ReportPages, RaceCardWithResults) {
    Race(1, {1, 2, 3, 4}, {1, 2, 3}, "Opener");
    RF.Race(1).MinBet = C(2);
    RF.Racer(1, 1).Odds = 2.5, RF.Racer(1, 3).Odds = 7.4;
    RF.Racer(1, 2).RacerName = "A name long enough to be cut short";
    Result(1, {2, 1, 3});
    auto ratio = [](int type, int pos, double r) { RF.Payout(1, type, pos).PayRatio = r; };
    ratio(1, 1, 1.5), ratio(2, 1, 0.5), ratio(2, 2, -2), ratio(3, 1, 0.25), ratio(3, 2, 0);
    ratio(3, 3, 0.1), ratio(4, 1, 4);
    RF.Race(1).CorrectPaid(4) = 1;
    PrintReport(world.printer, {.report = 1});
    const std::string heads = At(
        {{4, "Prgm#"}, {11, "Bet#"}, {18, "Post Pos"}, {28, "Horse Name"}, {50, "Handicap Odds"}});
    EXPECT_EQ(Body(),
              (Lines{"",
                     At({{4, std::string(77, '*')}}),
                     "",
                     At({{4, "Race 1: Opener"}}),
                     "",
                     At({{4, "Bets Allowed for this race are:"}}),
                     At({{6, "Win  Place  Show  Exacta"}}),
                     "",
                     At({{4, "Minimum Bet: 2.00"}}),
                     "",
                     heads,
                     At({{4, "   1"}, {11, "   1"}, {18, "   1"}, {28, "Racer1-1"}, {50, " 5- 2"}}),
                     At({{4, "   2"},
                         {11, "   2"},
                         {18, "   2"},
                         {28, "A name long enough to be cut short" + std::string(" ") + " 0-0"}}),
                     At({{4, "   3"}, {11, "   3"}, {18, "   3"}, {28, "Racer1-3"}, {50, " 7- 1"}}),
                     "",
                     At({{4, "Results"}, {36, "Bet#"}, {46, "Win"}, {56, "Place"}, {66, "Show"}}),
                     At({{4, "2 - A name long enough to be cut"},
                         {36, "2"},
                         {46, "5.00"},
                         {56, "3.00"},
                         {66, "2.50"}}),
                     At({{4, "1 - Racer1-1"}, {36, "1"}, {56, "No Pay"}, {66, "No Pay"}}),
                     At({{4, "3 - Racer1-3"}, {36, "3"}, {66, "2.20"}}),
                     At({{36, "Exacta -2,1 (1 cor)"}, {66, "10.00"}})}));
}

TEST_F(ReportPages, RacersFollowTheCardsSort) {
    Race(1, {1}, {3, 1, 2}, "R");
    RF.Racer(1, 1).RacerName = "Cob", RF.Racer(1, 2).RacerName = "abe",
                RF.Racer(1, 3).RacerName = "Bo";
    auto names = [&] {
        world.printer.lines.clear();
        PrintReport(world.printer, {.report = 1});
        Lines n;
        for (std::size_t i = 18; i < world.printer.lines.size(); ++i)
            n.push_back(TrimBlanks(world.printer.lines[i].substr(27, 3)));
        return n;
    };
    EXPECT_EQ(names(), (Lines{"abe", "Bo", "Cob"}));
    RF.RacerSort = "Name";  // by character codes: capitals first
    EXPECT_EQ(names(), (Lines{"Bo", "Cob", "abe"}));
}

// Multi-race lines are the pools that end at the race, paid by the rules of their first race;
// a pool with a race still to run is "Incomplt".
TEST_F(ReportPages, MultiRaceLinesOfTheRaceThatEndsThem) {
    Race(1, {1, 6}, {1, 2}, "First");
    Race(2, {1, 6}, {1, 2}, "Second");
    Race(3, {1}, {1, 2}, "Third");
    RF.Race(1).MinBet = C(1), RF.Race(1).RoundTo = 0;
    RF.Race(2).MinBet = C(5);
    Result(1, {1});
    Result(2, {2});
    RF.Payout(2, 6, 1).PayRatio = 2.6;
    RF.Race(2).CorrectPaid(6) = 2;
    Result(3, {1});
    RF.Payout(3, 6, 1).PayRatio = -3;
    RF.Race(3).CorrectPaid(6) = 1;
    PrintReport(world.printer, {.report = 1});
    const Lines& lines = world.printer.lines;
    EXPECT_EQ(std::count(lines.begin(), lines.end(), At({{36, "Daily Double -1,2"}, {66, "3.00"}})),
              1);
    EXPECT_EQ(lines.back(), At({{36, "Daily Double -2,1 (1 cor)"}, {66, "Incomplt"}}));
}

TEST_F(ReportPages, RaceCardBreaksBeforeARaceOnlyOnceThePageHasPassed) {
    for (int r = 1; r <= 3; ++r) Race(r, {1}, {1});
    PageOfLines(20);
    PrintReport(world.printer, {.report = 1});
    // Header 7, a race 12: the second race starts at line 20, which has not passed 20.
    const Lines& lines = world.printer.lines;
    const auto page = std::find(lines.begin(), lines.end(), "<new page>");
    ASSERT_NE(page, lines.end());
    EXPECT_EQ(page - lines.begin(), 7 + 12 + 12);
    EXPECT_EQ(*(page + 3),
              At({{4, "Tamberlin Tally"}, {50, "Race Card with Results"}, {110, "Page 2"}}));
    EXPECT_EQ(*(page + 9), At({{4, std::string(77, '*')}}));
}

// ---- Report 2 ----------------------------------------------------------------------------------

TEST_F(ReportPages, BettorsByNameWithTheirInformationOnSeveralLines) {
    Bettor("zoe", "", "555-1234", "  zoe@example.org ");
    Bettor("Alexandra Montgomery-Smithson", "First line\r\nSecond line", "+1 (555) 010-0000 x12",
           "alex@example.org");
    Bettor("Bob", std::string(150, 'i'));
    Bettor("");
    Bettor("Cy", std::string(72, 'a') + "\r\nend");
    PrintReport(world.printer, {.report = 2});
    EXPECT_EQ(Body(), (Lines{At({{4, "Alexandra Montgomery-Smith"},
                                 {30, "+1 (555) 010-000"},
                                 {46, "alex@example.org"}}),
                             At({{10, "First line"}}), At({{10, "Second line"}}), "",
                             At({{4, "Bob"}, {46, ""}}), At({{10, std::string(70, 'i')}}),
                             At({{10, std::string(70, 'i')}}), At({{10, std::string(10, 'i')}}), "",
                             At({{4, "Cy"}, {46, ""}}), At({{10, std::string(70, 'a')}}),
                             At({{10, "aa"}}), At({{10, "end"}}), "",
                             At({{4, "zoe"}, {30, "555-1234"}, {46, "zoe@example.org"}}), ""}));
}

TEST_F(ReportPages, ABettorWhoseLinesWouldPassThePageStartsANewOne) {
    Bettor("A", "one\r\ntwo");  // 4 lines
    Bettor("B", "one");         // 3 lines
    Bettor("C");                // 2 lines
    PageOfLines(14);
    PrintReport(world.printer, {.report = 2});
    const Lines& lines = world.printer.lines;
    ASSERT_EQ(lines.size(), 7u + 4 + 3 + 1 + 7 + 2);
    EXPECT_EQ(lines[14], "<new page>");
    EXPECT_EQ(lines[22], At({{4, "C"}, {46, ""}}));
}

// ---- Report 3 ----------------------------------------------------------------------------------

class BetListingPages : public ReportPages {
  protected:
    void SetUp() override {
        ReportPages::SetUp();
        WinnersOnly = false;
    }
    static std::string Cells(std::initializer_list<std::string> cells) {
        static const int columns[] = {4, 11, 24, 37, 46, 55, 64, 73, 82, 95, 99};
        std::string line;
        int i = 0;
        for (const std::string& c : cells) {
            const std::size_t col = static_cast<std::size_t>(columns[i++]);
            if (line.size() < col - 1) line.resize(col - 1, ' ');
            line += c;
        }
        return line;
    }
    static std::string Money(const std::string& m) { return std::string(8 - m.size(), ' ') + m; }
    const std::string heads = Cells({"Ticket", "Race", "Bettor", "  Coll'd", "  Dist'd", " Tot Bet",
                                     "     Won", " Bet Amt", "Bet Type", "Box", "Picks"});
    const std::string separator =
        Cells({"", "", "", Money(""), Money(""), Money(""), Money(""), Money(""), "", "", ""});
};

TEST_F(BetListingPages, WhatTheWindowShowsWithItsFiltersAndTotals) {
    Race(1, {1, 4}, {1, 2, 3});
    const int ann = Bettor("Ann");
    const auto t = Ticket(1, ann, 12, 0);
    Bet(t, 1, 2, {2});
    Bet(t, 4, 1.5, {1, 3}, true);
    ListBetsLogic list;
    list.Form_Load();
    PrintReport(world.printer, {.report = 3, .list = &list});
    EXPECT_EQ(world.printer.lines[2],
              At({{4, "Tamberlin Tally"}, {50, "Bet Listing"}, {110, "Page 1"}}));
    const std::string row1 = Cells({"1", " 1 - Race1", "Ann", Money("12.00"), Money(".00"),
                                    Money("2.00"), Money(".00"), Money("2.00"), "Win", "", "2 "});
    const std::string row2 =
        Cells({"1", " 1 - Race1", "Ann", Money("12.00"), Money(".00"), Money("3.00"), Money(".00"),
               Money("1.50"), "Exacta", "  x", "1,3 "});
    EXPECT_EQ(Body(), (Lines{At({{4, "   1 - Race1"},
                                 {25, "All Bet Types"},
                                 {46, " All Bettors"},
                                 {68, "All Bets"}}),
                             "", heads, row1, row2, separator, "",
                             "Amount Bet: 5.00  Won: .00  Collected: 12.00  Distributed: .00   "
                             "A net of 7.00 is owed out for listed bets."}));
}

TEST_F(BetListingPages, HiddenColumnsPrintAsTheyStandAndAPageBreakRepeatsTheHeads) {
    Race(1, {1}, {1});
    const int ann = Bettor("Ann");
    for (int i = 0; i < 4; ++i) Bet(Ticket(1, ann, 2), 1, 2, {1});
    RF.Bet(1, 2).BetWinnings = C(3);
    ListBetsLogic list;
    list.Form_Load();
    list.optWinnersOnly_Click();
    PageOfLines(11);
    PrintReport(world.printer, {.report = 3, .list = &list});
    const std::string row = Cells({"2", " 1 - Race1", "Ann", Money("2.00"), Money(".00"),
                                   Money("2.00"), Money("3.00"), Money("2.00"), "Win", "", "1 "});
    EXPECT_EQ(Body(), Join({{At({{4, "   1 - Race1"},
                                 {25, "All Bet Types"},
                                 {46, " All Bettors"},
                                 {68, "Winners Only"}}),
                             "", heads, row},
                            {"<new page>"},
                            Header("Bet Listing", 2),
                            {heads, separator, "",
                             "Amount Bet: 2.00  Won: 3.00  Collected: 2.00  Distributed: .00   "
                             "A net of 3.00 is owed out for listed bets."}}));
}

}  // namespace
}  // namespace tt::test
