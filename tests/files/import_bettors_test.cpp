// Bringing in bettors from another race file: the file and its version question, the grid of
// what would change with each flag value on each detail, the clicks that change the plan, and
// Process Bettors committing it with the namesakes' stars.

#include <gtest/gtest.h>

#include "files/import_bettors.h"
#include "files/import_bettors_logic.h"
#include "files/race_file_io.h"
#include "model/race_file.h"
#include "shell/main_commands.h"
#include "support/fakes.h"

namespace tt {
namespace {

using namespace test;

struct Who {
    const char* name;
    const char* email = "";
    const char* phone = "";
    const char* info = "";
};

void PutBettors(const std::vector<Who>& bettors) {
    RF.BettorCount = static_cast<std::int16_t>(bettors.size());
    RF.Bettor.ReDim(RF.BettorCount + 1);
    for (std::size_t k = 0; k < bettors.size(); ++k) {
        BettorRec& b = RF.Bettor(static_cast<std::int64_t>(k + 1));
        b.BettorName = bettors[k].name;
        b.BettorEmail = bettors[k].email;
        b.BettorPhone = bettors[k].phone;
        b.BettorInfo = bettors[k].info;
    }
}

// A race file of last season holding these bettors, as the program saves it.
std::string OtherCard(const std::vector<Who>& bettors) {
    ClearRaceFile();
    RF.FileId = 99;
    RF.FileName = "Last Season";
    PutBettors(bettors);
    std::string text = BuildRaceFileText(DateTime{2025, 9, 1, 18, 0, 0});
    ClearRaceFile();
    return text;
}

const char* const kVersionQuestion =
    "Software does not support the version specified in the file!\n\r\n"
    "You could experience problems loading the file!\n\r\n"
    "If it is a file from an earlier version of Ridgeway Ladder, \n\r\n"
    "try opening it as the main pool file then saving it.\n\r\n"
    "Do you wish to continue?";

class ImportTest : public ::testing::Test {
  protected:
    void SetUp() override {
        other = OtherCard({{"Ann", "ann@new", "555-0101", ""},
                           {"Ben", "ben@mail", "555-0203", "likes Win"},
                           {"Cy", "cy@mail", "", "new info"},
                           {"Dee", "dee@mail", "555-0404", "same"},
                           {"ann"},
                           {"Eve", "eve@mail", "555-0505", "new"},
                           {"Fay", "fay@mail", "555-0606", "quiet"}});
        ClearRaceFile();
        RF.FileId = 77;
        PutBettors({{"Ann", "ann@old", "", "front row"},
                    {"Ben", "", "555-0202", ""},
                    {"Cy", "cy@mail", "555", "old"},
                    {"Dee", "dee@mail", "555-0404", "same"},
                    {"Fay", "", "555-0606", "quiet"}});
        world.files.files["last.tly"] = other;
        ImportPath = "last.tly";
        // The window: loaded, then whatever the test does with it.
        world.shell.onShow["frmImportBettors"] = [this] {
            logic = ImportBettorsLogic();
            logic.Form_Load();
            if (inWindow) inWindow();
        };
    }
    void TearDown() override { ImportPath.clear(); }

    // The grid's visible cells, a row a line: name, action, flags.
    std::vector<std::string> Rows() const {
        std::vector<std::string> rows;
        for (int r = 1; r < Grid().Rows(); ++r) {
            std::string line;
            for (int c : {0, 1, 3, 4, 5}) line += (c ? "|" : "") + Grid().TextMatrix(r, c);
            rows.push_back(line);
        }
        return rows;
    }
    void Click(int row, int col) {
        logic.flxBettor.SetRow(row);
        logic.flxBettor.SetCol(col);
        logic.flxBettor_Click();
    }
    const GridData& Grid() const { return logic.flxBettor; }

