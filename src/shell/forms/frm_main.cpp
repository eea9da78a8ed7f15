#include "shell/forms/frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDate>
#include <QDialog>
#include <QLabel>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPainter>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "files/file_commands.h"
#include "model/error_path.h"
#include "model/help_ids.h"
#include "model/race_file.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_logo.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"
#include "shell/forms/help_viewer.h"
#include "shell/main_commands.h"
#include "shell/startup.h"

namespace tt::gui {

namespace {

// A toolbar picture: a rounded tile with a short sign on it.
QIcon GlyphIcon(const QString& glyph, const QColor& color) {
    QPixmap pm(48, 48);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(color);
    p.setPen(color.darker(140));
    p.drawRoundedRect(QRectF(3, 3, 42, 42), 8, 8);
    QFont f = p.font();
    f.setBold(true);
    f.setPixelSize(glyph.size() > 2 ? 15 : 22);
    p.setFont(f);
    p.setPen(Qt::white);
    p.drawText(QRectF(3, 3, 42, 42), Qt::AlignCenter, glyph);
    return QIcon(pm);
}

QIcon ToolIcon(const std::string& key, QStyle* style) {
    if (key == "New") return style->standardIcon(QStyle::SP_FileIcon);
    if (key == "Open") return style->standardIcon(QStyle::SP_DialogOpenButton);
    if (key == "Save") return style->standardIcon(QStyle::SP_DialogSaveButton);
    if (key == "Help") return GlyphIcon("?", QColor(40, 90, 160));
    if (key == "MRU") return GlyphIcon("↺", QColor(90, 110, 140));
    if (key == "Print") return GlyphIcon("Pr", QColor(90, 90, 90));
    if (key == "Cascade") return GlyphIcon("❐", QColor(110, 110, 150));
    if (key == "SetupRaceCard") return GlyphIcon("RC", QColor(40, 110, 60));
    if (key == "SetupBettors") return GlyphIcon("☺", QColor(40, 110, 60));
    if (key == "PlaceBets") return GlyphIcon("$", QColor(170, 110, 20));
    if (key == "ListBets") return GlyphIcon("≡", QColor(170, 110, 20));
    if (key == "DisplayOdds") return GlyphIcon("5-2", QColor(30, 80, 160));
    if (key == "EditResults") return GlyphIcon("1·2·3", QColor(150, 40, 40));
    if (key == "DisplayPayouts") return GlyphIcon("$$", QColor(150, 40, 40));
    return {};
}

// A toolbar button over a menu entry's action, which gives it its enabled state and tool tip.
// A click refreshes the title and then runs the entry's command; the menu entry and its shortcut
// run the command alone.
class ToolbarButton : public QToolButton {
  public:
    ToolbarButton(frmMain* main, QToolBar* bar, QAction* action, const QIcon& icon)
        : QToolButton(bar), main_(main), icon_(icon) {
        setAutoRaise(true);
        setFocusPolicy(Qt::NoFocus);
        setIconSize(bar->iconSize());
        setToolButtonStyle(bar->toolButtonStyle());
        setDefaultAction(action);
        setIcon(icon_);
    }

  protected:
    // A click arrives here and would trigger the action.
    void nextCheckState() override {
        Guard(main_, false, [this] {
            UpdateTitle();
            defaultAction()->trigger();
        });
    }
    // The picture is the button's own, and stays when the action changes: an action with an icon
    // would widen its menu for an icon column.
    void actionEvent(QActionEvent* event) override {
        QToolButton::actionEvent(event);
        setIcon(icon_);
    }

