#include "betting/forms/frm_place_bets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <utility>

#include "model/help_ids.h"
#include "model/race_file.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

namespace {
QString Indexed(const char* name, int i) {
    return QString("%1(%2)").arg(name).arg(i);
}
}  // namespace

frmPlaceBets::frmPlaceBets(QWidget* parent) : QDialog(parent) {
    setObjectName("frmPlaceBets");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kPlaceBets);
    setSizeGripEnabled(true);
    auto* v = new QVBoxLayout(this);

    // ---- The bet area ----
    fraBet = new QGroupBox(this);
    auto* area = new QHBoxLayout(fraBet);
    auto* g = new QGridLayout;
    area->addLayout(g, 1);

    txtBetAmt = new QLineEdit(fraBet);
    txtBetAmt->setObjectName("txtBetAmt");
    txtBetAmt->setFixedWidth(Twips(1300));
    txtBetAmt->setAlignment(Qt::AlignRight);
    auto* lblAmount = new QLabel("&Amount:", fraBet);
    lblAmount->setBuddy(txtBetAmt);
    auto* quick = new QHBoxLayout;
    for (int i = 1; i <= 5; ++i) {
        auto* b = new QPushButton(fraBet);
        b->setObjectName(Indexed("cmdBetAmt", i));
        b->setFocusPolicy(Qt::ClickFocus);
        b->setAutoDefault(false);
        b->setMinimumWidth(Twips(900));
        cmdBetAmt[static_cast<std::size_t>(i)] = b;
        quick->addWidget(b);
        connect(b, &QPushButton::clicked, this,
                [this, i] { Run([&] { logic.cmdBetAmt_Click(i); }); });
    }
    quick->addStretch();
    g->addWidget(lblAmount, 0, 0);
    g->addWidget(txtBetAmt, 0, 1);
    g->addLayout(quick, 0, 2, 1, 3);

    comBetType = new QComboBox(fraBet);
    comBetType->setObjectName("comBetType");
    comBetType->setMinimumWidth(Twips(2200));
    auto* lblType = new QLabel("Bet &Type:", fraBet);
    lblType->setBuddy(comBetType);
    auto* types = new QHBoxLayout;
    types->setSpacing(2);
    for (int i = 1; i <= 11; ++i) {
        auto* b = new QPushButton(fraBet);
        b->setObjectName(Indexed("cmdBetType", i));
        b->setFocusPolicy(Qt::ClickFocus);
        b->setAutoDefault(false);
        b->setFixedWidth(Twips(500));
        cmdBetType[static_cast<std::size_t>(i)] = b;
        types->addWidget(b);
        connect(b, &QPushButton::clicked, this,
                [this, i] { Run([&] { logic.cmdBetType_Click(i); }); });
    }
    types->addStretch();
    g->addWidget(lblType, 1, 0);
    g->addWidget(comBetType, 1, 1, 1, 2);
    g->addLayout(types, 1, 3, 1, 2);

    chkBoxed = new QCheckBox(fraBet);
    chkBoxed->setObjectName("chkBoxed");
    g->addWidget(chkBoxed, 2, 1);

    // Picks 1 to 3 down the left, 4 to 6 down the right.
    for (int i = 1; i <= 6; ++i) {
        auto* box = new QComboBox(fraBet);
        box->setObjectName(Indexed("comPick", i));
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
        box->setCompleter(nullptr);
        box->setMinimumWidth(Twips(3000));
        box->setMaxVisibleItems(20);
        auto* label = new QLabel(fraBet);
        label->setObjectName(Indexed("lblPick", i));
        label->setBuddy(box);
        comPick[static_cast<std::size_t>(i)] = box;
        lblPick[static_cast<std::size_t>(i)] = label;
        const int row = 3 + (i - 1) % 3;
        const int col = (i - 1) / 3 * 2;
        g->addWidget(label, row, col == 0 ? 0 : 3);
        g->addWidget(box, row, col == 0 ? 1 : 4, 1, col == 0 ? 2 : 1);
        connect(box, &QComboBox::currentIndexChanged, this, [this, i](int index) {
            if (refreshing_) return;
            Run([&] {
                if (logic.comPick[static_cast<std::size_t>(i)].Select(index))
                    logic.comPick_Click(i);
            });
        });
        connect(box->lineEdit(), &QLineEdit::textEdited, this, [this, i](const QString& text) {
            Run([&] {
                logic.comPick[static_cast<std::size_t>(i)].text = S(text);
                logic.comPick_Change(i);
            });
        });
    }

    auto* total = new QHBoxLayout;
    lblBetTotal = new QLabel(fraBet);
    lblExtendedBetAmt = new QLabel(fraBet);
    lblExtendedBetAmt->setObjectName("lblExtendedBetAmt");
    lblExtendedBetAmt->setMinimumWidth(Twips(1300));
    lblExtendedBetAmt->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblExtendedBetAmt->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    QFont bold = lblExtendedBetAmt->font();
    bold.setBold(true);
    lblExtendedBetAmt->setFont(bold);
    total->addStretch();
    total->addWidget(lblBetTotal);
    total->addWidget(lblExtendedBetAmt);
    g->addLayout(total, 6, 0, 1, 5);

    auto* betButtons = new QVBoxLayout;
    cmdAcceptBet = new QPushButton(fraBet);
    cmdAcceptBet->setObjectName("cmdAcceptBet");
    cmdCancelBet = new QPushButton(fraBet);
    cmdCancelBet->setObjectName("cmdCancelBet");
    cmdDelete = new QPushButton(fraBet);
    cmdDelete->setObjectName("cmdDelete");
    for (QPushButton* b : {cmdAcceptBet, cmdCancelBet, cmdDelete}) betButtons->addWidget(b);
    betButtons->addStretch();
    area->addLayout(betButtons);
    v->addWidget(fraBet);

    // ---- The ticket ----
    auto* ticket = new QHBoxLayout;
    flxBets = new QTableView(this);
    flxBets->setObjectName("flxBets");
    model_ = new GridModel(flxBets);
    flxBets->setModel(model_);
    flxBets->setSelectionMode(QAbstractItemView::SingleSelection);
    flxBets->setMinimumSize(Twips(5400), Twips(2200));
    ticket->addWidget(flxBets, 1);
    fraTicket = new QGroupBox(this);
    auto* f = new QGridLayout(fraTicket);
    lblRaceName = new QLabel(fraTicket);
    lblBettorName = new QLabel(fraTicket);
    lblNewAmtBet = new QLabel(fraTicket);
    lblAmtBet = new QLabel(fraTicket);
    lblOriginal = new QLabel(fraTicket);
    lblOriginalAmtBet = new QLabel(fraTicket);
    lblRaceName->setObjectName("lblRaceName");
    lblBettorName->setObjectName("lblBettorName");
    lblAmtBet->setObjectName("lblAmtBet");
    lblOriginalAmtBet->setObjectName("lblOriginalAmtBet");
    for (QLabel* l : {lblAmtBet, lblOriginalAmtBet}) l->setAlignment(Qt::AlignRight);
    lblAmtBet->setFont(bold);
    f->addWidget(lblRaceName, 0, 0, 1, 2);
    f->addWidget(lblBettorName, 1, 0, 1, 2);
    f->addWidget(lblNewAmtBet, 2, 0);
    f->addWidget(lblAmtBet, 2, 1);
    f->addWidget(lblOriginal, 3, 0);
    f->addWidget(lblOriginalAmtBet, 3, 1);
    f->setRowStretch(4, 1);
    fraTicket->setMinimumWidth(Twips(3200));
    ticket->addWidget(fraTicket);
    v->addLayout(ticket, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    cmdAcceptTicket = new QPushButton(this);
    cmdAcceptTicket->setObjectName("cmdAcceptTicket");
    cmdCancel = new QPushButton(this);
    cmdCancel->setObjectName("cmdCancel");
    cmdHelp = new QPushButton(this);
    cmdHelp->setObjectName("cmdHelp");
    for (QPushButton* b : {cmdAcceptTicket, cmdCancel, cmdHelp}) buttons->addWidget(b);
    v->addLayout(buttons);

    QList<QWidget*> order = {txtBetAmt, comBetType, chkBoxed};
    for (int i = 1; i <= 6; ++i) order << comPick[static_cast<std::size_t>(i)];
    order << cmdAcceptBet << cmdCancelBet << cmdDelete << flxBets << cmdAcceptTicket << cmdCancel
          << cmdHelp;
    for (int k = 1; k < order.size(); ++k) setTabOrder(order[k - 1], order[k]);

    connect(txtBetAmt, &QLineEdit::textEdited, this, [this](const QString& text) {
        Run([&] {
            logic.txtBetAmt.text = S(text);
            logic.txtBetAmt_Change();
        });
    });
    connect(comBetType, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (refreshing_) return;
        Run([&] {
            if (logic.comBetType.Select(index)) logic.comBetType_Click();
        });
    });
    connect(chkBoxed, &QCheckBox::clicked, this, [this](bool on) {
        Run([&] {
            logic.chkBoxed.value = on ? 1 : 0;
            logic.chkBoxed_Click();
        });
    });
    connect(cmdAcceptBet, &QPushButton::clicked, this,
            [this] { Run([&] { logic.cmdAcceptBet_Click(); }); });
    connect(cmdCancelBet, &QPushButton::clicked, this,
            [this] { Run([&] { logic.cmdCancelBet_Click(); }); });
    connect(cmdDelete, &QPushButton::clicked, this,
            [this] { Run([&] { logic.cmdDelete_Click(); }); });
    connect(cmdAcceptTicket, &QPushButton::clicked, this,
            [this] { Run([&] { logic.cmdAcceptTicket_Click(); }); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(cmdHelp, &QPushButton::clicked, this, [this] {
        Run([&] { DisplayContextHelp(AppHelpFile(), help::kPlaceBets, logic.caption); });
    });
    connect(flxBets, &QTableView::clicked, this, [this](const QModelIndex& index) {
        Run([&] { logic.flxBets_Click(index.row() + logic.flxBets.FixedRows()); });
    });
    connect(flxBets, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        Run([&] { logic.flxBets_DblClick(index.row() + logic.flxBets.FixedRows()); });
    });

    for (QWidget* w : findChildren<QWidget*>())
        if (!w->objectName().isEmpty()) w->installEventFilter(this);

    Run([&] { logic.Form_Load(); });
}

