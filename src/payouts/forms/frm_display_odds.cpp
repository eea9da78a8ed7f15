#include "payouts/forms/frm_display_odds.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>
#include <optional>

#include "model/help_ids.h"
#include "model/ports.h"
#include "payouts/forms/odds_board.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/gui_support.h"

namespace tt::gui {

namespace {
QRadioButton* Option(QWidget* parent, const char* name, QLayout* layout) {
    auto* b = new QRadioButton(parent);
    b->setObjectName(name);
    layout->addWidget(b);
    return b;
}

QGroupBox* Frame(QWidget* parent, const char* name) {
    auto* f = new QGroupBox(parent);
    f->setObjectName(name);
    return f;
}

// A list shown again only when it changed: refilling a combo box closes its open list, and a tick
// of Auto Run comes every few seconds.
void SyncCombo(QComboBox* box, const ListData& list) {
    bool same = box->count() == list.ListCount() && box->currentIndex() == list.ListIndex();
    for (int i = 0; same && i < list.ListCount(); ++i)
        same = box->itemText(i) == Q(list.List(i)) &&
               box->itemData(i).toLongLong() == list.ItemData(i);
    if (!same) FillCombo(box, list);
}

// The board's screen and bars are kept for the next time.
constexpr const char* kBoardScreenKey = "OddsBoardScreen";
constexpr const char* kBoardBarsKey = "OddsBoardBars";
}  // namespace

frmDisplayOdds::frmDisplayOdds(QWidget* parent) : QWidget(parent) {
    setObjectName("frmDisplayOdds");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kDisplayOdds);

    auto* v = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    fraRaces = Frame(this, "fraRaces");
    auto* races = new QHBoxLayout(fraRaces);
    optRacesAll = Option(fraRaces, "optRacesAll", races);
    optRacesUnfinished = Option(fraRaces, "optRacesUnfinished", races);
    fraRaces->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    top->addWidget(fraRaces);

    auto* lists = new QGridLayout;
    comRaceName = new QComboBox(this);
    comRaceName->setObjectName("comRaceName");
    comRaceName->setMinimumWidth(Twips(3000));
    auto* lblRace = new QLabel("&Race:", this);
    lblRace->setBuddy(comRaceName);
    comBetType = new QComboBox(this);
    comBetType->setObjectName("comBetType");
    comBetType->setMinimumWidth(Twips(3000));
    auto* lblBetType = new QLabel("For &Bet Type:", this);
    lblBetType->setBuddy(comBetType);
    chkDefault = new QCheckBox(this);
    chkDefault->setObjectName("chkDefault");
    lists->addWidget(lblRace, 0, 0);
    lists->addWidget(comRaceName, 0, 1);
    lists->addWidget(chkDefault, 0, 2);
    lists->addWidget(lblBetType, 1, 0);
    lists->addWidget(comBetType, 1, 1);
    lists->setColumnStretch(3, 1);
    top->addLayout(lists, 1);
    v->addLayout(top);

    auto* middle = new QHBoxLayout;
    flxOdds = new QTableView(this);
    flxOdds->setObjectName("flxOdds");
    oddsModel_ = new GridModel(flxOdds);
    flxOdds->setModel(oddsModel_);
    flxOdds->setSelectionMode(QAbstractItemView::NoSelection);
    flxOdds->setFocusPolicy(Qt::NoFocus);
    flxOdds->setWordWrap(false);
    flxOdds->setMinimumSize(Twips(4800), Twips(2400));
    flxOdds->viewport()->installEventFilter(this);
    middle->addWidget(flxOdds, 1);

    auto* side = new QVBoxLayout;
    fraAutoRun = Frame(this, "fraAutoRun");
    auto* autoRun = new QVBoxLayout(fraAutoRun);
    auto* onOff = new QHBoxLayout;
    optAutoOn = Option(fraAutoRun, "optAutoOn", onOff);
    optAutoOff = Option(fraAutoRun, "optAutoOff", onOff);
    onOff->addStretch();
    autoRun->addLayout(onOff);
    fraBetSetting = Frame(fraAutoRun, "fraBetSetting");
    auto* bets = new QHBoxLayout(fraBetSetting);
    optAutoBetSelected = Option(fraBetSetting, "optAutoBetSelected", bets);
    optAutoBetAll = Option(fraBetSetting, "optAutoBetAll", bets);
    autoRun->addWidget(fraBetSetting);
    fraRaceSetting = Frame(fraAutoRun, "fraRaceSetting");
    auto* raceSetting = new QHBoxLayout(fraRaceSetting);
    optAutoRaceSelected = Option(fraRaceSetting, "optAutoRaceSelected", raceSetting);
    optAutoRaceAll = Option(fraRaceSetting, "optAutoRaceAll", raceSetting);
    autoRun->addWidget(fraRaceSetting);
    auto* interval = new QHBoxLayout;
    txtInterval = new QLineEdit(fraAutoRun);
    txtInterval->setObjectName("txtInterval");
    txtInterval->setMaximumWidth(Twips(600));
    txtInterval->installEventFilter(this);
    auto* lblInterval = new QLabel("&Interval (sec's)", fraAutoRun);
    lblInterval->setBuddy(txtInterval);
    interval->addWidget(txtInterval);
    interval->addWidget(lblInterval);
    interval->addStretch();
    autoRun->addLayout(interval);
    side->addWidget(fraAutoRun);