    FakeWorld world;
    std::string other;
    ImportBettorsLogic logic;
    std::function<void()> inWindow;
};

// ---- The file -----------------------------------------------------------------------------

TEST_F(ImportTest, ACurrentFileAlwaysAsksTheVersionQuestionFirst) {
    world.messages.Answer(kNo);
    ReadImportFile();
    ASSERT_EQ(world.messages.shown.size(), 1u);
    const MessageRequest& box = world.messages.shown[0];
    EXPECT_EQ(box.text, kVersionQuestion);
    EXPECT_EQ(box.buttons, Buttons::kYesNo);
    EXPECT_EQ(box.icon, Icon::kExclamation);
    EXPECT_EQ(box.defaultButton, 1);  // No
    EXPECT_TRUE(world.shell.formsShown.empty());
    EXPECT_FALSE(world.shell.busy);

    world.messages.Answer(kYes);
    ReadImportFile();
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmImportBettors (modal)"});
    // The list is emptied once the window has closed.
    EXPECT_EQ(ImportCount, 0);
    EXPECT_EQ(ImportBettors.UBound(), 1);
}

TEST_F(ImportTest, AVersionTwoPointZeroFileIsReadWithoutAsking) {
    std::string text = other;
    text.replace(text.find("\"2.01\""), 6, "\"2.0\"");
    world.files.files["last.tly"] = text;
    ReadImportFile();
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(Grid().Rows(), 7);
}

TEST_F(ImportTest, FilesThatAreNoRaceFileOrCannotBeReadImportNothing) {
    struct Case {
        std::optional<std::string> text;
        std::string message;
    };
    const std::vector<Case> cases = {
        {std::nullopt, "Error in initial reading of file\n\r\nFile not found"},
        {"", "File is not a Tamberlin Tally file.\n\r\nNothing will be imported."},
        {"\"%Header`\",\"Ridgeway Ladder\",\"2.0\",#2020-01-01 00:00:00#\r\n",
         "File is not a Tamberlin Tally file.\n\r\nNothing will be imported."},
        {"\"%Header`\",\"Tamberlin Tally\",\"2.0\",#2020-01-01 00:00:00#\r\n\"%Bettor`\",\"Zed\"",
         "Error in processing the %Bettor` record.\n\r\nInput past end of file"},
    };
    for (const Case& c : cases) {
        world.messages.Clear();
        world.files.files.erase("last.tly");
        if (c.text) world.files.files["last.tly"] = *c.text;
        ReadImportFile();
        EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{c.message});
        EXPECT_TRUE(world.shell.formsShown.empty());
        EXPECT_EQ(ImportCount, 0);
        EXPECT_FALSE(world.shell.busy);
    }
    ImportPath.clear();
    world.messages.Clear();
    ReadImportFile();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"No file selected"});
}

TEST_F(ImportTest, TheMenuOpensTheDialogAtTheLastPathAndKeepsTheChoice) {
    world.dialogs.Next(std::nullopt);
    mnuToolsImportBettors_Click();
    ASSERT_EQ(world.dialogs.requests.size(), 1u);
    EXPECT_EQ(world.dialogs.requests[0].filter, "Tamberlin Tally Files (*.tly)|*.tly");
    EXPECT_EQ(world.dialogs.requests[0].initialName, "last.tly");
    EXPECT_TRUE(world.messages.shown.empty());

    world.files.files["spring.tly"] = other;
    world.dialogs.Next("spring.tly");
    world.messages.Answer(kYes);
    mnuToolsImportBettors_Click();
    EXPECT_EQ(ImportPath, "spring.tly");
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmImportBettors (modal)"});
}

// ---- The grid -----------------------------------------------------------------------------

TEST_F(ImportTest, TheGridShowsNewAndChangedBettorsSortedWithAFlagForEachDetail) {
    world.messages.Answer(kYes);
    ReadImportFile();
    // Dee is the same on both cards; "ann" is another name than "Ann".
    EXPECT_EQ(Rows(), (std::vector<std::string>{"Ann|Overlay|Y|ND|*", "Ben|Overlay|ND|Y|ND",
                                                "Cy|Overlay|*|*|Y", "Eve|Add as new|||",
                                                "Fay|New Data|ND|*|*", "ann|Add as new|||"}));
    EXPECT_EQ(Grid().TextMatrix(0, 0), "Bettor Name");
    EXPECT_EQ(Grid().TextMatrix(0, 3), "E-m");
    EXPECT_EQ(Grid().ColWidth(2), 0);
    EXPECT_EQ(Grid().ColWidth(6), 0);
    EXPECT_EQ(Grid().RowHeight(0), 450);
    EXPECT_EQ(Grid().TextMatrix(1, 2), "1");  // Ann of the import list
    EXPECT_EQ(Grid().TextMatrix(1, 6), "1");  // Ann of the card
    EXPECT_EQ(Grid().TextMatrix(4, 6), "0");  // Eve is new
}

TEST_F(ImportTest, ClicksOnActionCycleAMatchedBettorAndLeaveANewOneAlone) {
    inWindow = [this] {
        Click(1, 1);  // Ann: Overlay
        EXPECT_EQ(Rows()[0], "Ann|Keep current|N|N|*");
        Click(1, 1);
        EXPECT_EQ(Rows()[0], "Ann|Add as new|||");
        Click(1, 1);
        EXPECT_EQ(Rows()[0], "Ann|Overlay|Y|ND|*");
        Click(5, 1);  // Fay: New Data
        EXPECT_EQ(Rows()[4], "Fay|Keep current|N|*|*");
        Click(5, 1);
        Click(5, 1);
        EXPECT_EQ(Rows()[4], "Fay|New Data|ND|*|*");
        Click(4, 1);  // Eve has no match and can only be added
        EXPECT_EQ(Rows()[3], "Eve|Add as new|||");
        Click(0, 1);  // the header
        Click(1, 0);  // a name
        EXPECT_EQ(Rows()[0], "Ann|Overlay|Y|ND|*");
    };
    world.messages.Answer(kYes);
    ReadImportFile();
}

