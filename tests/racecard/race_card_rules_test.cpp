// The race card's rules called directly: SaveWork reads every box before it writes, the card's
// settings it takes from the boxes, and what the question before deleting a race names.

#include "race_card.h"

#include "model/app_error.h"
#include "racecard/race_card_rules.h"

namespace tt::test {
namespace {

using RaceCardRulesTest = RaceCardTest;

TEST_F(RaceCardRulesTest, SaveWorkStopsWithTheDocumentWholeOnANumberTooLarge) {
    RaceCardLogic& c = Load();
    DeleteRaceInWork(c, 2);
    c.WorkRace(1).BetType(4) = false;
    c.txtFileName.text = "Renamed";
    c.txtClearDays.text = "40000";
    try {
        SaveWork(c, c);
        ADD_FAILURE() << "no overflow";
    } catch (const AppError& e) {
        EXPECT_EQ(e.Number(), kErrOverflow);
    }
    EXPECT_EQ(RF.Bet(2, 1).BetType, 1);
    EXPECT_EQ(RF.Bet(1, 2).BetWinnings, Currency());
    EXPECT_EQ(RF.FileName, "Spring Test");
    EXPECT_EQ(RF.Race(2).RaceName, "Second");
}

TEST_F(RaceCardRulesTest, SaveWorkTakesTheCardSettingsFromTheBoxes) {
    RaceCardLogic& c = Load();
    c.txtSaveAfter.text = "12";  // not kept while the backup box is unchecked
    c.txtMaxTransInPrinter.text = "7.9";
    c.WorkRace(3).QuickBet(2) = C(5);
    SaveWork(c, c);
    EXPECT_EQ(RF.SaveAfter, 0);
    EXPECT_EQ(RF.MaxTransInPrinter, 7);
    EXPECT_EQ(RF.Race(3).QuickBet(1), Currency());  // only a race without any quick bet gets one
    EXPECT_EQ(RF.Race(4).QuickBet(1), C(1));
    c.chkBackup.value = 1;
    SaveWork(c, c);
    EXPECT_EQ(RF.SaveAfter, 12);
}

TEST_F(RaceCardRulesTest, DataOnFileLooksAtTheDocumentNotTheCopies) {
    RaceCardLogic& c = Load();
    DeleteRaceInWork(c, 1);
    EXPECT_EQ(DataOnFile(1), "Racers and Bets ");
    RF.Bet(2, 1).BetType = 0;  // a deleted bet
    EXPECT_EQ(DataOnFile(2), "Racers ");
    RF.Bet(3, 2).BetType = 2;
    EXPECT_EQ(DataOnFile(3), "Bets ");
    EXPECT_EQ(DataOnFile(4), "");
}

}  // namespace
}  // namespace tt::test
