// The help viewer on screen: whole on the main window's screen, where it was left last time,
// Esc to put it away, the search box ready for Search For Help On, and no topic title cut.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <optional>

#include "model/help_ids.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/help.h"
#include "shell/forms/help_viewer.h"
#include "support/fakes.h"

namespace tt::gui {
namespace {

class HelpOnScreen : public ::testing::Test {
  protected:
    void SetUp() override {
        main.emplace();
        Ports ports = CurrentPorts();
        ports.shell = &*main;
        scope.emplace(ports);
        main->MDIForm_Load();
        main->show();
    }
    void TearDown() override {
        if (HelpViewer* v = CurrentHelpViewer()) delete v;
        scope.reset();
        main.reset();
    }
    HelpViewer* Open() {
        main->Action("mnuHelpContents")->trigger();
        QApplication::processEvents();
        return CurrentHelpViewer();
    }
    static QRect Screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }

    test::FakeWorld w;
    std::optional<frmMain> main;
    std::optional<PortsScope> scope;
};

TEST_F(HelpOnScreen, FirstOpensWholeOnTheScreenOfTheMainWindow) {
    HelpViewer* v = Open();
    ASSERT_NE(v, nullptr);
    EXPECT_TRUE(Screen().contains(v->frameGeometry()))
        << v->frameGeometry().x() << "," << v->frameGeometry().y() << " "
        << v->frameGeometry().width() << "x" << v->frameGeometry().height();
}

TEST_F(HelpOnScreen, EscPutsItAwayAndItComesBackWhereItWasLeft) {
    HelpViewer* v = Open();
    v->resize(500, 400);
    v->move(120, 90);
    const QRect left = v->geometry();
    QTest::keyClick(v, Qt::Key_Escape);
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(CurrentHelpViewer(), nullptr);
    EXPECT_EQ(w.settings.values.count("HelpLeft"), 1u);
    v = Open();
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->geometry(), left);
}

TEST_F(HelpOnScreen, WhereItWasLeftOnAScreenNoLongerThereIsBroughtBack) {
    w.settings.values = {
        {"HelpLeft", "60000"}, {"HelpTop", "-3000"}, {"HelpWidth", "6000"}, {"HelpHeight", "4500"}};
    HelpViewer* v = Open();
    EXPECT_TRUE(Screen().contains(v->frameGeometry()))
        << v->frameGeometry().x() << "," << v->frameGeometry().y() << " "
        << v->frameGeometry().width() << "x" << v->frameGeometry().height();
    EXPECT_EQ(v->size(), QSize(400, 300).expandedTo(v->minimumSizeHint()));
}

TEST_F(HelpOnScreen, SearchForHelpOnOpensOnTheSearchBoxAlsoOverAWindow) {
    auto* child = new QWidget;
    child->setProperty("HelpContextID", help::kDisplayOdds);
    QMdiSubWindow* sub = main->MdiArea()->addSubWindow(child);
    sub->show();
    main->MdiArea()->setActiveSubWindow(sub);
    main->Action("mnuHelpSearch")->trigger();
    HelpViewer* v = CurrentHelpViewer();
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->CurrentFile(), "display_odds.html");
    EXPECT_TRUE(v->SearchBox()->isVisibleTo(v));
    EXPECT_EQ(v->focusWidget(), v->SearchBox());
}

TEST_F(HelpOnScreen, NoTopicTitleIsCut) {
    HelpViewer* v = Open();
    QTreeWidget* contents = v->Contents();
    const int room = contents->viewport()->width();
    for (QTreeWidgetItemIterator it(contents); *it; ++it) {
        const int depth = (*it)->parent() ? 2 : 1;
        EXPECT_LE(contents->fontMetrics().horizontalAdvance((*it)->text(0)) +
                      depth * contents->indentation(),
                  room)
            << (*it)->text(0).toStdString();
    }
}

}  // namespace
}  // namespace tt::gui
