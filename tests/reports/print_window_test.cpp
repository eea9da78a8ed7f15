// The Print window: the font size and its message, the choice of report and its messages, the
// report sent to the printer, to a preview or to a PDF file, and Select Race to Print.

#include "model/common.h"
#include "report_card.h"
#include "reports/list_bets_logic.h"
#include "reports/print_logic.h"
#include "reports/select_race_logic.h"

namespace tt::test {
namespace {

class PrintWindow : public ReportCard {
  protected:
    void SetUp() override {
        ReportCard::SetUp();
        PrintToFile = false;
        G.FilePath = "/cards/spring.tly";
        window.Form_Load();
    }
    void Choose(int report) { SelectByItemData(window.lstReports, report); }
    const std::vector<std::string>& Printed() const { return world.printer.lines; }
    PrintLogic window;
};

const std::string kFontMessage =
    "Font Size is too small or too large!\r\nPlease change it to a font size between 2 and 72.";

TEST_F(PrintWindow, OpensWithTheCardsReportFontAndNothingChosen) {
    EXPECT_EQ(window.caption, "Print");
    EXPECT_EQ(window.txtFontSize.text, "8");
    EXPECT_EQ(window.lstReports.ListCount(), 4);
    EXPECT_EQ(window.lstReports.List(0), "Race Card w/Results");
    EXPECT_EQ(window.lstReports.List(3), "Current Odds for selected race");
    EXPECT_EQ(window.lstReports.ItemData(3), 4);
    EXPECT_FALSE(window.lstReports.HasSelection());
    EXPECT_EQ(window.cmdPreview.text, "Preview...");
    EXPECT_EQ(window.cmdPdf.text, "Save as PDF...");
    RF.ReportFontSize = 0;
    window.Form_Load();
    EXPECT_EQ(window.txtFontSize.text, "0");
}

TEST_F(PrintWindow, FontSizesOutsideTwoToSeventyTwoAreRefusedBeforeAnyPrintJob) {
    Choose(PrintLogic::kRaceCard);
    for (const char* size : {"1", "73", "1.99", "72.01", "", "abc"}) {
        world.messages.Clear();
        window.txtFontSize.text = size;
        window.cmdOK_Click();
        ASSERT_EQ(world.messages.Texts(), std::vector<std::string>{kFontMessage}) << size;
        EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
        EXPECT_EQ(world.messages.beeps, 1);
        EXPECT_FALSE(window.unloaded);
        window.cmdPreview_Click();
        window.cmdPdf_Click();
    }
    EXPECT_TRUE(Printed().empty());
    EXPECT_EQ(world.printer.fontSize, 0);
    EXPECT_TRUE(world.dialogs.requests.empty());
}

TEST_F(PrintWindow, TheReportGoesToThePrinterAtTheRoundedFont) {
    Choose(PrintLogic::kBettors);
    window.txtFontSize.text = "10.5";  // rounds to the even 10
    window.cmdOK_Click();
    EXPECT_EQ(window.ReportFont, 10);
    EXPECT_EQ(world.printer.font, "Courier");
    EXPECT_EQ(world.printer.fontSize, 10);
    ASSERT_EQ(Printed().size(), 8u);
    EXPECT_EQ(Printed()[2], At({{4, "Tamberlin Tally"}, {50, "Bettor Listing"}, {110, "Page 1"}}));
    EXPECT_EQ(Printed().back(), "<end doc>");
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Report has been sent to printer"});
    EXPECT_TRUE(window.unloaded);
    EXPECT_FALSE(world.shell.busy);
}

TEST_F(PrintWindow, NoReportChosen) {
    window.cmdOK_Click();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Select a report to print"});
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_TRUE(Printed().empty());
    EXPECT_FALSE(window.unloaded);
    EXPECT_FALSE(world.shell.busy);
}

TEST_F(PrintWindow, ListedBetsNeedTheListOfBetsInFront) {
    Race(1, {1}, {1});
    Bet(Ticket(1, Bettor("Ann")), 1, 2, {1});
    Choose(PrintLogic::kListedBets);
    window.cmdOK_Click();
    const std::string message = "Please display the list of bets to print\r\nusing View/List Bets";
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{message});
    EXPECT_TRUE(Printed().empty());

