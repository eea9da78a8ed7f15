#include "racecard/forms/frm_race_card.h"

#include <QCheckBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include "model/bet_type.h"
#include "model/help_ids.h"
#include "model/ports.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

namespace {

// The character code of a key press as the key filters see it; 0 for keys without text.
int KeyCode(const QKeyEvent* e) {
    const QString t = e->text();
    if (t.isEmpty()) return 0;
    const char16_t c = t.at(0).unicode();
    return c == 0 ? 0 : static_cast<int>(c);
}

}  // namespace

frmRaceCard::frmRaceCard(QWidget* parent) : QDialog(parent) {
    setObjectName("frmRaceCard");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kRaceCard);
    setSizeGripEnabled(true);

    auto* layout = new QVBoxLayout(this);
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    SSTab1->addTab(BuildGeneral(), "General Setup");
    SSTab1->addTab(BuildDefaults(), "Race Defaults");
    SSTab1->addTab(BuildRaces(), "Race Setup");
    SSTab1->addTab(BuildRacers(), "Racer Setup");
    SSTab1->addTab(BuildBackup(), "Backup/Recov");
    layout->addWidget(SSTab1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto* ok = Push("cmdOK", &RaceCardLogic::cmdOK_Click);
    static_cast<QPushButton*>(ok)->setDefault(true);
    buttons->addWidget(ok);
    buttons->addWidget(Push("cmdCancel", &RaceCardLogic::cmdCancel_Click));
    auto* helpButton = new QPushButton(this);
    helpButton->setObjectName("cmdHelp");
    buttons_["cmdHelp"] = helpButton;
    connect(helpButton, &QPushButton::clicked, this, [this] {
        Guard(this, false,
              [&] { DisplayContextHelp(AppHelpFile(), logic.HelpContext(), logic.caption); });
    });
    buttons->addWidget(helpButton);
    layout->addLayout(buttons);

    connect(SSTab1, &QTabWidget::currentChanged, this, [this](int index) {
        if (refreshing_) return;
        const int previous = logic.SSTab1;
        logic.SSTab1 = index;
        Run([&] { logic.SSTab1_Click(previous); });
    });
    connect(SSTab1->tabBar(), &QTabBar::tabBarDoubleClicked, this,
            [this](int) { Run([&] { logic.SSTab1_DblClick(); }); });
}

frmRaceCard::~frmRaceCard() {
    // The grids go with the logic, before the views that show them.
    if (racersModel_) racersModel_->SetGrid(nullptr);
}

void frmRaceCard::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (loaded_) return;
    loaded_ = true;
    Run([&] { logic.Form_Load(); });
}

// ---- Controls ---------------------------------------------------------------------------------

QLineEdit* frmRaceCard::Edit(const std::string& name, int width) {
    auto* e = new QLineEdit(this);
    e->setObjectName(Q(name));
    if (width > 0) e->setMaximumWidth(Twips(width));
    e->installEventFilter(this);
    edits_[name] = e;
    connect(e, &QLineEdit::textEdited, this, [this, name](const QString& text) {
        Run([&] {
            logic.Ctl(name).text = S(text);
            logic.Text_Change(name);
        });
    });
    return e;
}

QAbstractButton* frmRaceCard::Check(const std::string& name) {
    auto* c = new QCheckBox(this);
    c->setObjectName(Q(name));
    buttons_[name] = c;
    connect(c, &QCheckBox::clicked, this, [this, name](bool checked) {
        Run([&] {
            logic.Ctl(name).value = checked ? 1 : 0;
            logic.Check_Click(name);
        });
    });
    return c;
}

QAbstractButton* frmRaceCard::Option(const std::string& name) {
    auto* o = new QRadioButton(this);
    o->setObjectName(Q(name));
    // The logic keeps a group's choice, including none at all.
    o->setAutoExclusive(false);
    buttons_[name] = o;
    connect(o, &QRadioButton::clicked, this,
            [this, name] { Run([&] { logic.Option_Click(name); }); });
    return o;
}

QAbstractButton* frmRaceCard::Push(const std::string& name, void (RaceCardLogic::*click)()) {
    auto* b = new QPushButton(this);
    b->setObjectName(Q(name));
    b->setAutoDefault(false);
    buttons_[name] = b;
    connect(b, &QPushButton::clicked, this, [this, click] { Run([&] { (logic.*click)(); }); });
    return b;
}