    fraBoard = Frame(this, "fraBoard");
    fraBoard->setTitle("Board for the room");
    auto* board = new QVBoxLayout(fraBoard);
    comBoardScreen = new QComboBox(fraBoard);
    comBoardScreen->setObjectName("comBoardScreen");
    comBoardScreen->setToolTip("The screen the board fills.");
    auto* lblScreen = new QLabel("&Screen:", fraBoard);
    lblScreen->setBuddy(comBoardScreen);
    auto* screenRow = new QHBoxLayout;
    screenRow->addWidget(lblScreen);
    screenRow->addWidget(comBoardScreen, 1);
    board->addLayout(screenRow);
    chkBoardBars = new QCheckBox("Win pool b&ars", fraBoard);
    chkBoardBars->setObjectName("chkBoardBars");
    chkBoardBars->setToolTip("Show each racer's share of the Win pool as a bar on the board.");
    board->addWidget(chkBoardBars);
    cmdBoard = new QPushButton("B&oard", fraBoard);
    cmdBoard->setObjectName("cmdBoard");
    cmdBoard->setCheckable(true);
    cmdBoard->setToolTip(
        "Show the grid full screen for the room, in large type. Esc on the board leaves it.");
    board->addWidget(cmdBoard);
    side->addWidget(fraBoard);
    side->addStretch();
    cmdCancel = new QPushButton(this);
    cmdCancel->setObjectName("cmdCancel");
    side->addWidget(cmdCancel);
    middle->addLayout(side);
    v->addLayout(middle, 1);

    auto option = [this](QRadioButton* b, void (DisplayOddsLogic::*click)()) {
        connect(b, &QRadioButton::clicked, this, [this, click] { Run([&] { (logic.*click)(); }); });
    };
    option(optRacesAll, &DisplayOddsLogic::optRacesAll_Click);
    option(optRacesUnfinished, &DisplayOddsLogic::optRacesUnfinished_Click);
    option(optAutoOn, &DisplayOddsLogic::optAutoOn_Click);
    option(optAutoOff, &DisplayOddsLogic::optAutoOff_Click);
    option(optAutoBetSelected, &DisplayOddsLogic::optAutoBetSelected_Click);
    option(optAutoBetAll, &DisplayOddsLogic::optAutoBetAll_Click);
    option(optAutoRaceSelected, &DisplayOddsLogic::optAutoRaceSelected_Click);
    option(optAutoRaceAll, &DisplayOddsLogic::optAutoRaceAll_Click);
    connect(comRaceName, &QComboBox::currentIndexChanged, this, [this](int index) {
        Run([&] {
            logic.comRaceName.SetListIndex(index);
            logic.comRaceName_Click();
        });
    });
    connect(comBetType, &QComboBox::currentIndexChanged, this, [this](int index) {
        Run([&] {
            logic.comBetType.SetListIndex(index);
            logic.comBetType_Click();
        });
    });
    connect(chkDefault, &QCheckBox::clicked, this, [this](bool on) {
        Run([&] {
            logic.chkDefault.value = on ? 1 : 0;
            logic.chkDefault_Click();
        });
    });
    connect(txtInterval, &QLineEdit::textEdited, this,
            [this](const QString& text) { Run([&] { logic.txtInterval.text = S(text); }); });
    connect(cmdCancel, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdCancel_Click(); }); });
    connect(cmdBoard, &QPushButton::toggled, this, [this](bool on) { SetBoard(on); });
    connect(chkBoardBars, &QCheckBox::toggled, this, [this](bool on) {
        Guard(this, false, [&] { Settings().Set(kBoardBarsKey, on ? "1" : "0"); });
        if (board_) board_->SetBars(on);
    });
    connect(comBoardScreen, &QComboBox::activated, this, [this](int) {
        Guard(this, false, [&] {
            Settings().Set(kBoardScreenKey, S(comBoardScreen->currentData().toString()));
        });
        if (BoardShown()) {
            // On to the screen chosen.
            SetBoard(false);
            SetBoard(true);
        }
    });
    connect(qApp, &QGuiApplication::screenAdded, this, [this] { FillScreens(); });
    connect(qApp, &QGuiApplication::screenRemoved, this, [this](QScreen* gone) {
        if (BoardShown() && board_->screen() == gone) SetBoard(false);
        FillScreens();
    });

    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(logic.Timer1Interval);
    connect(Timer1, &QTimer::timeout, this, [this] {
        // A tick that waits on a message box lets no other tick in.
        if (ticking_) return;
        ticking_ = true;
        TellVisibleRows();
        Run([this] { logic.Timer1_Timer(); });
        ticking_ = false;
    });
    Timer1->start();

    bool bars = false;
    Guard(this, false, [&] { bars = Settings().Get(kBoardBarsKey).value_or("0") == "1"; });
    chkBoardBars->setChecked(bars);
    FillScreens();
    Run([this] { logic.Form_Load(); });
}

