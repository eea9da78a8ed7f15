#include "betting/forms/frm_transaction.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"

namespace tt::gui {

namespace {

QPushButton* Button(QWidget* parent, const char* name) {
    auto* b = new QPushButton(parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    b->setMinimumWidth(Twips(1800));
    return b;
}

QLabel* Amount(QWidget* parent, const char* name) {
    auto* l = new QLabel(parent);
    l->setObjectName(name);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    l->setMinimumWidth(Twips(1300));
    return l;
}

}  // namespace

frmTransaction::frmTransaction(QWidget* parent) : QWidget(parent) {
    setObjectName("frmTransaction");
    setWindowTitle(Q(logic.caption));
    setProperty("HelpContextID", help::kTransaction);

    auto* h = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    flxTran = new QTableView(this);
    flxTran->setObjectName("flxTran");
    model_ = new GridModel(flxTran);
    flxTran->setModel(model_);
    flxTran->setSelectionMode(QAbstractItemView::SingleSelection);
    flxTran->setSelectionBehavior(QAbstractItemView::SelectRows);
    flxTran->setTabKeyNavigation(false);
    flxTran->setWordWrap(false);
    flxTran->setMinimumSize(Twips(7800), Twips(2400));
    left->addWidget(flxTran, 1);

    fraAmounts = new QGroupBox(this);
    fraAmounts->setObjectName("fraAmounts");
    auto* totals = new QGridLayout(fraAmounts);
    lblBetAmt = Amount(fraAmounts, "lblBetAmt");
    lblCollected = Amount(fraAmounts, "lblCollected");
    lblCashed = Amount(fraAmounts, "lblCashed");
    lblNet = Amount(fraAmounts, "lblNet");
    auto caption = [&](const char* text, QLabel* amount, int row, int col) {
        auto* l = new QLabel(text, fraAmounts);
        l->setToolTip(Q(row == 0 && col == 0   ? logic.lblBetAmt.toolTip
                        : row == 0             ? logic.lblCollected.toolTip
                        : row == 1 && col == 0 ? logic.lblCashed.toolTip
                                               : logic.lblNet.toolTip));
        totals->addWidget(l, row, col);
        totals->addWidget(amount, row, col + 1);
    };
    caption("Bet:", lblBetAmt, 0, 0);
    caption("Collected:", lblCollected, 0, 2);
    caption("Cashed:", lblCashed, 1, 0);
    caption("Net:", lblNet, 1, 2);
    totals->setColumnMinimumWidth(2, Twips(900));
    totals->setColumnStretch(4, 1);
    left->addWidget(fraAmounts);
    h->addLayout(left, 1);

    auto* right = new QVBoxLayout;
    cmdNew = Button(this, "cmdNew");
    cmdEdit = Button(this, "cmdEdit");
    cmdCash = Button(this, "cmdCash");
    cmdDelete = Button(this, "cmdDelete");
    cmdCancel = Button(this, "cmdCancel");
    cmdRelease = Button(this, "cmdRelease");
    cmdOK = Button(this, "cmdOK");
    cmdClose = Button(this, "cmdClose");
    cmdHelp = Button(this, "cmdHelp");
    lblTransInPrinter = new QLabel(this);
    lblTransInPrinter->setObjectName("lblTransInPrinter");
    lblTransInPrinter->setWordWrap(true);
    lblTransInPrinter->setAlignment(Qt::AlignCenter);
    for (QPushButton* b : {cmdNew, cmdEdit, cmdCash}) right->addWidget(b);
    right->addSpacing(Twips(180));
    for (QPushButton* b : {cmdDelete, cmdCancel}) right->addWidget(b);
    right->addSpacing(Twips(180));
    right->addWidget(lblTransInPrinter);
    right->addWidget(cmdRelease);
    right->addStretch();
    for (QPushButton* b : {cmdOK, cmdClose, cmdHelp}) right->addWidget(b);
    h->addLayout(right);

    auto click = [this](QPushButton* b, void (TransactionLogic::*handler)()) {
        connect(b, &QPushButton::clicked, this,
                [this, handler] { Run([&] { (logic.*handler)(); }); });
    };
    click(cmdNew, &TransactionLogic::cmdNew_Click);
    click(cmdEdit, &TransactionLogic::cmdEdit_Click);
    click(cmdCash, &TransactionLogic::cmdCash_Click);
    click(cmdDelete, &TransactionLogic::cmdDelete_Click);
    click(cmdCancel, &TransactionLogic::cmdCancel_Click);
    click(cmdRelease, &TransactionLogic::cmdRelease_Click);
    click(cmdOK, &TransactionLogic::cmdOK_Click);
    click(cmdClose, &TransactionLogic::cmdClose_Click);
    logic.onHelp = [this] { DisplayContextHelp(AppHelpFile(), help::kTransaction, logic.caption); };
    connect(cmdHelp, &QPushButton::clicked, this, [this] { Run([this] { logic.onHelp(); }); });
    logic.onReshow = [this] {
        // Trash: the window unloads and shows anew with an empty transaction.
        placement_.Save();
        logic.Form_Load();
    };

    connect(flxTran, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        Run([&] {
            logic.flxTran.SetRow(index.row() + 1);
            logic.flxTran_DblClick();
        });
    });
    connect(flxTran->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (refreshing_) return;
                Guard(this, false,
                      [&] { logic.flxTran.SetRow(current.isValid() ? current.row() + 1 : 0); });
            });