frmPlaceBets::~frmPlaceBets() {
    // The grid goes with the logic, before the view that shows it.
    model_->SetGrid(nullptr);
}
void frmPlaceBets::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

void frmPlaceBets::Refresh() {
    refreshing_ = true;
    fraBet->setTitle(Q(logic.fraBet.text));
    Apply(txtBetAmt, logic.txtBetAmt);
    for (int i = 1; i <= 5; ++i)
        Apply(cmdBetAmt[static_cast<std::size_t>(i)], logic.cmdBetAmt[static_cast<std::size_t>(i)]);
    for (int i = 1; i <= 11; ++i)
        Apply(cmdBetType[static_cast<std::size_t>(i)],
              logic.cmdBetType[static_cast<std::size_t>(i)]);
    ShowCombo(comBetType, logic.comBetType);
    Apply(chkBoxed, logic.chkBoxed);
    for (int i = 1; i <= 6; ++i) {
        ShowCombo(comPick[static_cast<std::size_t>(i)], logic.comPick[static_cast<std::size_t>(i)]);
        Apply(lblPick[static_cast<std::size_t>(i)], logic.lblPick[static_cast<std::size_t>(i)]);
    }
    Apply(lblBetTotal, logic.lblBetTotal);
    Apply(lblExtendedBetAmt, logic.lblExtendedBetAmt);
    Apply(cmdAcceptBet, logic.cmdAcceptBet);
    Apply(cmdCancelBet, logic.cmdCancelBet);
    Apply(cmdDelete, logic.cmdDelete);
    Apply(cmdAcceptTicket, logic.cmdAcceptTicket);
    Apply(cmdCancel, logic.cmdCancel);
    Apply(cmdHelp, logic.cmdHelp);
    fraTicket->setTitle(Q(logic.fraTicket.text));
    Apply(lblRaceName, logic.lblRaceName);
    Apply(lblBettorName, logic.lblBettorName);
    Apply(lblNewAmtBet, logic.lblNewAmtBet);
    Apply(lblAmtBet, logic.lblAmtBet);
    Apply(lblOriginal, logic.lblOriginal);
    Apply(lblOriginalAmtBet, logic.lblOriginalAmtBet);
    if (logic.flxBetsBuilds != shownBuilds_) {
        shownBuilds_ = logic.flxBetsBuilds;
        model_->SetGrid(&logic.flxBets);
        LayOutColumns(flxBets, logic.flxBets, 5);
    }
    flxBets->setToolTip(Q(logic.flxBetsState.toolTip));
    // A race with results keeps the list out of the tab order.
    flxBets->setFocusPolicy(logic.flxBetsState.enabled ? Qt::StrongFocus : Qt::ClickFocus);
    ApplyFocusAndSelection(this, logic, logic.selectText);
    refreshing_ = false;
    for (std::vector<QObject*> left = std::exchange(left_, {}); QObject * w : left) LostFocus(w);
    if (logic.unloaded && isVisible()) done(QDialog::Accepted);
}

