// The Print window on screen: the report chosen is the one shown selected, OK prints it and
// closes the window, and the font size box is read as typed.

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "report_card.h"
#include "reports/forms/frm_print.h"

namespace tt::test {
namespace {

class PrintForm : public ReportCard {
  protected:
    void SetUp() override {
        ReportCard::SetUp();
        PrintToFile = false;
    }
};

TEST_F(PrintForm, TheListTakingTheFocusChoosesNothing) {
    gui::frmPrint window;
    window.show();
    auto* list = window.findChild<QListWidget*>("lstReports");
    list->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    EXPECT_EQ(window.findChild<QLineEdit*>("txtFontSize")->text(), "8");
    QTest::mouseClick(window.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Select a report to print"});
    EXPECT_TRUE(world.printer.lines.empty());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PrintForm, OKPrintsTheReportChosenAtTheSizeTyped) {
    gui::frmPrint window;
    window.show();
    auto* list = window.findChild<QListWidget*>("lstReports");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(1)).center());
    auto* size = window.findChild<QLineEdit*>("txtFontSize");
    size->selectAll();
    QTest::keyClicks(size, "12");
    QTest::mouseClick(window.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    EXPECT_EQ(world.printer.fontSize, 12);
    ASSERT_GT(world.printer.lines.size(), 3u);
    EXPECT_EQ(world.printer.lines[2],
              At({{4, "Tamberlin Tally"}, {50, "Bettor Listing"}, {110, "Page 1"}}));
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Report has been sent to printer"});
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace tt::test
