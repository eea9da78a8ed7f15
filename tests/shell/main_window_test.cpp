#include <gtest/gtest.h>

#include <algorithm>

#include <QApplication>
#include <QCloseEvent>
#include <QDate>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTextBrowser>
#include <QToolBar>
#include <QToolButton>
#include <optional>

#include "files/file_commands.h"
#include "model/help_ids.h"
#include "model/race_file.h"
#include "reports/print_logic.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_about.h"
#include "shell/forms/frm_logo.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/frm_reset_max.h"
#include "shell/forms/frm_splash.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"
#include "shell/forms/help_viewer.h"
#include "shell/help_topics.h"
#include "shell/main_commands.h"
#include "shell/startup.h"
#include "support/fakes.h"

namespace tt::gui {
namespace {

// A child window standing in for one that another part of the program provides.
class StandIn : public QWidget {
  public:
    explicit StandIn(QWidget* parent, int helpId) : QWidget(parent) {
        setProperty("HelpContextID", helpId);
    }
    static inline bool refuse = false;

  protected:
    void closeEvent(QCloseEvent* e) override {
        if (refuse) {
            G.CancelFlag = true;
            e->ignore();
        }
    }
};

const std::vector<std::string> kAlways = {"mnuFileNew",
                                          "mnuFileOpen",
                                          "mnuFileExit",
                                          "mnuViewToolbar",
                                          "mnuViewStatusBar",
                                          "mnuWindowArrangeIcons",
                                          "mnuHelpContents",
                                          "mnuHelpWindow",
                                          "mnuHelpSearch",
                                          "mnuHelpAbout",
                                          "tbMRU",
                                          "tbNew",
                                          "tbOpen",
                                          "tbHelp"};
const std::vector<std::string> kFileOpen = {"tbSave",
                                            "tbPrint",
                                            "tbCascade",
                                            "tbSetupRaceCard",
                                            "tbSetupBettors",
                                            "mnuFileClose",
                                            "mnuFilePageSetup",
                                            "mnuFilePrint",
                                            "mnuFilePrintToFile",
                                            "mnuFileSave",
                                            "mnuFileSaveAs",
                                            "mnuWindowCascade",
                                            "mnuWindowTileHorizontal",
                                            "mnuWindowTileVertical",
                                            "mnuEditSetupRaceCard",
                                            "mnuEditSetupBettors",
                                            "mnuToolsRestore",
                                            "mnuToolsImportBettors"};
const std::vector<std::string> kRace = {
    "tbPlaceBets",           "tbListBets",       "tbDisplayOdds",   "tbDisplayPayouts",
    "tbEditResults",         "mnuEditPlaceBets", "mnuViewListBets", "mnuViewDisplayOdds",
    "mnuViewDisplayPayouts", "mnuEditResults"};
const std::vector<std::string> kHidden = {"mnuToolsRaceCardFile", "mnuToolsImportRaces",
                                          "mnuToolsResetMax"};

class MainWindow : public ::testing::Test {
  protected:
    void SetUp() override {
        RegisterShellForms();
        const std::pair<const char*, int> standIns[] = {
            {"frmPrint", help::kPrint},
            {"frmRaceCard", help::kRaceCard},
            {"frmSelectBettor", help::kSelectBettor},
            {"frmTransaction", help::kTransaction},
            {"frmListBets", help::kListBets},
            {"frmDisplayOdds", help::kDisplayOdds},
            {"frmDisplayPayouts", help::kDisplayPayouts},
            {"frmEditResults", help::kEditResults},
            {"frmImportBettors", help::kImportBettors},
            {"frmRestore", help::kRestore}};
        for (auto [name, id] : standIns)
            RegisterForm(name, [id = id](QWidget* p) { return new StandIn(p, id); });
        StandIn::refuse = false;
        w.settings.values = {{"MainWidth", "18000"}, {"MainHeight", "13500"}};
        main.emplace();
        Ports ports = CurrentPorts();
        ports.shell = &*main;
        scope.emplace(ports);
        main->MDIForm_Load();
        PrepareDocument();
        main->show();
        w.files.files["/c/derby.tly"] = test::SavedCard("Derby Day", true);
        w.files.files["/c/empty.tly"] = test::SavedCard("Derby Day", false);
    }
    void TearDown() override {
        StandIn::refuse = false;
        scope.reset();
        main.reset();
    }
    void Open(const char* path) {
        G.LastFile = path;
        InitialOpen();
    }
    // The names among these whose actions are enabled (or visible); "tb" and a key name the
    // toolbar button itself.
    std::vector<std::string> Enabled(const std::vector<std::string>& names, bool visible = false) {
        std::vector<std::string> on;
        for (const auto& n : names) {
            if (n.rfind("tb", 0) == 0) {
                QToolButton* b = main->ToolButton(n.substr(2));
                EXPECT_NE(b, nullptr) << n;
                if (b && (visible ? b->isVisible() : b->isEnabled())) on.push_back(n);
                continue;
            }
            QAction* a = main->Action(n);
            EXPECT_NE(a, nullptr) << n;
            if (a && (visible ? a->isVisible() : a->isEnabled())) on.push_back(n);
        }
        return on;
    }
    // A click of the mouse on the toolbar button with this key.
    void Click(const std::string& key) {
        QToolButton* b = main->ToolButton(key);
        ASSERT_NE(b, nullptr) << key;
        QTest::mouseClick(b, Qt::LeftButton);
    }
    int LogoButtonsOn() {
        frmLogo* logo = main->Logo();
        int n = 0;
        for (QPushButton* b :
             {logo->cmdRaceCard, logo->cmdEditBettors, logo->cmdBettingWindow, logo->cmdListBets,
              logo->cmdDisplayOdds, logo->cmdEnterResults, logo->cmdDisplayPayouts})
            n += b->isEnabled() ? 1 : 0;
        return n;
    }

