// The ticket window: its lists in each mode, the ticket number typed or chosen, the questions
// of Cash/Collect for one ticket and for several, and what each mode puts into the
// transaction.

#include "ticket_card.h"

namespace tt::test {
namespace {

class TicketHeader : public TicketCard {
  protected:
    void SetUp() override {
        TicketCard::SetUp();
        // 1: Alice, race 1, open.  2: bob, race 3, won 7.50.  3: Carmen, race 1, 4.00 not
        // collected.  4: Alice, race 2, settled.  5: no longer counts.
        Ticket(1, 1, {{1, 2, {3}}, {11, 1, {5}}});
        Ticket(3, 2, {{1, 3, {2}}});
        RF.Ticket(2).Winnings = C(7.5);
        RF.Bet(3, 1).BetWinnings = C(7.5);
        Ticket(1, 3, {{2, 4, {1}}});
        RF.Ticket(3).Collected = Currency();
        Ticket(2, 1, {{3, 2, {1}}});
        Ticket(2, 3, {{3, 2, {2}}});
        RF.Ticket(5).TicketBettor = 0;
        StartTransaction();
        world.shell.onShow["frmPlaceBets"] = [] {};
    }
    void Open(const char* mode) {
        Betting.TicketMode = mode;
        h.Form_Load();
    }
    std::vector<std::string> Column(int c) {
        std::vector<std::string> v;
        for (int r = 1; r < h.flxBets.Rows(); ++r) v.push_back(h.flxBets.TextMatrix(r, c));
        return v;
    }
    void Type(const std::string& number) { h.txtTicketNbr.text = number; }
    TicketHeaderLogic h;
};

TEST_F(TicketHeader, NewGivesOutTheNextNumberAndListsOnlyOpenRaces) {
    Open(kNewTicket);
    EXPECT_EQ(h.caption, "Start a New Ticket");
    EXPECT_EQ(h.txtTicketNbr.text, "6");
    EXPECT_FALSE(h.txtTicketNbr.enabled);
    EXPECT_EQ(Betting.NewTicketCount, 1);
    EXPECT_EQ(h.cmdEdit.text, "Place Bets");
    EXPECT_EQ(h.cmdEdit.toolTip, "Place bets on selected race and bettor. (F2 or Ctrl + P)");
    EXPECT_FALSE(h.flxBetsState.visible);
    EXPECT_FALSE(h.chkContinue.visible);
    ASSERT_EQ(h.comRaceName.list.ListCount(), 2);
    EXPECT_EQ(h.comRaceName.list.List(0), "   1 - Opener");
    EXPECT_EQ(h.comRaceName.list.List(1), "   2 - Second");
    EXPECT_EQ(h.comRaceName.text, "   1 - Opener");
    EXPECT_EQ(h.chkDefault.value, 1);
    // Sorted without regard to case, and no " All bettors" for a new ticket.
    std::vector<std::string> bettors;
    for (const ListItem& it : h.comBettor.list.Items()) bettors.push_back(it.text);
    EXPECT_EQ(bettors, (std::vector<std::string>{"Alice Hartley", "bob fenwick", "Carmen Ortiz"}));
    EXPECT_FALSE(h.comBettor.list.HasSelection());
}

TEST_F(TicketHeader, NewStartsOnTheNextOpenRaceAndRefusesWhenEveryRaceHasResults) {
    G.CurrentRace = 3;
    Open(kNewTicket);
    EXPECT_EQ(G.CurrentRace, 1);

    RF.Race(1).Result(1) = 1;
    RF.Race(2).Result(1) = 1;
    G.CurrentRace = 1;
    TicketHeaderLogic again;
    Betting.TicketMode = kNewTicket;
    again.Form_Load();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Results for all races have been entered!\r\n"
                                       "No bets can be placed!"});
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_TRUE(again.unloaded);
    EXPECT_EQ(Betting.NewTicketCount, 1) << "only the first window gave out a number";
}

