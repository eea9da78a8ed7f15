// `tally list` and `tally report`: the listing and the reports as text, exactly as printed, and
// the filters, fonts and reports the companion refuses.

#include <QDate>
#include <QTemporaryDir>

#include "files/race_file_io.h"
#include "report_card.h"
#include "support/companion_run.h"

namespace tt::test {
namespace {

class CompanionReports : public ReportCard {
  protected:
    // Two races, the first finished; Ann has a ticket of two bets, Ben one with a winner.
    void SetUp() override {
        ReportCard::SetUp();
        RF.FileId = 77;
        Race(1, {1, 2, 3, 4}, {1, 2, 3}, "Opener");
        Race(2, {1, 2, 3}, {1, 2}, "Closer");
        RF.Race(1).MinBet = RF.Race(2).MinBet = C(2);
        const int ann = Bettor("Ann", "", "555-0101", "ann@example.org");
        const int ben = Bettor("Ben", "Table 4\r\nBrings his own pencil");
        const auto t1 = Ticket(1, ann, 8);
        Bet(t1, 1, 2, {2});
        Bet(t1, 11, 2, {1});
        const auto t2 = Ticket(1, ben, 2, 4.5);
        Bet(t2, 4, 2, {2, 1});
        const auto t3 = Ticket(2, ben, 3);
        Bet(t3, 1, 3, {1});
        Result(1, {2, 1, 3});
        RF.Payout(1, 1, 1).PayRatio = 1.25;
        RF.Payout(1, 4, 1).PayRatio = 1.25;
        RF.Race(1).CorrectPaid(4) = 2;
        BetRec& exacta = B(1, 3);
        exacta.BetWinnings = C(4.5), exacta.CorrectPicks = 2, exacta.WinningCombos = 1;
        B(1, 1).BetWinnings = C(4.5), B(1, 1).WinPart = C(4.5);
        RF.Ticket(t1).Winnings = C(4.5), RF.Ticket(t2).Winnings = C(4.5);
        path = dir.filePath("card.tly").toStdString();
        WriteFile(path, BuildRaceFileText(DateTime{2026, 5, 2, 14, 30, 0}));
        ClearRaceFile();
    }
    TallyRun Run(std::vector<std::string> args) {
        args.insert(args.begin() + 1, path);
        return Tally(args);
    }
    static std::string Today() {
        return QLocale().toString(QDate::currentDate(), QLocale::LongFormat).toStdString();
    }
    QTemporaryDir dir;
    std::string path;
};

// ---- tally list --------------------------------------------------------------------------------

TEST_F(CompanionReports, ListAsTheWindowOpens) {
    const TallyRun r = Run({"list"});
    EXPECT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(r.out,
              "Ticket\tRace\tBettor\tColl'd\tDist'd\tTot Bet\tWon\tBet Amt\tBet Type\tBox\tPicks\n"
              "1\t 1 - Opener\tAnn\t8.00\t.00\t2.00\t4.50\t2.00\tWin\t\t2 \n"
              "1\t 1 - Opener\tAnn\t8.00\t.00\t6.00\t.00\t2.00\tAcross the Board\t\t1 \n"
              "2\t 1 - Opener\tBen\t2.00\t4.50\t2.00\t4.50\t2.00\tExacta\t\t"
              "2,1  (2 correct,  1 winning bet)\n"
              "Amount Bet:\t10.00\n"
              " Won:\t9.00\n"
              " Collected:\t10.00\n"
              "Distributed:\t4.50\n"
              "A net of 4.50 is owed out for listed bets.\n");
}

TEST_F(CompanionReports, ListWithFilters) {
    TallyRun r = Run({"list", "--race", "0", "--bettor", "Ben"});
    EXPECT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.out,
              "Ticket\tRace\tBettor\tColl'd\tDist'd\tTot Bet\tWon\tBet Amt\tBet Type\tBox\tPicks\n"
              "2\t 1 - Opener\tBen\t2.00\t4.50\t2.00\t4.50\t2.00\tExacta\t\t"
              "2,1  (2 correct,  1 winning bet)\n"
              "3\t 2 - Closer\tBen\t3.00\t.00\t3.00\t.00\t3.00\tWin\t\t1 \n"
              "Amount Bet:\t5.00\n"
              " Won:\t4.50\n"
              " Collected:\t5.00\n"
              "Distributed:\t4.50\n"
              // A net of exactly 0 leaves the sentence of the list as it opened.
              "A net of 4.50 is owed out for listed bets.\n");
    r = Run({"list", "--type", "1"});
    EXPECT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.out,
              "Ticket\tRace\tBettor\tTot Bet\tWon\tBet Amt\tBet Type\tBox\tPicks\n"
              "1\t 1 - Opener\tAnn\t2.00\t4.50\t2.00\tWin\t\t2 \n"
              "1\t 1 - Opener\tAnn\t2.00\t.00\t2.00\tAcross the Board\t\t1 \n"
              "Amount Bet:\t4.00\n"
              " Won:\t4.50\n");
    r = Run({"list", "--winners", "--race", "0"});
    EXPECT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.out,
              "Ticket\tRace\tBettor\tTot Bet\tWon\tBet Amt\tBet Type\tBox\tPicks\n"
              "1\t 1 - Opener\tAnn\t2.00\t4.50\t2.00\tWin\t\t2 \n"
              "2\t 1 - Opener\tBen\t2.00\t4.50\t2.00\tExacta\t\t"
              "2,1  (2 correct,  1 winning bet)\n"
              "Amount Bet:\t4.00\n"
              " Won:\t9.00\n");
}

