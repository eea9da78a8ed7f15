// "Display Bet Pick's": where its bet comes from, and a row for every racer behind a pick.

#include "betting/bet_display_logic.h"
#include "ticket_card.h"

namespace tt::test {
namespace {

class BetDisplay : public TicketCard {
  protected:
    void SetUp() override {
        TicketCard::SetUp();
        RF.UseProgramNbr = true;
        Ticket(1, 1, {{4, 2, {1, 3}}, {6, 2, {5, 9}}});  // Exacta 1-3, Daily Double 5 / 9
        StartTransaction();
    }
    std::vector<std::string> Rows(const BetDisplayLogic& d) {
        std::vector<std::string> v;
        for (int r = 1; r < d.flxPicks.Rows(); ++r) {
            std::string row;
            for (int c = 0; c < d.flxPicks.Cols(); ++c)
                row += (c ? "|" : "") + d.flxPicks.TextMatrix(r, c);
            v.push_back(row);
        }
        return v;
    }
};

TEST_F(BetDisplay, ABetOfTheFileShowsEachRacerOfItsPicks) {
    G.CurrentRace = 1;
    G.CurrentBet = 1;
    BetDisplayLogic d;
    d.Form_Load();
    EXPECT_EQ(d.caption, "Display Bet Pick's");
    EXPECT_EQ(d.Label1.text, "Click on this table or press any key to close");
    EXPECT_EQ(Rows(d), (std::vector<std::string>{"1|1|Thistledown|1|2", "1|1|Thistle Bloom|1A|6",
                                                 "2|3|Paper Moon|3|3"}));
    EXPECT_EQ(d.flxPicks.ColWidth(3), 500);
    EXPECT_EQ(d.flxPicks.ColWidth(4), 0) << "no post positions on this card";
    d.Form_Click();
    EXPECT_TRUE(d.unloaded);
}

TEST_F(BetDisplay, TheLegsOfAMultiRaceBetComeFromTheNextRacesAndAnUnknownNumberIsInvalid) {
    G.CurrentRace = 1;
    G.CurrentBet = 2;
    BetDisplayLogic d;
    d.Form_Load();
    EXPECT_EQ(Rows(d), (std::vector<std::string>{"1|5|Harbor Light|5|5", "2|9|Invalid bet#||"}));
}

TEST_F(BetDisplay, TheBetLastLoadedIntoTheTransactionWinsOverTheRowClicked) {
    // Editing ticket 1 loads both its bets; the Daily Double is loaded last.
    OnPlaceBets([](PlaceBetsLogic& p) {
        p.flxBets_DblClick(1);  // the Exacta's row
        p.cmdAcceptTicket_Click();
    });
    std::vector<std::string> shown;
    world.shell.onShow["frmBetDisplay"] = [&] {
        BetDisplayLogic d;
        d.Form_Load();
        shown = Rows(d);
    };
    Betting.TicketMode = kEditTicket;
    TicketHeaderLogic h;
    h.Form_Load();
    h.txtTicketNbr.text = "1";
    h.cmdEdit_Click();
    EXPECT_EQ(Betting.LoadedTranBet, 2);
    EXPECT_EQ(shown, (std::vector<std::string>{"1|5|Harbor Light|5|5", "2|9|Invalid bet#||"}));
    EXPECT_EQ(G.CurrentBet, 0);
}

TEST_F(BetDisplay, WithNothingLoadedOrNoRaceTheTableStaysEmpty) {
    G.CurrentRace = 1;
    G.CurrentBet = 0;
    BetDisplayLogic d;
    d.Form_Load();
    EXPECT_EQ(d.flxPicks.Rows(), 1);
    EXPECT_EQ(d.flxPicks.TextMatrix(0, 2), "Name");
    G.CurrentRace = 0;
    G.CurrentBet = 1;
    BetDisplayLogic none;
    none.Form_Load();
    EXPECT_EQ(none.flxPicks.Rows(), 1);
}

}  // namespace
}  // namespace tt::test