  private:
    frmMain* main_;
    QIcon icon_;
};

}  // namespace

frmMain::frmMain(QWidget* parent) : QMainWindow(parent) {
    setObjectName("frmMain");
    setWindowTitle("Tamberlin Tally - No file open");
    mdi_ = new QMdiArea(this);
    mdi_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi_->setBackground(QApplication::palette().color(QPalette::Dark));
    setCentralWidget(mdi_);
    BuildMenus();
    BuildStatusBar();
    UpdateEnabled();
    InstallHelpKey();
}

QMenu* frmMain::createPopupMenu() {
    // The bars are shown and hidden by the View menu only, so that its check marks stay true.
    return nullptr;
}

frmMain::~frmMain() = default;

QAction* frmMain::Action(const std::string& name) const {
    auto it = actions_.find(name);
    return it == actions_.end() ? nullptr : it->second;
}

QAction* frmMain::AddAction(QMenu* menu, const char* name, const QString& caption,
                            std::function<void()> run, int group, std::string needsForm,
                            const QKeySequence& shortcut) {
    auto* a = new QAction(caption, this);
    a->setObjectName(name);
    if (!shortcut.isEmpty()) a->setShortcut(shortcut);
    if (menu) menu->addAction(a);
    connect(a, &QAction::triggered, this, [this, run] { Guard(this, false, run); });
    actions_[name] = a;
    commands_.push_back({a, group, std::move(needsForm)});
    return a;
}

void frmMain::BuildMenus() {
    QMenu* file = menuBar()->addMenu("&File");
    file->setObjectName("mnuFile");
    QAction* fileNew = AddAction(
        file, "mnuFileNew", "&New", [] { mnuFileNew_Click(); }, 0, "", QKeySequence("Ctrl+N"));
    QAction* fileOpen = AddAction(
        file, "mnuFileOpen", "&Open", [] { mnuFileOpen_Click(); }, 0, "", QKeySequence("Ctrl+O"));
    AddAction(
        file, "mnuFileClose", "&Close", [] { mnuFileClose_Click(); }, 1);
    file->addSeparator();
    QAction* fileSave = AddAction(
        file, "mnuFileSave", "&Save", [] { mnuFileSave_Click(); }, 1, "", QKeySequence("Ctrl+S"));
    AddAction(
        file, "mnuFileSaveAs", "Save &As...", [] { mnuFileSaveAs_Click(); }, 1);
    file->addSeparator();
    AddAction(
        file, "mnuFilePageSetup", "Page Set&up...", [] { mnuFilePageSetup_Click(); }, 1);
    QAction* filePrint = AddAction(
        file, "mnuFilePrint", "&Print...", [] { mnuFilePrint_Click(); }, 1, "frmPrint",
        QKeySequence("Ctrl+P"));
    AddAction(
        file, "mnuFilePrintToFile", "Print to &File", [] { mnuFilePrintToFile_Click(); }, 1,
        "frmPrint");
    QAction* mruSep = file->addSeparator();
    mruSep->setObjectName("mnuFileMRUSep");
    for (int i = 0; i < 4; ++i) {
        std::string name = "mnuFileMRU(" + std::to_string(i) + ")";
        mru_[static_cast<std::size_t>(i)] =
            AddAction(file, name.c_str(), QString(), [i] { mnuFileMRU_Click(i); });
        mru_[static_cast<std::size_t>(i)]->setVisible(false);
    }
    file->addSeparator();
    AddAction(file, "mnuFileExit", "E&xit", [this] { close(); });

    QMenu* edit = menuBar()->addMenu("&Edit");
    edit->setObjectName("mnuEdit");
    QAction* editRaceCard = AddAction(
        edit, "mnuEditSetupRaceCard", "Setup Race &Card", [] { mnuEditSetupRaceCard_Click(); }, 1,
        "frmRaceCard");
    QAction* editBettors = AddAction(
        edit, "mnuEditSetupBettors", "&Setup Bettors", [] { mnuEditSetupBettors_Click(); }, 1,
        "frmSelectBettor");
    edit->addSeparator();
    QAction* editPlaceBets = AddAction(
        edit, "mnuEditPlaceBets", "&Betting Window", [] { mnuEditPlaceBets_Click(); }, 2,
        "frmTransaction");
    QAction* editResults = AddAction(
        edit, "mnuEditResults", "&Record Race Results", [] { mnuEditResults_Click(); }, 2,
        "frmEditResults");

    QMenu* view = menuBar()->addMenu("&View");
    view->setObjectName("mnuView");
    // Each toggle shows its bar when hidden and hides it when shown, and its check mark follows.
    // The bars' own state decides, not the window's: the toggles work before it is on screen.
    QAction* tb = AddAction(view, "mnuViewToolbar", "&Toolbar", [this] {
        toolBar_->setHidden(!toolBar_->isHidden());
        actions_["mnuViewToolbar"]->setChecked(!toolBar_->isHidden());
    });
    tb->setCheckable(true);
    tb->setChecked(true);
    QAction* sb = AddAction(view, "mnuViewStatusBar", "Status &Bar", [this] {
        statusBar()->setHidden(!statusBar()->isHidden());
        actions_["mnuViewStatusBar"]->setChecked(!statusBar()->isHidden());
    });
    sb->setCheckable(true);
    sb->setChecked(true);
    view->addSeparator();
    QAction* viewListBets = AddAction(
        view, "mnuViewListBets", "&List Bets", [] { mnuViewListBets_Click(); }, 2, "frmListBets");
    QAction* viewOdds = AddAction(
        view, "mnuViewDisplayOdds", "Display &Odds", [] { mnuViewDisplayOdds_Click(); }, 2,
        "frmDisplayOdds");
    QAction* viewPayouts = AddAction(
        view, "mnuViewDisplayPayouts", "Display &Payouts", [] { mnuViewDisplayPayouts_Click(); }, 2,
        "frmDisplayPayouts");

    QMenu* tools = menuBar()->addMenu("&Tools");
    tools->setObjectName("mnuTools");
    AddAction(
        tools, "mnuToolsImportBettors", "&Bring in Bettors from another File",
        [] { mnuToolsImportBettors_Click(); }, 1, "frmImportBettors");
    AddAction(tools, "mnuToolsRaceCardFile", "&Create Race Card File", [] {})->setVisible(false);
    AddAction(tools, "mnuToolsImportRaces", "&Import Races and Bets", [] {})->setVisible(false);
    AddAction(tools, "mnuToolsResetMax", "Reset &Max Races, Bets per Ticket", [] {
        Shell().ShowForm("frmResetMax", true);
    })->setVisible(false);
    tools->addSeparator();
    AddAction(
        tools, "mnuToolsRestore", "&Restore from Recovery File", [] { mnuToolsRestore_Click(); }, 1,
        "frmRestore");

    QMenu* window = menuBar()->addMenu("&Window");
    window->setObjectName("mnuWindow");
    QAction* windowCascade = AddAction(
        window, "mnuWindowCascade", "&Cascade", [this] { Arrange(0); }, 1);
    AddAction(
        window, "mnuWindowTileHorizontal", "Tile &Horizontally", [this] { Arrange(1); }, 1);
    AddAction(
        window, "mnuWindowTileVertical", "Tile &Vertically", [this] { Arrange(2); }, 1);
    AddAction(window, "mnuWindowArrangeIcons", "&Arrange Icons", [this] { Arrange(3); });

    QMenu* help = menuBar()->addMenu("&Help");
    help->setObjectName("mnuHelp");
    AddAction(help, "mnuHelpContents", "&Overview", [this] { HelpContents(this); });
    QAction* helpWindow =
        AddAction(help, "mnuHelpWindow", "&Window Help", [this] { DisplayHelp(this, 0); });
    AddAction(help, "mnuHelpSearch", "&Search For Help On...", [this] { HelpSearch(this); });
    help->addSeparator();
    AddAction(
        help, "mnuHelpAbout", "&About Tamberlin Tally...",
        [] { Shell().ShowForm("frmAbout", true); }, 0, "frmAbout");

    // The most recent file has a button even while its menu entry is hidden, with an empty list.
    QAction* mostRecent =
        AddAction(nullptr, "tbMRU", "Open Most Recent File", [] { mnuFileMRU_Click(0); });
    BuildToolBar({
        {"MRU", "Open Most Recent File", mostRecent, false},
        {"New", "New", fileNew, false},
        {"Open", "Open", fileOpen, false},
        {"Save", "Save", fileSave, true},
        {"Print", "Print", filePrint, false},
        {"Cascade", "Cascade open windows", windowCascade, true},
        {"SetupRaceCard", "Setup Race Card", editRaceCard, false},
        {"SetupBettors", "Setup Bettors", editBettors, false},
        {"PlaceBets", "Betting Window", editPlaceBets, true},
        {"ListBets", "List Bets", viewListBets, false},
        {"DisplayOdds", "Display Odds", viewOdds, false},
        {"EditResults", "Record Race Results", editResults, false},
        {"DisplayPayouts", "Display Payouts", viewPayouts, false},
        {"Help", "Help", helpWindow, true},
    });
}

void frmMain::BuildToolBar(const std::vector<ToolbarEntry>& buttons) {
    toolBar_ = addToolBar("Toolbar");
    toolBar_->setObjectName("tbToolBar");
    toolBar_->setMovable(false);
    toolBar_->setIconSize(QSize(24, 24));
    for (const ToolbarEntry& e : buttons) {
        if (e.groupStart) toolBar_->addSeparator();
        e.action->setToolTip(e.toolTip);
        auto* button = new ToolbarButton(this, toolBar_, e.action, ToolIcon(e.key, style()));
        button->setObjectName(QString("tb") + e.key);
        toolBar_->addWidget(button);
        toolButtons_[e.key] = button;
    }
}

QToolButton* frmMain::ToolButton(const std::string& key) const {
    auto it = toolButtons_.find(key);
    return it == toolButtons_.end() ? nullptr : it->second;
}

void frmMain::tbToolBar_ButtonClick(const std::string& key) {
    // A disabled button takes no click.
    if (QToolButton* button = ToolButton(key)) button->click();
}

void frmMain::BuildStatusBar() {
    statusPanel_ = new QLabel("Status", this);
    statusPanel_->setObjectName("sbStatusBarStatus");
    datePanel_ = new QLabel(this);
    timePanel_ = new QLabel(this);
    for (QLabel* l : {statusPanel_, datePanel_, timePanel_}) {
        l->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        l->setMargin(2);
        l->installEventFilter(this);
    }
    statusBar()->setObjectName("sbStatusBar");
    statusBar()->addWidget(statusPanel_, 1);
    statusBar()->addPermanentWidget(datePanel_);
    statusBar()->addPermanentWidget(timePanel_);
    UpdateClock();
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &frmMain::UpdateClock);
    timer->start(1000);
}