QLabel* frmRaceCard::Label(const std::string& name) {
    auto* l = new QLabel(this);
    l->setObjectName(Q(name));
    labels_[name] = l;
    return l;
}

// ---- Tabs ------------------------------------------------------------------------------------

QWidget* frmRaceCard::BuildGeneral() {
    auto* page = new QWidget(this);
    auto* v = new QVBoxLayout(page);
    auto* top = new QGridLayout;
    top->addWidget(new QLabel("Race Card Name:", page), 0, 0);
    top->addWidget(Edit("txtFileName"), 0, 1);
    top->addWidget(new QLabel("Race or Competition Type:", page), 1, 0);
    comRaceType = new QComboBox(page);
    comRaceType->setObjectName("comRaceType");
    comRaceType->setEditable(true);
    comRaceType->setInsertPolicy(QComboBox::NoInsert);
    for (const auto& item : logic.comRaceTypeList.Items()) comRaceType->addItem(Q(item.text));
    connect(comRaceType, &QComboBox::editTextChanged, this, [this](const QString& text) {
        if (refreshing_) return;
        Run([&] {
            logic.comRaceType.text = S(text);
            logic.comRaceType_Change();
        });
    });
    top->addWidget(comRaceType, 1, 1);
    v->addLayout(top);

    auto* printing = new QGroupBox("Printing Setup", page);
    auto* p = new QGridLayout(printing);
    p->addWidget(Check("chkPrintBets"), 0, 0, 1, 3);
    auto* hold = new QHBoxLayout;
    hold->addWidget(Label("lblPrint2"));
    hold->addWidget(Edit("txtMaxTransInPrinter", 600));
    hold->addWidget(Label("lblPrint3"));
    hold->addStretch();
    p->addLayout(hold, 1, 0, 1, 3);
    p->addWidget(Label("lblTicketFontSize"), 2, 0);
    p->addWidget(Edit("txtTicketFontSize", 600), 2, 1);
    p->addWidget(new QLabel("Font Size for reports:", printing), 3, 0);
    p->addWidget(Edit("txtReportFontSize", 600), 3, 1);
    p->setColumnStretch(2, 1);
    v->addWidget(printing);

    auto* input = new QGroupBox("Racer Input", page);
    auto* in = new QHBoxLayout(input);
    in->addWidget(Check("chkUseBetNbr"));
    in->addWidget(Check("chkUseProgramNbr"));
    in->addWidget(Check("chkUsePostPosition"));
    in->addStretch();
    v->addWidget(input);

    auto* window = new QGroupBox("Betting Window Specifications", page);
    auto* w = new QGridLayout(window);
    w->addWidget(Check("chkCollectZero"), 0, 0, 1, 2);
    w->addWidget(Check("chkDefaultToDummy"), 1, 0, 1, 2);
    w->addWidget(new QLabel("For betting, sort Racers by:", window), 2, 0);
    comRacerSort = new QComboBox(window);
    comRacerSort->setObjectName("comRacerSort");
    for (const auto& item : logic.comRacerSort.Items()) comRacerSort->addItem(Q(item.text));
    connect(comRacerSort, &QComboBox::activated, this, [this](int index) {
        Run([&] {
            logic.comRacerSort.SetListIndex(index);
            logic.comRacerSortText = logic.comRacerSort.Text();
            logic.comRacerSort_Click();
        });
    });
    w->addWidget(comRacerSort, 2, 1);
    w->setColumnStretch(2, 1);
    v->addWidget(window);
    v->addStretch();
    return page;
}

