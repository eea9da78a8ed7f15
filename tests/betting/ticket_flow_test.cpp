// A ticket's way into the transaction and out again: Accept Ticket and the ticket's action and
// amounts, Cancel Tckt with its question, the rollback of an unchanged ticket, and the numbers
// that new tickets get across Close, cancels and tickets accepted empty.

#include "ticket_card.h"

namespace tt::test {
namespace {

class TicketFlow : public TicketCard {
  protected:
    void SetUp() override {
        TicketCard::SetUp();
        Ticket(1, 2, {{1, 2, {3}}, {2, 3, {5}}});  // ticket 1
        Ticket(2, 3, {{1, 5, {1}}});               // ticket 2
        StartTransaction();
    }
    // Start New Ticket for Alice in race 1, with Place Bet scripted; returns the number shown.
    std::string NewTicketWith(std::function<void(PlaceBetsLogic&)> script) {
        OnPlaceBets(std::move(script));
        Betting.TicketMode = kNewTicket;
        TicketHeaderLogic h;
        h.Form_Load();
        h.comBettor.Select(0);
        h.comBettor_Click();
        h.cmdEdit_Click();
        return h.txtTicketNbr.text;
    }
    void EditTicket(int ticket, std::function<void(PlaceBetsLogic&)> script) {
        OnPlaceBets(std::move(script));
        Betting.TicketMode = kEditTicket;
        TicketHeaderLogic h;
        h.Form_Load();
        h.txtTicketNbr.text = std::to_string(ticket);
        h.cmdEdit_Click();
    }
    // The number the next Start New Ticket shows, given back at once with Close.
    std::string NextNumber() {
        Betting.TicketMode = kNewTicket;
        TicketHeaderLogic h;
        h.Form_Load();
        h.cmdCancel_Click();
        return h.txtTicketNbr.text;
    }
};

TEST_F(TicketFlow, AcceptTicketPutsTheNewTicketAndItsBetsIntoTheTransaction) {
    const std::string nbr = NewTicketWith([](PlaceBetsLogic& p) {
        EXPECT_EQ(p.fraTicket.text, "Ticket # 3");
        EXPECT_EQ(p.lblRaceName.text, "1 - Opener");
        EXPECT_EQ(p.lblBettorName.text, "Alice Hartley");
        PlaceBet(p, "2", 'W', {3});
        PlaceBet(p, "1", 'E', {1, 2, 5}, true);
        p.cmdAcceptTicket_Click();
        EXPECT_TRUE(p.unloaded);
        EXPECT_TRUE(p.TicketAccepted);
        EXPECT_TRUE(p.AcceptedChanged);
    });
    EXPECT_EQ(nbr, "3");
    ASSERT_EQ(Betting.TranTicketCount, 1);
    const TranTicket& t = Betting.TranTickets(1);
    EXPECT_EQ(t.Action, "New ");
    EXPECT_EQ(t.NewAmtBet, C(8));
    EXPECT_EQ(t.NewCollected, C(8));
    ASSERT_EQ(Betting.TranBetCount, 2);
    EXPECT_EQ(Betting.TranBets(2).TicketNbr, 3);
    EXPECT_EQ(Betting.TranBets(2).BetCost, C(6));
    EXPECT_EQ(NextNumber(), "4");
}

TEST_F(TicketFlow, ANewTicketAcceptedEmptyIsCancelledAndKeepsItsNumber) {
    NewTicketWith([](PlaceBetsLogic& p) { p.cmdAcceptTicket_Click(); });
    ASSERT_EQ(Betting.TranTicketCount, 1);
    const TranTicket& t = Betting.TranTickets(1);
    EXPECT_EQ(t.Action, "Canc");
    EXPECT_EQ(t.TicketNbr, 3);
    EXPECT_EQ(t.Race, 0);
    EXPECT_EQ(t.Bettor, 0);
    EXPECT_EQ(NextNumber(), "4");
}

TEST_F(TicketFlow, CloseAndAnUnchangedCancelGiveTheNumberBack) {
    EXPECT_EQ(NextNumber(), "3");
    EXPECT_EQ(NextNumber(), "3");
    NewTicketWith([](PlaceBetsLogic& p) { p.cmdCancel_Click(); });
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(Betting.TranTicketCount, 0);
    EXPECT_EQ(Betting.NewTicketCount, 0);
    EXPECT_EQ(NextNumber(), "3");
}

TEST_F(TicketFlow, CancelTcktAfterAChangeAsksAndNoKeepsTheWindow) {
    NewTicketWith([this](PlaceBetsLogic& p) {
        PlaceBet(p, "2", 'W', {3});
        world.messages.Answer(kNo);
        p.cmdCancel_Click();
        EXPECT_FALSE(p.unloaded);
        EXPECT_TRUE(G.CancelFlag);
        world.messages.Answer(kYes);
        p.cmdCancel_Click();
        EXPECT_TRUE(p.unloaded);
    });
    EXPECT_EQ(
        world.messages.Texts(),
        (std::vector<std::string>{"Do you really want to cancel the changes to this ticket?",
                                  "Do you really want to cancel the changes to this ticket?"}));
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kYesNo);
    EXPECT_EQ(Betting.TranTicketCount, 0);
    EXPECT_EQ(Betting.TranBetCount, 0);
    EXPECT_EQ(NextNumber(), "3");
}

TEST_F(TicketFlow, AcceptTicketWithAChangedBetAsksToSaveItFirst) {
    NewTicketWith([this](PlaceBetsLogic& p) {
        PlaceBet(p, "2", 'W', {3});
        TypeAmount(p, "5");
        TypeKey(p, 'P');
        TypePick(p, 1, 2);
        world.messages.Answer(kYes);
        p.cmdAcceptTicket_Click();
        ASSERT_EQ(world.messages.shown.size(), 1u);
        EXPECT_EQ(world.messages.shown[0].text,
                  "Displayed bet info has changed,\r\n"
                  "Do you wish to save those changes before accepting the ticket?");
        EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kYesNoCancel);
        EXPECT_EQ(world.messages.shown[0].title, "Place Bet");
    });
    EXPECT_EQ(Betting.TranTickets(1).NewAmtBet, C(7));
    EXPECT_EQ(Betting.TranBetCount, 2);
}