TEST_F(TicketHeader, TheDummyBettorIsAddedAtOnceAndChosen) {
    RF.DefaultToDummy = true;
    Open(kNewTicket);
    EXPECT_EQ(RF.BettorCount, 4);
    EXPECT_EQ(RF.Bettor(4).BettorName, " Not Specified");
    EXPECT_EQ(h.comBettor.list.List(0), " Not Specified");
    EXPECT_EQ(h.comBettor.list.SelectedData(), 4);
    EXPECT_EQ(G.CurrentBettor, 4);
    TicketHeaderLogic again;
    again.Form_Load();
    EXPECT_EQ(RF.BettorCount, 4) << "found, not added again";
}

TEST_F(TicketHeader, PlaceBetsNamesWhatIsMissingThenStartsTheTicket) {
    Open(kNewTicket);
    h.cmdEdit_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Please select a bettor for the ticket!"});
    EXPECT_EQ(h.focus, "comBettor");
    h.comBettor.text = "CARMEN ORTIZ";
    h.comBettor_Change();
    EXPECT_EQ(G.CurrentBettor, 3);
    h.cmdEdit_Click();
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmPlaceBets (modal)"});
    ASSERT_EQ(Betting.TranTicketCount, 1);
    const TranTicket& t = Betting.TranTickets(1);
    EXPECT_EQ(t.Action, "New ");
    EXPECT_EQ(t.TicketNbr, 6);
    EXPECT_EQ(t.Race, 1);
    EXPECT_EQ(t.Bettor, 3);
    EXPECT_TRUE(h.unloaded);
    EXPECT_EQ(G.CurrentTicket, 0);

    TicketHeaderLogic none;
    none.Form_Load();
    none.comRaceName.Select(-1);
    none.cmdEdit_Click();
    EXPECT_EQ(world.messages.Texts().back(), "Please select a race for the ticket!");
    EXPECT_EQ(none.focus, "comRaceName");
}

TEST_F(TicketHeader, ATypedRaceNumberChoosesItsRace) {
    Open(kEditTicket);
    h.comRaceName.text = "2";
    h.comRaceName_Change();
    int enter = 13;
    h.comRaceName_KeyPress(enter);
    EXPECT_EQ(enter, 0);
    EXPECT_EQ(G.CurrentRace, 2);
    EXPECT_EQ(h.comRaceName.text, "   2 - Second");
    EXPECT_EQ(h.chkDefault.value, 0);
    EXPECT_EQ(world.messages.beeps, 1) << "Enter is no digit either";
    EXPECT_EQ(Column(0), std::vector<std::string>{"4"});
    h.comRaceName_KeyUp(13);
    EXPECT_EQ(h.focus, "comBettor");

    h.focus.clear();
    h.comRaceName.text = "3";
    h.comRaceName_Change();
    h.comRaceName_LostFocus();
    EXPECT_EQ(world.messages.beeps, 2);
    EXPECT_EQ(h.focus, "comRaceName");
    EXPECT_EQ(G.CurrentRace, 2);
    int letter = 'a';
    h.comRaceName_KeyPress(letter);
    EXPECT_EQ(letter, 0);
}

TEST_F(TicketHeader, TheEditListHoldsTheTicketsOfOpenRacesThatStillCount) {
    G.CurrentRace = 0;
    RF.DefaultRace = 3;
    Open(kEditTicket);
    EXPECT_EQ(h.caption, "Select a Ticket to Edit");
    EXPECT_EQ(h.cmdEdit.text, "Edit Ticket");
    EXPECT_EQ(h.cmdEdit.toolTip, "Edit bets for selected ticket. (F2 or Ctrl + E)");
    EXPECT_EQ(h.comRaceName.list.List(0), " All w/out Results");
    EXPECT_EQ(h.comBettor.list.List(0), " All bettors");
    // The default race has results: the next open race is listed.
    EXPECT_EQ(G.CurrentRace, 1);
    EXPECT_EQ(h.comRaceName.list.SelectedData(), 1);
    std::vector<std::string> heads;
    for (int c = 0; c < h.flxBets.Cols(); ++c) heads.push_back(h.flxBets.TextMatrix(0, c));
    EXPECT_EQ(heads, (std::vector<std::string>{"Ticket#", "Bettor", "Race", "Amt Bet", "Collected",
                                               "Distributed"}));
    EXPECT_EQ(h.flxBets.ColWidth(1), 1500);
    EXPECT_EQ(Column(0), (std::vector<std::string>{"1", "3"}));
    EXPECT_EQ(Column(2), (std::vector<std::string>{" 1 - Opener", " 1 - Opener"}));
    EXPECT_EQ(Column(3), (std::vector<std::string>{"$5.00", "$4.00"}));
    EXPECT_EQ(Column(4), (std::vector<std::string>{"$5.00", "$.00"}));

    h.comRaceName.Select(0);
    h.comRaceName_Click();
    EXPECT_EQ(Column(0), (std::vector<std::string>{"1", "3", "4"}));
    h.comBettor.Select(1);  // Alice Hartley
    h.comBettor_Click();
    EXPECT_EQ(Column(0), (std::vector<std::string>{"1", "4"}));
    EXPECT_TRUE(h.FormChanged);
}