QWidget* frmRaceCard::BuildSettings(const std::string& prefix, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* g = new QGridLayout(box);
    g->setContentsMargins(0, 0, 0, 0);
    auto name = [&](const char* n) { return "txt" + prefix + n; };
    g->addWidget(new QLabel("Minimum Bet:", box), 0, 0);
    g->addWidget(Edit(name("MinBet"), 1100), 0, 1);
    g->addWidget(new QLabel("Minimum Payout:", box), 1, 0);
    g->addWidget(Edit(name("MinPayout"), 1100), 1, 1);
    g->addWidget(new QLabel("Bet Increment:", box), 2, 0);
    g->addWidget(Edit(name("BetIncr"), 1100), 2, 1);
    g->addWidget(new QLabel("Holdback Percent:", box), 0, 2);
    g->addWidget(Edit(name("HoldbackPct"), 1100), 0, 3);
    g->addWidget(new QLabel("Holdback Amount:", box), 1, 2);
    g->addWidget(Edit(name("HoldbackAmt"), 1100), 1, 3);

    auto* types = new QGroupBox("Bet Types Allowed", box);
    auto* t = new QGridLayout(types);
    for (int i = 1; i <= kBetTypes; ++i)
        t->addWidget(Check(IndexedName("chk" + prefix + "BetType", i)), (i - 1) % 5, (i - 1) / 5);
    g->addWidget(types, 3, 0, 1, 2);

    auto* right = new QVBoxLayout;
    auto* quick = new QGroupBox("Quick Bet Amounts", box);
    auto* q = new QHBoxLayout(quick);
    for (int i = 1; i <= 5; ++i)
        q->addWidget(Edit(IndexedName("txt" + prefix + "QuickBet", i), 900));
    right->addWidget(quick);
    auto* round = new QGroupBox("Round Payouts To", box);
    auto* r = new QHBoxLayout(round);
    for (const char* suffix : RaceCardControls::kRoundSuffixes)
        r->addWidget(Option("opt" + prefix + "RoundTo" + suffix));
    right->addWidget(round);
    right->addStretch();
    g->addLayout(right, 3, 2, 1, 2);
    g->setColumnStretch(4, 1);
    return box;
}

QWidget* frmRaceCard::BuildDefaults() {
    auto* page = new QWidget(this);
    auto* v = new QVBoxLayout(page);
    auto* fraDefaults = new QGroupBox("Defaults for races", page);
    fraDefaults->setObjectName("fraDefaults");
    auto* f = new QVBoxLayout(fraDefaults);
    f->addWidget(BuildSettings("", fraDefaults));
    v->addWidget(fraDefaults);
    v->addStretch();
    return page;
}

QWidget* frmRaceCard::BuildRaces() {
    auto* page = new QWidget(this);
    auto* v = new QVBoxLayout(page);
    auto* top = new QGridLayout;
    top->addWidget(Label("lblRace"), 0, 0);
    top->addWidget(Edit("txtRaceName"), 0, 1);
    top->addWidget(Check("chkDefault"), 0, 2);
    top->addWidget(new QLabel("Go To Race:", page), 1, 0);
    comRaceName = new DropDownCombo(page);
    comRaceName->setObjectName("comRaceName");
    comRaceName->onDropDown = [this] { Run([&] { logic.comRaceName_DropDown(); }); };
    connect(comRaceName, &QComboBox::activated, this, [this](int index) {
        Run([&] {
            logic.comRaceName.SetListIndex(index);
            logic.comRaceName_Click();
        });
    });
    top->addWidget(comRaceName, 1, 1);
    auto* nav = new QHBoxLayout;
    nav->addWidget(Push("cmdPrev", &RaceCardLogic::cmdPrev_Click));
    nav->addWidget(Push("cmdNext", &RaceCardLogic::cmdNext_Click));
    nav->addSpacing(Twips(300));
    nav->addWidget(Push("cmdDelete", &RaceCardLogic::cmdDelete_Click));
    nav->addStretch();
    top->addLayout(nav, 2, 0, 1, 3);
    top->setColumnStretch(1, 1);
    v->addLayout(top);
    auto* message = Label("lblResultsMessage");
    message->setWordWrap(true);
    message->setStyleSheet("color: #b00000;");
    v->addWidget(message);

    fraRace = new QGroupBox(page);
    fraRace->setObjectName("fraRace");
    auto* f = new QVBoxLayout(fraRace);
    f->addWidget(BuildSettings("R", fraRace));
    auto* reset = new QHBoxLayout;
    auto* resetCaption = new QLabel(fraRace);
    buddyLabels_["cmdReset"] = resetCaption;
    auto* cmdReset = new QToolButton(fraRace);
    cmdReset->setObjectName("cmdReset");
    cmdReset->setIcon(style()->standardIcon(QStyle::SP_BrowserReload));
    cmdReset->setToolButtonStyle(Qt::ToolButtonIconOnly);
    buttons_["cmdReset"] = cmdReset;
    connect(cmdReset, &QToolButton::clicked, this,
            [this] { Run([&] { logic.cmdReset_Click(); }); });
    reset->addStretch();
    reset->addWidget(resetCaption);
    reset->addWidget(cmdReset);
    f->addLayout(reset);
    v->addWidget(fraRace);
    v->addStretch();
    return page;
}