TEST_F(CompanionReports, ListRefusesFiltersTheCardDoesNotHave) {
    TallyRun r = Run({"list", "--race", "7"});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "tally: no race 7 on this card\n");
    r = Run({"list", "--bettor", "Cy"});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.err, "tally: no such bettor: Cy\n");
    r = Run({"list", "--race", "2", "--type", "4"});  // Exacta is not offered in race 2
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.err, "tally: no bet type 4 in the list of this race\n");
    r = Run({"list", "--type", "Win"});
    EXPECT_EQ(r.rc, 1);
}

// ---- tally report ------------------------------------------------------------------------------

std::string Header(const std::string& title, const std::string& date, int page = 1) {
    return " \n \n" +
           At({{4, "Tamberlin Tally"}, {50, title}, {110, "Page " + std::to_string(page)}}) + "\n" +
           At({{4, "Race-day betting for friends"}}) + "\n\nSpring Meet      " + date +
           "      Status\n\n";
}

TEST_F(CompanionReports, BettorsAsText) {
    const TallyRun r = Run({"report", "bettors"});
    EXPECT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.err, "Report has been sent to printer\n");
    EXPECT_EQ(r.out, Header("Bettor Listing", Today()) +
                         At({{4, "Ann"}, {30, "555-0101"}, {46, "ann@example.org"}}) + "\n\n" +
                         At({{4, "Ben"}, {46, ""}}) + "\n" + At({{10, "Table 4"}}) + "\n" +
                         At({{10, "Brings his own pencil"}}) + "\n\n");
}

TEST_F(CompanionReports, PagesBreakWithAFormFeed) {
    // At 72 points a page holds 8 lines: the header and one more line.
    const TallyRun r = Run({"report", "card", "--font-size", "72"});
    EXPECT_EQ(r.rc, 0) << r.err;
    const std::string second = "\f" + Header("Race Card with Results", Today(), 2);
    EXPECT_NE(r.out.find(second), std::string::npos);
    EXPECT_EQ(r.out.find(Header("Race Card with Results", Today(), 3)), std::string::npos);
    EXPECT_EQ(r.out.rfind("\f"), r.out.find("\f"));
}

TEST_F(CompanionReports, ListedBetsAsListBetsOpens) {
    const TallyRun r = Run({"report", "bets"});
    EXPECT_EQ(r.rc, 0) << r.err;
    const std::size_t body = Header("Bet Listing", Today()).size();
    ASSERT_GT(r.out.size(), body);
    EXPECT_EQ(r.out.substr(0, body), Header("Bet Listing", Today()));
    EXPECT_EQ(
        r.out.substr(body, r.out.find('\n', body) - body),
        At({{4, "   1 - Opener"}, {25, "All Bet Types"}, {46, " All Bettors"}, {68, "All Bets"}}));
    EXPECT_NE(r.out.find("\nAmount Bet: 10.00  Won: 9.00  Collected: 10.00  Distributed: 4.50   "
                         "A net of 4.50 is owed out for listed bets.\n"),
              std::string::npos);
}

TEST_F(CompanionReports, OddsOfARaceAndAPartOfThem) {
    const TallyRun r = Run({"report", "odds", "--race", "1", "--type", "1"});
    EXPECT_EQ(r.rc, 0) << r.err;
    const std::string title = "Betting Pool and Odds for Race #1 - Opener";
    EXPECT_EQ(r.out.substr(0, Header(title, Today()).size()), Header(title, Today()));
    EXPECT_NE(r.out.find("\n" + At({{4, "****  Win Odds  ****"}}) + "\n"), std::string::npos);
    EXPECT_EQ(r.out.find("Betting Pools"), std::string::npos);
    EXPECT_EQ(r.out.find("\f"), std::string::npos);
    // Without --race, the card's default race, whatever race the file ends on.
    const TallyRun pools = Run({"report", "odds", "--type", "99"});
    EXPECT_EQ(pools.rc, 0) << pools.err;
    EXPECT_NE(pools.out.find(title), std::string::npos);
}

TEST_F(CompanionReports, RefusedFontsAndReports) {
    TallyRun r = Run({"report", "card", "--font-size", "1"});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err,
              "Font Size is too small or too large!\r\nPlease change it to a font size between 2 "
              "and 72.\n");
    // The font is looked at before the race.
    r = Run({"report", "odds", "--race", "9", "--font-size", "73"});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.err.substr(0, 36), "Font Size is too small or too large!");
    r = Run({"report", "odds", "--race", "9"});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "tally: no race 9 on this card\n");
    r = Run({"report", "odds", "--race", "2", "--type", "4"});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.err, "tally: no part 4 of the odds report of race 2\n");
    EXPECT_EQ(Run({"report", "card", "--race", "1"}).rc, 2);
    EXPECT_EQ(Run({"report", "everything"}).rc, 2);
}

}  // namespace
}  // namespace tt::test
