// The bettors: the list, the editor, slot reuse, exact duplicates and the total bet.

#include "race_card.h"

#include "model/common.h"
#include "racecard/edit_bettor_logic.h"
#include "racecard/select_bettor_logic.h"

namespace tt::test {
namespace {

using BettorsTest = RaceCardTest;

TEST_F(BettorsTest, NewBettorsReuseEmptySlotsAndNamesMustDifferExactly) {
    std::function<void(EditBettorLogic&)> edit;
    world.shell.onShow["frmEditBettor"] = [&] {
        EditBettorLogic e;
        e.Form_Load();
        edit(e);
    };
    SelectBettorLogic list;
    list.Form_Load();
    EXPECT_TRUE(list.centerOnScreen);

    edit = [&](EditBettorLogic& e) {
        e.cmdOK_Click();
        EXPECT_EQ(world.messages.Texts().back(), "Bettor Name is required.");
        e.txtBettorName.text = "Alice";
        e.Text_Change("txtBettorName");
        e.cmdOK_Click();
        EXPECT_EQ(world.messages.Texts().back(), "Bettor with this name already exists!");
        EXPECT_EQ(e.focus, "txtBettorName");
        e.txtBettorName.text = "ALICE";  // case counts
        e.txtBettorPhone.text = "555-0101";
        e.cmdOK_Click();
        EXPECT_TRUE(e.unloaded);
    };
    list.cmdNew_Click();
    EXPECT_EQ(RF.BettorCount, 2);
    EXPECT_EQ(RF.Bettor.UBound(), 3);
    EXPECT_EQ(RF.Bettor(2).BettorName, "ALICE");
    EXPECT_EQ(RF.Bettor(2).BettorPhone, "555-0101");
    EXPECT_TRUE(G.FileChanged);
    ASSERT_EQ(list.lstBettors.ListCount(), 2);
    EXPECT_EQ(list.lstBettors.ListIndex(), list.lstBettors.List(0) == "ALICE" ? 0 : 1);

    // Delete Alice: her ticket now points at an empty slot, which the next bettor takes.
    SelectByItemData(list.lstBettors, 1);
    world.messages.Clear();
    world.messages.Answer(kYes);
    list.cmdDelete_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Are you sure you want to delete Alice?"});
    EXPECT_EQ(RF.Bettor(1).BettorName, "");
    EXPECT_EQ(DeletedBettors, 1);
    EXPECT_EQ(list.lstBettors.ListCount(), 1);
    EXPECT_FALSE(list.lstBettors.HasSelection());
    list.cmdEdit_Click();
    EXPECT_EQ(world.messages.Texts().back(), "Select a Bettor to Edit");
    list.cmdDelete_Click();
    EXPECT_EQ(world.messages.Texts().back(), "Select a Bettor to Delete");
    EXPECT_FALSE(world.shell.busy);

    edit = [&](EditBettorLogic& e) {
        e.txtBettorName.text = "Zed";
        e.Text_Change("txtBettorName");
        e.cmdOK_Click();
    };
    list.cmdNew_Click();
    EXPECT_EQ(G.CurrentBettor, 1);
    EXPECT_EQ(RF.Bettor(1).BettorName, "Zed");
    EXPECT_EQ(RF.Ticket(1).TicketBettor, 1);
    EXPECT_EQ(RF.BettorCount, 2);

    // Saving a bettor under its own name passes.
    edit = [&](EditBettorLogic& e) {
        e.txtBettorInfo.text = "back again";
        e.Text_Change("txtBettorInfo");
        e.cmdOK_Click();
        EXPECT_TRUE(e.unloaded);
    };
    list.cmdEdit_Click();
    EXPECT_EQ(RF.Bettor(1).BettorInfo, "back again");
}

TEST_F(BettorsTest, TotalBetIsTakenFromTheCurrentRace) {
    G.CurrentBettor = 1;
    G.CurrentRace = 1;
    EditBettorLogic e;
    e.Form_Load();
    // Race 1 slots 1, 2 and race 2 slot 1 belong to Alice's ticket: 2 + 1 + 2 (race 1, slot 1).
    EXPECT_EQ(e.lblBetAmt.text, "5");
    EXPECT_EQ(e.lblWonAmt.text, "");
    EXPECT_EQ(e.txtBettorName.text, "Alice");
    EXPECT_TRUE(e.centerInMain);
    G.CurrentRace = 2;
    EditBettorLogic f;
    f.Form_Load();
    EXPECT_EQ(f.lblBetAmt.text, "10");  // 5 + 0 + 5, all from race 2
    world.messages.Answer(kCancel);
    f.txtBettorPhone.text = "1";
    f.Text_Change("txtBettorPhone");
    bool cancel = false;
    f.Form_QueryUnload(cancel);
    EXPECT_TRUE(cancel);
    f.cmdCancel_Click();
    EXPECT_TRUE(f.unloaded);
    EXPECT_EQ(RF.Bettor(1).BettorPhone, "");
}

TEST_F(BettorsTest, ClosingWithChangesAsksAndYesKeepsTheWindowUntilTheBettorIsValid) {
    G.CurrentBettor = 1;
    EditBettorLogic e;
    e.Form_Load();
    e.txtBettorName.text = "";
    e.Text_Change("txtBettorName");
    world.messages.Answer(kYes);
    bool cancel = false;
    e.Form_QueryUnload(cancel);
    EXPECT_TRUE(cancel);
    EXPECT_EQ(world.messages.Texts(), (std::vector<std::string>{"Do you wish to keep your changes?",
                                                                "Bettor Name is required."}));
    EXPECT_EQ(world.messages.shown[0].title, "Edit Bettor");
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kYesNoCancel);

    e.txtBettorName.text = "Alicia";
    world.messages.Answer(kYes);
    cancel = false;
    e.Form_QueryUnload(cancel);
    EXPECT_FALSE(cancel);
    EXPECT_EQ(RF.Bettor(1).BettorName, "Alicia");

    EditBettorLogic f;
    f.Form_Load();
    f.txtBettorName.text = "Alice";
    f.Text_Change("txtBettorName");
    world.messages.Answer(kNo);
    f.Form_QueryUnload(cancel);
    EXPECT_FALSE(cancel);
    EXPECT_EQ(RF.Bettor(1).BettorName, "Alicia");
}

}  // namespace
}  // namespace tt::test