TEST_F(TicketHeader, TheCashListHoldsEveryTicketWithMoneyDueWhetherItCountsOrNot) {
    G.CurrentRace = 0;
    RF.Ticket(5).Collected = C(1);
    Open(kCashTicket);
    EXPECT_EQ(h.caption, "Select a Ticket to Cash or Collect");
    EXPECT_EQ(h.cmdEdit.text, "Cash/Collect Ticket");
    EXPECT_EQ(h.cmdEdit.toolTip,
              "Cash or collect balance due on selected ticket. (F2 or Ctrl + C)");
    EXPECT_EQ(h.comRaceName.list.List(0), " All Races");
    EXPECT_EQ(h.comRaceName.list.ListCount(), 4);
    EXPECT_TRUE(h.multiSelect);
    EXPECT_TRUE(h.chkContinue.visible);
    EXPECT_EQ(h.flxBets.TextMatrix(0, 5), "Amt Won");
    EXPECT_EQ(Column(0), (std::vector<std::string>{"2", "3", "5"}));
    EXPECT_EQ(Column(5), (std::vector<std::string>{"$7.50", "$.00", "$.00"}));
    EXPECT_EQ(Column(1), (std::vector<std::string>{"bob fenwick", "Carmen Ortiz", ""}));
}

TEST_F(TicketHeader, CheckTicketNbrTakesTicketsThatCountAndNewTicketsOfThisTransaction) {
    Open(kEditTicket);
    for (const char* good : {"1", "4"}) {
        G.CurrentTicket = 0;
        Type(good);
        h.CheckTicketNbr();
        EXPECT_FALSE(G.CancelFlag) << good;
    }
    for (const char* bad : {"5", "6", "0", "x", "-2"}) {
        G.CurrentTicket = 0;
        world.messages.Clear();
        Type(bad);
        h.CheckTicketNbr();
        EXPECT_EQ(world.messages.Texts(),
                  std::vector<std::string>{"Invalid Ticket Number for this file!"})
            << bad;
        EXPECT_TRUE(G.CancelFlag);
        EXPECT_EQ(G.CurrentTicket, 0);
        EXPECT_EQ(h.selectText, "txtTicketNbr");
    }
    // Ticket 6 becomes valid once this transaction has it.
    Betting.NewTicketCount = 1;
    Betting.TranTicketCount = 1;
    Betting.TranTickets(1).TicketNbr = 6;
    G.CurrentTicket = 0;
    Type("6");
    h.CheckTicketNbr();
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(G.CurrentTicket, 6);
}

TEST_F(TicketHeader, EditCopiesTheTicketAndItsBetsIntoTheTransaction) {
    Open(kEditTicket);
    Type("1");
    int enter = 13;
    h.txtTicketNbr_KeyPress(enter);
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmPlaceBets (modal)"});
    ASSERT_EQ(Betting.TranTicketCount, 1);
    const TranTicket& t = Betting.TranTickets(1);
    EXPECT_EQ(t.Action, "Edit");
    EXPECT_EQ(t.TicketNbr, 1);
    EXPECT_EQ(t.Bettor, 1);
    EXPECT_EQ(t.OldCost, C(5));
    EXPECT_EQ(t.NewAmtBet, C(5));
    EXPECT_EQ(t.NewCollected, C(5));
    ASSERT_EQ(Betting.TranBetCount, 2);
    EXPECT_EQ(Betting.TranBets(2).BetType, 11);
    EXPECT_EQ(Betting.TranBets(2).BetCost, C(3));
    EXPECT_EQ(Betting.TranBets(2).OrigBetIdx, 2);
    EXPECT_EQ(Betting.TranBets(2).TicketNbr, 1);
    EXPECT_EQ(Betting.LoadedTranBet, 2);
    EXPECT_TRUE(h.unloaded);

    // The same ticket again is edited again, not copied twice.
    TicketHeaderLogic again;
    again.Form_Load();
    again.txtTicketNbr.text = "1";
    again.cmdEdit_Click();
    EXPECT_EQ(Betting.TranTicketCount, 1);
    EXPECT_EQ(Betting.TranTickets(1).Action, "ReEd");
}