void frmMain::UpdateClock() {
    QDateTime now = QDateTime::currentDateTime();
    datePanel_->setText(QLocale().toString(now.date(), QLocale::ShortFormat));
    timePanel_->setText(QLocale().toString(now.time(), QLocale::ShortFormat));
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress &&
        (watched == statusPanel_ || watched == datePanel_ || watched == timePanel_))
        Guard(this, false, [] { UpdateTitle(); });
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::UpdateEnabled() {
    for (const Command& c : commands_) {
        bool on = c.group == 0 || (c.group == 1 && fileGroup_) || (c.group == 2 && raceGroup_);
        if (!c.needsForm.empty() && !IsFormRegistered(c.needsForm)) on = false;
        c.action->setEnabled(on);
    }
    if (auto* logo = findChild<frmLogo*>()) logo->EnableGroups(fileGroup_, raceGroup_);
}

void frmMain::MDIForm_Load() {
    try {
        Placement p = ReadMainPlacement();
        move(Twips(p.left), Twips(p.top));
        resize(Twips(p.width), Twips(p.height));
        // Stored on a monitor since unplugged, or a larger screen: brought onto one that is here.
        KeepOnScreen(this);
    } catch (const std::exception& e) {
        // A damaged placement is reported; the window keeps its own size and the start goes on.
        ShowUnexpectedError(ToAppError(e));
    }
    LoadRecentFiles();
    RememberPlacement();
    G.FileChanged = false;
    DisableFileCommands();
    ShowLogo();
    loaded_ = true;
}

