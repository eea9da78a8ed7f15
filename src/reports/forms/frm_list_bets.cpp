#include "reports/forms/frm_list_bets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"

namespace tt::gui {

namespace {
QLabel* Label(QWidget* parent, const char* name) {
    auto* l = new QLabel(parent);
    l->setObjectName(name);
    return l;
}
}  // namespace

frmListBets::frmListBets(QWidget* parent) : QWidget(parent) {
    setObjectName("frmListBets");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kListBets);

    auto* v = new QVBoxLayout(this);
    auto* filters = new QGridLayout;
    comRaceName = new QComboBox(this);
    comRaceName->setObjectName("comRaceName");
    comRaceName->setMinimumWidth(Twips(3000));
    comBettor = new QComboBox(this);
    comBettor->setObjectName("comBettor");
    comBettor->setMinimumWidth(Twips(2400));
    comBetType = new QComboBox(this);
    comBetType->setObjectName("comBetType");
    comBetType->setMinimumWidth(Twips(2000));
    chkDefault = new QCheckBox(this);
    chkDefault->setObjectName("chkDefault");
    auto* lblRace = new QLabel("&Race:", this);
    lblRace->setBuddy(comRaceName);
    auto* lblBettor = new QLabel("B&ettor:", this);
    lblBettor->setBuddy(comBettor);
    auto* lblBetType = new QLabel("Bet &Type:", this);
    lblBetType->setBuddy(comBetType);
    optAllBets = new QRadioButton(this);
    optAllBets->setObjectName("optAllBets");
    optWinnersOnly = new QRadioButton(this);
    optWinnersOnly->setObjectName("optWinnersOnly");
    filters->addWidget(lblRace, 0, 0);
    filters->addWidget(comRaceName, 0, 1);
    filters->addWidget(chkDefault, 0, 2);
    filters->addWidget(optAllBets, 0, 4);
    filters->addWidget(lblBettor, 1, 0);
    filters->addWidget(comBettor, 1, 1);
    filters->addWidget(lblBetType, 1, 2, Qt::AlignRight);
    filters->addWidget(comBetType, 1, 3);
    filters->addWidget(optWinnersOnly, 1, 4);
    filters->setColumnStretch(5, 1);
    v->addLayout(filters);

    flxBets = new QTableView(this);
    flxBets->setObjectName("flxBets");
    model_ = new GridModel(flxBets);
    flxBets->setModel(model_);
    flxBets->setWordWrap(false);
    flxBets->setSelectionMode(QAbstractItemView::NoSelection);
    flxBets->setMinimumHeight(Twips(1200));
    // The thin rows between tickets.
    flxBets->verticalHeader()->setMinimumSectionSize(1);
    v->addWidget(flxBets, 1);
    lblEditMsg = Label(this, "lblEditMsg");
    v->addWidget(lblEditMsg);

    auto* bottom = new QHBoxLayout;
    fraTotals = new QGroupBox(this);
    fraTotals->setObjectName("fraTotals");
    auto* totals = new QGridLayout(fraTotals);
    lblTotalCap = Label(fraTotals, "lblTotalCap");
    lblTotal = Label(fraTotals, "lblTotal");
    lblWonCap = Label(fraTotals, "lblWonCap");
    lblWon = Label(fraTotals, "lblWon");
    lblCollectedCap = Label(fraTotals, "lblCollectedCap");
    lblCollected = Label(fraTotals, "lblCollected");
    lblDistributedCap = Label(fraTotals, "lblDistributedCap");
    lblDistributed = Label(fraTotals, "lblDistributed");
    lblDue = Label(fraTotals, "lblDue");
    for (QLabel* amount : {lblTotal, lblWon, lblCollected, lblDistributed}) {
        amount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        amount->setMinimumWidth(Twips(1100));
        amount->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    }
    for (QLabel* cap : {lblTotalCap, lblWonCap, lblCollectedCap, lblDistributedCap})
        cap->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // The totals keep their places when the money of tickets is hidden.
    for (QLabel* l : {lblCollectedCap, lblCollected, lblDistributedCap, lblDistributed, lblDue}) {
        QSizePolicy p = l->sizePolicy();
        p.setRetainSizeWhenHidden(true);
        l->setSizePolicy(p);
    }
    totals->addWidget(lblTotalCap, 0, 0);
    totals->addWidget(lblTotal, 0, 1);
    totals->addWidget(lblWonCap, 0, 2);
    totals->addWidget(lblWon, 0, 3);
    totals->addWidget(lblCollectedCap, 1, 0);
    totals->addWidget(lblCollected, 1, 1);
    totals->addWidget(lblDistributedCap, 1, 2);
    totals->addWidget(lblDistributed, 1, 3);
    totals->addWidget(lblDue, 2, 0, 1, 4);
    totals->setColumnStretch(4, 1);
    bottom->addWidget(fraTotals, 1);
    cmdCancel = new QPushButton(this);
    cmdCancel->setObjectName("cmdCancel");
    bottom->addWidget(cmdCancel, 0, Qt::AlignBottom);
    v->addLayout(bottom);
    setMinimumSize(Twips(ListBetsLogic::kMinWidth) - 16, Twips(ListBetsLogic::kMinHeight) - 40);