    test::FakeWorld w;
    std::optional<frmMain> main;
    std::optional<PortsScope> scope;
};

TEST_F(MainWindow, CommandsFollowTheThreeStatesAndHiddenEntriesNeverShow) {
    const std::vector<std::string> none;
    EXPECT_EQ(Enabled(kAlways), kAlways);
    EXPECT_EQ(Enabled(kFileOpen), none);
    EXPECT_EQ(Enabled(kRace), none);
    EXPECT_EQ(LogoButtonsOn(), 0);
    EXPECT_EQ(Enabled(kHidden, true), none);

    Open("/c/empty.tly");
    EXPECT_EQ(Enabled(kFileOpen), kFileOpen);
    EXPECT_EQ(Enabled(kRace), none);
    EXPECT_EQ(LogoButtonsOn(), 2);
    EXPECT_EQ(Enabled(kHidden, true), none);

    Open("/c/derby.tly");
    EXPECT_EQ(Enabled(kAlways), kAlways);
    EXPECT_EQ(Enabled(kFileOpen), kFileOpen);
    EXPECT_EQ(Enabled(kRace), kRace);
    EXPECT_EQ(LogoButtonsOn(), 7);
    EXPECT_EQ(Enabled(kHidden, true), none);
    EXPECT_EQ(S(main->windowTitle()), "Tamberlin Tally - Derby Day   (File ID = 77)");

    // Activation looks at the races again.
    main->EnableRaceGroup(false);
    main->setWindowTitle("stale");
    QApplication::setActiveWindow(nullptr);
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&*main));
    EXPECT_EQ(Enabled(kRace), kRace);
    EXPECT_EQ(S(main->windowTitle()), "Tamberlin Tally - Derby Day   (File ID = 77)");