void frmMain::RememberPlacement() {
    Placement p{ToTwips(x()), ToTwips(y()), ToTwips(width()), ToTwips(height())};
    StoreMainPlacement(p);
}

void frmMain::closeEvent(QCloseEvent* event) {
    // The betting window asks about its open transaction before the card is let go, as a child
    // window is asked before its frame closes; a refusal keeps the program running.
    if (IsFormLoaded("frmTransaction")) {
        UnloadForm("frmTransaction");
        if (IsFormLoaded("frmTransaction")) {
            event->ignore();
            return;
        }
    }
    bool normal =
        !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
    Placement p{ToTwips(x()), ToTwips(y()), ToTwips(width()), ToTwips(height())};
    bool mayClose = true;
    Guard(this, false, [&] { mayClose = MainUnload(normal, p); });
    if (!mayClose) {
        event->ignore();
        return;
    }
    mdi_->closeAllSubWindows();
    // The help goes with the program, keeping where it stood for next time.
    if (HelpViewer* viewer = CurrentHelpViewer()) viewer->close();
    event->accept();
}

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The frame is known once the window is on screen: its title bar must be in reach too.
    if (!shownOnce_) {
        shownOnce_ = true;
        QTimer::singleShot(0, this, [this] { KeepOnScreen(this); });
    }
}