    connect(comRaceName, &QComboBox::activated, this, [this](int index) {
        Run([&] {
            logic.comRaceName.SetListIndex(index);
            logic.comRaceName_Click();
        });
    });
    connect(comBettor, &QComboBox::activated, this, [this](int index) {
        Run([&] {
            logic.comBettor.SetListIndex(index);
            logic.comBettor_Click();
        });
    });
    connect(comBetType, &QComboBox::activated, this, [this](int index) {
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
    connect(optAllBets, &QRadioButton::clicked, this,
            [this] { Run([this] { logic.optAllBets_Click(); }); });
    connect(optWinnersOnly, &QRadioButton::clicked, this,
            [this] { Run([this] { logic.optWinnersOnly_Click(); }); });
    connect(flxBets, &QTableView::clicked, this,
            [this](const QModelIndex& index) { ShowBet(index.row() + 1); });
    connect(cmdCancel, &QPushButton::clicked, this,
            [this] { Run([this] { logic.cmdCancel_Click(); }); });

    Run([this] { logic.Form_Load(); });
    // Coming to the front as the window opens needs no second build of what the load built.
    QTimer::singleShot(0, this, [this] { freshlyLoaded_ = false; });
}

frmListBets::~frmListBets() {
    // The grid goes with the logic, before the view that shows it.
    model_->SetGrid(nullptr);
}

void frmListBets::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

void frmListBets::Refresh() {
    refreshing_ = true;
    setWindowTitle(Q(logic.caption));
    FillCombo(comRaceName, logic.comRaceName);
    FillCombo(comBettor, logic.comBettor);
    FillCombo(comBetType, logic.comBetType);
    Apply(chkDefault, logic.chkDefault);
    Apply(optAllBets, logic.optAllBets);
    Apply(optWinnersOnly, logic.optWinnersOnly);
    {
        // The two option buttons are one group: neither is unchecked by the other's state.
        QSignalBlocker a(optAllBets), b(optWinnersOnly);
        optAllBets->setChecked(logic.optAllBets.value != 0);
        optWinnersOnly->setChecked(logic.optWinnersOnly.value != 0);
    }

    flxBets->setUpdatesEnabled(false);
    model_->SetGrid(&logic.flxBets);
    ApplyGridLayout(flxBets, logic.flxBets);
    // The columns keep at least their width and grow to what they hold in the desktop's font;
    // the picks take the rest.
    for (int c = 0; c < ListBetsLogic::kColPicks; ++c) {
        const int width = logic.flxBets.ColWidth(c);
        if (width <= 0) continue;
        flxBets->resizeColumnToContents(c);
        flxBets->setColumnWidth(c, std::max(flxBets->columnWidth(c), Twips(width)));
    }
    flxBets->horizontalHeader()->setStretchLastSection(true);
    flxBets->setUpdatesEnabled(true);

    lblEditMsg->setText(Q(logic.lblEditMsg.text));
    fraTotals->setTitle(Q(logic.fraTotals.text));
    Apply(lblTotalCap, logic.lblTotalCap);
    Apply(lblTotal, logic.lblTotal);
    Apply(lblWonCap, logic.lblWonCap);
    Apply(lblWon, logic.lblWon);
    Apply(lblCollectedCap, logic.lblCollectedCap);
    Apply(lblCollected, logic.lblCollected);
    Apply(lblDistributedCap, logic.lblDistributedCap);
    Apply(lblDistributed, logic.lblDistributed);
    Apply(lblDue, logic.lblDue);
    Apply(cmdCancel, logic.cmdCancel);
    refreshing_ = false;
    if (logic.unloaded) Unload();
}

void frmListBets::RefreshContents() {
    ScheduleActivate();
}

void frmListBets::ScheduleActivate() {
    if (activatePending_ || freshlyLoaded_) return;
    activatePending_ = true;
    QTimer::singleShot(0, this, [this] {
        activatePending_ = false;
        Run([this] { logic.Form_Activate(); });
    });
}

void frmListBets::ShowBet(int row) {
    if (row < logic.flxBets.FixedRows() || row >= logic.flxBets.Rows()) return;
    // The bet's cells from Tot Bet on are shown as selected while its picks are on screen.
    QItemSelectionModel* selection = flxBets->selectionModel();
    const int viewRow = row - logic.flxBets.FixedRows();
    selection->select(QItemSelection(model_->index(viewRow, ListBetsLogic::kColTotBet),
                                     model_->index(viewRow, ListBetsLogic::kColPicks)),
                      QItemSelectionModel::ClearAndSelect);
    flxBets->viewport()->repaint();
    Guard(this, false, [&] { logic.flxBets_Click(row); });
    if (selection) selection->clearSelection();
}

void frmListBets::Unload() {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        sub->close();
    else
        close();
}

void frmListBets::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (placed_) return;
    placed_ = true;
    QWidget* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (auto* sub = qobject_cast<QMdiSubWindow*>(frame))
        connect(sub, &QMdiSubWindow::aboutToActivate, this, [this] { ScheduleActivate(); });
    if (!frame) frame = this;
    frame->resize(Twips(logic.Width), Twips(logic.Height));
}

}  // namespace tt::gui
