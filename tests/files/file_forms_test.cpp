// The two windows over their logic, driven as a user does: rows selected with the mouse and
// marked with the buttons or a double click, the marks shown while the selection stays; a
// click on an import cell changes the plan, and Esc cancels.

#include <gtest/gtest.h>

#include <QAbstractItemModel>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "files/forms/frm_import_bettors.h"
#include "files/forms/frm_restore.h"
#include "files/import_bettors.h"
#include "restore_log.h"
#include "support/fakes.h"

namespace tt {
namespace {

using namespace test;

const DateTime kAt1400{2026, 5, 2, 14, 0, 0};
const DateTime kAt1405{2026, 5, 2, 14, 5, 0};

QString Shown(QTableView* view, int row, int col) {
    return view->model()->index(row, col).data().toString();
}

void ClickCell(QTableView* view, int row, int col, bool twice = false) {
    const QRect cell = view->visualRect(view->model()->index(row, col));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell.center());
    if (twice) QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, cell.center());
}

TEST(FileForms, RestoreMarksTheVersionOfTheRowsSelectedAndKeepsTheSelection) {
    FakeWorld world;
    RestoreCard();
    world.files.files[kLogPath] = LogText(
        {Version("New ", 1, kAt1400, 1, 1, {{}, {}}), Version("New ", 2, kAt1405, 1, 2, {{}})});
    gui::frmRestore window;
    window.show();
    EXPECT_EQ(window.windowTitle(), "Restore from Recovery File");
    auto* grid = window.findChild<QTableView*>("flxRecovery");
    ASSERT_NE(grid, nullptr);
    ASSERT_EQ(grid->model()->rowCount(), 3);
    EXPECT_TRUE(grid->isColumnHidden(13));
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal).toString(), "Ticket#");

    ClickCell(grid, 2, 1);  // one bet of ticket 1
    window.findChild<QPushButton*>("cmdInclude")->click();
    EXPECT_EQ(Shown(grid, 0, 0), "No");
    EXPECT_EQ(Shown(grid, 1, 0), "Yes");
    EXPECT_EQ(Shown(grid, 2, 0), "Yes");
    EXPECT_EQ(grid->selectionModel()->selectedRows().size(), 1);

    ClickCell(grid, 0, 2, true);
    EXPECT_EQ(Shown(grid, 0, 0), "Yes");

    window.findChild<QPushButton*>("cmdOK")->click();
    EXPECT_EQ(world.messages.Texts().back(), "Restore process completed successfully.");
    EXPECT_EQ(RF.TicketCount, 2);
    window.findChild<QPushButton*>("cmdCancel")->click();
    EXPECT_FALSE(window.isVisible());
}

TEST(FileForms, ImportTakesAClickOnAnActionCellAndEscCancels) {
    FakeWorld world;
    ClearRaceFile();
    RF.FileId = 77;
    RF.BettorCount = 1;
    RF.Bettor.ReDim(2);
    RF.Bettor(1).BettorName = "Ann";
    RF.Bettor(1).BettorEmail = "ann@old";
    ClearImportList();
    ImportCount = 1;
    ImportBettors.ReDim(2);
    ImportBettors(1).BettorName = "Ann";
    ImportBettors(1).BettorEmail = "ann@new";
    ImportBettors(1).ImportFlag = true;

    gui::frmImportBettors window;
    window.show();
    EXPECT_EQ(window.windowTitle(), "Bring in Bettors from another File");
    auto* grid = window.findChild<QTableView*>("flxBettor");
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(Shown(grid, 0, 1), "Overlay");
    EXPECT_TRUE(grid->isColumnHidden(2));
    ClickCell(grid, 0, 1);
    EXPECT_EQ(Shown(grid, 0, 1), "Keep current");
    EXPECT_EQ(Shown(grid, 0, 3), "N");

    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(RF.Bettor(1).BettorEmail, "ann@old");
    ClearImportList();
}

}  // namespace
}  // namespace tt