void frmMain::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && loaded_) {
        Guard(this, false, [] {
            UpdateTitle();
            AdjustMenuForRaceCard();
        });
    }
    QMainWindow::changeEvent(event);
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (!loaded_) return;
    RememberPlacement();
    if (auto* logo = findChild<frmLogo*>()) logo->Place();
}

void frmMain::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    if (loaded_) RememberPlacement();
}

void frmMain::SetBusy(bool busy) {
    if (busy) {
        if (busy_++ == 0) QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        while (busy_ > 0) {
            --busy_;
            QApplication::restoreOverrideCursor();
        }
    }
}

void frmMain::DoEvents() {
    QApplication::processEvents();
}

void frmMain::SetTitle(const std::string& title) {
    setWindowTitle(Q(title));
}

void frmMain::ShowMru(const std::array<std::string, 4>& captions) {
    for (std::size_t i = 0; i < 4; ++i) {
        mru_[i]->setText(Q(captions[i]));
        mru_[i]->setVisible(!captions[i].empty());
    }
}

void frmMain::EnableFileGroup(bool on) {
    fileGroup_ = on;
    UpdateEnabled();
}

void frmMain::EnableRaceGroup(bool on) {
    raceGroup_ = on;
    UpdateEnabled();
}

void frmMain::CloseChildWindows() {
    G.CancelFlag = false;
    for (;;) {
        // The active child first, then the others from the top down; a closed one is gone at
        // once, so that the launch pad brought back afterwards is a new one.
        QMdiSubWindow* active = mdi_->activeSubWindow();
        if (!active || !active->isVisible()) {
            active = nullptr;
            for (QMdiSubWindow* w : mdi_->subWindowList(QMdiArea::StackingOrder))
                if (w->isVisible()) active = w;
        }
        if (!active) break;
        QPointer<QMdiSubWindow> guard(active);
        active->setAttribute(Qt::WA_DeleteOnClose);
        if (!active->close() || (guard && guard->isVisible())) {
            // The child refused in its closing question.
            G.CancelFlag = true;
            break;
        }
        delete guard.data();
        if (G.CancelFlag) break;
    }
}

frmLogo* frmMain::Logo() {
    if (auto* logo = findChild<frmLogo*>()) return logo;
    auto* logo = new frmLogo(this);
    QMdiSubWindow* sub = mdi_->addSubWindow(
        logo, Qt::SubWindow | Qt::WindowTitleHint | Qt::WindowMinimizeButtonHint);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    KeepLayoutMinimum(sub);
    sub->setWindowTitle("Tamberlin Tally");
    // Help on the launch pad is the walk through a race day that its buttons follow.
    logo->setProperty("HelpContextID", help::kOverview);
    logo->EnableGroups(fileGroup_, raceGroup_);
    return logo;
}

