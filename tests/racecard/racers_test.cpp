// The racers of a race: the grid, the racer editor and the copy of racers.

#include "race_card.h"

#include "racecard/copy_racers_logic.h"
#include "racecard/edit_racer_logic.h"

namespace tt::test {
namespace {

class RacersTest : public RaceCardTest {
  protected:
    std::vector<std::string> Row(int r) {
        std::vector<std::string> cells;
        for (int c = 0; c < card->flxRacers.Cols(); ++c)
            cells.push_back(card->flxRacers.TextMatrix(r, c));
        return cells;
    }
};

TEST_F(RacersTest, GridShowsOddsScratchesAndSorts) {
    RF.Racer(1, 1).Scratched = true;
    RF.Racer(1, 2).Odds = 0;
    RF.Racer(1, 3).Odds = 9;
    RF.Racer(1, 3).RacerName = "Apple";
    RF.Racer(1, 3).BetNbr = 2;  // a field with racer 2
    RaceCardLogic& c = Load();
    const GridData& g = c.flxRacers;
    ASSERT_EQ(g.Rows(), 4);
    EXPECT_EQ(Row(0), (std::vector<std::string>{"Bet#", "Pgm#", "PP", "Name", "Hcap Odds", ""}));
    EXPECT_EQ(Row(1), (std::vector<std::string>{"1", "", "1", "Horse 11", "Scratched", "1"}));
    EXPECT_EQ(Row(2), (std::vector<std::string>{"2", "", "2", "Horse 12", " 0-0", "2"}));
    EXPECT_EQ(Row(3), (std::vector<std::string>{"2", "", "3", "Apple", " 9- 1", "3"}));
    EXPECT_EQ(g.ColWidth(0), 600);
    EXPECT_EQ(g.ColWidth(1), 0);
    EXPECT_EQ(g.ColWidth(3), 2000);
    EXPECT_EQ(g.ColWidth(5), 0);
    c.comRacerSortText = "Name";
    c.comRacerSort_Click();
    EXPECT_EQ(g.TextMatrix(1, 3), "Apple");
}

TEST_F(RacersTest, NewRacerIsCheckedStoredAndGrowsEveryRace) {
    RaceCardLogic& c = Load();
    RF.RaceType = "Dog";
    onEditRacer = [&] {
        EditRacerLogic e(c);
        e.Form_Load();
        EXPECT_EQ(e.lblRaceName.text, "Race 1 - Opener");
        EXPECT_EQ(e.txtBetNbr.text, "4");
        EXPECT_EQ(e.txtOdds1.text, "1");
        EXPECT_FALSE(e.txtProgramNbr.enabled);
        EXPECT_TRUE(G.CancelFlag);
        e.cmdOK_Click();  // no name
        EXPECT_EQ(world.messages.Texts().back(), "Dog name must not be blank!");
        EXPECT_EQ(e.focus, "txtRacerName");
        EXPECT_EQ(G.CurrentRacer, 4);  // every slot was taken: a new one for every race
        EXPECT_EQ(RF.MaxRacers, 4);
        e.txtRacerName.text = "Rex";
        e.txtBetNbr.text = "0";
        e.Text_Change("txtRacerName");
        e.cmdOK_Click();
        EXPECT_EQ(world.messages.Texts().back(), "Bet Number must be a non-zero number!");
        e.txtBetNbr.text = "7";
        e.txtOdds1.text = "9";
        e.txtOdds2.text = "2";
        e.cmdOK_Click();
        EXPECT_TRUE(e.unloaded);
        EXPECT_FALSE(G.CancelFlag);
    };
    c.cmdNew_Click();
    const RacerRec& rex = c.WorkRacer(1, 4);
    EXPECT_EQ(rex.RacerName, "Rex");
    EXPECT_EQ(rex.BetNbr, 7);
    EXPECT_EQ(rex.Odds, 4.5);
    EXPECT_EQ(c.flxRacers.TextMatrix(c.flxRacers.Row(), 3), "Rex");
    EXPECT_EQ(c.flxRacers.TextMatrix(4, 4), " 9- 2");
    EXPECT_TRUE(c.FormChanged);
    EXPECT_EQ(RF.Racer.UBound(), 5);
    EXPECT_EQ(c.WorkRacer(2, 4).BetNbr, 0);  // the other races simply gain an empty slot

    // The growth survives Cancel; the racer does not.
    world.messages.Answer(kNo);
    c.cmdCancel_Click();
    EXPECT_EQ(RF.MaxRacers, 4);
    EXPECT_EQ(RF.Racer(1, 4).BetNbr, 0);

    // Empty race: "Race not established!".
    RaceCardLogic& d = Load();
    d.GoToRace(5);
    d.cmdNew_Click();
    EXPECT_EQ(world.messages.Texts().back(),
              "Race not established!\r\nPlease enter Race Name before copying racers.");
}

TEST_F(RacersTest, ChangingTheNumberOfARacerWithBetsAsks) {
    RaceCardLogic& c = Load();
    std::string asked;
    onEditRacer = [&] {
        EditRacerLogic e(c);
        e.Form_Load();
        EXPECT_TRUE(e.BetsExist);
        EXPECT_EQ(e.txtOdds1.text, " 5");
        EXPECT_EQ(e.txtOdds2.text, " 2");
        e.txtBetNbr.text = "9";
        e.Text_Change("txtBetNbr");
        world.messages.Answer(kNo);
        e.cmdOK_Click();
        asked = world.messages.shown.back().text;
        EXPECT_EQ(world.messages.shown.back().buttons, Buttons::kYesNo);
        EXPECT_EQ(e.txtBetNbr.text, "2");
        EXPECT_FALSE(e.unloaded);
        e.txtBetNbr.text = "9";
        world.messages.Answer(kYes);
        e.cmdOK_Click();
        EXPECT_TRUE(e.unloaded);
    };
    c.flxRacers.SetRow(2);
    c.flxRacers_DblClick();
    EXPECT_EQ(asked, "Bets exist for original Bet Number!\r\nAre you sure you want to change it?");
    EXPECT_EQ(c.WorkRacer(1, 2).BetNbr, 9);
    EXPECT_EQ(RF.Bet(1, 1).Pick(1), 2);  // the bets keep the old number
    EXPECT_EQ(c.SavedGridRow, 2);

    // OK without an edit counts as cancelled.
    onEditRacer = [&] {
        EditRacerLogic e(c);
        e.Form_Load();
        e.cmdOK_Click();
    };
    c.FormChanged = false;
    c.flxRacers_DblClick();
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_FALSE(c.FormChanged);
}

TEST_F(RacersTest, DeletingARacerAsksOnceForEachMatchingPick) {
    RaceCardLogic& c = Load();
    onEditRacer = [&] {
        EditRacerLogic e(c);
        e.Form_Load();
        world.messages.Answer(kOK);
        world.messages.Answer(kCancel);
        e.cmdDelete_Click();  // picks of 2: the win bet and the exacta's second place
        EXPECT_FALSE(e.unloaded);
        EXPECT_EQ(world.messages.shown.size(), 2u);
        EXPECT_EQ(world.messages.beeps, 4);
        EXPECT_EQ(world.messages.shown[0].text,
                  "Bets exist for this bet number!\r\nAre you sure you want to delete this racer?");
        world.messages.Clear();
        e.cmdDelete_Click();
        EXPECT_TRUE(e.unloaded);
    };
    G.CurrentRacer = 2;
    c.flxRacers.SetRow(2);
    c.flxRacers_DblClick();
    EXPECT_EQ(c.WorkRacer(1, 2).BetNbr, 0);
    EXPECT_EQ(c.WorkRacer(1, 2).PostPosition, "0");
    EXPECT_EQ(c.flxRacers.Rows(), 3);
}

TEST_F(RacersTest, ContinueToAddKeepsTheWindowAndCloseRefreshesTheGrid) {
    RaceCardLogic& c = Load();
    c.GoToRace(3);
    c.txtRRRaceName_GotFocus();
    onEditRacer = [&] {
        EditRacerLogic e(c);
        e.Form_Load();
        e.chkContinueToAdd.value = 1;
        e.chkContinueToAdd_Click();
        EXPECT_EQ(e.cmdCancel.text, "Close");
        for (const char* name : {"Ann", "Bea"}) {
            e.txtRacerName.text = name;
            e.Text_Change("txtRacerName");
            e.cmdOK_Click();
            EXPECT_FALSE(e.unloaded);
            EXPECT_EQ(e.focus, "txtRacerName");
            EXPECT_EQ(G.CurrentRacer, 0);
        }
        EXPECT_EQ(e.txtBetNbr.text, "3");
        world.messages.Clear();
        e.cmdCancel_Click();  // the empty form is dismissed without a question
        EXPECT_TRUE(world.messages.shown.empty());
        EXPECT_TRUE(e.unloaded);
    };
    c.cmdNew_Click();
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(c.flxRacers.Rows(), 3);
    EXPECT_EQ(c.flxRacers.TextMatrix(2, 3), "Bea");
}

TEST_F(RacersTest, CopyRacersStartsAfterTheUsedSlotsAndGrowsTheTables) {
    RaceCardLogic& c = Load();
    c.GoToRace(2);
    c.cmdCopyRacers_Click();
    EXPECT_EQ(world.messages.Texts().back(),
              "Copying racers from another race can only \r\nbe done for a race with no racers.");
    EXPECT_EQ(world.messages.shown.back().icon, Icon::kExclamation);

    // Race 3, named in this session: absent from the list, so nothing is selected.
    c.GoToRace(3);
    c.txtRaceName_GotFocus();
    c.SSTab1 = RaceCardLogic::kRacers;
    c.SSTab1_Click(RaceCardLogic::kRaces);
    c.WorkRacer(3, 1).BetNbr = 5;    // a numbered slot without a name
    c.WorkRacer(1, 2) = RacerRec();  // a gap in the source
    onCopyRacers = [&] {
        CopyRacersLogic f(c);
        f.Form_Load();
        ASSERT_EQ(f.comRaceName.ListCount(), 2);
        EXPECT_EQ(f.comRaceName.List(0), "   1 - Opener");
        EXPECT_FALSE(f.comRaceName.HasSelection());
        f.cmdOK_Click();
        EXPECT_FALSE(f.unloaded);
        f.comRaceName.SetListIndex(0);
        f.cmdOK_Click();
        EXPECT_TRUE(f.unloaded);
    };
    c.cmdCopyRacers_Click();
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(RF.MaxRacers, 4);
    EXPECT_EQ(RF.Racer.UBound(), 5);
    EXPECT_EQ(c.WorkRacer(3, 1).BetNbr, 5);
    EXPECT_EQ(c.WorkRacer(3, 2).RacerName, "Horse 11");
    EXPECT_EQ(c.WorkRacer(3, 3).BetNbr, 0);  // the gap comes along
    EXPECT_EQ(c.WorkRacer(3, 4).RacerName, "Horse 13");
    EXPECT_EQ(c.WorkRacer(3, 4).Odds, 2.5);

    c.GoToRace(1);
    onCopyRacers = [&] {
        CopyRacersLogic f(c);
        f.Form_Load();
        EXPECT_EQ(f.comRaceName.ListIndex(), 0);
        world.messages.Clear();
        f.cmdOK_Click();
        EXPECT_EQ(world.messages.Texts(),
                  std::vector<std::string>{"Cannot copy racers from the current race!"});
        f.cmdCancel_Click();
    };
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n) c.WorkRacer(1, n).RacerName.clear();
    c.cmdCopyRacers_Click();
    EXPECT_TRUE(G.CancelFlag);
}

}  // namespace
}  // namespace tt::test