    // A failed open, and a cancelled one, leave only the first row.
    Open("/c/gone.tly");
    EXPECT_EQ(Enabled(kFileOpen), none);
    Open("/c/derby.tly");
    w.dialogs.Next(std::nullopt);
    main->Action("mnuFileOpen")->trigger();
    EXPECT_EQ(Enabled(kFileOpen), none);
    EXPECT_EQ(Enabled(kRace), none);
    EXPECT_EQ(LogoButtonsOn(), 0);
    EXPECT_EQ(Enabled(kAlways), kAlways);
    EXPECT_EQ(Enabled(kHidden, true), none);
    EXPECT_EQ(S(main->windowTitle()), "Tamberlin Tally - No file open");
}

TEST_F(MainWindow, ToolbarKeysRunTheirCommandsAndDisabledOnesDoNothing) {
    main->tbToolBar_ButtonClick("Save");
    Click("Save");
    main->tbToolBar_ButtonClick("DisplayOdds");
    EXPECT_TRUE(w.files.log.empty());
    EXPECT_TRUE(w.dialogs.requests.empty());
    EXPECT_EQ(main->MdiArea()->subWindowList().size(), 1);  // the launch pad only

    Open("/c/derby.tly");
    w.files.log.clear();
    main->setWindowTitle("stale");
    main->tbToolBar_ButtonClick("Save");
    EXPECT_EQ(std::count(w.files.log.begin(), w.files.log.end(), "write /c/derby.tly"), 1);
    EXPECT_EQ(S(main->windowTitle()), "Tamberlin Tally - Derby Day   (File ID = 77)");

    main->tbToolBar_ButtonClick("DisplayOdds");
    EXPECT_TRUE(main->IsFormLoaded("frmDisplayOdds"));

    // "MRU" opens the newest recent file, here the open one, which asks first.
    w.messages.Answer(kNo);
    main->tbToolBar_ButtonClick("MRU");
    EXPECT_EQ(w.messages.Texts(),
              (std::vector<std::string>{"File already open.\n\r\nDo you wish to re-open?"}));

    main->Action("mnuFileClose")->trigger();
    EXPECT_FALSE(main->ToolButton("DisplayOdds")->isEnabled());
    Click("DisplayOdds");
    EXPECT_FALSE(main->IsFormLoaded("frmDisplayOdds"));
}

TEST_F(MainWindow, ToolbarShowsItsButtonsInOrderWithTipsAndSeparators) {
    std::vector<std::string> items;
    for (QAction* a : main->ToolBar()->actions()) {
        QWidget* widget = main->ToolBar()->widgetForAction(a);
        ASSERT_NE(widget, nullptr);
        EXPECT_TRUE(widget->isVisible());
        if (a->isSeparator()) {
            items.push_back("|");
            continue;
        }
        auto* b = qobject_cast<QToolButton*>(widget);
        ASSERT_NE(b, nullptr);
        EXPECT_FALSE(b->icon().isNull()) << S(b->objectName());
        EXPECT_EQ(b, main->ToolButton(S(b->objectName()).substr(2)));
        items.push_back(S(b->objectName()) + " " + S(b->toolTip()));
    }
    EXPECT_EQ(items, (std::vector<std::string>{
                         "tbMRU Open Most Recent File", "tbNew New", "tbOpen Open", "|",
                         "tbSave Save", "tbPrint Print", "|", "tbCascade Cascade open windows",
                         "tbSetupRaceCard Setup Race Card", "tbSetupBettors Setup Bettors", "|",
                         "tbPlaceBets Betting Window", "tbListBets List Bets",
                         "tbDisplayOdds Display Odds", "tbEditResults Record Race Results",
                         "tbDisplayPayouts Display Payouts", "|", "tbHelp Help"}));
    // With no recent file the menu entry is hidden, the button is not; the menus show no
    // pictures.
    EXPECT_FALSE(main->Action("mnuFileMRU(0)")->isVisible());
    EXPECT_EQ(main->ToolButton("Print")->defaultAction(), main->Action("mnuFilePrint"));
    for (const char* entry : {"mnuFileNew", "mnuFileSave", "mnuEditResults", "mnuHelpWindow"})
        EXPECT_TRUE(main->Action(entry)->icon().isNull()) << entry;
    EXPECT_EQ(main->ToolButton("Other"), nullptr);
}

