// Report 4, the pools and odds of a race: each section at its columns, the sections chosen by
// the part of Select Race to Print, the Daily Double of the race before, and where pages break.

#include "model/common.h"
#include "report_card.h"
#include "reports/report_writer.h"

namespace tt::test {
namespace {

class OddsReport : public ReportCard {
  protected:
    // Race 1 offers Win, Place, Show, Exacta and the Daily Double into race 2; its racer 3 is
    // scratched. One bet names a number no racer bears.
    void SetUp() override {
        ReportCard::SetUp();
        Race(1, {1, 2, 3, 4, 6}, {1, 2, 3}, "Opener");
        Race(2, {1}, {1, 2}, "Closer");
        RF.Racer(1, 3).Scratched = true;
        const auto t = Ticket(1, Bettor("Ann"));
        Bet(t, 1, 2, {1});
        Bet(t, 1, 3, {2});
        Bet(t, 11, 1, {2});
        Bet(t, 2, 2, {1});
        Bet(t, 4, 1, {1, 2});
        Bet(t, 1, 1, {9});
        Bet(t, 6, 2, {1, 2});
    }
    Lines Print(int race, int part) {
        world.printer.lines.clear();
        PrintReport(world.printer, {.report = 4, .race = race, .oddsBetType = part});
        return Lines(world.printer.lines.begin() + 7, world.printer.lines.end());
    }
    static std::string Racer(int n, std::initializer_list<std::pair<int, std::string>> more) {
        const std::string nbr = "   " + std::to_string(n);
        std::string line =
            At({{4, nbr}, {11, nbr}, {18, nbr}, {28, "Racer1-" + std::to_string(n)}});
        for (const auto& [column, text] : more) line = At({{1, line}, {column, text}});
        return line;
    }
    static std::string Pair(const std::string& a, const std::string& b, const std::string& odds) {
        return At({{4, a}, {30, b}, {56, odds}});
    }
};

TEST_F(OddsReport, PoolsOfEachRacerTheirTotalsAndMoneyOnNoRacer) {
    EXPECT_EQ(
        Print(1, 99),
        (Lines{"", At({{4, "****  Betting Pools  ****"}}), "",
               At({{4, "Prgm#"},
                   {11, "Bet#"},
                   {18, "Post Pos"},
                   {28, "Horse Name"},
                   {56, "Win"},
                   {64, "Place"},
                   {72, "Show"}}),
               Racer(1, {{56, "   2.00"}, {64, "   2.00"}, {72, "    .00"}}),
               Racer(2, {{56, "   4.00"}, {64, "   1.00"}, {72, "   1.00"}}),
               Racer(3, {{56, "    .00"}, {64, "    .00"}, {72, "    .00"}}),
               At({{28, "Totals:"}, {56, "   7.00"}, {64, "   3.00"}, {72, "   1.00"}}),
               At({{28, "Exacta Totals:"}, {56, "   1.00"}}),
               At({{28, "Daily Double Totals:"}, {56, "   2.00"}}),
               At({{28, "Invalid bets"}, {56, "   1.00"}, {64, "    .00"}, {72, "    .00"}})}));
}

TEST_F(OddsReport, AFieldShowsItsMoneyOnceAndAPoolNotOfferedStaysBlank) {
    RF.Racer(1, 3).BetNbr = 2;  // racers 2 and 3 bet as one
    RF.Race(1).BetType(3) = false;
    const Lines lines = Print(1, 99);
    EXPECT_EQ(lines[4], Racer(1, {{56, "   2.00"}, {64, "   2.00"}}));
    EXPECT_EQ(lines[5], Racer(2, {{56, "   4.00"}, {64, "   1.00"}}));
    EXPECT_EQ(lines[6], At({{4, "   3"}, {11, "   2"}, {18, "   3"}, {28, "Racer1-3"}}));
}

TEST_F(OddsReport, WinOddsWithScratchedRacersAndTheHandicappersOdds) {
    RF.Racer(1, 1).Odds = 2.5;
    EXPECT_EQ(Print(1, 1), (Lines{"", At({{4, "****  Win Odds  ****"}}), "",
                                  At({{4, "Prgm#"},
                                      {11, "Bet#"},
                                      {18, "Post Pos"},
                                      {28, "Horse Name"},
                                      {56, "Win Odds"},
                                      {68, "Hndicp Odds"}}),
                                  Racer(1, {{56, "  2 -  1"}, {68, "  5 -  2"}}),
                                  Racer(2, {{56, "  1 -  2"}, {68, "  0 - 0"}}),
                                  Racer(3, {{56, "Scratched"}, {68, "  0 - 0"}})}));
    const Lines place = Print(1, 2);
    EXPECT_EQ(place[1], At({{4, "****  Place Odds  ****"}}));
    EXPECT_EQ(place[3].substr(55), "Avg Odds    Hndicp Odds");
    EXPECT_EQ(place[6].substr(55, 9), "Scratched");
}

TEST_F(OddsReport, ExactaPairsOfDifferentNumbers) {
    EXPECT_EQ(Print(1, 4), (Lines{"", At({{4, "****  Exacta Odds  ****"}}), "",
                                  At({{4, "Winning Horse"}, {30, "Place Horse"}, {56, " Odds"}}),
                                  Pair("   1 - Racer1-1", "   2 - Racer1-2", "  0 - 0"),
                                  Pair("   1 - Racer1-1", "   3 - Racer1-3", " Scratched"),
                                  Pair("   2 - Racer1-2", "   1 - Racer1-1", "No Bets"),
                                  Pair("   2 - Racer1-2", "   3 - Racer1-3", " Scratched"),
                                  Pair("   3 - Racer1-3", "   1 - Racer1-1", " Scratched"),
                                  Pair("   3 - Racer1-3", "   2 - Racer1-2", " Scratched")}));
}

TEST_F(OddsReport, DailyDoublesIntoTheNextRaceAndFromTheRaceBefore) {
    const Lines into = Print(1, 6);
    EXPECT_EQ(into[1], At({{4, "****  Daily Double Odds  ****"}}));
    EXPECT_EQ(into[3], At({{4, "First Race  - Opener"}}));
    EXPECT_EQ(into[4], At({{4, "Second Race - Closer"}}));
    EXPECT_EQ(into[6], At({{4, "Winner First Race"}, {30, "Winner Second Race"}, {56, " Odds"}}));
    ASSERT_EQ(into.size(), 7u + 6);
    EXPECT_EQ(into[7], Pair("   1 - Racer1-1", "   1 - Racer2-1", "No Bets"));
    EXPECT_EQ(into[8], Pair("   1 - Racer1-1", "   2 - Racer2-2", "  0 - 0"));
    EXPECT_EQ(into[11], Pair("   3 - Racer1-3", "   1 - Racer2-1", " Scratched"));

    // The double from race 1 prints on race 2 only once race 1 is run.
    EXPECT_EQ(Print(2, 62).size(), 0u);
    Result(1, {1, 2});
    const Lines prior = Print(2, 62);
    ASSERT_EQ(prior.size(), 13u);
    EXPECT_EQ(prior[1], At({{4, "****  Daily Double Odds (prior race) ****"}}));
    EXPECT_EQ(prior[3], At({{4, "First Race  - Opener"}}));
}

TEST_F(OddsReport, AllPartsInTheirOrderAsTheRaceOffersThem) {
    auto titles = [&](int race) {
        Lines t;
        for (const std::string& line : Print(race, 0))
            if (line.find("****") != std::string::npos) t.push_back(TrimBlanks(line));
        return t;
    };
    EXPECT_EQ(titles(1), (Lines{"****  Betting Pools  ****", "****  Win Odds  ****",
                                "****  Place Odds  ****", "****  Show Odds  ****",
                                "****  Exacta Odds  ****", "****  Daily Double Odds  ****"}));
    Result(1, {1, 2});
    EXPECT_EQ(titles(2), (Lines{"****  Betting Pools  ****", "****  Win Odds  ****",
                                "****  Daily Double Odds (prior race) ****"}));
    EXPECT_EQ(world.printer.lines[2], At({{4, "Tamberlin Tally"},
                                          {50, "Betting Pool and Odds for Race #2 - Closer"},
                                          {110, "Page 1"}}));
}

TEST_F(OddsReport, ASectionThatWouldPassThePageStartsANewOneAndRunsOnUnderItsHeads) {
    world.printer.textHeight = 100;
    world.printer.pageHeight = 100.0 * 22 + 100;  // 22 lines
    PrintReport(world.printer, {.report = 4, .race = 1, .oddsBetType = 0});
    const Lines& lines = world.printer.lines;
    auto pageOf = [&](const std::string& title) {
        int page = 1;
        for (const std::string& line : lines) {
            if (line == "<new page>") ++page;
            if (TrimBlanks(line) == title) return page;
        }
        return 0;
    };
    // Header 7 and pools 11 leave no room for Win's 7 lines; Win and Place share the next page.
    EXPECT_EQ(pageOf("****  Betting Pools  ****"), 1);
    EXPECT_EQ(pageOf("****  Win Odds  ****"), 2);
    EXPECT_EQ(pageOf("****  Place Odds  ****"), 2);
    EXPECT_EQ(pageOf("****  Show Odds  ****"), 3);
    for (std::size_t i = 0, onPage = 0; i < lines.size(); ++i, ++onPage) {
        if (lines[i] == "<new page>") onPage = 0;
        EXPECT_LE(onPage, 22u) << i;
    }
}

}  // namespace
}  // namespace tt::test