TEST_F(TicketHeader, ATicketOfARaceWithResultsCannotBeEdited) {
    Open(kEditTicket);
    Type("2");
    h.cmdEdit_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"The race for this ticket is complete!\r\n"
                                       "Bets on this ticket cannot be edited!"});
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(Betting.TranTicketCount, 0);
    EXPECT_FALSE(h.unloaded);
    EXPECT_EQ(h.focus, "txtTicketNbr");
}

TEST_F(TicketHeader, ANewTicketOfThisTransactionOpensAgainAsENew) {
    Betting.TicketMode = kNewTicket;
    NewTicket(1, 2);  // ticket 6
    Open(kEditTicket);
    Type("6");
    h.cmdEdit_Click();
    EXPECT_EQ(Betting.TranTicketCount, 1);
    EXPECT_EQ(Betting.TranTickets(1).Action, "ENew");
    EXPECT_EQ(Betting.TicketMode, "ENew");
}

TEST_F(TicketHeader, CashAsksForTheBalanceAndSettlesInFull) {
    Open(kCashTicket);
    world.messages.Answer(kOK);
    Type("2");
    h.cmdEdit_Click();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Cash ticket # 2 for $7.50"});
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kOKCancel);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kNone);
    EXPECT_EQ(world.messages.beeps, 1);
    ASSERT_EQ(Betting.TranTicketCount, 1);
    const TranTicket& t = Betting.TranTickets(1);
    EXPECT_EQ(t.Action, "Cash");
    EXPECT_EQ(t.NewDistributed, C(7.5));
    EXPECT_EQ(t.NewCollected, C(3));
    EXPECT_EQ(Betting.TranBets(1).PriorWinnings, C(7.5));
    EXPECT_TRUE(h.unloaded);
}

TEST_F(TicketHeader, CollectNamesTheTicketWithoutABlankAndCancelLeavesNothing) {
    Open(kCashTicket);
    world.messages.Answer(kCancel);
    Type("3");
    h.cmdEdit_Click();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Collect $4.00 for ticket #3"});
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(G.CurrentTicket, 0);
    EXPECT_EQ(Betting.TranTicketCount, 0);
    EXPECT_FALSE(h.unloaded);
    EXPECT_EQ(h.selectText, "txtTicketNbr");
}

TEST_F(TicketHeader, ASettledTicketAsksWhetherToIncludeItAnywayWithNoAsDefault) {
    Open(kCashTicket);
    h.chkContinue.value = 1;
    world.messages.Answer(kNo);
    Type("4");
    h.cmdEdit_Click();
    ASSERT_EQ(world.messages.shown.size(), 1u);
    const MessageRequest& q = world.messages.shown[0];
    EXPECT_EQ(q.text,
              "There is nothing to cash or collect on this ticket!\r\n"
              "Do you want to include it in the transaction anyway?");
    EXPECT_EQ(q.buttons, Buttons::kYesNo);
    EXPECT_EQ(q.icon, Icon::kExclamation);
    EXPECT_EQ(q.defaultButton, 1);
    EXPECT_EQ(Betting.TranTicketCount, 0);

    world.messages.Answer(kYes);
    h.cmdEdit_Click();
    EXPECT_EQ(Betting.TranTicketCount, 1);
    EXPECT_FALSE(h.unloaded) << "Continue to Cash/Collect keeps the window";
    world.messages.Clear();
    h.cmdEdit_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Ticket already handled in this transaction!"});
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kInformation);
    EXPECT_TRUE(G.CancelFlag);
    // Clearing the box closes the window.
    h.chkContinue.value = 0;
    h.chkContinue_Click();
    EXPECT_TRUE(h.unloaded);
}