TEST_F(MainWindow, AToolbarClickRefreshesTheTitleFirstAndTheMenuEntryDoesNot) {
    Open("/c/derby.tly");
    main->setWindowTitle("stale");
    main->Action("mnuViewDisplayOdds")->trigger();
    EXPECT_TRUE(main->IsFormLoaded("frmDisplayOdds"));
    EXPECT_EQ(S(main->windowTitle()), "stale");
    main->UnloadForm("frmDisplayOdds");

    Click("DisplayOdds");
    EXPECT_TRUE(main->IsFormLoaded("frmDisplayOdds"));
    EXPECT_EQ(S(main->windowTitle()), "Tamberlin Tally - Derby Day   (File ID = 77)");

    // "Help" is Window Help: the topic of the active child.
    main->ShowForm("frmListBets", false);
    Click("Help");
    EXPECT_EQ(CurrentHelpViewer()->CurrentFile(), "list_bets.html");
    EXPECT_TRUE(w.messages.shown.empty());
}

TEST_F(MainWindow, TheActiveChildIsNamedAndPrintToFileOpensPrintToSave) {
    Open("/c/derby.tly");
    main->ShowForm("frmListBets", false);
    EXPECT_EQ(main->ActiveChild(), "frmListBets");
    main->ShowForm("frmDisplayOdds", false);
    EXPECT_EQ(main->ActiveChild(), "frmDisplayOdds");

    bool toFile = false;
    RegisterForm("frmPrint", [&toFile](QWidget* p) {
        toFile = PrintToFile;
        return new StandIn(p, help::kPrint);
    });
    QAction* printToFile = main->Action("mnuFilePrintToFile");
    EXPECT_TRUE(printToFile->isVisible());
    EXPECT_EQ(S(printToFile->text()), "Print to &File");
    printToFile->trigger();
    EXPECT_TRUE(toFile);
    EXPECT_FALSE(PrintToFile);
    EXPECT_TRUE(main->IsFormLoaded("frmPrint"));
}

TEST_F(MainWindow, BarTogglesWorkInEveryStateAndKeepTheirCheckMarks) {
    QAction* tb = main->Action("mnuViewToolbar");
    QAction* sb = main->Action("mnuViewStatusBar");
    EXPECT_TRUE(tb->isChecked());
    EXPECT_TRUE(sb->isChecked());
    tb->trigger();
    sb->trigger();
    EXPECT_TRUE(main->ToolBar()->isHidden());
    EXPECT_TRUE(main->statusBar()->isHidden());
    EXPECT_FALSE(tb->isChecked());
    EXPECT_FALSE(sb->isChecked());
    Open("/c/derby.tly");
    tb->trigger();
    EXPECT_FALSE(main->ToolBar()->isHidden());
    EXPECT_TRUE(tb->isChecked());
    EXPECT_EQ(main->createPopupMenu(), nullptr);
}

TEST_F(MainWindow, StatusBarHasStatusDateAndTimeAndAClickRefreshesTheTitle) {
    std::vector<QString> panels;
    for (QLabel* l : main->statusBar()->findChildren<QLabel*>()) panels.push_back(l->text());
    ASSERT_EQ(panels.size(), 3u);
    EXPECT_EQ(panels[0], "Status");
    EXPECT_EQ(panels[1], QLocale().toString(QDate::currentDate(), QLocale::ShortFormat));
    EXPECT_FALSE(panels[2].isEmpty());
    EXPECT_EQ(main->StatusText(), "Status");
    main->setWindowTitle("stale");
    QTest::mouseClick(main->statusBar()->findChildren<QLabel*>()[1], Qt::LeftButton);
    EXPECT_EQ(S(main->windowTitle()), "Tamberlin Tally - No file open");
}