TEST_F(TicketFlow, AnEditedTicketTakesItsNewTotalAndAnUnchangedOneLeavesTheTransaction) {
    EditTicket(1, [](PlaceBetsLogic& p) {
        EXPECT_TRUE(p.lblOriginal.visible);
        EXPECT_EQ(p.lblOriginalAmtBet.text, "$5.00");
        EXPECT_EQ(p.flxBets.Rows(), 3);
        EXPECT_EQ(p.flxBets.TextMatrix(1, 0), "1");
        p.cmdAcceptTicket_Click();
    });
    EXPECT_EQ(Betting.TranTicketCount, 0) << "nothing changed";

    EditTicket(1, [this](PlaceBetsLogic& p) {
        p.flxBets_Click(2);
        world.messages.Answer(kOK);
        p.cmdDelete_Click();
        p.cmdAcceptTicket_Click();
    });
    ASSERT_EQ(Betting.TranTicketCount, 1);
    const TranTicket& t = Betting.TranTickets(1);
    EXPECT_EQ(t.Action, "Edit");
    EXPECT_EQ(t.OldCost, C(5));
    EXPECT_EQ(t.NewAmtBet, C(2));
    EXPECT_EQ(t.NewCollected, C(2));
    // The ticket's bets: the deleted one blanked, the other kept with its slot.
    int live = 0;
    for (std::int64_t i = 1; i <= Betting.TranBetCount; ++i) {
        const TempBet& b = Betting.TranBets(i);
        if (b.BetType == 0) continue;
        ++live;
        EXPECT_EQ(b.TicketNbr, 1);
        EXPECT_EQ(b.OrigBetIdx, 1);
    }
    EXPECT_EQ(live, 1);
}

TEST_F(TicketFlow, RollBackTicketTakesOnlyTheLastUnchangedNewOrEditTicket) {
    PlaceBetsLogic p;
    NewTicket(1, 1);
    NewTicket(1, 2);
    Betting.CurTranTicket = 1;
    p.RollBackTicket();
    EXPECT_EQ(Betting.TranTicketCount, 2) << "not the last";
    Betting.CurTranTicket = 2;
    Betting.TranTickets(2).Action = kEditAgain;
    p.RollBackTicket();
    EXPECT_EQ(Betting.TranTicketCount, 2) << "opened again";
    Betting.TranTickets(2).Action = kEditTicket;
    p.RollBackTicket();
    EXPECT_EQ(Betting.TranTicketCount, 1);
    EXPECT_EQ(Betting.NewTicketCount, 2);
    Betting.CurTranTicket = 1;
    p.RollBackTicket();
    EXPECT_EQ(Betting.TranTicketCount, 0);
    EXPECT_EQ(Betting.NewTicketCount, 1);
}

TEST_F(TicketFlow, ANewTicketOpenedAgainAndAcceptedUnchangedLeavesTheTransaction) {
    NewTicketWith([](PlaceBetsLogic& p) {
        PlaceBet(p, "2", 'W', {3});
        p.cmdAcceptTicket_Click();
    });
    ASSERT_EQ(Betting.TranTicketCount, 1);
    // Opened again from the ticket window by its number, and accepted as it is.
    EditTicket(3, [](PlaceBetsLogic& p) {
        EXPECT_EQ(Betting.TicketMode, "ENew");
        EXPECT_EQ(p.flxBets.Rows(), 2);
        EXPECT_FALSE(p.lblOriginal.visible);
        p.cmdAcceptTicket_Click();
    });
    EXPECT_EQ(Betting.TranTicketCount, 0);
    EXPECT_EQ(Betting.NewTicketCount, 0);
}

}  // namespace
}  // namespace tt::test