QWidget* frmRaceCard::BuildRacers() {
    auto* page = new QWidget(this);
    auto* v = new QVBoxLayout(page);
    auto* top = new QGridLayout;
    top->addWidget(Label("lblRRRace"), 0, 0);
    top->addWidget(Edit("txtRRRaceName"), 0, 1);
    top->addWidget(Check("chkRRDefault"), 0, 2);
    top->addWidget(new QLabel("Go To Race:", page), 1, 0);
    comRRRaceName = new DropDownCombo(page);
    comRRRaceName->setObjectName("comRRRaceName");
    comRRRaceName->onDropDown = [this] { Run([&] { logic.comRRRaceName_DropDown(); }); };
    connect(comRRRaceName, &QComboBox::activated, this, [this](int index) {
        Run([&] {
            logic.comRRRaceName.SetListIndex(index);
            logic.comRRRaceName_Click();
        });
    });
    top->addWidget(comRRRaceName, 1, 1);
    auto* nav = new QHBoxLayout;
    nav->addWidget(Push("cmdRRPrev", &RaceCardLogic::cmdRRPrev_Click));
    nav->addWidget(Push("CmdRRNext", &RaceCardLogic::CmdRRNext_Click));
    nav->addStretch();
    top->addLayout(nav, 2, 0, 1, 3);
    top->setColumnStretch(1, 1);
    v->addLayout(top);

    auto* fraRacers = new QGroupBox("Racers", page);
    fraRacers->setObjectName("fraRacers");
    auto* f = new QVBoxLayout(fraRacers);
    flxRacers = new QTableView(fraRacers);
    flxRacers->setObjectName("flxRacers");
    racersModel_ = new GridModel(flxRacers);
    racersModel_->SetGrid(&logic.flxRacers);
    flxRacers->setModel(racersModel_);
    flxRacers->setSelectionMode(QAbstractItemView::SingleSelection);
    flxRacers->setMinimumHeight(Twips(3000));
    connect(flxRacers, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.isValid()) logic.flxRacers.SetRow(index.row() + logic.flxRacers.FixedRows());
    });
    connect(flxRacers, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        Run([&] {
            if (index.isValid()) logic.flxRacers.SetRow(index.row() + logic.flxRacers.FixedRows());
            logic.flxRacers_DblClick();
        });
    });
    f->addWidget(flxRacers);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Push("cmdNew", &RaceCardLogic::cmdNew_Click));
    buttons->addWidget(Push("cmdCopyRacers", &RaceCardLogic::cmdCopyRacers_Click));
    buttons->addStretch();
    auto* clearCaption = new QLabel(fraRacers);
    buddyLabels_["cmdClearRacers"] = clearCaption;
    auto* cmdClearRacers = new QToolButton(fraRacers);
    cmdClearRacers->setObjectName("cmdClearRacers");
    cmdClearRacers->setIcon(style()->standardIcon(QStyle::SP_TrashIcon));
    cmdClearRacers->setToolButtonStyle(Qt::ToolButtonIconOnly);
    buttons_["cmdClearRacers"] = cmdClearRacers;
    connect(cmdClearRacers, &QToolButton::clicked, this,
            [this] { Run([&] { logic.cmdClearRacers_Click(); }); });
    buttons->addWidget(clearCaption);
    buttons->addWidget(cmdClearRacers);
    f->addLayout(buttons);
    auto* message = Label("lblRResultsMessage");
    message->setWordWrap(true);
    message->setStyleSheet("color: #b00000;");
    f->addWidget(message);
    v->addWidget(fraRacers, 1);
    return page;
}