void frmPlaceBets::LostFocus(QObject* watched) {
    if (logic.unloaded) return;
    if (watched == txtBetAmt && txtBetAmt->isEnabled())
        Run([&] { logic.txtBetAmt_LostFocus(); });
    else if (const int i = PickOf(watched); i != 0 && comPick[i]->isEnabled())
        Run([&] { logic.comPick_LostFocus(i); });
}

int frmPlaceBets::PickOf(const QObject* watched) const {
    for (int i = 1; i <= 6; ++i)
        if (watched == comPick[static_cast<std::size_t>(i)]) return i;
    return 0;
}

void frmPlaceBets::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Refresh();
}

bool frmPlaceBets::KeyPress(QObject* watched, QKeyEvent* e) {
    if (const auto taken = TicketWindowKeyDown(this, watched, e)) return *taken;
    const bool enter = IsEnterKey(e);
    if (enter && !e->isAutoRepeat()) {
        enter_.Pressed(watched);
        // A new key: whatever box the last one closed, it is gone.
        G.CancelFlag = false;
    }
    int key = CharCodeOf(e);
    if (key == 0 || key == '\t' || key == 27) return false;
    const int i = PickOf(watched);
    if (watched == txtBetAmt)
        Run([&] { logic.txtBetAmt_KeyPress(key); });
    else if (watched == comBetType)
        Run([&] { logic.comBetType_KeyPress(key); });
    else if (watched == chkBoxed)
        Run([&] { logic.chkBoxed_KeyPress(key); });
    else if (i != 0)
        Run([&] { logic.comPick_KeyPress(i, key); });
    else if (watched == flxBets && enter) {
        // Enter on a bet of the list brings it into the bet area, as a click does.
        const QModelIndex current = flxBets->currentIndex();
        if (current.isValid())
            Run([&] { logic.flxBets_Click(current.row() + logic.flxBets.FixedRows()); });
        return true;
    } else {
        return false;
    }
    return key == 0;
}

