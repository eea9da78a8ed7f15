// The pick lists: texts by the racers' sort, which the sorted lists turn into the order;
// coupled entries in one entry by betting number; scratched racers marked and still pickable;
// picks packed from Pick(1); lists filled again only where the type or race asks for it.

#include "ticket_card.h"

namespace tt::test {
namespace {

class PickLists : public TicketCard {
  protected:
    void Open() {
        NewTicket(1, 1);
        p.Form_Load();
        world.messages.Clear();
    }
    std::vector<std::string> Texts(int i) {
        std::vector<std::string> v;
        for (const ListItem& it : p.comPick[static_cast<std::size_t>(i)].list.Items())
            v.push_back(it.text + " =" + std::to_string(it.itemData));
        return v;
    }
    PlaceBetsLogic p;
};

TEST_F(PickLists, ByBettingNumberCoupledRacersShareAnEntryAndScratchedOnesGoLast) {
    Open();
    EXPECT_EQ(Texts(1), (std::vector<std::string>{
                            "   1 - Thistledown/Thistle Bl =1",
                            "   2 - Rusty Spur =2",
                            "   3 - Paper Moon =3",
                            "   5 - Harbor Light =5",
                            "  10 - Dusty Trail =10",
                            "Scratched -   4 - Gingersnap =4",
                        }));
}

TEST_F(PickLists, AThirdCoupledRacerCutsTheEntryBackBeforeItsName) {
    Race(2, "Second", {1, 2, 3},
         {{7, "Alpha", "7", "1"}, {7, "Bravo Company", "7A", "2"}, {7, "Charlie", "7B", "3"}});
    NewTicket(2, 1);
    p.Form_Load();
    // The entry is cut to its first 14 characters, whatever they hold.
    EXPECT_EQ(Texts(1), std::vector<std::string>{"   7 - Alpha/B/Charlie =7"});
}

TEST_F(PickLists, ByNameEachRacerHasItsEntryInAlphabeticalOrderWithoutRegardToCase) {
    RF.RacerSort = "Name";
    RF.Racer(1, 6).RacerName = "harbor light";
    Open();
    EXPECT_EQ(Texts(1), (std::vector<std::string>{
                            "Dusty Trail -  10 =10",
                            "harbor light -  5 =5",
                            "Paper Moon -  3 =3",
                            "Rusty Spur -  2 =2",
                            "Scratched - Gingersnap -  4 =4",
                            "Thistle Bloom -  1 =1",
                            "Thistledown -  1 =1",
                        }));
    // Typing chooses the first entry that starts with the text, in any case.
    p.comPick[1].text = "thistle";
    p.comPick_Change(1);
    EXPECT_TRUE(p.comPick_LostFocus(1));
    EXPECT_EQ(p.comPick[1].list.Text(), "Thistle Bloom -  1");
    EXPECT_TRUE(p.BetDirty);
    // Leaving the list again keeps the choice.
    EXPECT_TRUE(p.comPick_LostFocus(1));
    EXPECT_EQ(p.comPick[1].list.Text(), "Thistle Bloom -  1");
    p.comPick[1].text = "zz";
    p.comPick_Change(1);
    EXPECT_FALSE(p.comPick_LostFocus(1));
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(p.focus, "comPick(1)");
}

TEST_F(PickLists, ByPostPositionTheNumberGoesInBrackets) {
    RF.RacerSort = "Post Position";
    Open();
    EXPECT_EQ(p.comPick[1].list.List(0), "   1 - ( 2) - Rusty Spur");
    EXPECT_EQ(p.comPick[1].list.List(1), "   2 - ( 1) - Thistledown");
    EXPECT_EQ(p.comPick[1].list.List(6), "Scratched -   4 - ( 4) - Gingersnap");
    RF.RacerSort = "Program Number";
    bool rebuild = true;
    p.BuildPickLists(rebuild);
    EXPECT_EQ(p.comPick[1].list.List(0), "   1 - ( 1) - Thistledown");
    EXPECT_EQ(p.comPick[1].list.List(1), "   1A - ( 1) - Thistle Bloom");
    EXPECT_EQ(p.comPick[1].list.List(5), "  10 - ( 10) - Dusty Trail");
}

TEST_F(PickLists, AScratchedRacerCanBePickedByItsNumber) {
    Open();
    TypeAmount(p, "2");
    TypeKey(p, 'S');
    TypePick(p, 1, 4);
    EXPECT_EQ(p.comPick[1].text, "Scratched -   4 - Gingersnap");
    EXPECT_TRUE(p.comPick_LostFocus(1)) << "its text does not read as its number";
    p.cmdAcceptBet_Click();
    EXPECT_TRUE(world.messages.shown.empty());
    ASSERT_EQ(Betting.TicketBetCount, 1);
    EXPECT_EQ(Betting.TicketBets(1).Pick(1), 4);
}

TEST_F(PickLists, OnlyDigitsGoIntoAListByBettingNumber) {
    Open();
    for (int key : {int('7'), 8}) {
        int k = key;
        p.comPick_KeyPress(1, k);
        EXPECT_EQ(k, key);
    }
    int letter = 'x';
    p.comPick_KeyPress(1, letter);
    EXPECT_EQ(letter, 0);
    EXPECT_EQ(world.messages.beeps, 1);
    RF.RacerSort = "Name";
    letter = 'x';
    p.comPick_KeyPress(1, letter);
    EXPECT_EQ(letter, 'x');
}

TEST_F(PickLists, PicksInListsOneAndThreeAreStoredAsPickOneAndTwo) {
    Open();
    TypeAmount(p, "2");
    TypeKey(p, 'E');
    p.chkBoxed.value = 1;
    p.chkBoxed_Click();
    TypePick(p, 1, 5);
    TypePick(p, 3, 2);
    p.cmdAcceptBet_Click();
    ASSERT_EQ(Betting.TicketBetCount, 1);
    const TempBet& b = Betting.TicketBets(1);
    EXPECT_EQ(b.Pick(1), 5);
    EXPECT_EQ(b.Pick(2), 2);
    EXPECT_EQ(b.Pick(3), 0);
    EXPECT_EQ(b.BetCost, C(4));
}

TEST_F(PickLists, ChangingTheTypeRefillsOnlyTheListsWhoseRaceChanged) {
    Open();
    TypeAmount(p, "2");
    TypeKey(p, 'E');
    TypePick(p, 1, 3);
    TypePick(p, 2, 5);
    // A Daily Double keeps the first pick and takes its second leg from race 2.
    TypeKey(p, 'D');
    EXPECT_EQ(p.comPick[1].list.SelectedData(), 3);
    EXPECT_FALSE(p.comPick[2].list.HasSelection());
    EXPECT_EQ(p.comPick[2].list.List(0), "   1 - Alpha");
    // Win shows one list; the second loses its choice.
    TypePick(p, 2, 2);
    TypeKey(p, 'W');
    EXPECT_FALSE(p.comPick[2].state.visible);
    EXPECT_FALSE(p.comPick[2].list.HasSelection());
    EXPECT_EQ(p.comPick[1].list.SelectedData(), 3);
    EXPECT_EQ(PlaceBetsLogic::LastPickType, 1);
    EXPECT_EQ(PlaceBetsLogic::LastPickCount, 1);
    EXPECT_EQ(PlaceBetsLogic::LastPickRace, 1);
}

TEST_F(PickLists, EnterMovesOnAfterAChoiceAndFromAnEmptyListOnlyPastTheNeededPicks) {
    Open();
    TypeAmount(p, "2");
    TypeKey(p, 'E');
    p.chkBoxed.value = 1;
    p.chkBoxed_Click();
    TypePick(p, 1, 3);
    p.comPick_KeyUp(1, 13);
    EXPECT_EQ(p.focus, "comPick(2)");
    p.focus.clear();
    p.comPick_KeyUp(2, 13);
    EXPECT_EQ(p.focus, "") << "an Exacta needs a second pick";
    p.comPick_KeyUp(3, 13);
    EXPECT_EQ(p.focus, "cmdAcceptBet");
    // The key up of an Enter that closed a box does nothing.
    p.focus.clear();
    G.CancelFlag = true;
    p.comPick_KeyUp(1, 13);
    EXPECT_EQ(p.focus, "");
    G.CancelFlag = false;
    // A Win bet moves on from the second list, and from the first once chosen.
    TypeKey(p, 'W');
    p.comPick_KeyUp(1, 13);
    EXPECT_EQ(p.focus, "cmdAcceptBet");
    // The type list: Enter goes to Boxed for an Exacta, to the first pick otherwise; other keys
    // beep and go no further.
    TypeKey(p, 'E');
    p.comBetType_KeyUp(13);
    EXPECT_EQ(p.focus, "chkBoxed");
    TypeKey(p, '4');
    EXPECT_EQ(p.BetType, 0) << "Pick 4 is not offered in this race";
    int key = 'x';
    const int beeps = world.messages.beeps;
    p.comBetType_KeyPress(key);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(world.messages.beeps, beeps + 1);
}

TEST_F(PickLists, ATypeTheRaceDoesNotOfferIsNoType) {
    NewTicket(2, 1);
    p.Form_Load();
    TypeAmount(p, "2");
    TypeKey(p, 'T');
    EXPECT_EQ(p.BetType, 0);
    EXPECT_FALSE(p.comBetType.list.HasSelection());
    p.cmdAcceptBet_Click();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Bet Type is not valid!"});
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
}

TEST_F(PickLists, TheTypeListFollowsTheRaceWithAcrossTheBoardBehindShow) {
    Open();
    std::vector<std::string> types;
    for (const ListItem& it : p.comBetType.list.Items()) types.push_back(it.text);
    EXPECT_EQ(types, (std::vector<std::string>{"Win", "Place", "Show", "Across the Board", "Exacta",
                                               "Trifecta", "Daily Double"}));
    EXPECT_TRUE(p.cmdBetType[11].visible);
    EXPECT_FALSE(p.cmdBetType[7].visible);
    RF.Race(1).BetType(2) = false;
    PlaceBetsLogic q;
    q.Form_Load();
    EXPECT_FALSE(q.cmdBetType[11].visible);
    EXPECT_EQ(q.comBetType.list.ListCount(), 5);
}

}  // namespace
}  // namespace tt::test
