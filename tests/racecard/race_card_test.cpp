// The race card's settings and races: validation, OK and its SaveWork, Cancel, navigation,
// naming and deleting races, protection of races with results, and the option rules.

#include "race_card.h"

#include <algorithm>

#include "files/file_commands.h"
#include "model/common.h"

namespace tt::test {
namespace {

const std::string kMinPayout =
    "Minimum Payout must be at least as much\r\nas the Minimum Bet amount";
const std::string kMultiple = "Quick Bet amounts must be a multiple\r\nof the Bet Increment.";

TEST_F(RaceCardTest, LoadFillsTheWindowFromTheDocument) {
    RF.SaveAfter = 10;
    RF.Race(0).QuickBet(2) = C(5);
    RaceCardLogic& c = Load();
    EXPECT_EQ(c.txtSaveAfter.text, " 10");
    EXPECT_EQ(c.chkBackup.value, 1);
    EXPECT_EQ(c.txtMinBet.text, "1.00");
    EXPECT_EQ(c.txtBetIncr.text, ".10");
    EXPECT_EQ(c.txtQuickBet[1].text, ".00");
    EXPECT_EQ(c.txtQuickBet[2].text, "5.00");
    EXPECT_EQ(c.optRoundTo[0].value, -1);  // -2: 0.01
    EXPECT_EQ(G.CurrentRace, 1);
    EXPECT_EQ(c.lblRace.text, "1st Race:");
    EXPECT_EQ(c.txtRaceName.text, "Opener");
    EXPECT_TRUE(c.chkRBetType[4].value);
    EXPECT_EQ(c.comRaceName.ListCount(), 20);
    EXPECT_EQ(c.comRaceName.List(4), "( 5 )");
    EXPECT_EQ(c.chkDefault.value, 1);
    EXPECT_FALSE(c.txtMaxTransInPrinter.visible);  // printing off
    EXPECT_FALSE(c.txtRecoveryFile.visible);
    EXPECT_FALSE(c.FormChanged);
    EXPECT_EQ(c.SSTab1, 0);
}

TEST_F(RaceCardTest, ValidationRunsItsChecksInOrder) {
    RaceCardLogic& c = Load();
    auto failure = [&] {
        world.messages.Clear();
        c.focus.clear();
        c.selectText.clear();
        bool ok = c.ValidateWindow();
        EXPECT_EQ(bool(G.CancelFlag), !ok);
        return ok ? std::string() : world.messages.shown.at(0).text;
    };
    c.txtMinBet.text = "5.00";
    c.txtRMinBet.text = "6";
    c.txtRMinPayout.text = "2";
    EXPECT_EQ(failure(), kMinPayout);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(c.SSTab1, 1);
    EXPECT_EQ(c.focus, "txtMinPayout");
    EXPECT_EQ(c.selectText, "txtMinPayout");
    c.txtMinBet.text = "1";
    EXPECT_EQ(failure(), kMinPayout);
    EXPECT_EQ(c.SSTab1, 2);
    EXPECT_EQ(c.focus, "txtRMinPayout");
    c.txtRMinBet.text = "1";
    c.txtRHoldbackAmt.text = "-1";
    EXPECT_EQ(failure(), "Holdback Amount can't be less than 0 !");
    c.txtRHoldbackAmt.text = "0";
    c.txtRHoldbackPct.text = "100.5";
    EXPECT_EQ(failure(), "Holdback Percent can't be less than 0 or greater than 100!");
    EXPECT_EQ(c.focus, "txtRHoldbackPct");
    c.txtRHoldbackPct.text = "100";

    // The quick bet checks run together for each i: race 2's box of i = 2 before i = 3.
    c.txtBetIncr.text = ".10";
    c.txtRBetIncr.text = ".30";
    c.txtQuickBet[3].text = "0.35";
    c.txtRQuickBet[2].text = "2.50";
    EXPECT_EQ(failure(), kMultiple);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kNone);
    EXPECT_EQ(c.SSTab1, 2);
    EXPECT_EQ(c.focus, "txtRQuickBet(2)");
    EXPECT_EQ(c.selectText, "");
    c.txtRBetIncr.text = ".25";  // 2.50 / .25 passes
    EXPECT_EQ(failure(), kMultiple);
    EXPECT_EQ(c.focus, "txtQuickBet(3)");
    EXPECT_EQ(c.SSTab1, 1);
    c.txtQuickBet[3].text = "0.30";  // 0.30 / 0.10 passes thanks to the rounding to four places
    c.txtMinBet.text = "2";
    c.txtMinPayout.text = "2";
    c.txtQuickBet[1].text = "0";  // a zero quick bet passes at any minimum
    c.txtQuickBet[4].text = "1.50";
    EXPECT_EQ(failure(), "Quick Bet amounts must be a greater\r\nthan the minimum bet.");
    EXPECT_EQ(c.focus, "txtQuickBet(3)");
    c.txtQuickBet[3].text = "3";
    c.txtQuickBet[4].text = "3";
    c.txtRMinBet.text = "3";
    c.txtRMinPayout.text = "3";
    EXPECT_EQ(failure(), "Quick Bet amounts must be greater\r\nthan the minimum bet.");
    EXPECT_EQ(c.focus, "txtRQuickBet(2)");
    c.txtRQuickBet[2].text = "";
    c.txtBetIncr.text = "0";  // a zero increment switches the multiple check off
    c.txtQuickBet[3].text = "3.33";
    c.chkPrintBets.value = 1;
    c.txtMaxTransInPrinter.text = "0";
    EXPECT_EQ(failure(), "Maximum transactions per page must be 1 or greater.");
    EXPECT_EQ(c.SSTab1, 0);
    EXPECT_EQ(c.focus, "txtMaxTransInPrinter");
    c.txtMaxTransInPrinter.text = "1";
    EXPECT_EQ(failure(), "");
}

TEST_F(RaceCardTest, OkShowsAFailureTwiceAndStaysOpen) {
    RaceCardLogic& c = Load();
    world.random.values = {0.5};
    Type("txtMinBet", "9");
    c.cmdOK_Click();
    EXPECT_EQ(world.messages.Texts(), (std::vector<std::string>{kMinPayout, kMinPayout}));
    EXPECT_EQ(world.messages.beeps, 2);
    EXPECT_FALSE(c.unloaded);
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(RF.Race(0).MinBet, C(1));
    EXPECT_EQ(RF.FileId, 15001);  // drawn all the same
}

TEST_F(RaceCardTest, SaveWorkErasesBetsOfDeletedRacesRefundsSwitchedOffTypesAndLimits) {
    RF.Bet(1, 2).BetWinnings = C(7);
    RaceCardLogic& c = Load();
    // Delete race 2: racers and bets exist, so it asks first.
    c.GoToRace(2);
    world.messages.Clear();
    c.cmdDelete_Click();
    ASSERT_EQ(world.messages.shown.size(), 1u);
    const MessageRequest& q = world.messages.shown[0];
    EXPECT_EQ(q.text,
              "Racers and Bets for this race exist on file!\r\nThis data will be lost!\r\n"
              "Are you sure you want to delete this race?");
    EXPECT_EQ(q.buttons, Buttons::kOKCancel);
    EXPECT_EQ(q.defaultButton, 1);
    EXPECT_EQ(world.messages.beeps, 2);
    // The default answer is Cancel: nothing happened but the window counts as changed.
    EXPECT_EQ(c.WorkRace(2).RaceName, "Second");
    EXPECT_TRUE(c.FormChanged);
    world.messages.Answer(kOK);
    c.cmdDelete_Click();
    EXPECT_EQ(c.WorkRace(2).RaceName, "");
    EXPECT_EQ(c.WorkRacer(2, 1).PostPosition, "0");
    EXPECT_FALSE(c.fraRace.visible);

    // Race 1: Exacta switched off, a minimum of 0 and no quick bets.
    c.GoToRace(1);
    Click("chkRBetType(4)", 0);
    Type("txtRMinBet", "0");
    Type("txtHoldbackAmt", "-5");
    Type("txtHoldbackPct", "-3");
    world.messages.Clear();
    c.cmdOK_Click();
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_TRUE(c.unloaded);
    EXPECT_EQ(world.shell.raceGroup, std::optional<bool>(true));
    EXPECT_TRUE(G.FileChanged);

    const BetRec& erased = RF.Bet(2, 1);
    EXPECT_EQ(erased.BetType, 0);
    EXPECT_EQ(erased.BetAmt, Currency());
    EXPECT_EQ(erased.BetCost, Currency());
    EXPECT_EQ(erased.Pick(1), 0);
    EXPECT_EQ(erased.TicketIdx, 1);             // the ticket link stays
    EXPECT_EQ(RF.Bet(1, 2).BetWinnings, C(1));  // the exacta's cost back
    EXPECT_EQ(RF.Bet(1, 1).BetWinnings, Currency());
    EXPECT_FALSE(RF.Race(1).BetType(4));
    EXPECT_EQ(RF.Race(1).MinBet, C(0.01));
    EXPECT_EQ(RF.Race(1).QuickBet(1), C(0.01));
    EXPECT_EQ(RF.Race(2).RaceName, "");
    EXPECT_EQ(RF.Race(2).MinBet, C(0.01));
    EXPECT_EQ(RF.Race(2).BetIncr, C(0.01));
    EXPECT_EQ(RF.Race(2).RoundTo, 0);
    EXPECT_EQ(RF.Racer(2, 2).BetNbr, 0);
    EXPECT_EQ(RF.Race(0).HoldbackAmt, Currency());
    EXPECT_EQ(RF.Race(0).HoldbackPct, 0.0f);
    EXPECT_EQ(RF.Race(0).QuickBet(1), C(1));  // Race(0).MinBet
    EXPECT_EQ(RF.Race(5).QuickBet(1), C(1));
    EXPECT_EQ(RF.Race(1).Result(1), 0);
}

TEST_F(RaceCardTest, CancelDropsTheCopiesButNotTheDefaultRace) {
    RaceCardLogic& c = Load();
    c.GoToRace(2);
    world.messages.Answer(kOK);
    c.cmdDelete_Click();
    Click("chkDefault", 0);
    c.GoToRace(4);
    EXPECT_EQ(c.chkDefault.value, 0);
    Click("chkDefault", 1);
    EXPECT_EQ(RF.DefaultRace, 4);
    world.messages.Clear();
    world.messages.Answer(kCancel);
    c.cmdCancel_Click();
    EXPECT_EQ(world.messages.shown.at(0).text, "Do you wish to keep your changes?");
    EXPECT_EQ(world.messages.shown.at(0).title, "Race Card Setup");
    EXPECT_FALSE(c.unloaded);
    EXPECT_TRUE(G.CancelFlag);
    world.messages.Answer(kNo);
    c.cmdCancel_Click();
    EXPECT_TRUE(c.unloaded);
    EXPECT_EQ(RF.Race(2).RaceName, "Second");
    EXPECT_EQ(RF.Bet(2, 1).BetType, 1);
    EXPECT_EQ(RF.Racer(2, 1).BetNbr, 1);
    EXPECT_EQ(RF.DefaultRace, 4);
}

TEST_F(RaceCardTest, NextKeepsEditsWhileTheRaceListDropsThem) {
    RaceCardLogic& c = Load();
    Type("txtRMinBet", ".50");
    c.FormChanged = false;
    c.cmdNext_Click();
    EXPECT_EQ(c.WorkRace(1).MinBet, C(0.5));
    EXPECT_EQ(G.CurrentRace, 2);
    EXPECT_FALSE(c.FormChanged);  // moving is no edit
    EXPECT_EQ(c.lblRace.text, "2nd Race:");
    Type("txtRMinBet", ".70");
    c.comRaceName.SetListIndex(0);
    c.comRaceName_Click();
    EXPECT_EQ(G.CurrentRace, 1);
    EXPECT_EQ(c.WorkRace(2).MinBet, C(1));
    EXPECT_EQ(c.txtRMinBet.text, ".50");

    c.GoToRace(20);
    world.messages.Clear();
    c.cmdNext_Click();
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(G.CurrentRace, 20);
    c.GoToRace(21);
    EXPECT_EQ(world.messages.Texts().back(), "Unexpected Error - Invalid Race Id");
}

TEST_F(RaceCardTest, EnteringAnEmptyNameBoxCreatesTheRaceWithDefaults) {
    RaceCardLogic& c = Load();
    Type("txtRMinBet", "1.00");
    c.GoToRace(3);
    EXPECT_FALSE(c.fraRace.visible);
    EXPECT_EQ(c.optRRoundTo[4].value, -1);  // an empty race shows 1.00
    Type("txtQuickBet(1)", "2.00");
    c.txtRaceName_GotFocus();
    EXPECT_EQ(c.txtRaceName.text, "3rd Race");
    EXPECT_EQ(c.WorkRace(3).RaceName, "3rd Race");
    EXPECT_TRUE(c.fraRace.visible);
    EXPECT_EQ(c.txtRMinBet.text, "1.00");
    EXPECT_EQ(c.txtRQuickBet[1].text, "2.00");
    EXPECT_EQ(c.optRRoundTo[0].value, -1);
    EXPECT_EQ(c.WorkRace(3).RoundTo, -2);  // stored by the option button itself
    c.txtRaceName_GotFocus();              // not empty: selects
    EXPECT_EQ(c.selectText, "txtRaceName");
    Type("txtRaceName", "");
    EXPECT_EQ(c.WorkRace(3).RaceName, "");
    EXPECT_TRUE(c.fraRace.visible);

    c.GoToRace(7);
    EXPECT_EQ(c.lblRace.text, " 7th Race:");
    c.SSTab1 = RaceCardLogic::kRacers;
    c.SSTab1_Click(RaceCardLogic::kRaces);
    c.txtRRRaceName_GotFocus();
    EXPECT_EQ(c.txtRRRaceName.text, " 7th Race");
    EXPECT_EQ(c.txtRaceName.text, " 7th Race");
    c.BuildRaceLists();
    EXPECT_EQ(c.comRaceName.List(6), " 7th Race");
    EXPECT_EQ(c.comRaceName.List(2), "( 3 )");
}

TEST_F(RaceCardTest, ResultsProtectTheRaceAndTheMultiRaceBoxesNearRaceTwenty) {
    for (int r = 16; r <= 20; ++r) RF.Race(r).RaceName = "R" + std::to_string(r);
    RF.Race(1).Result(1) = 2;
    RaceCardLogic& c = Load();
    EXPECT_FALSE(c.txtRMinBet.enabled);
    EXPECT_FALSE(c.txtRaceName.enabled);
    EXPECT_FALSE(c.cmdReset.enabled);
    EXPECT_FALSE(c.chkRBetType[5].enabled);
    EXPECT_FALSE(c.optRRoundTo[2].enabled);
    EXPECT_TRUE(c.txtRQuickBet[1].enabled);
    EXPECT_TRUE(c.lblResultsMessage.visible);
    EXPECT_TRUE(c.chkRBetType[6].enabled);  // race 2 has no results
    EXPECT_FALSE(c.cmdNew.enabled);
    EXPECT_FALSE(c.cmdCopyRacers.enabled);
    EXPECT_TRUE(c.lblRResultsMessage.visible);
    c.flxRacers_DblClick();
    EXPECT_TRUE(world.shell.formsShown.empty());

    // Races 16 to 20 finished except 19: a multi-race box locks only when its whole span has
    // results, and shows only when its span ends by race 20.
    for (int r = 16; r <= 20; ++r) RF.Race(r).Result(1) = r == 19 ? 0 : 1;
    auto boxes = [&](int race) {
        c.GoToRace(race);
        std::string s;
        for (int t = 6; t <= 10; ++t)
            s += std::string(c.chkRBetType[t].visible ? "v" : "-") +
                 (c.chkRBetType[t].enabled ? "E " : "d ");
        return s;
    };
    EXPECT_EQ(boxes(16), "vd vd vE vE -d ");
    EXPECT_EQ(boxes(17), "vd vE vE -d -d ");
    EXPECT_EQ(boxes(18), "vE vE -d -d -d ");
    EXPECT_EQ(boxes(19), "vE -E -E -E -E ");  // no results: all enabled
    EXPECT_EQ(boxes(20), "-d -d -d -d -d ");
    RF.Race(20).Result(1) = 0;
    EXPECT_EQ(boxes(20), "-E -E -E -E -E ");
}

TEST_F(RaceCardTest, SortOptionsNeedTheirInputs) {
    RaceCardLogic& c = Load();
    c.comRacerSortText = "Post Position";
    c.comRacerSort_Click();
    EXPECT_EQ(
        world.messages.Texts().at(0),
        "Post Position cannot be used to sort unless\r\nthe 'Use Post Positions' box is checked!");
    EXPECT_EQ(c.comRacerSortText, "Betting Number");
    Click("chkUsePostPosition", 1);
    EXPECT_EQ(c.flxRacers.ColWidth(2), 600);
    c.comRacerSortText = "Post Position";
    c.comRacerSort_Click();
    world.messages.Clear();
    Click("chkUsePostPosition", 0);
    EXPECT_EQ(
        world.messages.Texts().at(0),
        "Post Position's must be used when 'Post Position'\r\nis being used to sort the racers");
    EXPECT_EQ(c.chkUsePostPosition.value, 1);
    c.comRacerSortText = "Program Number";
    c.comRacerSort_Click();
    EXPECT_EQ(world.messages.Texts().back(),
              "Program Number cannot be used to sort unless\r\nthe 'Use Program Numbers' box is "
              "checked!");
}

TEST_F(RaceCardTest, RecoveryFileIsTestedWhenItsBoxesAreClicked) {
    RaceCardLogic& c = Load();
    Type("txtRecoveryFile", "day.tlr");
    world.files.failWrite["day.tlr"] = kErrPermissionDenied;
    Click("chkRecoveryFlag", 1);
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Error opening the Recovery File"});
    EXPECT_EQ(c.focus, "txtRecoveryFile");
    EXPECT_TRUE(c.txtRecoveryFile.visible);
    EXPECT_FALSE(c.txtClearDays.visible);
    world.files.failWrite.clear();
    Click("chkClearRecovery", 1);
    EXPECT_TRUE(c.txtClearDays.visible);
    EXPECT_EQ(std::count(world.files.log.begin(), world.files.log.end(), "append day.tlr"), 3);

    world.dialogs.Next(std::string("/races/new.tlr"));
    G.FilePath = "/races/june.tly";
    Type("txtRecoveryFile", "");
    c.cmdBrowse_Click();
    const FileDialogRequest& req = world.dialogs.requests.at(0);
    EXPECT_EQ(req.initialName, "/races/june");
    EXPECT_EQ(req.filter, "Tamberlin Tally Recovery Files (*.tlr)|*.tlr|All (*.*)|*.*");
    EXPECT_EQ(req.defaultExt, ".tlr");
    EXPECT_EQ(c.txtRecoveryFile.text, "/races/new.tlr");
}

TEST_F(RaceCardTest, FontSizesAreCheckedWhenLeavingTheirBoxes) {
    RaceCardLogic& c = Load();
    Type("txtReportFontSize", "80");
    c.Text_LostFocus("txtReportFontSize");
    EXPECT_EQ(world.messages.Texts().at(0),
              "Report font must be between 2 and 72! (8 is recommended.)");
    EXPECT_EQ(c.focus, "txtReportFontSize");
    Type("txtTicketFontSize", "1");
    c.Text_LostFocus("txtTicketFontSize");
    EXPECT_EQ(world.messages.Texts().at(1),
              "Ticket font must be between 2 and 72!  (10 is recommended.)");
    Type("txtMinBet", "1234.5");
    c.Text_LostFocus("txtMinBet");
    EXPECT_EQ(c.txtMinBet.text, "1,234.50");
    int key = 'a';
    c.Text_KeyPress("txtMinBet", key);
    EXPECT_EQ(key, 0);
    key = 'a';
    c.Text_KeyPress("txtRQuickBet(1)", key);  // this box has no filter
    EXPECT_EQ(key, 'a');
}

TEST_F(RaceCardTest, NewCardThroughFileNewEnablesBettingOnceARaceIsNamed) {
    world.shell.onShow["frmRaceCard"] = [this] {
        RaceCardLogic& c = Load();
        Type("txtFileName", "Fresh Card");
        c.txtRaceName_GotFocus();
        c.cmdOK_Click();
    };
    mnuFileNew_Click();
    EXPECT_EQ(RF.FileName, "Fresh Card");
    EXPECT_EQ(RF.Race(1).RaceName, "1st Race");
    EXPECT_EQ(RF.Race(1).QuickBet(1), C(1));
    EXPECT_NE(RF.FileId, 0);
    EXPECT_EQ(world.shell.raceGroup, std::optional<bool>(true));
}

}  // namespace
}  // namespace tt::test