frmDisplayOdds::~frmDisplayOdds() {
    delete board_;
    // The grid goes with the logic, before the views that show it.
    oddsModel_->SetGrid(nullptr);
}

void frmDisplayOdds::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

void frmDisplayOdds::Refresh() {
    refreshing_ = true;
    setWindowTitle(Q(logic.caption));
    fraRaces->setTitle(Q(logic.fraRaces.text));
    Apply(optRacesAll, logic.optRacesAll);
    Apply(optRacesUnfinished, logic.optRacesUnfinished);
    SyncCombo(comRaceName, logic.comRaceName);
    SyncCombo(comBetType, logic.comBetType);
    Apply(chkDefault, logic.chkDefault);

    const bool newGrid = gridShown_ != logic.Refreshes;
    if (newGrid) {
        gridShown_ = logic.Refreshes;
        oddsModel_->SetGrid(&logic.flxOdds);
        ApplyGridLayout(flxOdds, logic.flxOdds);
        flxOdds->setSelectionMode(QAbstractItemView::NoSelection);
        FitColumns();
    }
    // The row at the top is the one Auto Run turned to; the user's own scrolling stands until
    // then.
    if (newGrid || topShown_ != logic.TopRowShown) {
        topShown_ = logic.TopRowShown;
        flxOdds->verticalScrollBar()->setValue(topShown_ - logic.flxOdds.FixedRows());
    }

    fraAutoRun->setTitle(Q(logic.fraAutoRun.text));
    fraBetSetting->setTitle(Q(logic.fraBetSetting.text));
    fraRaceSetting->setTitle(Q(logic.fraRaceSetting.text));
    for (auto [button, state] : {std::pair{optAutoOn, &logic.optAutoOn},
                                 {optAutoOff, &logic.optAutoOff},
                                 {optAutoBetSelected, &logic.optAutoBetSelected},
                                 {optAutoBetAll, &logic.optAutoBetAll},
                                 {optAutoRaceSelected, &logic.optAutoRaceSelected},
                                 {optAutoRaceAll, &logic.optAutoRaceAll}})
        Apply(button, *state);
    Apply(txtInterval, logic.txtInterval);
    Apply(cmdCancel, logic.cmdCancel);

    // An interval of 0 stops the timer, and nothing starts it again.
    if (logic.Timer1Interval <= 0)
        Timer1->stop();
    else if (Timer1->isActive() && Timer1->interval() != logic.Timer1Interval)
        Timer1->setInterval(logic.Timer1Interval);

    if (BoardShown()) board_->Refresh();
    TellVisibleRows();
    ApplyFocus(this, logic);
    refreshing_ = false;
    // "No races to display" while the window is being made: it goes once it stands.
    if (logic.unloaded) QTimer::singleShot(0, this, [this] { Unload(); });
}

void frmDisplayOdds::FitColumns() {
    // Each column at least as wide as its heading; the names take the room the window has.
    QHeaderView* head = flxOdds->horizontalHeader();
    const GridData& grid = logic.flxOdds;
    const QFontMetrics fm(head->font());
    for (int c = 0; c < grid.Cols(); ++c) {
        const int twips = grid.ColWidth(c);
        if (twips <= 0) continue;
        const int least = fm.horizontalAdvance(Q(grid.TextMatrix(0, c))) + Twips(240);
        head->setSectionResizeMode(c,
                                   twips >= 1600 ? QHeaderView::Stretch : QHeaderView::Interactive);
        if (twips < 1600) flxOdds->setColumnWidth(c, std::max(Twips(twips), least));
    }
}

void frmDisplayOdds::RefreshContents() {
    Run([this] { logic.DisplayOdds(); });
}