bool frmPlaceBets::eventFilter(QObject* watched, QEvent* event) {
    if (refreshing_) {
        // The focus the window itself moved: the box it left is left once the window is shown.
        if (event->type() == QEvent::FocusOut &&
            UserFocusReason(static_cast<QFocusEvent*>(event)->reason()))
            left_.push_back(watched);
        return QDialog::eventFilter(watched, event);
    }
    switch (event->type()) {
        case QEvent::KeyPress:
            if (KeyPress(watched, static_cast<QKeyEvent*>(event))) return true;
            break;
        case QEvent::KeyRelease: {
            auto* e = static_cast<QKeyEvent*>(event);
            if (!IsEnterKey(e) || e->isAutoRepeat()) break;
            if (!enter_.Released(watched)) return true;
            if (watched == comBetType)
                Run([&] { logic.comBetType_KeyUp(13); });
            else if (const int i = PickOf(watched); i != 0)
                Run([&] { logic.comPick_KeyUp(i, 13); });
            else
                break;
            return true;
        }
        case QEvent::FocusIn:
            if (!UserFocusReason(static_cast<QFocusEvent*>(event)->reason())) break;
            if (watched == txtBetAmt) Run([&] { logic.txtBetAmt_GotFocus(); });
            break;
        case QEvent::FocusOut:
            if (UserFocusReason(static_cast<QFocusEvent*>(event)->reason())) LostFocus(watched);
            break;
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

void frmPlaceBets::reject() {
    if (!logic.unloaded) {
        Guard(this, false, [&] { logic.cmdCancel_Click(); });
        if (!logic.unloaded) {
            Refresh();
            return;
        }
    }
    QDialog::reject();
}

}  // namespace tt::gui