TEST_F(TicketHeader, SeveralRowsAreCashedTogetherAfterOneQuestion) {
    G.CurrentRace = 0;
    RF.Ticket(5).Collected = C(1);
    Open(kCashTicket);
    // Ticket 3 is in the transaction already.
    world.messages.Answer(kOK);
    Type("3");
    h.cmdEdit_Click();
    TicketHeaderLogic several;
    several.Form_Load();
    several.flxBets.SetRow(1);
    several.flxBets.SetRowSel(3);
    several.flxBets_Click();
    EXPECT_EQ(several.txtTicketNbr.text, " ");
    world.messages.Clear();
    world.messages.Answer(kOK);
    several.cmdEdit_Click();
    ASSERT_EQ(world.messages.shown.size(), 1u);
    EXPECT_EQ(world.messages.shown[0].text,
              " 2 tickets have been selected.\r\n"
              "A net of $6.50 should be paid out. \r\n"
              "( 1 tickets are already included in the transaction.)\n\r\n"
              "Do you wish to add these to the transaction?");
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kOKCancel);
    ASSERT_EQ(Betting.TranTicketCount, 3);
    EXPECT_EQ(Betting.TranTickets(2).TicketNbr, 2);
    EXPECT_EQ(Betting.TranTickets(3).TicketNbr, 5);
    EXPECT_EQ(Betting.TranTickets(3).Action, "Cash");
    EXPECT_TRUE(several.unloaded);
}

TEST_F(TicketHeader, CancellingSeveralRowsLeavesTheFocusInTheList) {
    G.CurrentRace = 0;
    Open(kCashTicket);
    h.flxBets.SetRow(2);
    h.flxBets.SetRowSel(1);
    h.flxBets_Click();
    world.messages.Answer(kCancel);
    h.cmdEdit_Click();
    EXPECT_EQ(world.messages.shown[0].text,
              " 2 tickets have been selected.\r\n"
              "A net of $3.50 should be paid out. \n\r\n"
              "Do you wish to add these to the transaction?");
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(h.focus, "flxBets");
    EXPECT_EQ(Betting.TranTicketCount, 0);
    // The Enter that closed the question only clears the flag.
    h.flxBets_KeyUp(13);
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(world.messages.shown.size(), 1u);
}

TEST_F(TicketHeader, CloseGivesBackTheNumberOfANewTicket) {
    Open(kNewTicket);
    h.cmdCancel_Click();
    EXPECT_EQ(Betting.NewTicketCount, 0);
    TicketHeaderLogic again;
    again.Form_Load();
    EXPECT_EQ(again.txtTicketNbr.text, "6");
}

TEST_F(TicketHeader, SetAsDefaultMakesTheChosenRaceTheDefault) {
    Open(kNewTicket);
    h.comRaceName.Select(1);
    h.comRaceName_Click();
    EXPECT_EQ(h.chkDefault.value, 0);
    h.chkDefault.value = 1;
    h.chkDefault_Click();
    EXPECT_EQ(RF.DefaultRace, 2);
}

TEST_F(TicketHeader, TheWindowsKeysRunTheActionButton) {
    Open(kEditTicket);
    Type("1");
    EXPECT_FALSE(h.Form_KeyDown('E', 0, "txtTicketNbr"));
    EXPECT_FALSE(h.Form_KeyDown('E', 6, "txtTicketNbr"));
    EXPECT_TRUE(h.Form_KeyDown('E', 2, "txtTicketNbr"));
    EXPECT_EQ(Betting.TranTicketCount, 1);
    for (int key : {113, int('P'), int('C')}) {
        TicketHeaderLogic other;
        other.Form_Load();
        other.txtTicketNbr.text = "3";
        EXPECT_TRUE(other.Form_KeyDown(key, key == 113 ? 0 : 2, "txtTicketNbr"));
        EXPECT_TRUE(other.unloaded) << key;
    }
}

}  // namespace
}  // namespace tt::test