void frmDisplayOdds::TellVisibleRows() {
    if (BoardShown()) {
        logic.VisibleRows = board_->RowsPerPage();
        return;
    }
    const int row = std::max(1, flxOdds->verticalHeader()->defaultSectionSize());
    logic.VisibleRows = std::max(1, flxOdds->viewport()->height() / row);
}

void frmDisplayOdds::FillScreens() {
    QSignalBlocker block(comBoardScreen);
    const QString chosen = comBoardScreen->currentData().toString();
    std::optional<std::string> kept;
    Guard(this, false, [&] { kept = Settings().Get(kBoardScreenKey); });
    comBoardScreen->clear();
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (int i = 0; i < screens.size(); ++i) {
        const QScreen* s = screens[i];
        comBoardScreen->addItem(QString("%1: %2 (%3 x %4)")
                                    .arg(i + 1)
                                    .arg(s->name())
                                    .arg(s->geometry().width())
                                    .arg(s->geometry().height()),
                                s->name());
    }
    int index = comBoardScreen->findData(chosen);
    if (index < 0 && kept) index = comBoardScreen->findData(Q(*kept));
    if (index < 0) {
        // A screen the program's window is not on, when there is one: that is where the room
        // looks.
        const QScreen* own = window()->screen();
        for (int i = 0; i < screens.size() && index < 0; ++i)
            if (screens[i] != own) index = i;
    }
    comBoardScreen->setCurrentIndex(std::max(index, 0));
}

bool frmDisplayOdds::BoardShown() const {
    return board_ && board_->isVisible();
}

void frmDisplayOdds::SetBoard(bool on) {
    if (on == BoardShown()) {
        QSignalBlocker block(cmdBoard);
        cmdBoard->setChecked(on);
        return;
    }
    if (on) {
        if (!board_) {
            board_ = new OddsBoard(logic);
            connect(board_, &OddsBoard::left, this, [this] { SetBoard(false); });
        }
        QScreen* screen = nullptr;
        const QString name = comBoardScreen->currentData().toString();
        for (QScreen* s : QGuiApplication::screens())
            if (s->name() == name) screen = s;
        if (!screen) screen = QGuiApplication::primaryScreen();
        board_->SetBars(chkBoardBars->isChecked());
        board_->ShowOn(screen);
        board_->Refresh();
    } else if (board_) {
        board_->hide();
    }
    {
        QSignalBlocker block(cmdBoard);
        cmdBoard->setChecked(on);
    }
    TellVisibleRows();
}

void frmDisplayOdds::Unload() {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        sub->close();
    else
        close();
}

void frmDisplayOdds::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (placement_.Placed()) return;
    placement_.Restore();
    FillScreens();
}

void frmDisplayOdds::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    TellVisibleRows();
}

void frmDisplayOdds::closeEvent(QCloseEvent* event) {
    placement_.Save();
    Timer1->stop();
    SetBoard(false);
    event->accept();
}

bool frmDisplayOdds::eventFilter(QObject* watched, QEvent* event) {
    if (watched == flxOdds->viewport() && event->type() == QEvent::Resize) TellVisibleRows();
    if (watched == txtInterval && !refreshing_) {
        if (event->type() == QEvent::FocusIn) {
            QTimer::singleShot(0, txtInterval, [e = txtInterval] { e->selectAll(); });
        } else if (event->type() == QEvent::KeyPress) {
            const QString t = static_cast<QKeyEvent*>(event)->text();
            if (!t.isEmpty()) {
                int key = t.at(0).unicode();
                Guard(this, false, [&] { logic.txtInterval_KeyPress(key); });
                if (key == 0) return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ShowOddsBoardWhenReady(frmMain& main) {
    QAction* action = main.Action("mnuViewDisplayOdds");
    if (!action) return;
    auto open = [&main] {
        main.Action("mnuViewDisplayOdds")->trigger();
        auto* odds = main.findChild<frmDisplayOdds*>();
        if (!odds) return;
        // A board nobody stands at turns its pages by itself.
        Guard(odds, false, [odds] { odds->logic.optAutoOn_Click(); });
        odds->Refresh();
        odds->SetBoard(true);
    };
    if (action->isEnabled()) {
        QTimer::singleShot(0, &main, open);
        return;
    }
    auto connection = std::make_shared<QMetaObject::Connection>();
    *connection = QObject::connect(action, &QAction::changed, &main, [action, connection, open] {
        if (!action->isEnabled()) return;
        QObject::disconnect(*connection);
        // Once the command that opened the card has finished.
        QTimer::singleShot(0, action, open);
    });
}

}  // namespace tt::gui