    ListBetsLogic list;
    list.Form_Load();
    ShownListBetsScope shown(&list);
    world.shell.activeChild = "frmDisplayOdds";  // open, but another window is in front
    world.messages.Clear();
    window.cmdOK_Click();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{message});
    EXPECT_TRUE(Printed().empty());

    world.shell.activeChild = "frmListBets";
    world.messages.Clear();
    window.cmdOK_Click();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Report has been sent to printer"});
    ASSERT_GT(Printed().size(), 9u);
    EXPECT_EQ(Printed()[2], At({{4, "Tamberlin Tally"}, {50, "Bet Listing"}, {110, "Page 1"}}));
}

TEST_F(PrintWindow, OddsReportAsksForTheRaceFirst) {
    Race(1, {1, 2, 3}, {1, 2}, "Opener");
    Race(2, {1, 6}, {1, 2}, "Second");
    Choose(PrintLogic::kOdds);
    // Cancel: nothing printed, the window stays.
    world.shell.onShow["frmSelectRaceAndBetType"] = [] {
        SelectRaceAndBetTypeLogic select;
        select.Form_Load();
        select.cmdCancel_Click();
    };
    window.cmdOK_Click();
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmSelectRaceAndBetType (modal)"});
    EXPECT_TRUE(Printed().empty());
    EXPECT_TRUE(world.messages.Texts().empty());
    EXPECT_FALSE(window.unloaded);

    world.shell.onShow["frmSelectRaceAndBetType"] = [] {
        SelectRaceAndBetTypeLogic select;
        select.Form_Load();
        SelectByItemData(select.comRaceName, 2);
        select.comRaceName_Click();
        select.cmdOK_Click();
    };
    window.cmdOK_Click();
    ASSERT_GT(Printed().size(), 3u);
    EXPECT_EQ(Printed()[2], At({{4, "Tamberlin Tally"},
                                {50, "Betting Pool and Odds for Race #2 - Second"},
                                {110, "Page 1"}}));
    EXPECT_EQ(OddsBetType, 0);
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Report has been sent to printer"});
}

TEST_F(PrintWindow, PreviewRunsTheSameReportAndLeavesTheWindowOpen) {
    Choose(PrintLogic::kRaceCard);
    world.printer.previewRuns = 2;  // as when the preview's page set-up changes
    window.cmdPreview_Click();
    // Each run is a whole report from its first page: a card without races, its header.
    ASSERT_EQ(Printed().size(), 18u);
    for (std::size_t run : {0u, 9u}) {
        EXPECT_EQ(Printed()[run], "<preview>");
        EXPECT_EQ(Printed()[run + 3],
                  At({{4, "Tamberlin Tally"}, {50, "Race Card with Results"}, {110, "Page 1"}}));
        EXPECT_EQ(Printed()[run + 8], "<end>");
    }
    EXPECT_TRUE(world.messages.Texts().empty());
    EXPECT_FALSE(window.unloaded);
}

TEST_F(PrintWindow, SaveAsPdfAsksWhereAndSaysWhereItWent) {
    Choose(PrintLogic::kBettors);
    world.dialogs.Next(std::nullopt);  // cancelled: nothing at all
    window.cmdPdf_Click();
    EXPECT_TRUE(Printed().empty());
    EXPECT_FALSE(window.unloaded);
    ASSERT_EQ(world.dialogs.requests.size(), 1u);
    const FileDialogRequest& r = world.dialogs.requests[0];
    EXPECT_EQ(r.title, "Save Report as PDF");
    EXPECT_EQ(r.filter, "PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*");
    EXPECT_EQ(r.initialName, "/cards/spring - Bettor Listing.pdf");
    EXPECT_EQ(r.defaultExt, "pdf");
    EXPECT_TRUE(r.overwritePrompt);

    world.dialogs.Next("/tmp/bettors.pdf");
    window.cmdPdf_Click();
    ASSERT_EQ(Printed().size(), 9u);
    EXPECT_EQ(Printed().front(), "<pdf /tmp/bettors.pdf>");
    EXPECT_EQ(Printed().back(), "<end>");
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Report has been saved to\r\n/tmp/bettors.pdf"});
    EXPECT_TRUE(window.unloaded);
}