void frmMain::ShowLogo() {
    frmLogo* logo = Logo();
    QWidget* sub = logo->parentWidget();
    sub->show();
    logo->Place();
}

QMdiSubWindow* frmMain::SubWindowOf(const std::string& name) const {
    auto it = children_.find(name);
    if (it == children_.end() || !it->second) return nullptr;
    auto* sub = qobject_cast<QMdiSubWindow*>(it->second->parentWidget());
    // A closed window is hidden at once and deleted later: it counts as gone.
    return sub && !sub->isHidden() ? sub : nullptr;
}

void frmMain::ShowForm(const std::string& name, bool modal) {
    if (QMdiSubWindow* sub = SubWindowOf(name)) {
        sub->showNormal();
        mdi_->setActiveSubWindow(sub);
        if (auto* child = children_[name].data())
            QMetaObject::invokeMethod(child, "RefreshContents");
        return;
    }
    QWidget* form = MakeForm(name, this);
    if (!form) {
        // Only New reaches a window that this build does not have: every command that opens one
        // stays disabled until the window is registered.
        qWarning("Tamberlin Tally: no window %s in this build", name.c_str());
        return;
    }
    if (auto* dialog = qobject_cast<QDialog*>(form); dialog && modal) {
        dialog->setAttribute(Qt::WA_DeleteOnClose, false);
        dialog->exec();
        delete dialog;
        return;
    }
    form->setObjectName(Q(name));
    form->setAttribute(Qt::WA_DeleteOnClose);
    QMdiSubWindow* sub = mdi_->addSubWindow(form);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    KeepLayoutMinimum(sub);
    children_[name] = form;
    sub->show();
    // A window that places itself from stored settings may have been left beyond a smaller
    // main window.
    KeepInArea(sub);
    mdi_->setActiveSubWindow(sub);
}

void frmMain::UnloadForm(const std::string& name) {
    if (QMdiSubWindow* sub = SubWindowOf(name)) sub->close();
}

bool frmMain::IsFormLoaded(const std::string& name) {
    return SubWindowOf(name) != nullptr;
}

std::string frmMain::StatusText() {
    return S(statusPanel_->text());
}

std::string frmMain::ActiveChild() {
    // The current child stays current while a dialog of the program is in front.
    QMdiSubWindow* sub = mdi_->currentSubWindow();
    if (!sub || sub->isHidden() || !sub->widget()) return {};
    return S(sub->widget()->objectName());
}

void frmMain::UnloadDisplays(bool withTransaction) {
    if (withTransaction) UnloadForm("frmTransaction");
    UnloadForm("frmDisplayOdds");
    UnloadForm("frmDisplayPayouts");
}

void frmMain::Arrange(int mode) {
    QList<QMdiSubWindow*> windows;
    for (QMdiSubWindow* w : mdi_->subWindowList())
        if (w->isVisible() && !w->isMinimized()) windows << w;
    QRect area = mdi_->viewport()->rect();
    switch (mode) {
        case 0:
            mdi_->cascadeSubWindows();
            break;
        case 1:
        case 2: {
            if (windows.isEmpty()) break;
            int n = static_cast<int>(windows.size());
            // Each window gets its share of the area, but never less than its contents need:
            // then the tiles run on past the area and it scrolls.
            int at = 0;
            for (int i = 0; i < n; ++i) {
                QMdiSubWindow* w = windows[i];
                w->showNormal();
                if (mode == 1) {
                    w->setGeometry(0, at, area.width(), area.height() / n);
                    at += w->height();
                } else {
                    w->setGeometry(at, 0, area.width() / n, area.height());
                    at += w->width();
                }
            }
            break;
        }
        case 3: {
            // Minimised windows in a row along the bottom.
            int x = 0;
            for (QMdiSubWindow* w : mdi_->subWindowList()) {
                if (!w->isMinimized()) continue;
                QSize s = w->size();
                w->move(x, area.height() - s.height());
                x += s.width();
            }
            break;
        }
        default:
            break;
    }
}

}  // namespace tt::gui