    // The keys of the window are read wherever the focus is in it.
    for (QWidget* w : findChildren<QWidget*>()) w->installEventFilter(this);
    installEventFilter(this);
    setTabOrder(cmdNew, cmdEdit);

    Run([this] { logic.Form_Load(); });
}

frmTransaction::~frmTransaction() {
    // The grids go with the logic, before the views that show them.
    model_->SetGrid(nullptr);
}

void frmTransaction::Run(const std::function<void()>& event) {
    if (refreshing_) return;
    Guard(this, false, event);
    Refresh();
}

void frmTransaction::Refresh() {
    refreshing_ = true;
    setWindowTitle(Q(logic.caption));
    for (auto [button, state] : {std::pair{cmdNew, &logic.cmdNew},
                                 {cmdEdit, &logic.cmdEdit},
                                 {cmdCash, &logic.cmdCash},
                                 {cmdDelete, &logic.cmdDelete},
                                 {cmdCancel, &logic.cmdCancel},
                                 {cmdRelease, &logic.cmdRelease},
                                 {cmdOK, &logic.cmdOK},
                                 {cmdClose, &logic.cmdClose},
                                 {cmdHelp, &logic.cmdHelp}})
        Apply(button, *state);
    fraAmounts->setTitle(Q(logic.fraAmounts.text));
    Apply(lblBetAmt, logic.lblBetAmt);
    Apply(lblCollected, logic.lblCollected);
    Apply(lblCashed, logic.lblCashed);
    Apply(lblNet, logic.lblNet);
    Apply(lblTransInPrinter, logic.lblTransInPrinter);
    model_->SetGrid(&logic.flxTran);
    ApplyGridLayout(flxTran, logic.flxTran);
    // The widths of the design are the least a column gets: its head and its cells are read
    // whole, and the names of bettors and races take the room the window has.
    QHeaderView* header = flxTran->horizontalHeader();
    const QAbstractItemView* view = flxTran;
    for (int c = 0; c < logic.flxTran.Cols(); ++c) {
        const int w = std::max(
            {flxTran->columnWidth(c), header->sectionSizeHint(c), view->sizeHintForColumn(c)});
        flxTran->setColumnWidth(c, w);
    }
    header->setSectionResizeMode(2, QHeaderView::Stretch);
    header->setSectionResizeMode(3, QHeaderView::Stretch);
    ShowSelectedRow();
    ApplyFocus(this, logic);
    refreshing_ = false;
    if (logic.unloaded) Unload();
}

void frmTransaction::ShowSelectedRow() {
    const int r = logic.flxTran.Row();
    if (r >= 1 && r < logic.flxTran.Rows()) {
        const QModelIndex index = model_->index(r - 1, 0);
        flxTran->selectionModel()->setCurrentIndex(
            index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    } else {
        flxTran->selectionModel()->clearSelection();
        flxTran->selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    }
}

void frmTransaction::RefreshContents() {
    Refresh();
}

void frmTransaction::Unload() {
    if (closing_) return;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        sub->close();
    else
        close();
}

void frmTransaction::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (placement_.Placed()) return;
    placement_.Restore();
    cmdNew->setFocus(Qt::OtherFocusReason);
}

void frmTransaction::closeEvent(QCloseEvent* event) {
    if (!logic.unloaded) {
        bool cancel = false;
        Guard(this, false, [&] { logic.Form_QueryUnload(cancel); });
        if (cancel) {
            event->ignore();
            Refresh();
            return;
        }
        Guard(this, false, [&] { logic.Form_Unload(); });
        logic.Unload();
    }
    closing_ = true;
    placement_.Save();
    event->accept();
}

bool frmTransaction::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return QWidget::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    const int k = key->key();
    // Shift and Ctrl do not matter; Alt belongs to the menus.
    const bool letter = k >= Qt::Key_A && k <= Qt::Key_Z && !(key->modifiers() & Qt::AltModifier);
    if (event->type() == QEvent::KeyPress) {
        if (watched == flxTran && (k == Qt::Key_Return || k == Qt::Key_Enter)) {
            Run([this] { logic.flxTran_DblClick(); });
            return true;
        }
        if (watched == flxTran && k == Qt::Key_Backspace) {
            Run([this] { logic.flxTran_Backspace(); });
            return true;
        }
        if (letter) {
            if (!key->isAutoRepeat()) pressed_.insert(k);
            // No search by first letter in the grid: the letters are the window's keys.
            return true;
        }
        return QWidget::eventFilter(watched, event);
    }
    if (letter && !key->isAutoRepeat() && pressed_.remove(k)) {
        Run([&] { logic.Form_KeyUp(k); });
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tt::gui