TEST_F(ImportTest, ClicksOnAFlagTurnItOffAndBackOnForThatDetailAlone) {
    inWindow = [this] {
        Click(1, 3);  // Ann's e-mail: Y
        EXPECT_EQ(Rows()[0], "Ann|Overlay|N|ND|*");
        Click(1, 5);  // "*" does nothing
        EXPECT_EQ(Rows()[0], "Ann|Overlay|N|ND|*");
        Click(1, 4);
        EXPECT_EQ(Rows()[0], "Ann|Overlay|N|N|*");
        // Turned back on, the action follows the one detail compared.
        Click(1, 4);
        EXPECT_EQ(Rows()[0], "Ann|New Data|N|ND|*");
        Click(1, 3);
        EXPECT_EQ(Rows()[0], "Ann|Overlay|Y|ND|*");
        Click(4, 3);  // Eve's empty flag
        EXPECT_EQ(Rows()[3], "Eve|Add as new|||");
    };
    world.messages.Answer(kYes);
    ReadImportFile();
}

// ---- Process Bettors ----------------------------------------------------------------------

TEST_F(ImportTest, ProcessBettorsCommitsEveryRowAsItStands) {
    inWindow = [this] {
        Click(2, 4);  // Ben keeps his phone
        logic.cmdOK_Click();
    };
    world.messages.Answer(kYes);
    ReadImportFile();

    EXPECT_EQ(world.messages.Texts().back(), "Bettors imported successfully.");
    EXPECT_TRUE(logic.unloaded);
    EXPECT_TRUE(G.FileChanged);
    ASSERT_EQ(RF.BettorCount, 7);
    auto is = [](std::int64_t j, const char* name, const char* email, const char* phone,
                 const char* info) {
        const BettorRec& b = RF.Bettor(j);
        EXPECT_EQ(b.BettorName, name);
        EXPECT_EQ(b.BettorEmail, email) << name;
        EXPECT_EQ(b.BettorPhone, phone) << name;
        EXPECT_EQ(b.BettorInfo, info) << name;
    };
    is(1, "Ann", "ann@new", "555-0101", "front row");
    is(2, "Ben", "ben@mail", "555-0202", "likes Win");
    is(3, "Cy", "cy@mail", "555", "new info");
    is(4, "Dee", "dee@mail", "555-0404", "same");
    is(5, "Fay", "fay@mail", "555-0606", "quiet");
    is(6, "Eve", "eve@mail", "555-0505", "new");
    is(7, "ann", "", "", "");
}

TEST_F(ImportTest, AMatchedBettorAddedAsNewGetsAStarForEachNamesake) {
    world.files.files["last.tly"] =
        OtherCard({{"Ann", "first@mail"}, {"Ann", "second@mail"}, {"Ann*", "x@mail"}});
    RF.FileId = 77;
    PutBettors({{"Ann", "ann@old"}});
    inWindow = [this] {
        // Both Anns match the card's Ann; "Ann*" is new and sorts after them.
        EXPECT_EQ(Rows(), (std::vector<std::string>{"Ann|Overlay|Y|*|*", "Ann|Overlay|Y|*|*",
                                                    "Ann*|Add as new|||"}));
        for (int row : {1, 2}) {
            Click(row, 1);
            Click(row, 1);
        }
        logic.cmdOK_Click();
    };
    world.messages.Answer(kYes);
    ReadImportFile();
    ASSERT_EQ(RF.BettorCount, 4);
    EXPECT_EQ(RF.Bettor(2).BettorName, "Ann*");
    EXPECT_EQ(RF.Bettor(2).BettorEmail, "first@mail");
    EXPECT_EQ(RF.Bettor(3).BettorName, "Ann**");
    EXPECT_EQ(RF.Bettor(4).BettorName, "Ann***");
    EXPECT_EQ(RF.Bettor(4).BettorEmail, "x@mail");
    EXPECT_EQ(RF.Bettor(1).BettorEmail, "ann@old");
}

TEST_F(ImportTest, WithEveryBettorUnchangedTheGridIsEmptyAndProcessDoesNothing) {
    world.files.files["last.tly"] = OtherCard({{"Dee", "dee@mail", "555-0404", "same"}, {"Ann"}});
    RF.FileId = 77;
    PutBettors({{"Ann", "ann@old"}, {"Dee", "dee@mail", "555-0404", "same"}});
    inWindow = [this] { logic.cmdOK_Click(); };
    world.messages.Answer(kYes);
    ReadImportFile();
    EXPECT_EQ(Grid().Rows(), 1);
    EXPECT_FALSE(logic.unloaded);
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{kVersionQuestion});
    EXPECT_FALSE(G.FileChanged);
}

TEST_F(ImportTest, AFileWithoutBettorsShowsAnEmptyGrid) {
    world.files.files["last.tly"] = OtherCard({});
    RF.FileId = 77;
    world.messages.Answer(kYes);
    ReadImportFile();
    EXPECT_EQ(Grid().Rows(), 1);
}

TEST_F(ImportTest, CancelLeavesTheCardAsItWas) {
    inWindow = [this] { logic.cmdCancel_Click(); };
    world.messages.Answer(kYes);
    ReadImportFile();
    EXPECT_TRUE(logic.unloaded);
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(RF.BettorCount, 5);
    EXPECT_EQ(RF.Bettor(1).BettorEmail, "ann@old");
    EXPECT_FALSE(G.FileChanged);
}

}  // namespace
}  // namespace tt