TEST_F(MainWindow, WindowMenuArrangesTheChildWindows) {
    Open("/c/derby.tly");
    main->ShowForm("frmListBets", false);
    main->ShowForm("frmDisplayOdds", false);
    QList<QMdiSubWindow*> subs = main->MdiArea()->subWindowList();
    ASSERT_EQ(subs.size(), 3);
    QRect area = main->MdiArea()->viewport()->rect();

    main->Action("mnuWindowTileHorizontal")->trigger();
    for (QMdiSubWindow* s : subs) EXPECT_EQ(s->width(), area.width());
    EXPECT_LT(subs[0]->y(), subs[1]->y());
    main->Action("mnuWindowTileVertical")->trigger();
    for (QMdiSubWindow* s : subs) EXPECT_EQ(s->height(), area.height());
    EXPECT_LT(subs[0]->x(), subs[1]->x());
    main->Action("mnuWindowCascade")->trigger();
    EXPECT_NE(subs[0]->pos(), subs[1]->pos());

    for (QMdiSubWindow* s : subs) s->showMinimized();
    main->Action("mnuWindowArrangeIcons")->trigger();
    EXPECT_EQ(subs[0]->y(), subs[1]->y());
    EXPECT_EQ(subs[0]->geometry().bottom(), area.height() - 1);
    EXPECT_LT(subs[0]->x(), subs[1]->x());
}