QWidget* frmRaceCard::BuildBackup() {
    auto* page = new QWidget(this);
    auto* v = new QVBoxLayout(page);
    auto* backup = new QGroupBox("File Backup Settings", page);
    auto* b = new QVBoxLayout(backup);
    b->addWidget(Check("chkBackup"));
    auto* after = new QHBoxLayout;
    after->addWidget(Label("lblSaveAfter1"));
    after->addWidget(Edit("txtSaveAfter", 700));
    after->addWidget(Label("lblSaveAfter2"));
    after->addStretch();
    b->addLayout(after);
    v->addWidget(backup);

    auto* recovery = new QGroupBox("Recovery File Settings", page);
    auto* r = new QVBoxLayout(recovery);
    r->addWidget(Check("chkRecoveryFlag"));
    r->addWidget(Label("lblRecoveryFile"));
    auto* file = new QHBoxLayout;
    file->addWidget(Edit("txtRecoveryFile"));
    file->addWidget(Push("cmdBrowse", &RaceCardLogic::cmdBrowse_Click));
    r->addLayout(file);
    r->addWidget(Check("chkClearRecovery"));
    auto* days = new QHBoxLayout;
    days->addWidget(Label("lblClear1"));
    days->addWidget(Edit("txtClearDays", 700));
    days->addWidget(Label("lblClear2"));
    days->addStretch();
    r->addLayout(days);
    v->addWidget(recovery);
    v->addStretch();
    return page;
}

// ---- Events and refresh -----------------------------------------------------------------------

void frmRaceCard::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

bool frmRaceCard::eventFilter(QObject* watched, QEvent* event) {
    auto* edit = qobject_cast<QLineEdit*>(watched);
    if (!edit || refreshing_) return QDialog::eventFilter(watched, event);
    const std::string name = S(edit->objectName());
    switch (event->type()) {
        case QEvent::FocusIn:
            if (UserFocusReason(static_cast<QFocusEvent*>(event)->reason()))
                Run([&] { logic.Text_GotFocus(name); });
            break;
        case QEvent::FocusOut:
            if (UserFocusReason(static_cast<QFocusEvent*>(event)->reason()))
                Run([&] { logic.Text_LostFocus(name); });
            break;
        case QEvent::KeyPress: {
            int key = KeyCode(static_cast<QKeyEvent*>(event));
            if (key == 0) break;
            bool refused = false;
            Guard(this, false, [&] {
                logic.Text_KeyPress(name, key);
                refused = key == 0;
            });
            if (refused) return true;
            break;
        }
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

void frmRaceCard::Refresh() {
    refreshing_ = true;
    for (auto& [name, edit] : edits_) Apply(edit, logic.Ctl(name));
    for (auto& [name, button] : buttons_)
        if (logic.HasControl(name)) Apply(button, logic.Ctl(name));
    for (auto& [name, label] : labels_) Apply(label, logic.Ctl(name));
    for (auto& [name, label] : buddyLabels_) {
        const ControlState& s = logic.Ctl(name);
        label->setText(Q(s.text));
        label->setEnabled(s.enabled);
        label->setVisible(s.visible);
    }
    fraRace->setTitle(Q(logic.fraRace.text));
    fraRace->setVisible(logic.fraRace.visible);

    if (comRaceType->currentText() != Q(logic.comRaceType.text))
        comRaceType->setEditText(Q(logic.comRaceType.text));
    {
        QSignalBlocker block(comRacerSort);
        comRacerSort->setCurrentIndex(comRacerSort->findText(Q(logic.comRacerSortText)));
    }
    FillCombo(comRaceName, logic.comRaceName);
    FillCombo(comRRRaceName, logic.comRRRaceName);
    for (auto* combo :
         {static_cast<QComboBox*>(comRaceName), static_cast<QComboBox*>(comRRRaceName)})
        combo->setEnabled(true);

    racersModel_->SetGrid(&logic.flxRacers);
    ApplyGridLayout(flxRacers, logic.flxRacers);
    flxRacers->horizontalHeader()->setStretchLastSection(false);
    if (logic.flxRacers.Rows() > logic.flxRacers.FixedRows() &&
        logic.flxRacers.Row() >= logic.flxRacers.FixedRows())
        flxRacers->selectRow(logic.flxRacers.Row() - logic.flxRacers.FixedRows());
    flxRacers->setEnabled(true);

    if (SSTab1->currentIndex() != logic.SSTab1) SSTab1->setCurrentIndex(logic.SSTab1);
    ApplyFocus(this, logic, logic.selectText);
    refreshing_ = false;
    if (logic.unloaded) done(QDialog::Accepted);
}

void frmRaceCard::reject() {
    RejectUnlessKept(this);
}

}  // namespace tt::gui