TEST_F(PrintWindow, APdfThatCannotBeWrittenSaysSo) {
    Choose(PrintLogic::kBettors);
    world.printer.pdfAnswer = false;
    world.dialogs.Next("/tmp/x.pdf");
    window.cmdPdf_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"The report could not be saved as PDF."});
    EXPECT_FALSE(window.unloaded);
}

TEST_F(PrintWindow, PrintToFileSavesWithOK) {
    PrintToFile = true;
    PrintLogic toFile;
    toFile.Form_Load();
    EXPECT_EQ(toFile.caption, "Print to File");
    SelectByItemData(toFile.lstReports, PrintLogic::kRaceCard);
    world.dialogs.Next("/tmp/card.pdf");
    toFile.lstReports_DblClick();
    EXPECT_EQ(Printed().front(), "<pdf /tmp/card.pdf>");
    EXPECT_EQ(world.dialogs.requests[0].initialName, "/cards/spring - Race Card with Results.pdf");
}

TEST_F(PrintWindow, OddsReportFileNameLeavesOutWhatAFileNameCannotHold) {
    Race(3, {1}, {1}, "Derby: 1/2 mile");
    EXPECT_EQ(PrintLogic::PdfFileName({.report = 4, .race = 3}),
              "/cards/spring - Betting Pool and Odds for Race  3 - Derby  1 2 mile.pdf");
}

// ---- Select Race to Print ----------------------------------------------------------------------

TEST_F(PrintWindow, SelectRaceListsThePartsOfTheChosenRace) {
    Race(1, {1, 2, 3, 4, 5, 6}, {1}, "One");
    Race(2, {2, 7}, {1}, "Two");
    G.CurrentRace = 2;
    SelectRaceAndBetTypeLogic select;
    select.Form_Load();
    EXPECT_EQ(select.caption, "Select Race to Print");
    EXPECT_EQ(select.fraPrint.text, "Print Odds for:");
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(select.comRaceName.Text(), "   2 - Two");
    auto items = [&] {
        std::vector<std::pair<std::string, std::int64_t>> v;
        for (const auto& i : select.comBetType.Items()) v.emplace_back(i.text, i.itemData);
        return v;
    };
    using P = std::vector<std::pair<std::string, std::int64_t>>;
    EXPECT_EQ(items(), (P{{"All Bet Types", 0},
                          {"Betting Pools", 99},
                          {"Place", 2},
                          {"Daily Double (prior race)", 62}}));
    SelectByItemData(select.comRaceName, 1);
    select.comRaceName_Click();
    EXPECT_EQ(items(), (P{{"All Bet Types", 0},
                          {"Betting Pools", 99},
                          {"Win", 1},
                          {"Place", 2},
                          {"Show", 3},
                          {"Exacta", 4},
                          {"Daily Double", 6}}));
    SelectByItemData(select.comBetType, 4);
    select.cmdOK_Click();
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(G.CurrentRace, 1);
    EXPECT_EQ(OddsBetType, 4);
    EXPECT_TRUE(select.unloaded);

    // With no race current, the card's default race.
    G.CurrentRace = 0;
    RF.DefaultRace = 2;
    SelectRaceAndBetTypeLogic again;
    again.Form_Load();
    EXPECT_EQ(again.comRaceName.SelectedData(), 2);
}

}  // namespace
}  // namespace tt::test