TEST_F(MainWindow, FileCommandsCloseChildrenStopAtARefusalAndBringTheLaunchPadBack) {
    Open("/c/derby.tly");
    main->ShowForm("frmTransaction", false);
    StandIn::refuse = true;
    main->Action("mnuFileClose")->trigger();
    EXPECT_EQ(RF.FileName, "Derby Day");
    EXPECT_TRUE(main->IsFormLoaded("frmTransaction"));
    EXPECT_TRUE(G.CancelFlag);

    StandIn::refuse = false;
    main->Action("mnuFileClose")->trigger();
    EXPECT_EQ(RF.FileName, "");
    EXPECT_FALSE(main->IsFormLoaded("frmTransaction"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(main->MdiArea()->subWindowList().size(), 1);
    EXPECT_TRUE(main->MdiArea()->subWindowList()[0]->isVisible());
    EXPECT_NE(main->findChild<frmLogo*>(), nullptr);
}

TEST_F(MainWindow, HelpShowsTheTopicOfTheWindowAskingOrTheOverview) {
    const int ids[] = {help::kOverview,
                       help::kInitialOpen,
                       help::kMainWindow,
                       help::kAbout,
                       help::kResetMax,
                       help::kRaceCard,
                       help::kRaceCardGeneral,
                       help::kRaceCardDefaults,
                       help::kRaceCardRaces,
                       help::kRaceCardRacers,
                       help::kRaceCardBackup,
                       help::kEditRacer,
                       help::kCopyRacers,
                       help::kSelectBettor,
                       help::kEditBettor,
                       help::kTransaction,
                       help::kTicketHeader,
                       help::kPlaceBets,
                       help::kCloseTransaction,
                       help::kBetDisplay,
                       help::kEditResults,
                       help::kPayoutHandling,
                       help::kDisplayPayouts,
                       help::kDisplayOdds,
                       help::kOddsBoard,
                       help::kListBets,
                       help::kPrint,
                       help::kSelectRaceAndBetType,
                       help::kRestore,
                       help::kImportBettors};
    for (int id : ids) {
        DisplayContextHelp(AppHelpFile(), id, "x");
        const HelpTopic* t = HelpTopicFor(id);
        ASSERT_NE(t, nullptr) << id;
        EXPECT_EQ(CurrentHelpViewer()->CurrentFile(), t->file) << id;
        EXPECT_FALSE(CurrentHelpViewer()->Browser()->toPlainText().isEmpty()) << id;
    }
    EXPECT_TRUE(w.messages.shown.empty());
    EXPECT_EQ(AppHelpFile(), "Tlyhelp");

    // Window Help: the active child's topic, unless a context is given; the launch pad's is the
    // overview.
    Open("/c/derby.tly");
    main->ShowForm("frmListBets", false);
    main->Action("mnuHelpWindow")->trigger();
    EXPECT_EQ(CurrentHelpViewer()->CurrentFile(), "list_bets.html");
    DisplayHelp(&*main, help::kDisplayOdds);
    EXPECT_EQ(CurrentHelpViewer()->CurrentFile(), "display_odds.html");
    main->UnloadForm("frmListBets");
    main->MdiArea()->setActiveSubWindow(main->MdiArea()->subWindowList()[0]);
    main->Action("mnuHelpContents")->trigger();
    EXPECT_EQ(CurrentHelpViewer()->CurrentFile(), "overview.html");

    // No child window: the contents, or the search.
    main->CloseChildWindows();
    CurrentHelpViewer()->Browser()->setSource(QUrl("qrc:/Tlyhelp/print.html"));
    main->Action("mnuHelpSearch")->trigger();
    EXPECT_EQ(CurrentHelpViewer()->CurrentFile(), "overview.html");
    EXPECT_TRUE(CurrentHelpViewer()->SearchBox()->isVisibleTo(CurrentHelpViewer()));

    // No help: the message, with the window's title.
    DisplayContextHelp("", help::kPlaceBets, "Place Bet");
    DisplayContextHelp(AppHelpFile(), 4999, "Place Bet");
    ASSERT_EQ(w.messages.shown.size(), 2u);
    for (const MessageRequest& m : w.messages.shown) {
        EXPECT_EQ(
            m.text,
            "Unable to display Help Contents. There is no Help associated with this project.");
        EXPECT_EQ(m.icon, Icon::kInformation);
        EXPECT_EQ(m.title, "Place Bet");
    }
    EXPECT_EQ(w.messages.beeps, 2);
}

TEST_F(MainWindow, HelpViewerGoesBackAndForwardAndSearchesByWord) {
    DisplayContextHelp(AppHelpFile(), help::kPlaceBets, "x");
    HelpViewer* v = CurrentHelpViewer();
    DisplayContextHelp(AppHelpFile(), help::kEditRacer, "x");
    ASSERT_EQ(CurrentHelpViewer(), v);
    EXPECT_TRUE(v->BackButton()->isEnabled());
    v->Browser()->backward();
    EXPECT_EQ(v->CurrentFile(), "place_bets.html");
    EXPECT_TRUE(v->ForwardButton()->isEnabled());
    v->Browser()->forward();
    EXPECT_EQ(v->CurrentFile(), "edit_racer.html");

    v->SearchBox()->setText("Scratched field");
    v->RunSearch();
    std::vector<std::string> found;
    for (int i = 0; i < v->Results()->count(); ++i)
        found.push_back(S(v->Results()->item(i)->text()));
    EXPECT_NE(std::find(found.begin(), found.end(), "Edit Racer"), found.end());
    EXPECT_EQ(std::find(found.begin(), found.end(), "About Tamberlin Tally"), found.end());
    v->Results()->itemClicked(v->Results()->item(0));
    EXPECT_EQ(Q(HelpTopicOfFile(v->CurrentFile())->title), v->Results()->item(0)->text());
    EXPECT_TRUE(v->Browser()->textCursor().hasSelection());

    v->SearchBox()->setText("zebra");
    v->RunSearch();
    ASSERT_EQ(v->Results()->count(), 1);
    EXPECT_EQ(v->Results()->item(0)->text(), "(No topic holds all of these words.)");
}

TEST(HelpSearch, MatchesTheStartsOfWordsAndRanksByHits) {
    std::vector<std::string> texts = {"Payouts are rounded down.", "The payout of a payout pool.",
                                      "Odds only."};
    EXPECT_EQ(SearchHelp("payout", texts), (std::vector<std::size_t>{1, 0}));
    EXPECT_EQ(SearchHelp("PAYOUT rounded", texts), (std::vector<std::size_t>{0}));
    EXPECT_TRUE(SearchHelp("  ", texts).empty());
    EXPECT_EQ(HelpWords("Pick's 5-2, don't"),
              (std::vector<std::string>{"pick's", "5", "2", "don't"}));
}

TEST_F(MainWindow, AboutShowsTheVersionAndTheSystemInformation) {
    frmAbout about(&*main);
    EXPECT_EQ(about.windowTitle(), "About Tamberlin Tally");
    EXPECT_EQ(about.lblVersion->text(), VersionText());
    EXPECT_TRUE(main->Action("mnuHelpAbout")->isEnabled());
    RF.RecoveryFlag = true;
    RF.RecoveryFile = "/days/june.tlr";
    about.cmdSysInfo->click();
    RF.RecoveryFlag = false;
    about.cmdSysInfo->click();
    ASSERT_EQ(w.messages.shown.size(), 2u);
    const std::string& info = w.messages.shown[0].text;
    EXPECT_EQ(w.messages.shown[0].title, "System Information");
    EXPECT_NE(info.find("Operating system: "), std::string::npos);
    EXPECT_NE(info.find(std::string("Qt version: ") + qVersion()), std::string::npos);
    EXPECT_NE(info.find("Settings: "), std::string::npos);
    EXPECT_NE(info.find("TamberlinTally"), std::string::npos);
    EXPECT_NE(info.find("Recovery file: /days/june.tlr"), std::string::npos);
    EXPECT_NE(w.messages.shown[1].text.find("Recovery file: not in use"), std::string::npos);
}

TEST_F(MainWindow, ResetMaxHasItsControlsDoesNothingAndClosesOnlyByItsFrame) {
    frmResetMax form(&*main);
    form.show();
    EXPECT_EQ(form.windowTitle(), "Reset Number of Races and Max Bets per Ticket");
    std::vector<QString> labels;
    for (QLabel* l : form.findChildren<QLabel*>()) labels.push_back(l->text());
    EXPECT_EQ(labels, (std::vector<QString>{"New Number of Races on Card:",
                                            "New Max Number of Bets per Ticket:"}));
    EXPECT_EQ(form.cmdCancel->text(), "Cancel");
    EXPECT_EQ(form.cmdHelp->text(), "Help");
    for (QPushButton* b : {form.cmdOK, form.cmdCancel, form.cmdHelp}) b->click();
    QTest::keyClick(&form, Qt::Key_Escape);
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(w.messages.shown.empty());
    EXPECT_TRUE(form.close());
    EXPECT_FALSE(main->Action("mnuToolsResetMax")->isVisible());
}

TEST(MainCommands, PageSetupReportsAFailureAndIgnoresACancel) {
    test::FakeWorld w;
    struct FailingPrinter : test::RecordingPrinter {
        bool SetupDialog() override { throw AppError(kErrPrinter, "The printer is out of reach"); }
    } failing;
    w.printer.setupAnswer = false;
    mnuFilePageSetup_Click();
    EXPECT_TRUE(w.messages.shown.empty());
    Ports ports = CurrentPorts();
    ports.printer = &failing;
    PortsScope scope(ports);
    mnuFilePageSetup_Click();
    EXPECT_EQ(w.messages.Texts(),
              (std::vector<std::string>{"Error in Page Setup.\n\r\nThe printer is out of reach"}));

    // The betting window needs racers, not only races.
    RF.Race(1).RaceName = "Opener";
    w.messages.Clear();
    mnuEditPlaceBets_Click();
    EXPECT_EQ(w.messages.Texts(),
              (std::vector<std::string>{"Race card must be set up before placing bets\r\n"
                                        "Please set this parameter using Tools/Setup Race Card"}));
    EXPECT_EQ(w.messages.beeps, 1);
    EXPECT_TRUE(w.shell.formsShown.empty());
}

}  // namespace
}  // namespace tt::gui
